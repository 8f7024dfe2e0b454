#include "render/gl/FontFile.h"
#include "render/gl/FreeType.h"
#include "render/gl/Glyph.h"
#include "render/gl/SceneFixture.h"

#include <gmock/gmock.h>

namespace
{

using namespace orvex::render;
using namespace orvex::render::gl;

boost::intrusive_ptr<Font> systemFont()
{
  return FreeType::instance()->createFont(systemFontFile("Arial"));
}

std::pair<double, double> bearing(const Glyph& glyph)
{
  std::pair<double, double> result;
  glyph.horizontalBearing(result.first, result.second);
  return result;
}

TEST(Font, GivesGlyphsInPixelsOf32)
{
  EXPECT_FALSE(FreeType::instance()->createFont("/no/such/font.ttf"));
  const auto font = systemFont(); // a missing file leaves the library usable
  Glyph* h = font->getGlyph('H');
  EXPECT_EQ(font->getGlyph('H'), h) << "made once";
  EXPECT_NEAR(h->height(), 23, 1) << "the height of capitals in 32 pixels";
  EXPECT_GT(std::count(h->buffer(), h->buffer() + h->width() * h->height(), 255), 60);
  EXPECT_EQ(bearing(*h).second, 0.0);
  EXPECT_LT(bearing(*font->getGlyph('g')).second, -4.0) << "the bottom edge, below the baseline";
  EXPECT_GT(font->getGlyph(' ')->horizontalAdvance(), 5.0);
}

TEST(Label, LaysQuadsAlongThePenAt15Pixels)
{
  constexpr double scale = 15.0 / 32.0;
  const auto font = systemFont();
  const std::string name = "AVA gq";
  const boost::intrusive_ptr<Text> text(new Text({0.0, 0.0}, name, font));
  ASSERT_EQ(text->numberOfGlyphs(), name.size());
  double pen = 0.0;
  double leastKerning = 0.0;
  for (std::size_t i = 0; i < name.size(); ++i)
  {
    SCOPED_TRACE(i);
    const Glyph& glyph = *font->getGlyph(name[i]);
    const double x0 = pen + bearing(glyph).first * scale;
    const double y0 = bearing(glyph).second * scale;
    const double x1 = x0 + glyph.width() * scale;
    const double y1 = y0 + glyph.height() * scale;
    EXPECT_THAT(std::vector<double>(text->quad(i), text->quad(i) + 8),
                testing::Pointwise(testing::DoubleNear(1e-4), {x0, y0, x1, y0, x1, y1, x0, y1}));
    double kerning = 0.0;
    double unused = 0.0;
    if (i > 0)
    {
      font->getKerning(name[i - 1], name[i], kerning, unused);
    }
    pen += (glyph.horizontalAdvance() + kerning) * scale;
    leastKerning = std::min(leastKerning, kerning);
  }
  EXPECT_LT(leastKerning, 0.0) << "a pair that kerns, or the above proves nothing of kerning";
  EXPECT_FLOAT_EQ(static_cast<float>(text->boundingBox().minimum.x), text->quad(0)[0]);
  EXPECT_FLOAT_EQ(static_cast<float>(text->boundingBox().maximum.x), text->quad(5)[4]);

  for (const auto& empty : {new Text({0.5, 0.5}, "name", nullptr), new Text({0.5, 0.5}, "", font)})
  {
    const boost::intrusive_ptr<Text> owner(empty);
    EXPECT_EQ(empty->numberOfGlyphs(), 0u);
    EXPECT_FALSE(empty->getBoundingBoxScreenSpace(Kelmar::Math::Matrix44d()).valid());
  }
}

using Rows = std::vector<std::pair<double, std::string>>;

/// Labels in a column. One unit is one pixel where the area has a size of 2.
struct Column
{
  explicit Column(const Rows& rows, unsigned int size = 2)
  {
    for (const auto& [row, name] : rows)
    {
      labels->addText({0.0, row}, name);
    }
    state->viewport({0, 0, size, size});
  }
  boost::intrusive_ptr<RenderTaxonLabels> labels{new RenderTaxonLabels};
  boost::intrusive_ptr<State> state{new State};
};

TEST(Label, ThinningComparesWithTheLastLabelKept)
{
  // A capital is 23 * 0.46875 = 10.8 pixels high. An empty label is kept and runs into nothing.
  for (const auto& [second, third, middle, expected] :
       {std::tuple(95.0, 88.0, "B", "101"), std::tuple(95.0, 91.0, "B", "001"), // C runs into A
        std::tuple(80.0, 60.0, "B", "111"), std::tuple(99.0, 98.0, "", "111")})
  {
    const Column column({{100.0, "A"}, {second, middle}, {third, "C"}});
    for (const unsigned int size : {2u, 2000u}) // a level is decided once
    {
      column.state->viewport({0, 0, size, size});
      std::string kept; // the last label first
      to_string(column.labels->getOrCreateTextForLevel(3, *column.state), kept);
      EXPECT_EQ(kept, expected) << second << " " << third;
    }
  }
}

// The walk over what is in view against the walk over everything.
TEST(Label, FindsTheLabelsOfARangeOfRows)
{
  std::mt19937 random(99);
  Rows rows;
  for (double row = 3000.0; rows.size() < 500; row -= 0.01 * double(random() % 1200))
  {
    rows.emplace_back(row, rows.size() % 7 == 0 ? "" : rows.size() % 2 == 0 ? "gjq" : "TEA");
  }
  const auto [labels, state] = Column(rows);
  const auto& kept = labels->getOrCreateTextForLevel(0, *state);
  const auto& texts = labels->texts();
  const Kelmar::Math::Matrix44d matrix = state->getLocalToScreenMatrix();
  const auto boxOf = [&](std::size_t i) { return texts[i]->getBoundingBoxScreenSpace(matrix); };
  for (int round = 0; round < 300; ++round)
  {
    // Ends on the border of a label, or anywhere.
    const Box2D border = boxOf(1 + random() % 499);
    const double low = round % 2 && border.valid() ? border.maximum.y : double(random() % 3000);
    const double high = low + double(random() % 600);
    std::vector<Text*> expected;
    for (std::size_t i = kept.find_first(); i < kept.size(); i = kept.find_next(i))
    {
      if (std::min(boxOf(i).maximum.y, high) >= std::max(boxOf(i).minimum.y, low))
      {
        expected.push_back(texts[i].get());
      }
    }
    std::vector<Text*> found;
    labels->findTextForLevel(0, *state, low, high, found);
    EXPECT_EQ(found, expected) << "rows " << low << " to " << high;
  }
}

} // namespace

#include "render/gl/font/FontFile.h"
#include "render/gl/font/FreeType.h"
#include "render/gl/font/Glyph.h"
#include "support/Outcome.h"
#include "support/SceneFixture.h"

using namespace orvex::render;
using namespace orvex::render::gl;

static boost::intrusive_ptr<Font> arial()
{
  return FreeType::instance()->createFont(systemFontFile("Arial").path);
}

TEST(LabelFont, MakesEachGlyphOnceAt32Pixels)
{
  EXPECT_FALSE(FreeType::instance()->createFont("/no/such/font.ttf"));
  const auto font = arial();
  Glyph* h = font->getGlyph('H');
  EXPECT_EQ(font->getGlyph('H'), h);
  EXPECT_NEAR(h->height(), 23, 1) << "the height of capitals";
  EXPECT_GT(std::count(h->buffer(), h->buffer() + h->width() * h->height(), 255), 60);
}

TEST(Label, LaysGlyphsAlongThePenAt15Pixels)
{
  constexpr double scale = 15.0 / 32.0;
  const auto font = arial();
  const std::string name = "AVA gq";
  const boost::intrusive_ptr<Text> text(new Text({0.0, 0.0}, name, font));
  const std::vector<Text::Quad> quads = text->quads();
  ASSERT_EQ(quads.size(), name.size());
  double pen = 0.0;
  for (std::size_t i = 0; i < name.size(); ++i)
  {
    const Glyph& glyph = *font->getGlyph(name[i]);
    double x0 = 0.0, y0 = 0.0, kerning = 0.0, unused = 0.0;
    glyph.horizontalBearing(x0, y0);
    EXPECT_EQ(y0 < -4.0, name[i] == 'g' || name[i] == 'q') << "the bottom edge";
    x0 = pen + x0 * scale;
    y0 *= scale;
    const double x1 = x0 + glyph.width() * scale;
    const double y1 = y0 + glyph.height() * scale;
    EXPECT_THAT(quads[i].corners,
                testing::Pointwise(testing::DoubleNear(1e-4), {x0, y0, x1, y0, x1, y1, x0, y1}));
    if (i > 0)
    {
      font->getKerning(name[i - 1], name[i], kerning, unused);
    }
    pen += (glyph.horizontalAdvance() + kerning) * scale;
  }
  EXPECT_LT(quads[1].corners[0], quads[0].corners[2]) << "A and V kern, so that they overlap";
  EXPECT_FLOAT_EQ(static_cast<float>(text->boundingBox().minimum.x), quads[0].corners[0]);
  EXPECT_FLOAT_EQ(static_cast<float>(text->boundingBox().maximum.x), quads[5].corners[4]);
}

TEST(Label, WithoutAFontHasNoBox)
{
  const boost::intrusive_ptr<Text> text(new Text({0.5, 0.5}, "name", nullptr));
  EXPECT_FALSE(text->getBoundingBoxScreenSpace(Kelmar::Math::Matrix44d()).valid());
}

using Rows = std::vector<std::pair<double, std::string>>;

/// Labels in a column. One unit is one pixel in an area of size 2.
struct Column
{
  explicit Column(const Rows& rows, std::size_t mostBytes = 1000)
      : labels(new RenderTaxonLabels(mostBytes))
  {
    for (const auto& [row, name] : rows)
    {
      labels->addText({0.0, row}, name);
    }
    state->viewport({0, 0, 2, 2});
  }
  boost::intrusive_ptr<RenderTaxonLabels> labels;
  boost::intrusive_ptr<State> state{new State};
};

TEST(LabelFont, LeavesOutGlyphsOfOneBitForEachPixel)
{
  const std::string path = writeFile(newFolder() + "/bits.bdf", R"(STARTFONT 2.1
FONT -x-bits-medium-r-normal--8-80-75-75-c-80-iso10646-1
SIZE 8 75 75
FONTBOUNDINGBOX 8 2 0 0
CHARS 1
STARTCHAR A
ENCODING 65
SWIDTH 500 0
DWIDTH 8 0
BBX 8 2 0 0
BITMAP
FF
FF
ENDCHAR
ENDFONT
)");
  const boost::intrusive_ptr<Font> font(FreeType::instance()->createFont(path));
  ASSERT_NE(font, nullptr);
  EXPECT_EQ(font->getGlyph('A'), nullptr);
}

// A capital is 23 * 0.46875 = 10.8 pixels high.
TEST(Label, IsKeptWhereItRunsIntoNoLabelKeptBefore)
{
  for (const auto& [what, second, third, name, expected] : // of rows below one at 100
       {std::tuple("the second runs into the first", 95.0, 88.0, "B", "101"),
        std::tuple("so does the third, past the second", 95.0, 91.0, "B", "001"),
        std::tuple("none runs into another", 80.0, 60.0, "B", "111"),
        std::tuple("an empty label runs into nothing", 99.0, 98.0, "", "111")})
  {
    const Column column({{100.0, "A"}, {second, name}, {third, "C"}});
    for (const unsigned int size : {2u, 2000u}) // a level is decided once
    {
      column.state->viewport({0, 0, size, size});
      std::string kept; // the last label first
      to_string(column.labels->getOrCreateTextForLevel(3, *column.state), kept);
      EXPECT_EQ(kept, expected) << what;
    }
  }
}

// Compared with a walk over all labels, also for a level whose bits were let go and made again. The
// names have one height, or up to six; the gap is in pixels, and may be what rounding must decide.
TEST(Label, ThinsAsTheWalkOverAllDoes)
{
  std::mt19937 random(7);
  const std::vector<std::string> names{"TEA", "gjq", "Tig", "ace", "_", "'", ""};
  const double high = 14.0625; // from the bottom of "g" to the top of "T"
  const std::vector<double> gaps{24.0,     high, high / 2, high - 0.01, high / 30, 13.90625,
                                 13.59375, 12.0, 6.0,      1.5,         0.1875};
  for (std::size_t round = 0; round < 231; ++round)
  {
    SCOPED_TRACE(round);
    const std::size_t scale = std::size_t(1) << random() % 12;
    const double gap = gaps[round % gaps.size()] / double(scale);
    Rows rows;
    for (double row = 1.0 + double(round % 3); rows.size() < 700;
         row -= round % 2 ? gap : gap * double(random() % 3))
    {
      rows.emplace_back(row, names[random() % (1 + round / 33)]);
    }
    Column column(rows, 0); // holds the latest level only
    column.state->viewport({0, 0, 2 * unsigned(scale), 2 * unsigned(scale)});
    const Kelmar::Math::Matrix44d matrix = column.state->getLocalToScreenMatrix();
    RenderTaxonLabels::Kept expected;
    Box2D last;
    for (const auto& text : column.labels->texts())
    {
      const Box2D box = text->getBoundingBoxScreenSpace(matrix);
      expected.push_back(expected.empty() || !box.intersects(last));
      last = expected[expected.size() - 1] ? box : last;
    }
    for (const unsigned int level : {1u, 2u, 1u})
    {
      const auto& kept = column.labels->getOrCreateTextForLevel(level, *column.state);
      EXPECT_TRUE(level == 2 || kept == expected) << kept.count() << " " << expected.count();
      EXPECT_EQ(column.labels->levelsHeld(), 1u);
      column.state->viewport({0, 0, 20, 20});
    }
  }
}

// Compared with a walk over all labels.
TEST(Label, FindsTheLabelsOfARangeOfRows)
{
  std::mt19937 random(99);
  Rows rows;
  for (double row = 3000.0; rows.size() < 500; row -= 0.01 * double(random() % 1200))
  {
    rows.emplace_back(row, rows.size() % 7 == 0 ? "" : rows.size() % 2 == 0 ? "gjq" : "TEA");
  }
  const Column column(rows);
  const auto& kept = column.labels->getOrCreateTextForLevel(0, *column.state);
  const auto& texts = column.labels->texts();
  const Kelmar::Math::Matrix44d matrix = column.state->getLocalToScreenMatrix();
  for (int round = 0; round < 300; ++round)
  {
    // Ends on the border of a label, or anywhere.
    const Box2D border = texts[1 + random() % 499]->getBoundingBoxScreenSpace(matrix);
    const double low = round % 2 && border.valid() ? border.maximum.y : double(random() % 3000);
    const double high = low + double(random() % 600);
    std::vector<Text*> expected;
    for (std::size_t i = kept.find_first(); i < kept.size(); i = kept.find_next(i))
    {
      const Box2D box = texts[i]->getBoundingBoxScreenSpace(matrix);
      if (std::min(box.maximum.y, high) >= std::max(box.minimum.y, low))
      {
        expected.push_back(texts[i].get());
      }
    }
    std::vector<Text*> found;
    column.labels->findTextForLevel(0, *column.state, low, high, found);
    EXPECT_EQ(found, expected) << "rows " << low << " to " << high;
  }
}

#include "render/gl/SceneFixture.h"

#include "render/gl/FontFile.h"
#include "render/gl/FreeType.h"
#include "render/gl/Glyph.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

using namespace orvex::render;
using namespace orvex::render::gl;
using Kelmar::Math::Matrix44d;

boost::intrusive_ptr<Font> systemFont()
{
  return FreeType::instance()->createFont(systemFontFile("Arial"));
}

boost::intrusive_ptr<Text> label(const std::string& text)
{
  return new Text({0.0, 0.0}, text, systemFont());
}

TEST(Font, GivesGlyphsInPixelsOf32)
{
  const auto font = systemFont();
  ASSERT_TRUE(font);
  Glyph* h = font->getGlyph('H');
  ASSERT_TRUE(h);
  EXPECT_EQ(font->getGlyph('H'), h) << "made once";
  EXPECT_NEAR(h->height(), 23, 1) << "the height of capitals in 32 pixels";
  EXPECT_GT(std::count(h->buffer(), h->buffer() + h->width() * h->height(), 255), 60);

  double x = 0.0;
  double y = 0.0;
  font->getGlyph('g')->horizontalBearing(x, y);
  EXPECT_LT(y, -4.0) << "the bottom edge, below the baseline";
  h->horizontalBearing(x, y);
  EXPECT_EQ(y, 0.0);
  EXPECT_GT(x, 0.0);

  const Glyph* space = font->getGlyph(' ');
  EXPECT_EQ(space->width() * space->height(), 0u);
  EXPECT_GT(space->horizontalAdvance(), 5.0);
  EXPECT_FALSE(FreeType::instance()->createFont("/no/such/font.ttf"));
  EXPECT_TRUE(systemFont()) << "a missing file leaves the library usable";
}

TEST(Label, LaysQuadsAlongThePenAt15Pixels)
{
  const auto font = systemFont();
  const std::string name = "AVA gq";
  const auto text = label(name);
  float pen = 0.0f;
  char previous = 0;
  ASSERT_EQ(text->numberOfGlyphs(), name.size());
  for (std::size_t i = 0; i < name.size(); ++i)
  {
    SCOPED_TRACE(i);
    const Glyph* glyph = font->getGlyph(name[i]);
    double bx = 0.0;
    double by = 0.0;
    glyph->horizontalBearing(bx, by);
    const float* quad = text->quad(i);
    EXPECT_FLOAT_EQ(quad[0], pen + static_cast<float>(bx) * 0.46875f);
    EXPECT_FLOAT_EQ(quad[1], static_cast<float>(by) * 0.46875f);
    EXPECT_FLOAT_EQ(quad[4] - quad[0], static_cast<float>(glyph->width()) * 0.46875f);
    EXPECT_FLOAT_EQ(quad[5] - quad[1], static_cast<float>(glyph->height()) * 0.46875f);
    EXPECT_EQ(quad[2], quad[4]);
    EXPECT_EQ(quad[3], quad[1]);
    EXPECT_EQ(quad[6], quad[0]);
    EXPECT_EQ(quad[7], quad[5]);
    pen += static_cast<float>(glyph->horizontalAdvance()) * 0.46875f;
    if (previous != 0)
    {
      double kx = 0.0;
      double ky = 0.0;
      font->getKerning(previous, name[i], kx, ky);
      pen += static_cast<float>(kx) * 0.46875f;
    }
    previous = name[i];
  }
  double kx = 0.0;
  double ky = 0.0;
  font->getKerning('A', 'V', kx, ky);
  EXPECT_LT(kx, 0.0) << "a pair that kerns, or the above proves nothing of kerning";
  EXPECT_FLOAT_EQ(static_cast<float>(text->boundingBox().minimum.x), text->quad(0)[0]);
  EXPECT_FLOAT_EQ(static_cast<float>(text->boundingBox().maximum.x), text->quad(5)[4]);
}

TEST(Label, WithoutFontOrCharactersIsEmpty)
{
  const boost::intrusive_ptr<Text> noFont(new Text({0.5, 0.5}, "name", nullptr));
  const auto empty = label("");
  for (const auto& text : {noFont, empty})
  {
    EXPECT_EQ(text->numberOfGlyphs(), 0u);
    EXPECT_FALSE(text->boundingBox().valid());
    EXPECT_FALSE(text->getBoundingBoxScreenSpace(Matrix44d()).valid());
  }
  const boost::intrusive_ptr<RenderTaxonLabels> labels(new RenderTaxonLabels);
  labels->addText({1.0, 1.0}, "");
  EXPECT_FALSE(labels->boundingBox().valid());
  EXPECT_EQ(labels->texts().size(), 1u);
}

std::string keptAt(RenderTaxonLabels& labels, unsigned int level, const State& state)
{
  const RenderTaxonLabels::Kept& kept = labels.getOrCreateTextForLevel(level, state);
  std::string names;
  for (std::size_t i = 0; i < kept.size(); ++i)
  {
    names += kept[i] ? labels.texts()[i]->text() : "";
  }
  return names;
}

/// Labels in a column. One unit is one pixel, so positions are pixels.
std::string keptOf(const std::vector<double>& rows, const std::vector<std::string>& names)
{
  const boost::intrusive_ptr<RenderTaxonLabels> labels(new RenderTaxonLabels);
  for (std::size_t i = 0; i < rows.size(); ++i)
  {
    labels->addText({0.0, rows[i]}, names[i]);
  }
  const boost::intrusive_ptr<State> state(new State);
  state->viewport({0, 0, 2, 2}); // with identity matrices, a scale of one
  const std::string kept = keptAt(*labels, 3, *state);
  state->viewport({0, 0, 2000, 2000});
  EXPECT_EQ(keptAt(*labels, 3, *state), kept) << "a level is decided once";
  return kept;
}

TEST(Label, ThinningComparesWithTheLastLabelKept)
{
  // A capital is 23 * 0.46875 = 10.8 pixels high.
  EXPECT_EQ(keptOf({100.0, 95.0, 88.0}, {"A", "B", "C"}), "AC");
  EXPECT_EQ(keptOf({100.0, 95.0, 91.0}, {"A", "B", "C"}), "A") << "with A, not with B";
  EXPECT_EQ(keptOf({100.0, 80.0, 60.0}, {"A", "B", "C"}), "ABC");
  EXPECT_EQ(keptOf({100.0, 99.0, 98.0}, {"A", "", "C"}), "AC")
      << "an empty label is kept and runs into nothing";
  EXPECT_EQ(keptOf({}, {}), "");
}

// The walk over what is in view against the walk over everything.
TEST(Label, FindsTheLabelsOfARangeOfRows)
{
  const unsigned int seed = 99;
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  const boost::intrusive_ptr<RenderTaxonLabels> labels(new RenderTaxonLabels);
  double row = 3000.0;
  for (int i = 0; i < 500; ++i)
  {
    labels->addText({0.0, row}, i % 7 == 0 ? "" : i % 2 == 0 ? "gjq" : "TEA");
    row -= 0.01 * double(random() % 1200);
  }
  const boost::intrusive_ptr<State> state(new State);
  state->viewport({0, 0, 2, 2});
  const auto& kept = labels->getOrCreateTextForLevel(0, *state);
  const auto matrix = state->getLocalToScreenMatrix();
  for (int round = 0; round < 300; ++round)
  {
    // Ends on the border of a label, or anywhere.
    const Box2D border = labels->texts()[1 + random() % 499]->getBoundingBoxScreenSpace(matrix);
    const double low = round % 2 && border.valid() ? border.maximum.y : double(random() % 3000);
    const double high = low + double(random() % 600);
    std::vector<Text*> expected;
    for (std::size_t i = 0; i < kept.size(); ++i)
    {
      const Box2D box = labels->texts()[i]->getBoundingBoxScreenSpace(matrix);
      if (kept[i] && std::min(box.maximum.y, high) >= std::max(box.minimum.y, low))
      {
        expected.push_back(labels->texts()[i].get());
      }
    }
    std::vector<Text*> found;
    labels->findTextForLevel(0, *state, low, high, found);
    EXPECT_EQ(found, expected) << "rows " << low << " to " << high;
  }
}

} // namespace

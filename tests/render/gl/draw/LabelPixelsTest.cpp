// The shades of lines with their labels.

#include "support/PixelTest.h"

#include "render/gl/font/Glyph.h"

using namespace orvex::render;
using namespace orvex::render::gl;

class LabelPixels : public PixelTest
{
};

/// How much of a pixel a glyph covers whose bitmap has this position in the pixel's centre: by
/// linear interpolation, with nothing around the bitmap.
static double coverage(const Glyph& glyph, double x, double y)
{
  const int column = int(std::floor(x - 0.5)), row = int(std::floor(y - 0.5));
  const double right = x - 0.5 - column, below = y - 0.5 - row;
  const auto at = [&](int dx, int dy)
  {
    const auto i = unsigned(column + dx), j = unsigned(row + dy);
    return i < glyph.width() && j < glyph.height() ? glyph.buffer()[j * glyph.width() + i] : 0;
  };
  return (at(0, 0) * (1 - right) + at(1, 0) * right) * (1 - below) +
         (at(0, 1) * (1 - right) + at(1, 1) * right) * below;
}

/// Elbows and the labels of the leaves. What is drawn first in a pixel stays.
struct ElbowsAndLabels : Elbows
{
  /// \param edge  A pixel whose centre is so near to the edge of a glyph's quad is left open. Which
  ///              of its samples are drawn, if any, differs from renderer to renderer.
  ElbowsAndLabels(const orvex::Tree& tree, LayoutInfo2D& layout, const State& state, double edge)
      : Elbows(tree, layout, state)
  {
    for (int node = 0; node < int(tree.getNumberOfNodes()); ++node)
    {
      if (tree.isLeaf(node))
      {
        labels->addText(layout.layoutInfoForNode(node).position, tree.getName(node));
        graph.addText(labels->texts().back());
        add(*labels->texts().back(), state, edge);
      }
    }
  }

  void add(const Text& text, const State& state, double edge)
  {
    const auto anchor = text.anchorScreenSpace(state.getLocalToScreenMatrix());
    const Box2D box = text.boundingBox();
    const double centre = (box.minimum.y + box.maximum.y) / 2;
    for (const Text::Quad& quad : text.quads())
    {
      add(quad, anchor[0], anchor[1] - centre, edge, state.viewport());
    }
  }

  void add(const Text::Quad& quad, double x, double y, double edge, const Viewport& area)
  {
    constexpr double scale = 15.0 / 32.0;
    const double left = x + quad.corners[0], right = x + quad.corners[4];
    const double bottom = y + quad.corners[1], top = y + quad.corners[5];
    for (int row = std::max(0, int(bottom) - 1); row < std::min(top + 1, area.height + 0.0); ++row)
    {
      for (int column = int(left) - 1; column < std::min(right + 1, 60.0 + area.width); ++column)
      {
        const double u = column + 0.5 - left, v = top - row - 0.5;
        const double inside = std::min({u, right - left - u, v, top - bottom - v});
        if (inside > -edge && expected.pixelColor(column, row) == Qt::black)
        {
          const int shade = int(std::lround(coverage(*quad.glyph, u / scale, v / scale)));
          // Never black, as a pixel is into which nothing was drawn.
          expected.setPixelColor(column, row,
                                 inside < edge ? QColor(Qt::red) : QColor(0, shade, 1));
        }
      }
    }
  }

  boost::intrusive_ptr<RenderTaxonLabels> labels{new RenderTaxonLabels};
};

TEST_P(LabelPixels, HaveTheShadesOfTheGlyphsBesideTheLines)
{
  const auto tree = orvex::NewickReader().parseContents(randomNewick(60, 3));
  const auto layout = boost::intrusive_ptr<TreeLayout2D>(new LayoutCladogram)->layout(tree);
  for (unsigned int w = 640; w < 740; w += 8)
  {
    const auto state = Look{w, 600, 1.0 + w % 3, (w % 5 - 2.0) / 10}.state(60);
    // Old drivers have no other textures.
    for (const bool powersOfTwo : {false, true})
    {
      __GLEW_ARB_texture_non_power_of_two = !powersOfTwo;
      const ElbowsAndLabels all(*tree, *layout, *state, GetParam() ? 0.51 : 0.01);
      EXPECT_EQ(pixelsThatDiffer(draw(all.graph, *state), all.expected), 0)
          << "width " << w << " powers of two " << powersOfTwo;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Samples, LabelPixels, testing::Bool());

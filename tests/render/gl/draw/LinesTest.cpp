// Which pixels lines light.

#include "support/PixelTest.h"

using namespace orvex::render;
using namespace orvex::render::gl;

class LinesTest : public PixelTest
{
};

TEST_P(LinesTest, LightEachPixelOfEachElbowAndNoOther)
{
  using orvex::generate::TreeShape;
  std::vector<Look> looks{{700, 600, 1.0, 0.0, true}, {70, 613, 1.0, 0.0, true}, {3, 2}};
  // A step of the width moves the columns by fractions of a pixel, also over multiples of 64.
  for (unsigned int w = 640; w < 740; w += 14)
  {
    looks.insert(looks.end(), {{w, 600}, {w, 511, 1.7, 0.2}, {w, 601, 4.4, -0.37}});
  }
  const std::vector<Look> fewLooks{looks[0], looks[3], looks[4]};
  for (const auto& [shape, leaves] : {std::pair(TreeShape::Random, 150u),
                                      {TreeShape::Ladder, 150},
                                      {TreeShape::Polytomy, 150},
                                      {TreeShape::Polytomy, 2},
                                      {TreeShape::Random, 4000}}) // more than one batch
  {
    const auto tree = orvex::NewickReader().parseContents(
        orvex::generate::TreeGenerator(3).newick(shape, leaves));
    const auto layout = boost::intrusive_ptr<TreeLayout2D>(new LayoutCladogram)->layout(tree);
    for (const Look& look : leaves > 1000 ? fewLooks : looks)
    {
      const auto state = look.state(leaves);
      const Elbows elbows(*tree, *layout, *state);
      const QImage shown = draw(elbows.graph, *state).convertToFormat(QImage::Format_RGB32);
      EXPECT_EQ(shown, elbows.expected) << "shape " << int(shape) << " leaves " << leaves
                                        << " width " << look.width << " zoom " << look.zoom;
    }
  }
}

/// The y of some leaves of a star, counted down as the layout does.
static std::vector<double> leafRows(unsigned int leaves, unsigned int first)
{
  std::vector<double> rows;
  double y = 1.0;
  for (unsigned int leaf = 0; rows.size() < 30; ++leaf, y -= 1.0 / leaves)
  {
    if (leaf >= first)
    {
      rows.push_back(y);
    }
  }
  return rows;
}

/// The lines and labels of those leaves of a star that are in view.
static RenderGraph starOf(const std::vector<double>& rows)
{
  RenderGraph graph;
  const boost::intrusive_ptr<RenderTaxonLabels> labels(new RenderTaxonLabels);
  std::vector<Polyline::Points> edges;
  for (const double y : rows)
  {
    edges.push_back({{0.0, 0.5}, {0.0, y}, {1.0, y}});
    labels->addText({1.001, y}, "I");
  }
  graph.addHighLod(LineStrip::make(edgesAlong(edges)));
  for (const auto& label : labels->texts())
  {
    graph.addText(label);
  }
  return graph;
}

// From below.
static std::vector<int> whiteRows(const QImage& picture, int column)
{
  std::vector<int> rows;
  for (int row = 0; row < picture.height(); ++row)
  {
    if (picture.pixel(column, row) == qRgb(255, 255, 255))
    {
      rows.push_back(row);
    }
  }
  return rows;
}

static double centreOfLabel(const QImage& picture, int column, double row)
{
  double weight = 0.0, sum = 0.0;
  for (int y = int(row) - 8; y <= int(row) + 8; ++y)
  {
    for (int x = column; x < column + 7; ++x)
    {
      weight += qRed(picture.pixel(x, y));
      sum += (y + 0.5) * qRed(picture.pixel(x, y));
    }
  }
  return sum / weight;
}

TEST_P(LinesTest, OfALargeStarLieInEvenRowsBesideTheirLabelsAtTheGreatestZoom)
{
  for (const unsigned int leaves : {1'000'000u, 3'000'000u, 10'000'000u})
  {
    for (const unsigned int first : {0u, leaves / 2, leaves - 30})
    {
      SCOPED_TRACE(testing::Message() << "from leaf " << first << " of " << leaves);
      const std::vector<double> rows = leafRows(leaves, first);
      const auto state = Look{740, 600, 1e9, 0.5 - rows[15]}.state(leaves);
      const QImage shown = draw(starOf(rows), *state);
      const int end = 60 + int(inArea({1.0, 0.5}, *state).x);
      const std::vector<int> white = whiteRows(shown, end);
      ASSERT_EQ(white.size(), rows.size());
      for (std::size_t i = 0; i < rows.size(); ++i)
      {
        const double row = inArea({1.0, rows[i]}, *state).y;
        EXPECT_TRUE(lights(row, row, white[rows.size() - 1 - i])) << row;
        EXPECT_NEAR(centreOfLabel(shown, end + 1, row), row, 0.6) << "its edges are rounded";
      }
      for (std::size_t i = 1; i < white.size(); ++i)
      {
        EXPECT_NEAR(white[i] - white[i - 1], 17.5, 0.5);
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Samples, LinesTest, testing::Bool());

// Which pixels lines light, on the renderer that the environment chooses.

#include "support/GlWindowTest.h"

#include "render/camera/CameraCladogram.h"
#include "render/gl/draw/LineStrip.h"
#include "render/gl/draw/RenderGraph.h"
#include "support/Polyline.h"

#include <cmath>

using namespace orvex::render;
using namespace orvex::render::gl;
using Kelmar::Math::Matrix44d;
using Kelmar::Math::Vector3d;

/// Where a pass looks, in an area 60 pixels from the window's left edge.
struct Look
{
  unsigned int width, height;
  double zoom = 1.0, pan = 0.0;
  bool thumbnail = false;

  boost::intrusive_ptr<State> state(unsigned int leaves) const
  {
    const boost::intrusive_ptr<State> result(new State);
    const Viewport area{60, 0, width, height};
    const boost::intrusive_ptr<CameraCladogram> camera(new CameraCladogram);
    camera->updateZoomInformation(leaves, 18, area);
    camera->zoomByAmount(zoom - 1.0);
    camera->pan(0.0, pan);
    result->viewport(area);
    result->projectionMatrix(thumbnail ? Matrix44d::orthographic(0, 1, 0, 1, -10, 10)
                                       : Matrix44d::orthographic(0, width, 0, height, -10, 10));
    result->modelViewMatrix(thumbnail ? Matrix44d() : camera->viewMatrix(area));
    return result;
  }
};

// In pixels of the area.
static Point2D<double> inArea(const Point2D<double>& point, const State& state)
{
  const Vector3d at = state.getLocalToScreenMatrix() * Vector3d(point.x, point.y, 0.0);
  return {at[0] - state.viewport().x, at[1] - state.viewport().y};
}

// Whether a line from one position to another lights a pixel: one that holds a part of it, where a
// pixel ends with its upper border, and the first one has its lower border too.
static bool lights(double low, double high, int pixel)
{
  constexpr double error = 1e-6;
  return low <= pixel + 1 + error && (pixel == 0 ? high >= -error : high > pixel + error);
}

static std::vector<int> pixelsThatAreLit(double from, double to, unsigned int size)
{
  const auto [low, high] = std::minmax(from, to);
  std::vector<int> pixels;
  const int end = int(std::min(high + 2.0, double(size)));
  for (int pixel = int(std::max(low - 2.0, 0.0)); pixel < end; ++pixel)
  {
    if (lights(low, high, pixel))
    {
      pixels.push_back(pixel);
    }
  }
  return pixels;
}

/// With one sample for a pixel, then with several.
class LinesTest : public GlWindowTest, public testing::WithParamInterface<bool>
{
protected:
  void SetUp() override { openWindow(800, 620, GetParam()); }

  QImage draw(const RenderGraph& graph, State& state)
  {
    const Viewport& area = state.viewport();
    glViewport(int(area.x), int(area.y), int(area.width), int(area.height));
    glClear(GL_COLOR_BUFFER_BIT);
    graph.render(state);
    return picture();
  }
};

/// Adds the elbows of a layout to a graph, and lights their pixels in a picture of their own.
struct Elbows
{
  Elbows(const orvex::Tree& tree, LayoutInfo2D& layout, const State& state)
  {
    expected.fill(Qt::black);
    for (int node = 0; node < int(tree.getNumberOfNodes()); ++node)
    {
      const auto& edges = layout.layoutInfoForNode(node).edges;
      graph.addHighLod(LineStrip::make(edges));
      for (const Polyline::Points& points : linesOf(edges))
      {
        const auto a = inArea(points[0], state), b = inArea(points[2], state);
        light(a.x, a.y, a.x, b.y, state.viewport());
        light(a.x, b.y, b.x, b.y, state.viewport());
      }
    }
  }

  void light(double x0, double y0, double x1, double y1, const Viewport& area)
  {
    for (const int x : pixelsThatAreLit(x0, x1, area.width))
    {
      for (const int y : pixelsThatAreLit(y0, y1, area.height))
      {
        expected.setPixelColor(int(area.x) + x, int(area.y) + y, Qt::white);
      }
    }
  }

  RenderGraph graph;
  QImage expected{800, 620, QImage::Format_RGB32};
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

#include "render/gl/SceneFixture.h"

#include "Outcome.h"
#include "foundation/InstanceManager.h"
#include "render/CameraCladogram.h"
#include "render/gl/CullVisitor.h"
#include "render/gl/LineStrip.h"
#include "render/gl/RenderGraph.h"
#include "render/gl/Triangle.h"

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <atomic>
#include <sstream>
#include <thread>

namespace
{

using namespace orvex::render;
using namespace orvex::render::gl;
using Kelmar::Math::Matrix44d;
using orvex::test::Scene;

/// A node and what is below it as indented text: the proxy's corners, then each line's.
void write(const RenderNode& node, const std::string& indent, std::ostream& out)
{
  const auto points = [&](const Vector2f* vertex, int count)
  {
    for (int i = 0; i < count; ++i)
    {
      out << (i == 0 ? " | " : ", ") << vertex[i][0] << " " << vertex[i][1];
    }
  };
  out << indent << node.nodeId() << " lod " << node.lodFraction();
  points(dynamic_cast<const Triangle&>(*node.lowLod()).vertices().data(), 3);
  const auto& lines = dynamic_cast<const LineStrip&>(*node.highLod());
  const Vector2f* vertex = lines.vertices().data();
  for (const int length : lines.lengths())
  {
    points(vertex, length);
    vertex += length;
  }
  out << "\n";
  for (const auto& child : node.children())
  {
    write(dynamic_cast<const RenderNode&>(*child), indent + "  ", out);
  }
}

TEST(Scene, MirrorsTheTreeWithLabelsFirst)
{
  const Scene scene("((A,B),C);");
  for (const auto& [address, type] : Helper::instanceManager.objects())
  {
    EXPECT_EQ(type.find("Layout"), std::string::npos) << "the scene keeps " << type;
  }
  std::ostringstream out;
  out.precision(4);
  for (const auto& text :
       dynamic_cast<const RenderTaxonLabels&>(*scene.builder.root()->children().at(0)).texts())
  {
    out << text->text() << " at " << text->position().x << " " << text->position().y << "\n";
  }
  write(scene.lines(), "", out);
  EXPECT_EQ(out.str(), R"(A at 1.001 1
B at 1.001 0.6667
C at 1.001 0.3333
0 lod 0 | 0 0.5833, 1 0.3333, 1 1 | 0 0.5833, 0 0.8333, 0.7404 0.8333 | 0 0.5833, 0 0.3333, 1 0.3333
  1 lod 0.5 | 0.7404 0.8333, 1 0.6667, 1 1 | 0.7404 0.8333, 0.7404 1, 1 1)"
                       R"( | 0.7404 0.8333, 0.7404 0.6667, 1 0.6667
    2 lod 1 | 1 1, 1 1, 1 1
    3 lod 1 | 1 0.6667, 1 0.6667, 1 0.6667
  4 lod 1 | 1 0.3333, 1 0.3333, 1 0.3333
)");
}

TEST(Scene, OfOneNodeOrOfNothing)
{
  const auto tree = boost::make_shared<orvex::Tree>();
  tree->setRootNodeId(tree->createNode());
  tree->setName(0, "alone");
  const Scene scene(tree);
  EXPECT_EQ(scene.lines().lodFraction(), 1.0);
  EXPECT_EQ(scene.lines().boundingBox().minimum.x, 1.0);
  EXPECT_GT(scene.builder.maximumTextLength(), 20u);

  EXPECT_FALSE(Scene(boost::make_shared<orvex::Tree>()).builder.root()) << "no root, no layout";
  EXPECT_FALSE(Scene(boost::shared_ptr<orvex::Tree>()).builder.root());
  const boost::intrusive_ptr<RenderNode> node(new RenderNode(7, nullptr, nullptr));
  node->addChild(nullptr);
  EXPECT_TRUE(node->children().empty());
}

TEST(Scene, OfAFileThatIsTruncatedOrChangesWhileItIsRead)
{
  const std::string name = orvex::test::newFolder() + "/tree.nwk";
  const std::string whole = "((a:1.5e-3,b:-2)x:1,(c:4,(d,e)y)z:0.5);\n";
  for (std::size_t length = 0; length <= whole.size(); ++length)
  {
    const Scene scene(orvex::NewickReader()(orvex::test::written(name, whole.substr(0, length))));
    EXPECT_EQ(scene.builder.root() != nullptr, length > 0) << "a cut length is never read";
  }
  std::string half = "(a";
  for (int i = 0; i < 20000; ++i)
  {
    half += ",b";
  }
  std::atomic<bool> done(false);
  std::thread writer(
      [&]
      {
        while (!done)
        {
          std::ofstream(name) << half << std::flush << half << ");";
        }
      });
  int trees = 0;
  // The writer may not get to run, or leave the file empty for many reads.
  for (int i = 0; trees < 20 && i < 1000000; ++i)
  {
    orvex::test::errorOf([&]
                         { trees += Scene(orvex::NewickReader()(name)).builder.root() ? 1 : 0; });
  }
  done = true;
  writer.join();
  EXPECT_GT(trees, 0) << "else no read met the file";
}

struct Settings
{
  unsigned int level = 4;
  unsigned int levels = 10;
  bool alwaysHigh = false;
  bool drawText = true;
};

/// One culling pass in an area of 800 by 600 pixels, and what it should have chosen.
class Pass
{
public:
  Pass(const Scene& scene, double zoom, double pan, Settings with) : _with(with)
  {
    const Viewport viewport{0, 0, 800, 600};
    const boost::intrusive_ptr<CameraCladogram> camera(new CameraCladogram);
    camera->updateZoomInformation(100000, 18, viewport);
    camera->zoomByAmount(zoom - 1.0);
    camera->pan(0.0, pan);
    _state->viewport(viewport);
    _state->modelViewMatrix(camera->viewMatrix(viewport));
    _state->projectionMatrix(Matrix44d::orthographic(0, 800, 0, 600, -10, 10));
    const boost::intrusive_ptr<DisplaySettings> settings(new DisplaySettings);
    settings->alwaysUseHighLod(with.alwaysHigh);
    settings->drawText(with.drawText);
    const boost::intrusive_ptr<CullVisitor> visitor(
        new CullVisitor(_state.get(), with.level, with.levels, &graph, settings));
    scene.builder.root()->accept(*visitor);
    RenderGraph::Drawables low;
    RenderGraph::Drawables high;
    _choose(scene.lines(), low, high);
    EXPECT_EQ(graph.lowLod(), low);
    EXPECT_EQ(graph.highLod(), high);
  }

  RenderGraph graph;

private:
  /// Proxies and opened nodes by the rules read one after the other, without a visitor.
  void _choose(const RenderNode& node, RenderGraph::Drawables& low,
               RenderGraph::Drawables& high) const
  {
    const double bottom = _screenY(node.boundingBox().minimum);
    const double top = _screenY(node.boundingBox().maximum);
    if (bottom > 600.0 || top < 0.0)
    {
      return;
    }
    if (!_with.alwaysHigh && _with.level != _with.levels && _with.levels != 1 &&
        node.lodFraction() <= 0.9 && node.lodFraction() * _with.levels > _with.level &&
        (top - bottom) / 600.0 < 0.25)
    {
      low.push_back(node.lowLod());
      return;
    }
    high.push_back(node.highLod());
    for (const auto& child : node.children())
    {
      _choose(dynamic_cast<const RenderNode&>(*child), low, high);
    }
  }

  double _screenY(const Point2D<double>& p) const
  {
    return (_state->getLocalToScreenMatrix() * Kelmar::Math::Vector3d(p.x, p.y, 0.0))[1];
  }

  Settings _with;
  boost::intrusive_ptr<State> _state{new State};
};

TEST(Culling, ChoosesByBoxDepthZoomAndHeight)
{
  const Scene scene(orvex::test::randomNewick(600, 7));
  std::size_t proxies = 0;
  for (const unsigned int level : {0u, 1u, 3u, 7u, 9u, 10u, 12u})
  {
    for (const double zoom : {1.0, 2.5, 40.0})
    {
      for (const double pan : {0.0, 0.37, -0.45, 3.0})
      {
        SCOPED_TRACE(testing::Message() << "level " << level << " zoom " << zoom << " pan " << pan);
        proxies += Pass(scene, zoom, pan, {level}).graph.lowLod().size();
      }
    }
  }
  EXPECT_GT(proxies, 300u) << "else this compares empty lists";
  const auto lowLods = [&](Settings with) { return Pass(scene, 1, 0, with).graph.lowLod().size(); };
  ASSERT_GT(lowLods({0}), 3u);
  EXPECT_EQ(lowLods({10}), 0u) << "the greatest zoom";
  EXPECT_EQ(lowLods({0, 1}), 0u) << "only one level";
  EXPECT_EQ(lowLods({0, 10, true}), 0u) << "the user's switch";
  EXPECT_TRUE(Pass(scene, 1.0, 0.0, {4, 10, false, false}).graph.text().empty());
  // No label is dropped: the pass before decided nothing.
  EXPECT_EQ(Pass(scene, 60.0, 0.0, {}).graph.text().size(), 11u) << "58 pixels a leaf";
}

} // namespace

#include "support/SceneFixture.h"

#include "foundation/counted/InstanceManager.h"
#include "render/camera/CameraCladogram.h"
#include "render/gl/draw/LineStrip.h"
#include "render/gl/draw/RenderGraph.h"
#include "render/gl/draw/Triangle.h"
#include "render/gl/scene/CullPass.h"
#include "render/gl/scene/CullVisitor.h"
#include "support/Outcome.h"

#include <boost/make_shared.hpp>

using namespace orvex::render;
using namespace orvex::render::gl;

/// A node and what is below it as indented text: the proxy's corners, then those of the lines.
static void write(const RenderNode& node, const std::string& indent, std::ostream& out)
{
  const auto point = [&](const Point2D<double>& p) { out << " " << p.x << "," << p.y; };
  out << indent << node.nodeId() << " lod " << node.lodFraction() << " proxy";
  for (const Point2D<double>& corner : dynamic_cast<const Triangle&>(*node.lowLod()).vertices())
  {
    point(corner);
  }
  EdgeList::Reader reader = dynamic_cast<const LineStrip&>(*node.highLod()).edges();
  while (reader.next())
  {
    out << (reader.beginsEdge() ? " line" : "");
    point(reader.vertex());
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
0 lod 0 proxy 0,0.5833 1,0.3333 1,1)"
                       R"( line 0,0.5833 0,0.8333 0.7404,0.8333 line 0,0.5833 0,0.3333 1,0.3333
  1 lod 0.5 proxy 0.7404,0.8333 1,0.6667 1,1)"
                       R"( line 0.7404,0.8333 0.7404,1 1,1 line 0.7404,0.8333 0.7404,0.6667 1,0.6667
    2 lod 1 proxy 1,1 1,1 1,1
    3 lod 1 proxy 1,0.6667 1,0.6667 1,0.6667
  4 lod 1 proxy 1,0.3333 1,0.3333 1,0.3333
)");
}

TEST(Scene, OfOneNodeShowsItAsALeaf)
{
  const auto tree = boost::make_shared<orvex::Tree>();
  tree->setRootNodeId(tree->createNode());
  tree->setName(0, "alone");
  const Scene scene(tree);
  EXPECT_EQ(scene.lines().lodFraction(), 1.0);
  EXPECT_EQ(scene.lines().boundingBox().minimum.x, 1.0);
  EXPECT_GT(scene.builder.maximumTextLength(), 20u);
}

TEST(Scene, OfNothingIsNull)
{
  EXPECT_FALSE(Scene(boost::make_shared<orvex::Tree>()).builder.root()) << "no root, no layout";
  EXPECT_FALSE(Scene(boost::shared_ptr<orvex::Tree>()).builder.root());
  const boost::intrusive_ptr<RenderNode> node(new RenderNode(7, nullptr, nullptr));
  node->addChild(nullptr);
  EXPECT_TRUE(node->children().empty());
}

TEST(Scene, OfATruncatedFileShowsWhatIsThere)
{
  const std::string name = newFolder() + "/tree.nwk";
  const std::string whole = "((a:1.5e-3,b:-2)x:1,(c:4,(d,e)y)z:0.5);\n";
  for (std::size_t length = 0; length <= whole.size(); ++length)
  {
    const Scene scene(orvex::NewickReader()(writeFile(name, whole.substr(0, length))));
    EXPECT_EQ(scene.builder.root() != nullptr, length > 0) << "a length that is cut is never read";
  }
}

struct Pass
{
  unsigned int level = 4, levels = 10;
  double zoom = 1.0, pan = 0.0;
  bool alwaysHigh = false, drawText = true;
};

struct Chosen
{
  std::size_t proxies, labels;
};

/// Makes a culling pass in an area of 800 by 600 pixels and checks what it chose.
static Chosen cull(const Scene& scene, const Pass& pass)
{
  const Viewport viewport{0, 0, 800, 600};
  const boost::intrusive_ptr<CameraCladogram> camera(new CameraCladogram);
  camera->updateZoomInformation(100000, 18, viewport);
  camera->zoomByAmount(pass.zoom - 1.0);
  camera->pan(0.0, pass.pan);
  const boost::intrusive_ptr<State> state(new State(mainPass(*camera, viewport)));
  state->joinsLines(false); // all that is seen is listed
  const boost::intrusive_ptr<DisplaySettings> settings(new DisplaySettings);
  settings->alwaysUseHighLod(pass.alwaysHigh);
  settings->drawText(pass.drawText);
  RenderGraph graph;
  const boost::intrusive_ptr<CullVisitor> visitor(
      new CullVisitor(state.get(), pass.level, pass.levels, &graph, settings));
  scene.builder.root()->accept(*visitor);

  // The rules one after the other, without a visitor.
  RenderGraph::Drawables low, high;
  const auto rowOf = [&](const Point2D<double>& p)
  { return (state->getLocalToScreenMatrix() * Kelmar::Math::Vector3d(p.x, p.y, 0.0))[1]; };
  const std::function<void(const RenderNode&)> choose = [&](const RenderNode& node)
  {
    const double bottom = rowOf(node.boundingBox().minimum);
    const double top = rowOf(node.boundingBox().maximum);
    if (bottom > 600.0 || top < 0.0)
    {
      return;
    }
    if (!pass.alwaysHigh && pass.level != pass.levels && pass.levels != 1 &&
        node.lodFraction() <= 0.9 && node.lodFraction() * pass.levels > pass.level &&
        (top - bottom) / 600.0 < 0.25)
    {
      return low.push_back(node.lowLod());
    }
    high.push_back(node.highLod());
    for (const auto& child : node.children())
    {
      choose(dynamic_cast<const RenderNode&>(*child));
    }
  };
  choose(scene.lines());
  EXPECT_EQ(graph.lowLod(), low);
  EXPECT_EQ(graph.highLod(), high);
  return {low.size(), graph.text().size()};
}

TEST(Culling, ChoosesByBoxDepthZoomAndHeight)
{
  const Scene scene(randomNewick(600, 7));
  std::size_t proxies = 0;
  for (const unsigned int level : {0u, 1u, 3u, 7u, 9u, 10u, 12u})
  {
    for (const double zoom : {1.0, 2.5, 40.0})
    {
      for (const double pan : {0.0, 0.37, -0.45, -3.0})
      {
        SCOPED_TRACE(testing::Message() << "level " << level << " zoom " << zoom << " pan " << pan);
        proxies += cull(scene, {level, 10, zoom, pan}).proxies;
      }
    }
  }
  EXPECT_GT(proxies, 300u) << "else this compares empty lists";
}

TEST(Culling, ShowsNoProxiesAtTheGreatestZoomAndNoLabelsWithoutText)
{
  const Scene scene(randomNewick(600, 7));
  EXPECT_GT(cull(scene, {0}).proxies, 3u);
  EXPECT_EQ(cull(scene, {10}).proxies, 0u) << "the greatest zoom";
  EXPECT_EQ(cull(scene, {0, 1}).proxies, 0u) << "only one level";
  EXPECT_EQ(cull(scene, {0, 10, 1.0, 0.0, true}).proxies, 0u) << "the user's switch";
  EXPECT_EQ(cull(scene, {4, 10, 1.0, 0.0, false, false}).labels, 0u) << "no text";
  // All labels in view: the pass without text chose none for this level.
  EXPECT_EQ(cull(scene, {4, 10, 60.0}).labels, 11u) << "58 pixels a leaf";
}

TEST(Culling, OfAPassThatCannotBeInvertedFailsWithoutANoteOfDeletedObjects)
{
  const Scene scene("(a,b);");
  const boost::intrusive_ptr<State> state(
      new State({{0, 0, 10, 10}, Kelmar::Math::Matrix44d::scale({0.0, 1.0, 1.0}), {}}));
  const boost::intrusive_ptr<CameraCladogram> camera(new CameraCladogram);
  const boost::intrusive_ptr<DisplaySettings> settings(new DisplaySettings);
  std::string error;
  const auto cullIt = [&] { cullPass(scene.builder.root().get(), *state, *camera, *settings); };
  EXPECT_EQ(outputOf([&] { error = errorOf(cullIt); }), "");
  EXPECT_EQ(error, "Error 2318439298: Matrix inverse does not exist");
}

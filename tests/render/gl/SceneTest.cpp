#include "render/gl/SceneFixture.h"

#include "foundation/InstanceManager.h"
#include "render/gl/LineStrip.h"
#include "render/gl/Triangle.h"

#include <gtest/gtest.h>

#include <sstream>

namespace
{

using namespace orvex::render::gl;
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

  SceneBuilder withoutLayout(tree);
  withoutLayout.buildScene(nullptr);
  EXPECT_FALSE(withoutLayout.root());
  EXPECT_FALSE(Scene(boost::shared_ptr<orvex::Tree>()).builder.root());
  const boost::intrusive_ptr<RenderNode> node(new RenderNode(7, nullptr, nullptr));
  EXPECT_FALSE(node->highLod() || node->lowLod() || node->boundingBox().valid());
  node->addChild(nullptr);
  EXPECT_TRUE(node->children().empty());
}

TEST(Scene, KeepsNothingOfTheLayout)
{
  Scene scene("((A,B),C);");
  scene.layout = nullptr;
  for (const auto& [address, type] : Helper::instanceManager.objects())
  {
    EXPECT_EQ(type.find("Layout"), std::string::npos) << type;
  }
}

} // namespace

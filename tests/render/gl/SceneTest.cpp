#include "render/gl/SceneFixture.h"

#include "foundation/InstanceManager.h"
#include "render/gl/LineStrip.h"
#include "render/gl/Triangle.h"
#include "render/gl/Visitor.h"

#include <gtest/gtest.h>

#include <sstream>

namespace
{

using namespace orvex::render::gl;
using orvex::test::Scene;

/// Writes what it meets as indented text.
class SceneWriter : public Visitor
{
public:
  std::ostringstream out;

  using Visitor::visit;
  void visit(Group& group) override
  {
    out << _indent << "group\n";
    below(group);
  }
  void visit(RenderTaxonLabels& labels) override
  {
    for (const auto& text : labels.texts())
    {
      const auto [x, y] = text->position();
      out << _indent << "label " << text->text() << " at " << x << " " << y << "\n";
    }
  }
  void visit(RenderNode& node) override
  {
    out << _indent << "node " << node.nodeId() << " lod " << node.lodFraction() << " proxy ";
    write(dynamic_cast<const Triangle&>(*node.lowLod()).vertices().data(), 3);
    const auto& lines = dynamic_cast<const LineStrip&>(*node.highLod());
    const Vector2f* vertex = lines.vertices().data();
    for (const int length : lines.lengths())
    {
      out << "line ";
      vertex = write(vertex, length);
    }
    out << "\n";
    below(node);
  }

private:
  const Vector2f* write(const Vector2f* vertex, int length)
  {
    for (const Vector2f* end = vertex + length; vertex != end; ++vertex)
    {
      out << (*vertex)[0] << " " << (*vertex)[1] << ", ";
    }
    return vertex;
  }
  void below(Group& group)
  {
    _indent += "  ";
    group.traverse(*this);
    _indent.erase(0, 2);
  }

  std::string _indent;
};

TEST(Scene, MirrorsTheTreeWithLabelsFirst)
{
  const boost::intrusive_ptr<SceneWriter> writer(new SceneWriter);
  writer->out.precision(4);
  Scene("((A,B),C);").builder.root()->accept(*writer);
  EXPECT_EQ(writer->out.str(), R"(group
  label A at 1.001 1
  label B at 1.001 0.6667
  label C at 1.001 0.3333
  node 0 lod 0 proxy 0 0.5833, 1 0.3333, 1 1, )"
                               R"(line 0 0.5833, 0 0.8333, 0.7404 0.8333, )"
                               R"(line 0 0.5833, 0 0.3333, 1 0.3333, 
    node 1 lod 0.5 proxy 0.7404 0.8333, 1 0.6667, 1 1, )"
                               R"(line 0.7404 0.8333, 0.7404 1, 1 1, )"
                               R"(line 0.7404 0.8333, 0.7404 0.6667, 1 0.6667, 
      node 2 lod 1 proxy 1 1, 1 1, 1 1, 
      node 3 lod 1 proxy 1 0.6667, 1 0.6667, 1 0.6667, 
    node 4 lod 1 proxy 1 0.3333, 1 0.3333, 1 0.3333, 
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
  const boost::intrusive_ptr<LineStrip> lines(new LineStrip({nullptr}));
  EXPECT_TRUE(lines->vertices().empty());
}

TEST(Scene, KeepsNothingOfTheLayoutAndLeavesNothingBehind)
{
  const std::size_t before = Helper::instanceManager.numberOfObjects();
  {
    Scene scene("((A,B),C);");
    scene.layout = nullptr;
    for (const auto& [address, type] : Helper::instanceManager.objects())
    {
      EXPECT_EQ(type.find("Layout"), std::string::npos) << type;
    }
  }
  EXPECT_EQ(Helper::instanceManager.numberOfObjects(), before);
}

} // namespace

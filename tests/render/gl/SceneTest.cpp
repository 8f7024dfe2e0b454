#include "render/gl/SceneFixture.h"

#include "foundation/InstanceManager.h"
#include "render/gl/LineStrip.h"
#include "render/gl/Triangle.h"
#include "render/gl/Visitor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace
{

using namespace orvex::render::gl;
using orvex::test::Scene;

std::string point(const Vector2f& v)
{
  std::ostringstream out;
  out.precision(4);
  out << v[0] << " " << v[1];
  return out.str();
}

/// Writes what it meets as indented text.
class SceneWriter : public Visitor
{
public:
  using Visitor::visit;
  void visit(Group& group) override
  {
    line("group");
    _below(group);
  }
  void visit(RenderTaxonLabels& labels) override
  {
    for (const auto& text : labels.texts())
    {
      std::ostringstream what;
      what.precision(4);
      what << "label " << text->text() << " at " << text->position().x << " " << text->position().y;
      line(what.str());
    }
  }
  void visit(RenderNode& node) override
  {
    std::ostringstream what;
    what.precision(4);
    what << "node " << node.nodeId() << " lod " << node.lodFraction();
    const auto& lines = dynamic_cast<const LineStrip&>(*node.highLod());
    auto vertex = lines.vertices().begin();
    for (const int length : lines.lengths())
    {
      what << " | ";
      for (int i = 0; i < length; ++i)
      {
        what << point(*vertex++) << ", ";
      }
    }
    line(what.str());
    _below(node);
  }
  std::string text() const { return _text; }

private:
  void line(const std::string& what) { _text += std::string(2 * _depth, ' ') + what + "\n"; }
  void _below(Group& group)
  {
    ++_depth;
    group.traverse(*this);
    --_depth;
  }

  std::string _text;
  std::size_t _depth = 0;
};

std::string textOf(const Scene& scene)
{
  const boost::intrusive_ptr<SceneWriter> writer(new SceneWriter);
  scene.builder.root()->accept(*writer);
  return writer->text();
}

TEST(Scene, MirrorsTheTreeWithLabelsFirst)
{
  EXPECT_EQ(
      textOf(Scene("((A,B),C);")),
      "group\n"
      "  label A at 1.001 1\n"
      "  label B at 1.001 0.6667\n"
      "  label C at 1.001 0.3333\n"
      "  node 0 lod 0 | 0 0.5833, 0 0.8333, 0.7404 0.8333,  | 0 0.5833, 0 0.3333, 1 0.3333, \n"
      "    node 1 lod 0.5 | 0.7404 0.8333, 0.7404 1, 1 1,  | 0.7404 0.8333, 0.7404 0.6667, "
      "1 0.6667, \n"
      "      node 2 lod 1\n"
      "      node 3 lod 1\n"
      "    node 4 lod 1\n");
}

TEST(Scene, ProxySpansTheCladeFromItsNodeToTheLeafColumn)
{
  const Scene scene("((A,B),C);");
  const auto& clade = dynamic_cast<RenderNode&>(*scene.lines().children().at(0));
  const auto& proxy = dynamic_cast<const Triangle&>(*clade.lowLod()).vertices();
  EXPECT_EQ(point(proxy[0]), "0.7404 0.8333");
  EXPECT_EQ(point(proxy[1]), "1 0.6667");
  EXPECT_EQ(point(proxy[2]), "1 1");
}

TEST(Scene, OneNodeIsALeafWithALabel)
{
  const auto tree = boost::make_shared<orvex::Tree>();
  tree->setRootNodeId(tree->createNode());
  tree->setName(0, "alone");
  SceneBuilder builder(tree);
  builder.buildScene(Scene::layOut(tree));
  const auto& node = dynamic_cast<RenderNode&>(*builder.root()->children().at(1));
  EXPECT_EQ(node.lodFraction(), 1.0);
  EXPECT_TRUE(node.boundingBox().valid());
  EXPECT_EQ(node.boundingBox().minimum.x, 1.0);
  EXPECT_GT(builder.maximumTextLength(), 20u);
}

TEST(Scene, NullInputsBuildNothing)
{
  SceneBuilder withoutLayout(boost::make_shared<orvex::Tree>());
  withoutLayout.buildScene(nullptr);
  EXPECT_FALSE(withoutLayout.root());
  SceneBuilder withoutTree(nullptr);
  withoutTree.buildScene(new orvex::render::LayoutInfo2D(1));
  EXPECT_FALSE(withoutTree.root());

  const boost::intrusive_ptr<RenderNode> node(new RenderNode(7, nullptr, nullptr));
  EXPECT_FALSE(node->highLod() || node->lowLod() || node->boundingBox().valid());
  const boost::intrusive_ptr<Group> group(new Group);
  group->addChild(nullptr);
  EXPECT_TRUE(group->children().empty());
  const boost::intrusive_ptr<LineStrip> lines(
      new LineStrip({boost::intrusive_ptr<orvex::render::Edge2D>()}));
  EXPECT_TRUE(lines->vertices().empty());
}

TEST(Scene, KeepsNothingOfTheLayoutAndLeavesNothingBehind)
{
  const std::size_t before = Helper::instanceManager.numberOfObjects();
  {
    Scene scene("((A,B),C);");
    scene.layout = nullptr;
    const auto objects = Helper::instanceManager.objects();
    for (const auto& [address, type] : objects)
    {
      EXPECT_EQ(type.find("Layout"), std::string::npos) << type;
    }
  }
  EXPECT_EQ(Helper::instanceManager.numberOfObjects(), before);
}

} // namespace

#include "support/GlWindowTest.h"

#include "render/camera/CameraCladogram.h"
#include "render/camera/DisplaySettings.h"
#include "render/gl/draw/RenderGraph.h"
#include "render/gl/scene/CullPass.h"

#include <cmath>
#include <random>

using namespace orvex::render;
using namespace orvex::render::gl;

/// What a pass shows of a tree, with and without joining the lines of a clade in one row.
class CladeRunTest : public GlWindowTest
{
protected:
  void SetUp() override { openWindow(800, 620, true); }

  int below(int limit) { return int(chance() % unsigned(limit)); }

  /// Any size, zoom and place; in a third of the cases the whole tree, as the thumbnail shows it.
  DrawingPass anyPass(CameraCladogram& camera, unsigned int leaves)
  {
    const Viewport area{unsigned(below(60)), 0, unsigned(below(700)) + 1, unsigned(below(600)) + 1};
    camera.updateZoomInformation(leaves, mostPixelsPerLeaf, area);
    camera.zoomByAmount(std::exp2(below(12)) - 1.0);
    camera.pan(0.0, below(1000) / 1000.0 - 0.5);
    if (below(3) == 0)
    {
      return {area, Kelmar::Math::Matrix44d::orthographic(0, 1, 0, 1, -10, 10), {}};
    }
    return mainPass(camera, area);
  }

  RenderGraph choose(const Scene& scene, const CameraCladogram& camera, State& state, bool joins)
  {
    state.joinsLines(joins);
    return cullPass(scene.builder.root().get(), state, camera, *settings);
  }

  QImage draw(const RenderGraph& graph, State& state)
  {
    const Viewport& area = state.viewport();
    glViewport(int(area.x), int(area.y), int(area.width), int(area.height));
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    graph.render(state);
    return picture();
  }

  std::mt19937 chance{20261125};
  boost::intrusive_ptr<DisplaySettings> settings{new DisplaySettings};
};

TEST_F(CladeRunTest, LightsThePixelsOfAllLinesOfTheClade)
{
  using orvex::generate::TreeShape;
  std::vector<std::string> trees{"a;", "((((a))));", "(a,(((b,((c))),d)),(e));"};
  for (const TreeShape shape : {TreeShape::Random, TreeShape::Ladder, TreeShape::Polytomy})
  {
    for (const unsigned int leaves : {40u, 700u, 3000u})
    {
      trees.push_back(orvex::generate::TreeGenerator(leaves).newick(shape, leaves));
    }
  }
  std::size_t runs = 0;
  std::size_t proxies = 0;
  glEnable(GL_DEPTH_TEST);
  for (std::size_t tree = 0; tree < trees.size(); ++tree)
  {
    const Scene scene(trees[tree]);
    for (int round = 0; round < 12; ++round)
    {
      const boost::intrusive_ptr<CameraCladogram> camera(new CameraCladogram);
      const boost::intrusive_ptr<State> state(new State(anyPass(*camera, 3000)));
      settings->alwaysUseHighLod(below(2) == 0);
      const RenderGraph joined = choose(scene, *camera, *state, true);
      const RenderGraph plain = choose(scene, *camera, *state, false);
      EXPECT_EQ(joined.lowLod(), plain.lowLod());
      EXPECT_EQ(draw(joined, *state), draw(plain, *state)) << "tree " << tree << " round " << round;
      EXPECT_LE(joined.highLod().size() + joined.runs().size(), plain.highLod().size());
      runs += joined.runs().size();
      proxies += settings->alwaysUseHighLod() ? 0 : joined.lowLod().size();
    }
  }
  EXPECT_GT(runs, 2000u);
  EXPECT_GT(proxies, 100u);
}

TEST_F(CladeRunTest, KeepsTheWalkFromGrowingWithTheTree)
{
  settings->alwaysUseHighLod(true);
  std::vector<std::size_t> opened;
  for (const unsigned int leaves : {4'000u, 64'000u})
  {
    const Scene scene(randomNewick(leaves, 5));
    const boost::intrusive_ptr<CameraCladogram> camera(new CameraCladogram);
    const boost::intrusive_ptr<State> state(new State(mainPass(*camera, {0, 0, 700, 100})));
    opened.push_back(choose(scene, *camera, *state, true).highLod().size());
  }
  EXPECT_LT(opened[1], 2 * opened[0]) << "the tree has sixteen times as many nodes";
}

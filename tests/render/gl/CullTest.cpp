#include "render/gl/SceneFixture.h"

#include "render/CameraCladogram.h"
#include "render/gl/CullVisitor.h"
#include "render/gl/RenderGraph.h"
#include "render/gl/Triangle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace
{

using namespace orvex::render;
using namespace orvex::render::gl;
using Kelmar::Math::Matrix44d;
using orvex::test::Scene;

/// One culling pass in an area of 800 by 600 pixels, and what it should have chosen.
class Pass
{
public:
  Pass(const Scene& scene, double zoom, double pan, unsigned int level, unsigned int levels,
       bool alwaysHigh = false, bool drawText = true)
      : _scene(scene), _level(level), _levels(levels), _always(alwaysHigh)
  {
    const boost::intrusive_ptr<CameraCladogram> camera(new CameraCladogram);
    camera->updateZoomInformation(100000, 18, _viewport);
    camera->zoomByAmount(zoom - 1.0);
    camera->pan(0.0, pan);
    _state->viewport(_viewport);
    _state->modelViewMatrix(camera->viewMatrix(_viewport));
    _state->projectionMatrix(Matrix44d::orthographic(0, 800, 0, 600, -10, 10));
    const boost::intrusive_ptr<DisplaySettings> settings(new DisplaySettings);
    settings->alwaysUseHighLod(alwaysHigh);
    settings->drawText(drawText);
    const boost::intrusive_ptr<CullVisitor> visitor(
        new CullVisitor(_state.get(), level, levels, &graph, settings));
    scene.builder.root()->accept(*visitor);
  }

  /// Proxies and opened nodes by the rules read one after the other, without a visitor.
  void expectRightChoice() const
  {
    std::vector<const Drawable*> low;
    std::vector<const Drawable*> high;
    choose(_scene.lines(), low, high);
    EXPECT_EQ(addresses(graph.lowLod()), low);
    EXPECT_EQ(addresses(graph.highLod()), high);
  }

  std::vector<std::string> labels() const
  {
    std::vector<std::string> names;
    for (const auto& drawable : graph.text())
    {
      names.push_back(dynamic_cast<const Text&>(*drawable).text());
    }
    return names;
  }

  const State& state() const { return *_state; }

  RenderGraph graph;

private:
  double screenY(double x, double y) const
  {
    return (_state->getLocalToScreenMatrix() * Kelmar::Math::Vector3d(x, y, 0.0))[1];
  }

  void choose(const RenderNode& node, std::vector<const Drawable*>& low,
              std::vector<const Drawable*>& high) const
  {
    const Box2D& box = node.boundingBox();
    const double bottom = screenY(box.minimum.x, box.minimum.y);
    const double top = screenY(box.maximum.x, box.maximum.y);
    if (bottom > 600.0 || top < 0.0)
    {
      return;
    }
    const bool proxy = !_always && _level != _levels && _levels != 1 && node.lodFraction() <= 0.9 &&
                       node.lodFraction() * _levels > _level && (top - bottom) / 600.0 < 0.25;
    (proxy ? low : high).push_back(proxy ? node.lowLod().get() : node.highLod().get());
    if (!proxy)
    {
      for (const auto& child : node.children())
      {
        choose(dynamic_cast<const RenderNode&>(*child), low, high);
      }
    }
  }

  static std::vector<const Drawable*> addresses(const RenderGraph::Drawables& list)
  {
    std::vector<const Drawable*> all;
    for (const auto& drawable : list)
    {
      all.push_back(drawable.get());
    }
    return all;
  }

  const Scene& _scene;
  unsigned int _level;
  unsigned int _levels;
  bool _always;
  Viewport _viewport{0, 0, 800, 600};
  boost::intrusive_ptr<State> _state{new State};
};

TEST(Culling, ChoosesByBoxDepthZoomAndHeight)
{
  const unsigned int seed = 7;
  SCOPED_TRACE(seed);
  const Scene scene(orvex::test::randomNewick(600, seed));
  int proxies = 0;
  for (const unsigned int level : {0u, 1u, 3u, 7u, 9u, 10u, 12u})
  {
    for (const double zoom : {1.0, 2.5, 40.0})
    {
      for (const double pan : {0.0, 0.37, -0.45, 3.0})
      {
        SCOPED_TRACE(testing::Message() << "level " << level << " zoom " << zoom << " pan " << pan);
        const Pass pass(scene, zoom, pan, level, 10);
        pass.expectRightChoice();
        proxies += static_cast<int>(pass.graph.lowLod().size());
      }
    }
  }
  EXPECT_GT(proxies, 300) << "else this compares empty lists";
}

TEST(Culling, SomeViewsHaveNoProxies)
{
  const Scene scene(orvex::test::randomNewick(600, 7));
  ASSERT_GT(Pass(scene, 1.0, 0.0, 0, 10).graph.lowLod().size(), 3u);
  EXPECT_EQ(Pass(scene, 1.0, 0.0, 10, 10).graph.lowLod().size(), 0u) << "the greatest zoom";
  EXPECT_EQ(Pass(scene, 1.0, 0.0, 0, 1).graph.lowLod().size(), 0u) << "only one level";
  const Pass always(scene, 1.0, 0.0, 0, 10, true);
  EXPECT_EQ(always.graph.lowLod().size(), 0u) << "the user's switch";
  EXPECT_EQ(always.graph.highLod().size(), 2 * 600u - 1u) << "every node is in view";
  EXPECT_EQ(Pass(scene, 1.0, 5.0, 0, 10).graph.highLod().size(), 0u) << "moved out of sight";
}

TEST(Culling, AViewWithoutInverseThrows)
{
  try
  {
    new Culler2D(Matrix44d::scale({1.0, 0.0, 1.0}), Matrix44d());
    ADD_FAILURE() << "no exception";
  }
  catch (const std::runtime_error& e)
  {
    EXPECT_STREQ(e.what(), "Error 2318439298: Matrix inverse does not exist");
  }
}

TEST(Culling, LabelsAreThinnedOnceForALevelAndListedByHeight)
{
  const Scene scene(orvex::test::randomNewick(200, 3));
  EXPECT_TRUE(Pass(scene, 1.0, 0.0, 4, 10, false, false).labels().empty());
  EXPECT_EQ(Pass(scene, 20.0, 0.0, 4, 10).labels().size(), 11u)
      << "20 pixels a leaf: no label was dropped, so the pass without text decided nothing";

  const Pass wide(scene, 1.0, 0.0, 0, 10);
  const std::size_t kept = wide.labels().size();
  EXPECT_LT(kept, 100u);
  EXPECT_EQ(wide.labels().front(), "a0") << "the first leaf is always kept";
  const Pass again(scene, 30.0, 0.0, 0, 10);
  EXPECT_LT(again.labels().size(), kept) << "the level's choice stays, though there is room now";
  for (const std::string& name : again.labels())
  {
    const auto all = wide.labels();
    EXPECT_NE(std::find(all.begin(), all.end(), name), all.end()) << name;
  }
}

} // namespace

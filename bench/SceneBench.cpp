// The work that is done once for each tree, once for each zoom level and in each frame, without
// drawing.

#include "BenchTrees.h"
#include "MemoryMeter.h"
#include "render/camera/CameraCladogram.h"
#include "render/camera/DisplaySettings.h"
#include "render/camera/DrawingPass.h"
#include "render/gl/draw/State.h"
#include "render/gl/scene/CullPass.h"
#include "render/gl/scene/CullVisitor.h"
#include "render/gl/scene/RenderNode.h"
#include "render/gl/scene/RenderTaxonLabels.h"
#include "render/gl/scene/SceneBuilder.h"
#include "render/layout/LayoutCladogram.h"
#include "tree/model/Tree.h"

namespace
{

using namespace orvex::render;
using orvex::bench::leavesOf;
using orvex::bench::TreeShape;

boost::intrusive_ptr<gl::Group> build(TreeShape shape, unsigned int leaves)
{
  const auto tree = orvex::bench::tree(shape, leaves);
  const boost::intrusive_ptr<LayoutCladogram> layout(new LayoutCladogram);
  gl::SceneBuilder builder(tree);
  builder.buildScene(layout->layout(tree));
  return builder.root();
}

/// Only the latest is kept.
boost::intrusive_ptr<gl::Group> randomScene(unsigned int leaves)
{
  static boost::intrusive_ptr<gl::Group> scene;
  static unsigned int leavesOfScene = 0;
  if (leavesOfScene != leaves)
  {
    scene = nullptr;
    scene = build(TreeShape::Random, leaves);
    leavesOfScene = leaves;
  }
  return scene;
}

/// What is seen in a window of 1200 x 800 pixels. The zoom is given in percent of its range.
struct Look
{
  Look(unsigned int leaves, double percent) : camera(new CameraCladogram)
  {
    const Viewport viewport{120, 0, 1080, 800};
    camera->horizontalPixelsForText(150);
    camera->updateZoomInformation(leaves, mostPixelsPerLeaf, viewport);
    camera->zoomByAmount((camera->maximumZoom() - 1.0) * percent / 100.0);
    state = new gl::State(mainPass(*camera, viewport));
  }

  boost::intrusive_ptr<CameraCladogram> camera;
  boost::intrusive_ptr<gl::State> state;
};

/// Layout, scene and labels of a new tree, and the release of all of them.
void buildScene(benchmark::State& state, TreeShape shape)
{
  {
    const orvex::bench::MemoryMeter memory;
    const auto scene = build(shape, leavesOf(state));
    memory.report(state, leavesOf(state));
  }
  for (auto _ : state)
  {
    benchmark::DoNotOptimize(build(shape, leavesOf(state)));
  }
  state.SetComplexityN(state.range(0));
}
ORVEX_BENCHMARK_SHAPES(buildScene);

/// The labels of a zoom level that is shown for the first time.
void thinLabels(benchmark::State& state)
{
  const auto scene = randomScene(leavesOf(state));
  auto& labels = dynamic_cast<gl::RenderTaxonLabels&>(*scene->children().at(0));
  const Look look(leavesOf(state), double(state.range(1)));
  static unsigned int level = 1'000'000; // higher than the levels of all cameras here
  for (auto _ : state)
  {
    auto* kept = &labels.getOrCreateTextForLevel(++level, *look.state);
    benchmark::DoNotOptimize(kept);
  }
  const std::size_t kept = labels.getOrCreateTextForLevel(level, *look.state).count();
  state.counters["kept"] = double(kept);
}
BENCHMARK(thinLabels)
    ->ArgNames({"leaves", "zoom%"})
    ->ArgsProduct({{1'000, 10'000, 100'000, 1'000'000}, {0, 5, 78, 100}})
    ->Unit(benchmark::kMillisecond);

/// Counts the nodes that a pass meets.
struct CountingVisitor : gl::CullVisitor
{
  using CullVisitor::CullVisitor;
  using CullVisitor::visit;
  void visit(gl::RenderNode& node) override
  {
    ++nodes;
    CullVisitor::visit(node);
  }

  std::size_t nodes = 0;
};

std::size_t visitedNodes(gl::Group& scene, const Look& look, DisplaySettings& settings)
{
  gl::RenderGraph graph;
  const boost::intrusive_ptr<CountingVisitor> visitor(
      new CountingVisitor(look.state.get(), look.camera->zoomLevel(),
                          look.camera->numberOfZoomLevels(), &graph, &settings));
  scene.accept(*visitor);
  return visitor->nodes;
}

/// The culling of one frame, at a level whose labels have been thinned before.
void cull(benchmark::State& state)
{
  const auto scene = randomScene(leavesOf(state));
  const Look look(leavesOf(state), double(state.range(1)));
  const boost::intrusive_ptr<DisplaySettings> settings(new DisplaySettings);
  settings->alwaysUseHighLod(state.range(2) != 0);
  std::size_t proxies = 0;
  std::size_t lines = 0;
  std::size_t runs = 0;
  std::size_t labels = 0;
  const auto frame = [&]
  {
    const gl::RenderGraph graph = gl::cullPass(scene.get(), *look.state, *look.camera, *settings);
    proxies = graph.lowLod().size();
    lines = graph.highLod().size();
    runs = graph.runs().size();
    labels = graph.text().size();
  };
  frame(); // thins the labels
  for (auto _ : state)
  {
    frame();
  }
  state.counters["proxies"] = double(proxies);
  state.counters["lines"] = double(lines);
  state.counters["runs"] = double(runs);
  state.counters["visited"] = double(visitedNodes(*scene, look, *settings));
  state.counters["labels"] = double(labels);
}
BENCHMARK(cull)
    ->ArgNames({"leaves", "zoom%", "all"})
    ->ArgsProduct({{1'000, 10'000, 100'000, 1'000'000}, {0, 1, 5, 25, 100}, {0}})
    ->ArgsProduct({{100'000, 1'000'000, 10'000'000}, {0, 1, 5}, {1}})
    ->Unit(benchmark::kMillisecond);

} // namespace

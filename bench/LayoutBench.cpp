// Computes the layout of a tree. The time includes the release of the finished layout, as in the
// viewer.

#include "BenchTrees.h"
#include "MemoryMeter.h"
#include "render/layout/LayoutCladogram.h"
#include "tree/model/Tree.h"

namespace
{

using orvex::bench::leavesOf;

void layout(benchmark::State& state, orvex::bench::TreeShape shape)
{
  const auto tree = orvex::bench::tree(shape, leavesOf(state));
  const boost::intrusive_ptr<orvex::render::LayoutCladogram> cladogram(
      new orvex::render::LayoutCladogram);
  {
    const orvex::bench::MemoryMeter memory;
    const auto info = cladogram->layout(tree);
    memory.report(state, leavesOf(state));
  }
  for (auto _ : state)
  {
    benchmark::DoNotOptimize(cladogram->layout(tree));
  }
  state.SetComplexityN(state.range(0));
}
ORVEX_BENCHMARK_SHAPES(layout);

} // namespace

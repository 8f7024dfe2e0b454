// Reads Newick trees, and calls the functions that walk over a whole tree.

#include "BenchTrees.h"
#include "MemoryMeter.h"
#include "tree/model/Tree.h"
#include "tree/newick/NewickReader.h"

#include <boost/filesystem.hpp>

#include <fstream>
#include <vector>

namespace
{

using orvex::bench::leavesOf;
using orvex::bench::TreeShape;

void finish(benchmark::State& state, std::size_t bytes)
{
  state.SetComplexityN(state.range(0));
  // Signed or not, as the library's version has it.
  const auto iterations = static_cast<std::int64_t>(state.iterations());
  state.SetBytesProcessed(iterations * static_cast<std::int64_t>(bytes));
}

void parseText(benchmark::State& state, TreeShape shape)
{
  const std::string& text = orvex::bench::newick(shape, leavesOf(state));
  {
    const orvex::bench::MemoryMeter memory;
    const auto tree = orvex::NewickReader().parseContents(text);
    memory.report(state, leavesOf(state));
  }
  for (auto _ : state)
  {
    benchmark::DoNotOptimize(orvex::NewickReader().parseContents(text));
  }
  finish(state, text.size());
}
ORVEX_BENCHMARK_SHAPES(parseText);

void readFile(benchmark::State& state, TreeShape shape)
{
  const std::string& text = orvex::bench::newick(shape, leavesOf(state));
  const boost::filesystem::path path = boost::filesystem::temp_directory_path() /
                                       boost::filesystem::unique_path("orvex-bench-%%%%%%%%.nwk");
  std::ofstream(path.string()) << text << '\n';
  {
    const orvex::bench::MemoryMeter memory;
    const auto tree = orvex::NewickReader()(path.string());
    memory.report(state, leavesOf(state));
  }
  for (auto _ : state)
  {
    benchmark::DoNotOptimize(orvex::NewickReader()(path.string()));
  }
  finish(state, text.size());
  boost::filesystem::remove(path);
}
ORVEX_BENCHMARK_SHAPES(readFile);

void countLeaves(benchmark::State& state, TreeShape shape)
{
  const auto tree = orvex::bench::tree(shape, leavesOf(state));
  for (auto _ : state)
  {
    benchmark::DoNotOptimize(tree->getNumberOfLeafNodes());
  }
  state.SetComplexityN(state.range(0));
}
ORVEX_BENCHMARK_SHAPES(countLeaves);

} // namespace

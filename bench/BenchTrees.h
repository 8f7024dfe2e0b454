#pragma once

#include "generate/TreeGenerator.h"

#include <benchmark/benchmark.h>
#include <boost/shared_ptr.hpp>

#include <string>

namespace orvex
{
class Tree;
}

namespace orvex::bench
{

using generate::TreeShape;

/// Newick text with branch lengths, always the same for a shape and size. Only the latest is kept.
const std::string& newick(TreeShape shape, unsigned int leaves);

/// The tree of that text. Only the latest is kept.
boost::shared_ptr<Tree> tree(TreeShape shape, unsigned int leaves);

/// The number of leaves that a benchmark was asked to take, its first argument.
inline unsigned int leavesOf(const benchmark::State& state)
{
  return static_cast<unsigned int>(state.range(0));
}

/// A thousand to a million leaves; also reports how the time grows with their number.
void everySize(benchmark::internal::Benchmark* benchmark);
/// A thousand to a hundred thousand leaves, since each leaf of a ladder adds a level.
void ladderSizes(benchmark::internal::Benchmark* benchmark);

} // namespace orvex::bench

/// Registers a benchmark that takes a TreeShape for each shape of tree.
#define ORVEX_BENCHMARK_SHAPES(function)                                                           \
  BENCHMARK_CAPTURE(function, random, orvex::bench::TreeShape::Random)                             \
      ->Apply(orvex::bench::everySize);                                                            \
  BENCHMARK_CAPTURE(function, balanced, orvex::bench::TreeShape::Balanced)                         \
      ->Apply(orvex::bench::everySize);                                                            \
  BENCHMARK_CAPTURE(function, star, orvex::bench::TreeShape::Star)                                 \
      ->Apply(orvex::bench::everySize);                                                            \
  BENCHMARK_CAPTURE(function, polytomy, orvex::bench::TreeShape::Polytomy)                         \
      ->Apply(orvex::bench::everySize);                                                            \
  BENCHMARK_CAPTURE(function, ladder, orvex::bench::TreeShape::Ladder)                             \
      ->Apply(orvex::bench::ladderSizes)

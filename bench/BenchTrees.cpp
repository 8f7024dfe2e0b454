#include "BenchTrees.h"

#include "tree/model/Tree.h"
#include "tree/newick/NewickReader.h"

#include <functional>
#include <utility>

namespace orvex::bench
{
namespace Detail
{
namespace
{

constexpr unsigned int seed = 20261;

/// Keeps the value that was last made for a shape and a size.
template <class T>
class Latest
{
public:
  const T& get(TreeShape shape, unsigned int leaves, const std::function<T()>& make)
  {
    const std::pair<TreeShape, unsigned int> wanted(shape, leaves);
    if (_key != wanted)
    {
      _value = T(); // released first, so that memory holds only one
      _value = make();
      _key = wanted;
    }
    return _value;
  }

private:
  std::pair<TreeShape, unsigned int> _key{TreeShape::Random, 0};
  T _value;
};

void range(benchmark::internal::Benchmark* benchmark, int most)
{
  benchmark->RangeMultiplier(10)
      ->Range(1'000, most)
      ->Unit(benchmark::kMillisecond)
      ->Complexity(benchmark::oN);
}

} // namespace
} // namespace Detail

const std::string& newick(TreeShape shape, unsigned int leaves)
{
  static Detail::Latest<std::string> latest;
  return latest.get(shape, leaves,
                    [=]
                    { return generate::TreeGenerator(Detail::seed).newick(shape, leaves, true); });
}

boost::shared_ptr<Tree> tree(TreeShape shape, unsigned int leaves)
{
  static Detail::Latest<boost::shared_ptr<Tree>> latest;
  return latest.get(shape, leaves,
                    [=] { return NewickReader().parseContents(newick(shape, leaves)); });
}

void everySize(benchmark::internal::Benchmark* benchmark)
{
  Detail::range(benchmark, 1'000'000);
}

void ladderSizes(benchmark::internal::Benchmark* benchmark)
{
  Detail::range(benchmark, 100'000);
}

} // namespace orvex::bench

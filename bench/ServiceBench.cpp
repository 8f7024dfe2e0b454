// A tree of the tree service, downloaded, parsed and built, to compare with the same tree in a
// Newick file. The server runs in this process; the column CPU is the time of the main thread
// alone.

#include "BenchTrees.h"
#include "MemoryMeter.h"
#include "service/TreeJson.h"
#include "support/LoopbackServer.h"
#include "tree/model/Tree.h"
#include "tree/newick/NewickReader.h"
#include "tree/service/JsonTree.h"
#include "tree/service/TreeService.h"

namespace
{

using orvex::bench::leavesOf;
using orvex::bench::TreeShape;

std::string body(unsigned int leaves)
{
  return orvex::service::toJson(*orvex::bench::tree(TreeShape::Random, leaves));
}

template <class Read>
void measure(benchmark::State& state, const Read& read)
{
  {
    const orvex::bench::MemoryMeter memory;
    const boost::shared_ptr<orvex::Tree> tree = read();
    memory.report(state, leavesOf(state));
  }
  for (auto _ : state)
  {
    benchmark::DoNotOptimize(read());
  }
  state.SetComplexityN(state.range(0));
}

void newick(benchmark::State& state)
{
  const std::string& text = orvex::bench::newick(TreeShape::Random, leavesOf(state));
  measure(state, [&] { return orvex::NewickReader().parseContents(text); });
}
BENCHMARK(newick)->Apply(orvex::bench::everySize);

void serviceParse(benchmark::State& state)
{
  const std::string text = body(leavesOf(state));
  measure(state, [&] { return orvex::readTree(text, ""); });
}
BENCHMARK(serviceParse)->Apply(orvex::bench::everySize);

void serviceDownload(benchmark::State& state)
{
  const LoopbackServer server(
      [&](httplib::Server& paths)
      { paths.Get("/trees/1", answerWith(body(leavesOf(state)), "application/json")); });
  const std::string url = server.url();
  measure(state, [&] { return orvex::downloadTreeFrom(url, 1); });
}
BENCHMARK(serviceDownload)->Apply(orvex::bench::everySize);

} // namespace

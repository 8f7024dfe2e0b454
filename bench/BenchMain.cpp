// Runs the benchmarks with a stack of 512 MiB, so that the depth of a ladder limits none of them.

#include <benchmark/benchmark.h>

#include <sys/resource.h>

#include <algorithm>

int main(int argc, char** argv)
{
  rlimit limit{};
  if (getrlimit(RLIMIT_STACK, &limit) == 0)
  {
    limit.rlim_cur = std::min(limit.rlim_max, rlim_t(512) << 20);
    setrlimit(RLIMIT_STACK, &limit);
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv))
  {
    return 1;
  }
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}

// The main function of all measurements that need none of their own.
#include "yld.h"

#include <benchmark/benchmark.h>

#include <cstdio>

int main(int argc, char** argv)
{
#ifndef NDEBUG
    std::fprintf(stderr, "built without optimisation: the figures say nothing\n");
#endif
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    yld_initializeAPI();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    yld_finalizeAPI();
    return 0;
}

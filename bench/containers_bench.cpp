#include "yld_Repository.h"
#include "yld_Sequence.h"
#include "yld_String.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr int million = 1000000;
constexpr int manyKeys = 100000;

template<class T> std::vector<T> plainValues()
{
    std::vector<T> values(million);
    for (int i = 0; i < million; ++i) {
        values[static_cast<std::size_t>(i)] = static_cast<T>(i % 1000);
    }
    return values;
}

template<class T> yld_Sequence<T> grownSequence()
{
    yld_Sequence<T> sequence;
    for (int i = 0; i < million; ++i) {
        sequence.append(static_cast<T>(i % 1000));
    }
    return sequence;
}

template<class T> yld_Sequence<T> reservedSequence()
{
    const std::vector<T> values = plainValues<T>();
    return yld_Sequence<T>(values.data(), million);
}

template<class T> void appendVector(benchmark::State& state)
{
    for (auto _ : state) {
        std::vector<T> values;
        for (int i = 0; i < million; ++i) {
            values.push_back(static_cast<T>(i));
        }
        benchmark::DoNotOptimize(values.data());
    }
}

template<class T> void appendSequence(benchmark::State& state)
{
    for (auto _ : state) {
        yld_Sequence<T> values;
        for (int i = 0; i < million; ++i) {
            values.append(static_cast<T>(i));
        }
        benchmark::DoNotOptimize(&values[0]);
    }
}

template<class T> void appendReservedSequence(benchmark::State& state)
{
    for (auto _ : state) {
        yld_Sequence<T> values(million);
        for (int i = 0; i < million; ++i) {
            values.append(static_cast<T>(i));
        }
        benchmark::DoNotOptimize(&values[0]);
    }
}

template<class T> void indexVector(benchmark::State& state)
{
    const std::vector<T> values = plainValues<T>();
    for (auto _ : state) {
        T sum = 0;
        for (std::size_t i = 0; i < values.size(); ++i) {
            sum += values[i];
        }
        benchmark::DoNotOptimize(sum);
    }
}

template<class T> void indexSum(benchmark::State& state, const yld_Sequence<T>& values)
{
    for (auto _ : state) {
        T sum = 0;
        for (int i = 0; i < values.size(); ++i) {
            sum += values[i];
        }
        benchmark::DoNotOptimize(sum);
    }
}

template<class T> void indexSequence(benchmark::State& state) { indexSum(state, reservedSequence<T>()); }

template<class T> void indexGrownSequence(benchmark::State& state) { indexSum(state, grownSequence<T>()); }

template<class T> void walkVector(benchmark::State& state)
{
    const std::vector<T> values = plainValues<T>();
    for (auto _ : state) {
        T sum = 0;
        for (T value : values) {
            sum += value;
        }
        benchmark::DoNotOptimize(sum);
    }
}

template<class T> void walkSequence(benchmark::State& state)
{
    const yld_Sequence<T> values = reservedSequence<T>();
    for (auto _ : state) {
        T sum = 0;
        for (T value : values) {
            sum += value;
        }
        benchmark::DoNotOptimize(sum);
    }
}

template<class T> void walkIterator(benchmark::State& state)
{
    const yld_Sequence<T> values = reservedSequence<T>();
    for (auto _ : state) {
        T sum = 0;
        for (shr_1DArrayIter<T> iter(values.Array()); !iter.IsDone(); iter.Next()) {
            sum += iter.Current();
        }
        benchmark::DoNotOptimize(sum);
    }
}

template<class T> void walkRuns(benchmark::State& state)
{
    const yld_Sequence<T> values = reservedSequence<T>();
    for (auto _ : state) {
        T sum = 0;
        int length = 0;
        for (int i = 0; i < values.size(); i += length) {
            const T* const run = values.run(i, length);
            for (int k = 0; k < length; ++k) {
                sum += run[k];
            }
        }
        benchmark::DoNotOptimize(sum);
    }
}

// The walks once more with each element taken on its own, as everything but a bare sum makes the compiler do: what is
// compared then is the walk, and not whether its body can be turned into vector instructions.
#if defined(__GNUC__) && !defined(__clang__)
#define EACH_ON_ITS_OWN __attribute__((optimize("no-tree-vectorize")))
#else
#define EACH_ON_ITS_OWN
#endif

EACH_ON_ITS_OWN int sumVector(const std::vector<int>& values)
{
    int sum = 0;
    for (const int value : values) sum += value;
    return sum;
}

EACH_ON_ITS_OWN int sumIndex(const yld_Sequence<int>& values)
{
    int sum = 0;
    for (int i = 0; i < values.size(); ++i) sum += values[i];
    return sum;
}

EACH_ON_ITS_OWN int sumWalk(const yld_Sequence<int>& values)
{
    int sum = 0;
    for (const int value : values) sum += value;
    return sum;
}

EACH_ON_ITS_OWN int sumIterator(const yld_Sequence<int>& values)
{
    int sum = 0;
    for (shr_1DArrayIter<int> iter(values.Array()); !iter.IsDone(); iter.Next()) sum += iter.Current();
    return sum;
}

template<class Values> void eachOnItsOwn(benchmark::State& state, const Values& values, int (*sum)(const Values&))
{
    for (auto _ : state) benchmark::DoNotOptimize(sum(values));
}

void eachVector(benchmark::State& state) { eachOnItsOwn(state, plainValues<int>(), sumVector); }
void eachIndex(benchmark::State& state) { eachOnItsOwn(state, reservedSequence<int>(), sumIndex); }
void eachWalk(benchmark::State& state) { eachOnItsOwn(state, reservedSequence<int>(), sumWalk); }
void eachIterator(benchmark::State& state) { eachOnItsOwn(state, reservedSequence<int>(), sumIterator); }

// A sum that depends on the order of its terms, as most real work on values does; the plain sum of integers
// is turned into vector instructions where the elements lie side by side, and then measures memory.
void orderedVector(benchmark::State& state)
{
    const std::vector<int> values = plainValues<int>();
    for (auto _ : state) {
        unsigned sum = 0;
        for (std::size_t i = 0; i < values.size(); ++i) {
            sum = sum * 31 + static_cast<unsigned>(values[i]);
        }
        benchmark::DoNotOptimize(sum);
    }
}

void orderedIndex(benchmark::State& state)
{
    const yld_Sequence<int> values = reservedSequence<int>();
    for (auto _ : state) {
        unsigned sum = 0;
        for (int i = 0; i < values.size(); ++i) {
            sum = sum * 31 + static_cast<unsigned>(values[i]);
        }
        benchmark::DoNotOptimize(sum);
    }
}

void orderedWalk(benchmark::State& state)
{
    const yld_Sequence<int> values = reservedSequence<int>();
    for (auto _ : state) {
        unsigned sum = 0;
        for (int value : values) {
            sum = sum * 31 + static_cast<unsigned>(value);
        }
        benchmark::DoNotOptimize(sum);
    }
}

void copySequence(benchmark::State& state)
{
    yld_Sequence<int> values;
    for (int i = 0; i < state.range(0); ++i) {
        values.append(i);
    }
    for (auto _ : state) {
        yld_Sequence<int> copy(values);
        benchmark::DoNotOptimize(copy);
    }
}

void copyMap(benchmark::State& state)
{
    yld_Repository<int, int> values;
    for (int i = 0; i < state.range(0); ++i) {
        values.insert(i, i);
    }
    for (auto _ : state) {
        yld_Repository<int, int> copy(values);
        benchmark::DoNotOptimize(copy);
    }
}

// Names as users give them, in the order in which a model is built, and the order in which they are looked
// up.
std::string nameOf(int i) { return "NODESET-" + std::to_string(i); }

std::vector<int> mixed(int n)
{
    std::vector<int> order(static_cast<std::size_t>(n));
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(), std::mt19937(1));
    return order;
}

void findInStdMap(benchmark::State& state)
{
    std::map<std::string, int> values;
    std::vector<std::string> keys;
    for (int i : mixed(manyKeys)) {
        keys.push_back(nameOf(i));
    }
    for (int i = 0; i < manyKeys; ++i) {
        values.emplace(nameOf(i), i);
    }
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(values.find(keys[next])->second);
        next = next + 1 < keys.size() ? next + 1 : 0;
    }
}

void findInRepository(benchmark::State& state, bool checked)
{
    yld_Repository<yld_String, int> values;
    std::vector<yld_String> keys;
    for (int i : mixed(manyKeys)) {
        keys.push_back(nameOf(i).c_str());
    }
    for (int i = 0; i < manyKeys; ++i) {
        values.insert(nameOf(i).c_str(), i);
    }
    std::size_t next = 0;
    if (checked) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(values.constGet(keys[next]));
            next = next + 1 < keys.size() ? next + 1 : 0;
        }
    } else {
        for (auto _ : state) {
            benchmark::DoNotOptimize(values.isMember(keys[next]));
            next = next + 1 < keys.size() ? next + 1 : 0;
        }
    }
}

// Times of one run, from which the ratios are printed at its end.
class Ratios : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            m_times[run.benchmark_name()] = run.GetAdjustedRealTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }

    void print(const char* measure, const std::string& ours, const std::string& plain) const
    {
        if (m_times.count(ours) && m_times.count(plain)) {
            std::printf("%-58s %8.2f\n", measure, m_times.at(ours) / m_times.at(plain));
        }
    }

private:
    std::map<std::string, double> m_times;
};

void printDepth(const char* order, const std::vector<int>& keys)
{
    yld_Repository<int, int> map;
    for (int key : keys) {
        map.insert(key, key);
    }
    std::printf("%-58s %8d\n", order, map.Depth());
}

#define BOTH(bench)                                                                                                    \
    BENCHMARK(bench<int>)->Unit(benchmark::kMicrosecond);                                                              \
    BENCHMARK(bench<float>)->Unit(benchmark::kMicrosecond)

BOTH(appendVector);
BOTH(appendSequence);
BOTH(appendReservedSequence);
BOTH(indexVector);
BOTH(indexSequence);
BOTH(indexGrownSequence);
BOTH(walkVector);
BOTH(walkSequence);
BOTH(walkIterator);
BOTH(walkRuns);
BENCHMARK(eachVector)->Unit(benchmark::kMicrosecond);
BENCHMARK(eachIndex)->Unit(benchmark::kMicrosecond);
BENCHMARK(eachWalk)->Unit(benchmark::kMicrosecond);
BENCHMARK(eachIterator)->Unit(benchmark::kMicrosecond);
BENCHMARK(orderedVector)->Unit(benchmark::kMicrosecond);
BENCHMARK(orderedIndex)->Unit(benchmark::kMicrosecond);
BENCHMARK(orderedWalk)->Unit(benchmark::kMicrosecond);
BENCHMARK(copySequence)->Arg(1000)->Arg(million);
BENCHMARK(copyMap)->Arg(1000)->Arg(million);
BENCHMARK(findInStdMap);
BENCHMARK_CAPTURE(findInRepository, isMember, false);
BENCHMARK_CAPTURE(findInRepository, constGet, true);

} // namespace

int main(int argc, char** argv)
{
#ifndef __OPTIMIZE__
    std::fprintf(stderr, "Warning: this is an unoptimised build; its times mean nothing.\n");
#endif
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    Ratios reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    std::printf("\n%-58s %8s\n", "1,000,000 elements; time against std::vector", "ratio");
    for (const std::string type : {"<int>", "<float>"}) {
        std::printf("yld_Sequence%s\n", type.c_str());
        reporter.print("  append, growing", "appendSequence" + type, "appendVector" + type);
        reporter.print("  append, storage reserved", "appendReservedSequence" + type, "appendVector" + type);
        reporter.print("  operator[], storage made at once", "indexSequence" + type, "indexVector" + type);
        reporter.print("  operator[], storage grown", "indexGrownSequence" + type, "indexVector" + type);
        reporter.print("  range-for", "walkSequence" + type, "walkVector" + type);
        reporter.print("  shr_1DArrayIter", "walkIterator" + type, "walkVector" + type);
        reporter.print("  run by run", "walkRuns" + type, "walkVector" + type);
    }
    std::printf("yld_Sequence<int>, each element on its own\n");
    reporter.print("  operator[]", "eachIndex", "eachVector");
    reporter.print("  range-for", "eachWalk", "eachVector");
    reporter.print("  shr_1DArrayIter", "eachIterator", "eachVector");
    std::printf("yld_Sequence<int>, a sum in which the order counts\n");
    reporter.print("  operator[]", "orderedIndex", "orderedVector");
    reporter.print("  range-for", "orderedWalk", "orderedVector");
    std::printf("\n%-58s %8s\n", "copies, time of 1,000,000 entries against 1,000", "ratio");
    reporter.print("  yld_Sequence<int>", "copySequence/1000000", "copySequence/1000");
    reporter.print("  yld_Repository<int, int>", "copyMap/1000000", "copyMap/1000");
    std::printf("\n%-58s %8s\n", "look-up among 100,000 texts, time against std::map", "ratio");
    reporter.print("  isMember", "findInRepository/isMember", "findInStdMap");
    reporter.print("  constGet", "findInRepository/constGet", "findInStdMap");

    std::printf("\n%-58s %8s\n", "yld_Repository<int, int>, 1,000,000 entries", "depth");
    std::vector<int> keys(million);
    std::iota(keys.begin(), keys.end(), 0);
    printDepth("  ascending keys", keys);
    std::reverse(keys.begin(), keys.end());
    printDepth("  descending keys", keys);
    printDepth("  random keys", mixed(million));
    std::printf("%-58s %8d\n", "  of a perfectly balanced tree", 20);
    return 0;
}

/*
 * Measures a benchmark: repeats a prepared operation, then runs it once more while counting
 * allocations, so that counting costs no measured time. Under callgrind counts the instructions of
 * another run.
 */
#pragma once

#include "support/allocations.h"
#include "support/copies.h"

#include <benchmark/benchmark.h>

#include <QtGlobal>

#include <valgrind/callgrind.h>

#include <cstdio>
#include <string>

/// The work that a benchmark repeats. The operation returns true when it succeeded.
template <typename Operation>
struct Work
{
    Operation once;
    qint64 octets = 0; ///< handled in one repetition; 0 when there is no such number
};

// Clang 14 cannot deduce the arguments of aggregates by itself.
template <typename Operation>
Work(Operation) -> Work<Operation>;
template <typename Operation>
Work(Operation, qint64) -> Work<Operation>;

/// Cost of one repetition besides time; in octets, except the count of allocations.
struct Cost
{
    long allocations = 0;
    long allocated = 0;
    long copied = 0;
    long peak = 0; ///< peak of the octets in use
};

/// Makes callgrind write a dump with the trigger @p name; does nothing outside of callgrind.
template <typename Operation>
void countInstructions(const std::string &name, Work<Operation> work)
{
    if (RUNNING_ON_VALGRIND) {
        CALLGRIND_ZERO_STATS;
        benchmark::DoNotOptimize(work.once());
        CALLGRIND_DUMP_STATS_AT(name.c_str());
    }
}

/// True once a benchmark has failed.
inline bool anyBenchmarkFailed = false;

inline void fail(benchmark::State &state, const std::string &name)
{
    constexpr const char *why = "the operation failed";
    state.SkipWithError(why);
    std::fprintf(stderr, "%s: %s\n", name.c_str(), why);
    anyBenchmarkFailed = true;
}

template <typename Operation>
void measure(benchmark::State &state, const std::string &name, Work<Operation> work)
{
    for (auto _ : state) {
        if (!work.once()) {
            fail(state, name);
            return;
        }
    }
    state.SetBytesProcessed(state.iterations() * work.octets);
    Cost cost;
    {
        const CopyCounter copied = copyCounter();
        const long before = copied ? copied() : 0;
        const CountedAllocations allocations;
        benchmark::DoNotOptimize(work.once());
        cost = {allocations.count(), allocations.octets(), copied ? copied() - before : 0,
                allocations.peak()};
    }
    state.counters["allocations"] = double(cost.allocations);
    state.counters["allocated"] = double(cost.allocated);
    if (copyCounter())
        state.counters["copied"] = double(cost.copied);
    state.counters["peak"] = double(cost.peak);
}

/// Adds the benchmark @p name. @p prepare creates its Work before measuring begins.
template <typename Prepare>
void addBenchmark(const std::string &name, Prepare prepare)
{
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State &state) {
        const auto work = prepare();
        measure(state, name, work);
        countInstructions(name, work);
    });
}

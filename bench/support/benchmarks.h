/*
 * How a benchmark is measured: a prepared operation is repeated, and then done once more while the
 * heap is watched, so that watching costs no time that is measured. Callgrind counts the
 * instructions of one more.
 */
#pragma once

#include "support/allocations.h"
#include "support/copies.h"

#include <benchmark/benchmark.h>

#include <QtGlobal>

#include <valgrind/callgrind.h>

#include <cstdio>
#include <string>

/// What a benchmark repeats. The operation gives true when it did its work.
template <typename Operation>
struct Work
{
    Operation once;
    qint64 octets = 0; ///< that one repetition handles; 0 when there is no such number
};

// Clang 14 deduces nothing for aggregates by itself.
template <typename Operation>
Work(Operation) -> Work<Operation>;
template <typename Operation>
Work(Operation, qint64) -> Work<Operation>;

/// What one repetition takes besides time; all but the count in octets.
struct Cost
{
    long allocations = 0;
    long allocated = 0;
    long copied = 0;
    long peak = 0; ///< held at once
};

/// Leaves a dump of callgrind's with the trigger @p name; outside of callgrind nothing happens.
template <typename Operation>
void countInstructions(const std::string &name, Work<Operation> work)
{
    if (RUNNING_ON_VALGRIND) {
        CALLGRIND_ZERO_STATS;
        benchmark::DoNotOptimize(work.once());
        CALLGRIND_DUMP_STATS_AT(name.c_str());
    }
}

/// True after a benchmark failed.
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

/// Adds the benchmark @p name. @p prepare makes its Work, before anything is measured.
template <typename Prepare>
void addBenchmark(const std::string &name, Prepare prepare)
{
    benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State &state) {
        const auto work = prepare();
        measure(state, name, work);
        countInstructions(name, work);
    });
}

/*
 * Measures the library. Takes the options of Google Benchmark; bench/ratios compares the results
 * with the limits. Ends with 1 when a benchmark fails or the filter matches none.
 */
#include "subjects.h"
#include "support/benchmarks.h"

#include <qvlsmilparser.h>

#include <malloc.h>

namespace {

// Keeps freed memory in the process: otherwise the benchmark after a large operation would pay for
// returning memory to the system and taking it again.
void keepMemory()
{
    constexpr int largest = 1 << 30;
    constexpr int largestBlock = 1 << 25;
    mallopt(M_TRIM_THRESHOLD, largest);
    mallopt(M_MMAP_THRESHOLD, largestBlock);
}

} // namespace

int main(int argc, char **argv)
{
    keepMemory();
    qunsetenv("TZ"); // as on a handset
    constexpr int roomForLargestMessage = 8192; // kilobytes
    MMS_UTIL_Setting::setMaxiumMOMMSSize(roomForLargestMessage);
    addHeaderBenchmarks();
    addMultipartBenchmarks();
    addSmilBenchmarks();
    addValueBenchmarks();
    addLookupBenchmarks();
    addRecordBenchmarks();
    addWholeMessageBenchmarks();
    addGrowthBenchmarks();

    benchmark::AddCustomContext("qt", qVersion());
    benchmark::AddCustomContext("compiler", __VERSION__);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    const bool anyMatched = benchmark::RunSpecifiedBenchmarks() > 0;
    benchmark::Shutdown();
    return anyMatched && !anyBenchmarkFailed ? 0 : 1;
}

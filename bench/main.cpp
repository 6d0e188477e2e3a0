/*
 * Measures the library. Takes the options of Google Benchmark; bench/ratios compares what comes out
 * with the limits.
 */
#include "subjects.h"

#include <qvlsmilparser.h>

#include <benchmark/benchmark.h>

int main(int argc, char **argv)
{
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
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

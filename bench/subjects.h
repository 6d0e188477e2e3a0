/*
 * The subjects of measurement. Each function adds the benchmarks of one.
 */
#pragma once

void addHeaderBenchmarks();
void addMultipartBenchmarks();
void addSmilBenchmarks();
void addValueBenchmarks();
void addLookupBenchmarks();
void addRecordBenchmarks();
void addWholeMessageBenchmarks();
void addGrowthBenchmarks();

/*
 * What is measured, subject by subject. Each adds its benchmarks.
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

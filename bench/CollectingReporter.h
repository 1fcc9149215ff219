#pragma once

// The console reporter of the benchmarks in this directory, which also keeps each run's time so
// that a program can print ratios after the runs.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

// Prints as the console reporter does and keeps the CPU time per iteration, in milliseconds,
// of every plain run.
class CollectingReporter : public benchmark::ConsoleReporter {
public:
    std::map<std::string, double> cpuMs;

    // Colours only on a terminal, as the default reporter does.
    CollectingReporter() : ConsoleReporter(isatty(fileno(stdout)) ? OO_ColorTabular : OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred) {
                continue;
            }
            cpuMs[run.run_name.function_name] =
                run.GetAdjustedCPUTime() *
                benchmark::GetTimeUnitMultiplier(benchmark::kMillisecond) /
                benchmark::GetTimeUnitMultiplier(run.time_unit);
        }
        ConsoleReporter::ReportRuns(runs);
    }
};

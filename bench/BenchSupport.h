#pragma once

// What the benchmark programs in this directory share: their own flags besides Google
// Benchmark's, how often a slow operation is timed, and a console reporter that keeps each run's
// time so that a program can print ratios after the runs.
//
// The flags:
//   --sizes=a,b,c   the vertex counts to run, in rising order
//   --limit_s=S     the longest single operation that is timed, in seconds

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "ravelin/numeric/Number.h"

// Reads the arguments that benchmark::Initialize left. `valid` says whether a vertex count fits
// the program's shapes, and `rule` describes the counts it accepts. False, with a message, for
// an argument it does not know or a count that does not fit.
inline bool ParseOwnFlags(int argc, char** argv, std::vector<int>& sizes, double& limitSeconds,
                          bool (*valid)(int), const char* rule) {
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg.rfind("--sizes=", 0) == 0) {
            sizes.clear();
            const std::string rest = arg.substr(8);
            std::size_t pos = 0;
            for (;;) {
                const std::size_t comma = rest.find(',', pos);
                const std::string item = rest.substr(pos, comma - pos);
                const int n = std::atoi(item.c_str());
                if (!valid(n)) {
                    std::fprintf(stderr, "bad size '%s' (%s)\n", item.c_str(), rule);
                    return false;
                }
                sizes.push_back(n);
                if (comma == std::string::npos) {
                    break;
                }
                pos = comma + 1;
            }
            std::sort(sizes.begin(), sizes.end());
        } else if (arg.rfind("--limit_s=", 0) == 0) {
            limitSeconds = std::atof(arg.c_str() + 10);
        } else {
            std::fprintf(stderr, "unknown argument '%s'\n", arg.c_str());
            return false;
        }
    }
    return true;
}

// An operation that took a second or more in the check is timed once, one of 0.2 s or more three
// times, shorter ones as often as Google Benchmark likes.
inline void SetIterations(benchmark::internal::Benchmark* b, double seconds) {
    b->Unit(benchmark::kMillisecond);
    if (seconds >= 1.0) {
        b->Iterations(1);
    } else if (seconds >= 0.2) {
        b->Iterations(3);
    }
}

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

// A wobbly ring of `n` vertices about (500, 500), counterclockwise: the radius at angle t is
// 400 + 30 sin 7t + 15 sin(13t + 1), so the ring bulges and dents 20 times round; each vertex's
// angle is jittered by up to 0.2 of a step (std::mt19937 seeded with `seed`, with its own
// conversion to doubles, so the same with every standard library). The dents are concave, with
// radii of curvature of 35 or more, so an offset by up to 15 either way neither crosses itself
// nor loses an edge for a smooth ring; at every size the polygon has reflex vertices.
// Coordinates lie between 55 and 945. Each point comes with its angle t.
struct WobblyPoint {
    double x;
    double y;
    double t;
};
inline std::vector<WobblyPoint> WobblyRing(int n, unsigned seed) {
    std::vector<WobblyPoint> ring;
    std::mt19937 g(seed);
    const double step = 2 * ravelin::kPi / n;
    for (int i = 0; i < n; ++i) {
        const double u = static_cast<double>(g()) / 4294967296.0;
        const double t = step * (i + 0.4 * (u - 0.5));
        const double r = 400.0 + 30.0 * std::sin(7.0 * t) + 15.0 * std::sin(13.0 * t + 1.0);
        ring.push_back({500.0 + r * std::cos(t), 500.0 + r * std::sin(t), t});
    }
    return ring;
}

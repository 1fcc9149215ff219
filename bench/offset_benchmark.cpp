// Times the constant-distance offsets of RvPolygon2D, GetExtend (a list of polygons, the ring cut
// where it crosses itself) and GetOffset (one polygon, the ring walked as an open chain), against
// Clipper 6's ClipperOffset with mitred joins, on the same polygons at 100, 1,000 and 10,000
// vertices, outward and inward, and prints the time ratios (Ravelin / Clipper) after the
// benchmarks.
//
// Before anything is timed, every offset is computed once and the areas of the results are
// printed side by side, so that the timed work is known to be comparable. That single run also
// serves as an estimate: a case whose one offset would take longer than the limit (--limit_s,
// 60 s by default), predicted from the smaller sizes of the same case by the growth between
// them, and at least quadratically, is reported as such and not run; one that did take longer in
// the check is not timed.
//
// Extra flags, besides Google Benchmark's own:
//   --sizes=100,1000,10000   the vertex counts
//   --limit_s=60             the longest one offset may take to be timed

#include <benchmark/benchmark.h>
#include <polyclipping/clipper.hpp>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "BenchSupport.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace {

namespace cl = ClipperLib;

using ravelin::RvPoint2D;
using ravelin::RvPolygon2D;

// Clipper gets integers: the coordinates times 1000, rounded, as in combine_benchmark.
constexpr double kScale = 1000.0;

// The offset distance, outward or inward.
constexpr double kDistance = 10.0;

// ---------------------------------------------------------------------------------------------
// Inputs

enum class Direction { Outward, Inward };

struct DirectionInfo {
    Direction direction;
    const char* name;
    double sign;
};

constexpr DirectionInfo kDirections[] = {{Direction::Outward, "Outward", 1.0},
                                         {Direction::Inward, "Inward", -1.0}};

enum Method { kGetExtend, kGetOffset, kClipper, kMethods };
constexpr const char* kMethodNames[kMethods] = {"GetExtend", "GetOffset", "Clipper"};

// One polygon, in the form each library takes.
struct Inputs {
    int n = 0;
    RvPolygon2D polygon;  // counterclockwise
    cl::Path path;        // the same, scaled
};

// The wobbly ring of BenchSupport.h.
//
// The jitter's seed is 4 at every size. It keeps the inputs clear of one tolerance of Ravelin's
// point-in-polygon test, which the inward GetExtend runs on every vertex of its result: a
// horizontal ray that passes within 1e-5 of a vertex of the polygon, on the side of a short
// edge, loses a crossing there, the vertex is taken to be outside, and the whole ring is
// dropped. At 10,000 vertices about one ray in ten thousand comes that close: with the seeds 1,
// 2, 3 and 10,000 the inward GetExtend returns nothing, which the check below would flag.
std::unique_ptr<Inputs> MakeInputs(int n) {
    auto in = std::make_unique<Inputs>();
    in->n = n;
    for (const WobblyPoint& p : WobblyRing(n, 4)) {
        in->polygon.push_backA(RvPoint2D(p.x, p.y));
        in->path.emplace_back(static_cast<cl::cInt>(std::llround(p.x * kScale)),
                              static_cast<cl::cInt>(std::llround(p.y * kScale)));
    }
    return in;
}

// ---------------------------------------------------------------------------------------------
// The offsets. Each works on the input as it stands: GetExtend and GetOffset leave their polygon
// unchanged (the point-in-polygon test of GetExtend's filter writes only a scratch member), and
// each run's results are freed inside the run.

std::vector<RvPolygon2D> RunGetExtend(Inputs& in, double distance) {
    std::vector<RvPolygon2D> out;
    in.polygon.GetExtend(distance, out);
    return out;
}

RvPolygon2D RunGetOffset(Inputs& in, double distance) {
    return in.polygon.GetOffset(distance);
}

// Mitred joins with a mitre limit so high that no corner is squared off.
cl::Paths RunClipper(const Inputs& in, double distance) {
    cl::ClipperOffset offset(1e6);
    offset.AddPath(in.path, cl::jtMiter, cl::etClosedPolygon);
    cl::Paths out;
    offset.Execute(out, distance * kScale);
    return out;
}

double RingArea(const RvPolygon2D& ring) {
    double twice = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const RvPoint2D& a = ring[i];
        const RvPoint2D& b = ring[(i + 1) % ring.size()];
        twice += a.x * b.y - b.x * a.y;
    }
    return 0.5 * twice;
}

// ---------------------------------------------------------------------------------------------
// The check

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

struct CaseKey {
    int n;
    int direction;
    int method;
    bool operator<(const CaseKey& o) const {
        return std::tie(direction, n, method) < std::tie(o.direction, o.n, o.method);
    }
};

// Seconds of the single run of each case, and the cases not run or not to be timed, with the
// reason.
std::map<CaseKey, double> g_seconds;
std::map<CaseKey, std::string> g_skipped;

// The time one offset is predicted to take at `n`, from the runs at smaller sizes of the same
// case: the growth exponent between the last two, but at least 2; 0 when there is no run to go
// by.
double Predict(const CaseKey& key) {
    std::vector<std::pair<int, double>> runs;
    for (const auto& [k, seconds] : g_seconds) {
        if (k.direction == key.direction && k.method == key.method && k.n < key.n) {
            runs.emplace_back(k.n, seconds);
        }
    }
    if (runs.empty()) {
        return 0.0;
    }
    std::sort(runs.begin(), runs.end());
    double exponent = 2.0;
    if (runs.size() >= 2) {
        const auto& [n0, s0] = runs[runs.size() - 2];
        const auto& [n1, s1] = runs.back();
        if (s0 > 0.0 && s1 > 0.0) {
            exponent =
                std::max(exponent, std::log(s1 / s0) / std::log(static_cast<double>(n1) / n0));
        }
    }
    return runs.back().second * std::pow(static_cast<double>(key.n) / runs.back().first, exponent);
}

// Runs one offset once unless it is predicted to take longer than the limit; records its time,
// or why it is not timed. An exception from the offset is reported and the case is not timed.
// True if it ran to the end.
template <class Run>
bool CheckRun(const CaseKey& key, double limitSeconds, Run run, std::string& failure) {
    const double predicted = Predict(key);
    if (predicted > limitSeconds) {
        char reason[160];
        std::snprintf(reason, sizeof reason, "not run: one offset predicted to take about %.3g s",
                      predicted);
        g_skipped[key] = reason;
        return false;
    }
    const Clock::time_point start = Clock::now();
    try {
        run();
    } catch (const std::exception& e) {
        failure = std::string("threw: ") + e.what();
        g_skipped[key] = failure;
        return false;
    }
    const double seconds = SecondsSince(start);
    g_seconds[key] = seconds;
    if (seconds > limitSeconds) {
        char reason[160];
        std::snprintf(reason, sizeof reason, "not timed: the one offset of the check took %.0f s",
                      seconds);
        g_skipped[key] = reason;
    }
    return true;
}

// Computes every offset once with each method and prints the areas (with the ring counts) and
// the relative difference of each Ravelin result from Clipper's.
void CheckPass(const std::vector<std::unique_ptr<Inputs>>& inputs, double limitSeconds) {
    std::printf(
        "Offsets by %g: area (rings), relative difference from Clipper, and the seconds of the\n"
        "one run of the check. GetOffset leaves the first vertex where it is and does not shift\n"
        "the closing edge, so its area differs by about the strip along that edge. A relative\n"
        "difference above 1e-3 is flagged MISMATCH.\n",
        kDistance);
    std::printf("%-8s %6s %22s %9s %22s %9s %22s %9s %9s %9s\n", "offset", "N", "GetExtend",
                "rel.diff", "GetOffset", "rel.diff", "Clipper", "Extend s", "Offset s",
                "Clipper s");
    for (const DirectionInfo& dir : kDirections) {
        const int direction = static_cast<int>(dir.direction);
        const double distance = dir.sign * kDistance;
        for (const auto& in : inputs) {
            char cells[kMethods][48];
            char seconds[kMethods][16];
            double area[kMethods] = {0.0, 0.0, 0.0};
            bool ran[kMethods] = {false, false, false};
            for (int m = 0; m < kMethods; ++m) {
                std::snprintf(cells[m], sizeof cells[m], "not run");
                std::snprintf(seconds[m], sizeof seconds[m], "-");
                const CaseKey key{in->n, direction, m};
                std::string failure;
                std::size_t rings = 0;
                ran[m] = CheckRun(
                    key, limitSeconds,
                    [&] {
                        if (m == kGetExtend) {
                            const std::vector<RvPolygon2D> out = RunGetExtend(*in, distance);
                            rings = out.size();
                            for (const RvPolygon2D& ring : out) {
                                area[m] += std::fabs(RingArea(ring));
                            }
                        } else if (m == kGetOffset) {
                            const RvPolygon2D out = RunGetOffset(*in, distance);
                            rings = 1;
                            area[m] = std::fabs(RingArea(out));
                        } else {
                            const cl::Paths out = RunClipper(*in, distance);
                            rings = out.size();
                            for (const cl::Path& p : out) {
                                area[m] += cl::Area(p) / (kScale * kScale);
                            }
                        }
                    },
                    failure);
                if (ran[m]) {
                    std::snprintf(cells[m], sizeof cells[m], "%.4f (%zu)", area[m], rings);
                    std::snprintf(seconds[m], sizeof seconds[m], "%.4f", g_seconds.at(key));
                } else if (!failure.empty()) {
                    std::snprintf(cells[m], sizeof cells[m], "%.40s", failure.c_str());
                }
            }
            char diff[2][16];
            bool mismatch = false;
            for (int m = 0; m < 2; ++m) {
                if (ran[m] && ran[kClipper] && area[kClipper] > 0.0) {
                    const double d = std::fabs(area[m] - area[kClipper]) / area[kClipper];
                    std::snprintf(diff[m], sizeof diff[m], "%.2e", d);
                    mismatch = mismatch || d > 1e-3;
                } else {
                    std::snprintf(diff[m], sizeof diff[m], "-");
                }
            }
            std::printf("%-8s %6d %22s %9s %22s %9s %22s %9s %9s %9s%s\n", dir.name, in->n,
                        cells[kGetExtend], diff[kGetExtend], cells[kGetOffset], diff[kGetOffset],
                        cells[kClipper], seconds[kGetExtend], seconds[kGetOffset],
                        seconds[kClipper], mismatch ? "  MISMATCH" : "");
            std::fflush(stdout);
        }
    }
    std::printf("\n");
}

// ---------------------------------------------------------------------------------------------
// Benchmarks and the ratio table

std::string BenchmarkName(int method, int direction, int n) {
    return std::string("BM_") + kMethodNames[method] + "/" + kDirections[direction].name + "/" +
           std::to_string(n);
}

void RegisterOne(Inputs* in, int method, int direction) {
    const CaseKey key{in->n, direction, method};
    if (g_seconds.count(key) == 0 || g_skipped.count(key) != 0) {
        return;
    }
    const double distance = kDirections[direction].sign * kDistance;
    const std::string name = BenchmarkName(method, direction, in->n);
    benchmark::internal::Benchmark* b = nullptr;
    if (method == kGetExtend) {
        b = benchmark::RegisterBenchmark(name.c_str(), [in, distance](benchmark::State& state) {
            for (auto _ : state) {
                auto out = RunGetExtend(*in, distance);
                benchmark::DoNotOptimize(out);
            }
        });
    } else if (method == kGetOffset) {
        b = benchmark::RegisterBenchmark(name.c_str(), [in, distance](benchmark::State& state) {
            for (auto _ : state) {
                auto out = RunGetOffset(*in, distance);
                benchmark::DoNotOptimize(out);
            }
        });
    } else {
        b = benchmark::RegisterBenchmark(name.c_str(), [in, distance](benchmark::State& state) {
            for (auto _ : state) {
                auto out = RunClipper(*in, distance);
                benchmark::DoNotOptimize(out);
            }
        });
    }
    SetIterations(b, g_seconds.at(key));
}

void RegisterAll(const std::vector<std::unique_ptr<Inputs>>& inputs) {
    for (const DirectionInfo& dir : kDirections) {
        for (const auto& in : inputs) {
            for (int m = 0; m < kMethods; ++m) {
                RegisterOne(in.get(), m, static_cast<int>(dir.direction));
            }
        }
    }
}

// The CPU time of one case, as a table cell: the timed figure in milliseconds, or the single
// run of the check when it was not timed for taking longer than the limit (marked by `fromCheck`).
bool TimeOf(const CollectingReporter& reporter, const CaseKey& key, double& ms, char* cell,
            std::size_t size, bool& fromCheck) {
    const auto timed = reporter.cpuMs.find(BenchmarkName(key.method, key.direction, key.n));
    const auto checked = g_seconds.find(key);
    if (timed != reporter.cpuMs.end()) {
        ms = timed->second;
        std::snprintf(cell, size, "%.3f", ms);
        return true;
    }
    if (checked != g_seconds.end()) {
        ms = 1000.0 * checked->second;
        fromCheck = true;
        std::snprintf(cell, size, "%.0f s, once", checked->second);
        return true;
    }
    std::snprintf(cell, size, "%s", g_skipped.count(key) != 0 ? "not run" : "-");
    return false;
}

// The ratio table. A case that was not timed because its one run in the check took longer than
// the limit is shown with that run's time, and its ratio is marked with '*'; one that was not
// run at all has no ratio.
void PrintRatios(const CollectingReporter& reporter, const std::vector<int>& sizes) {
    std::printf("\nCPU time per offset (ms) and ratios to Clipper\n");
    std::printf("%-8s %6s %16s %16s %12s %18s %18s\n", "offset", "N", "GetExtend", "GetOffset",
                "Clipper", "GetExtend/Clipper", "GetOffset/Clipper");
    bool marked = false;
    for (const DirectionInfo& dir : kDirections) {
        const int direction = static_cast<int>(dir.direction);
        for (const int n : sizes) {
            double ms[kMethods] = {0.0, 0.0, 0.0};
            bool known[kMethods] = {false, false, false};
            bool fromCheck[kMethods] = {false, false, false};
            char cells[kMethods][48];
            for (int m = 0; m < kMethods; ++m) {
                known[m] = TimeOf(reporter, {n, direction, m}, ms[m], cells[m], sizeof cells[m],
                                  fromCheck[m]);
            }
            char ratios[2][32];
            for (int m = 0; m < 2; ++m) {
                if (known[m] && known[kClipper] && ms[kClipper] > 0.0) {
                    const bool mark = fromCheck[m] || fromCheck[kClipper];
                    std::snprintf(ratios[m], sizeof ratios[m], "%.3g%s", ms[m] / ms[kClipper],
                                  mark ? "*" : "");
                    marked = marked || mark;
                } else {
                    std::snprintf(ratios[m], sizeof ratios[m], "-");
                }
            }
            std::printf("%-8s %6d %16s %16s %12s %18s %18s\n", dir.name, n, cells[kGetExtend],
                        cells[kGetOffset], cells[kClipper], ratios[kGetExtend], ratios[kGetOffset]);
        }
    }
    if (marked) {
        std::printf(
            "* from the single offset of the check, which took longer than the limit and was\n"
            "  not timed further\n");
    }
    for (const auto& [key, reason] : g_skipped) {
        std::printf("%s %s at N = %d: %s\n", kMethodNames[key.method],
                    kDirections[key.direction].name, key.n, reason.c_str());
    }
    std::printf(
        "GetExtend tests every edge of the shifted ring against every other edge for a\n"
        "crossing, and on an inward offset also tests every vertex of its result for lying\n"
        "inside the polygon, each test a scan of all edges; GetOffset tests every new segment\n"
        "against all later edges. All three are quadratic in N; Clipper finds crossings with a\n"
        "sweep.\n");
}

// The vertex counts this program's shapes can have.
bool ValidSize(int n) {
    return n >= 3;
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    std::vector<int> sizes = {100, 1000, 10000};
    double limitSeconds = 60.0;
    if (!ParseOwnFlags(argc, argv, sizes, limitSeconds, ValidSize, "a count of 3 or more")) {
        return 2;
    }
    std::vector<std::unique_ptr<Inputs>> inputs;
    for (const int n : sizes) {
        inputs.push_back(MakeInputs(n));
    }
    CheckPass(inputs, limitSeconds);
    RegisterAll(inputs);
    CollectingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    PrintRatios(reporter, sizes);
    benchmark::Shutdown();
    return 0;
}

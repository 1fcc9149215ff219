// Times the per-edge offsets of RvPolygon2D, GetExtendEx and GetExtendEx2, on the wobbly ring of
// BenchSupport.h at 100, 1,000 and 10,000 vertices, outward and inward, with two sets of
// distances: every edge at 10, and distances that vary along the ring, 10 + 4 sin 3t at the
// edge's end vertex (three thick and three thin stretches, changing slowly enough that
// neighbouring edges, nearly parallel, still meet close by). The constant offset GetExtend at 10
// is timed beside them, and after the benchmarks the ratios to it are printed.
//
// Before anything is timed, every offset is computed once and the area of the result and the
// number of its rings are printed, with, for the distances of 10, the relative difference from
// GetExtend's area: all three should return the same ring.
//
// Extra flags, besides Google Benchmark's own:
//   --sizes=100,1000,10000   the vertex counts
//   --limit_s=60             a case whose one run in the check took longer is not timed

#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "BenchSupport.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace {

using ravelin::RvPoint2D;
using ravelin::RvPolygon2D;

constexpr double kDistance = 10.0;

enum Method { kGetExtendEx, kGetExtendEx2, kGetExtend, kMethods };
constexpr const char* kMethodNames[kMethods] = {"GetExtendEx", "GetExtendEx2", "GetExtend"};

enum Profile { kEqual, kVarying, kProfiles };
constexpr const char* kProfileNames[kProfiles] = {"Equal", "Varying"};

struct DirectionInfo {
    const char* name;
    double sign;
};
constexpr DirectionInfo kDirections[] = {{"Outward", 1.0}, {"Inward", -1.0}};
constexpr int kDirectionCount = 2;

struct Inputs {
    int n = 0;
    RvPolygon2D polygon;
    std::vector<double> varying;  // 10 + 4 sin 3t per edge, by the index of its end vertex
};

std::unique_ptr<Inputs> MakeInputs(int n) {
    auto in = std::make_unique<Inputs>();
    in->n = n;
    for (const WobblyPoint& p : WobblyRing(n, 4)) {
        in->polygon.push_backA(RvPoint2D(p.x, p.y));
        in->varying.push_back(kDistance + 4.0 * std::sin(3.0 * p.t));
    }
    return in;
}

// The distances of one run: the per-edge offsets change theirs in place, so every run gets a
// fresh copy.
std::vector<double> Distances(const Inputs& in, int profile, double sign) {
    std::vector<double> d =
        profile == kEqual ? std::vector<double>(in.polygon.size(), kDistance) : in.varying;
    for (double& x : d) {
        x *= sign;
    }
    return d;
}

std::vector<RvPolygon2D> Run(Inputs& in, int method, int profile, double sign) {
    std::vector<RvPolygon2D> out;
    std::vector<double> d = Distances(in, profile, sign);
    if (method == kGetExtendEx) {
        in.polygon.GetExtendEx(d, out);
    } else if (method == kGetExtendEx2) {
        in.polygon.GetExtendEx2(d, out);
    } else {
        in.polygon.GetExtend(sign * kDistance, out);
    }
    return out;
}

double Area(const std::vector<RvPolygon2D>& rings) {
    double area = 0.0;
    for (const RvPolygon2D& ring : rings) {
        area += ring.GetPlochuOriented();
    }
    return area;
}

// GetExtend has one distance for every edge: it runs with the equal distances only.
bool Applies(int method, int profile) {
    return method != kGetExtend || profile == kEqual;
}

struct CaseKey {
    int n;
    int direction;
    int profile;
    int method;
    bool operator<(const CaseKey& o) const {
        return std::tie(direction, profile, n, method) <
               std::tie(o.direction, o.profile, o.n, o.method);
    }
};

std::map<CaseKey, double> g_seconds;

void CheckPass(const std::vector<std::unique_ptr<Inputs>>& inputs) {
    std::printf(
        "Per-edge offsets: area (rings) of one run and its seconds; with equal distances the\n"
        "relative difference of the area from GetExtend's.\n");
    std::printf("%-8s %-8s %6s %26s %9s %26s %9s %26s\n", "offset", "dists", "N", "GetExtendEx",
                "rel.diff", "GetExtendEx2", "rel.diff", "GetExtend");
    for (int direction = 0; direction < kDirectionCount; ++direction) {
        for (int profile = 0; profile < kProfiles; ++profile) {
            for (const auto& in : inputs) {
                double area[kMethods] = {0.0, 0.0, 0.0};
                char cells[kMethods][48] = {"-", "-", "-"};
                for (int m = 0; m < kMethods; ++m) {
                    if (!Applies(m, profile)) {
                        continue;
                    }
                    const auto start = std::chrono::steady_clock::now();
                    const std::vector<RvPolygon2D> out =
                        Run(*in, m, profile, kDirections[direction].sign);
                    const double seconds =
                        std::chrono::duration<double>(std::chrono::steady_clock::now() - start)
                            .count();
                    g_seconds[{in->n, direction, profile, m}] = seconds;
                    area[m] = Area(out);
                    std::snprintf(cells[m], sizeof cells[m], "%.3f (%zu) %.3fs", area[m],
                                  out.size(), seconds);
                }
                char diff[2][16] = {"-", "-"};
                for (int m = 0; m < 2 && profile == kEqual; ++m) {
                    std::snprintf(diff[m], sizeof diff[m], "%.2e",
                                  std::fabs(area[m] - area[kGetExtend]) / area[kGetExtend]);
                }
                std::printf("%-8s %-8s %6d %26s %9s %26s %9s %26s\n", kDirections[direction].name,
                            kProfileNames[profile], in->n, cells[kGetExtendEx], diff[kGetExtendEx],
                            cells[kGetExtendEx2], diff[kGetExtendEx2], cells[kGetExtend]);
                std::fflush(stdout);
            }
        }
    }
    std::printf("\n");
}

std::string BenchmarkName(const CaseKey& key) {
    return std::string("BM_") + kMethodNames[key.method] + "/" + kDirections[key.direction].name +
           "/" + kProfileNames[key.profile] + "/" + std::to_string(key.n);
}

void RegisterAll(const std::vector<std::unique_ptr<Inputs>>& inputs, double limitSeconds) {
    for (const auto& [key, seconds] : g_seconds) {
        if (seconds > limitSeconds) {
            std::printf("%s not timed: its run in the check took %.0f s\n",
                        BenchmarkName(key).c_str(), seconds);
            continue;
        }
        Inputs* in = nullptr;
        for (const auto& candidate : inputs) {
            if (candidate->n == key.n) {
                in = candidate.get();
            }
        }
        const CaseKey k = key;
        auto* b = benchmark::RegisterBenchmark(
            BenchmarkName(key).c_str(), [in, k](benchmark::State& state) {
                for (auto _ : state) {
                    auto out = Run(*in, k.method, k.profile, kDirections[k.direction].sign);
                    benchmark::DoNotOptimize(out);
                }
            });
        SetIterations(b, seconds);
    }
}

void PrintRatios(const CollectingReporter& reporter, const std::vector<int>& sizes) {
    std::printf("\nCPU time per offset (ms); with equal distances, the ratio to GetExtend\n");
    std::printf("%-8s %-8s %6s %12s %12s %12s %10s %10s\n", "offset", "dists", "N", "GetExtendEx",
                "GetExtendEx2", "GetExtend", "Ex/Ext", "Ex2/Ext");
    for (int direction = 0; direction < kDirectionCount; ++direction) {
        for (int profile = 0; profile < kProfiles; ++profile) {
            for (const int n : sizes) {
                double ms[kMethods] = {0.0, 0.0, 0.0};
                char cells[kMethods][24] = {"-", "-", "-"};
                for (int m = 0; m < kMethods; ++m) {
                    const auto found =
                        reporter.cpuMs.find(BenchmarkName({n, direction, profile, m}));
                    if (found != reporter.cpuMs.end()) {
                        ms[m] = found->second;
                        std::snprintf(cells[m], sizeof cells[m], "%.3f", ms[m]);
                    }
                }
                char ratios[2][16] = {"-", "-"};
                for (int m = 0; m < 2 && ms[kGetExtend] > 0.0; ++m) {
                    std::snprintf(ratios[m], sizeof ratios[m], "%.3g", ms[m] / ms[kGetExtend]);
                }
                std::printf("%-8s %-8s %6d %12s %12s %12s %10s %10s\n", kDirections[direction].name,
                            kProfileNames[profile], n, cells[kGetExtendEx], cells[kGetExtendEx2],
                            cells[kGetExtend], ratios[0], ratios[1]);
            }
        }
    }
}

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
    CheckPass(inputs);
    RegisterAll(inputs, limitSeconds);
    CollectingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    PrintRatios(reporter, sizes);
    benchmark::Shutdown();
    return 0;
}

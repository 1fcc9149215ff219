// Times the per-edge offsets of RvPolygon2D, GetExtendEx and GetExtendEx2, at 100, 1,000 and
// 10,000 vertices, outward and inward, on two rings:
// - the wobbly ring of BenchSupport.h with every edge at 10, beside the constant offset
//   GetExtend at 10, to which the ratios are printed after the benchmarks;
// - a battlement: a square whose sides carry rectangular teeth 40 wide and 40 deep, 40 apart,
//   with walls of three thicknesses: 5 for edges running along +x, 15 along -x, 10 upright.
//   Neither ring has an edge nearly in line with the next, so the moved edges meet close by.
//
// Before anything is timed, every offset is computed once and the area of the result and the
// number of its rings are printed, with the relative difference from the area expected: that
// of GetExtend for the wobbly ring, and for the battlement that of the ring of the moved edge
// lines, each vertex where two of them meet, which is exact as long as no wall is thicker than
// half a tooth.
//
// Extra flags, besides Google Benchmark's own:
//   --sizes=100,1000,10000   the vertex counts
//   --limit_s=60             a case whose one run in the check took longer is not timed

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
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

using ravelin::RvPoint2D;
using ravelin::RvPolygon2D;

constexpr double kDistance = 10.0;

enum Method { kGetExtendEx, kGetExtendEx2, kGetExtend, kMethods };
constexpr const char* kMethodNames[kMethods] = {"GetExtendEx", "GetExtendEx2", "GetExtend"};

enum Shape { kWobbly, kBattlement, kShapes };
constexpr const char* kShapeNames[kShapes] = {"Wobbly", "Battlement"};

struct DirectionInfo {
    const char* name;
    double sign;
};
constexpr DirectionInfo kDirections[] = {{"Outward", 1.0}, {"Inward", -1.0}};
constexpr int kDirectionCount = 2;

struct Ring {
    RvPolygon2D polygon;
    std::vector<double> distances;  // outward, by the index of each edge's end vertex
};

struct Inputs {
    int n = 0;
    Ring shapes[kShapes];
};

Ring Wobbly(int n) {
    Ring ring;
    for (const WobblyPoint& p : WobblyRing(n, 4)) {
        ring.polygon.push_backA(RvPoint2D(p.x, p.y));
    }
    ring.distances.assign(ring.polygon.size(), kDistance);
    return ring;
}

// The wall thickness of the edge from `a` to `b` of the battlement.
double Wall(const RvPoint2D& a, const RvPoint2D& b) {
    if (b.x > a.x) {
        return 5.0;
    }
    return b.x < a.x ? 15.0 : 10.0;
}

// A square, counterclockwise, with `k` teeth 40 by 40 on each side, 40 apart and 40 from the
// corners: 4 + 16k vertices.
Ring Battlement(int n) {
    const int k = std::max(1, (n - 4) / 16);
    const double tooth = 40.0;
    const double side = (2 * k + 1) * tooth;
    // Each side as its start corner, its direction and its outward normal.
    const double sides[4][6] = {{0, 0, 1, 0, 0, -1},
                                {side, 0, 0, 1, 1, 0},
                                {side, side, -1, 0, 0, 1},
                                {0, side, 0, -1, -1, 0}};
    Ring ring;
    for (const auto& s : sides) {
        ring.polygon.push_backA(RvPoint2D(s[0], s[1]));
        for (int j = 0; j < k; ++j) {
            const double from = (2 * j + 1) * tooth;
            const double to = from + tooth;
            for (const auto& [along, out] :
                 {std::pair{from, 0.0}, {from, tooth}, {to, tooth}, {to, 0.0}}) {
                ring.polygon.push_backA(
                    RvPoint2D(s[0] + s[2] * along + s[4] * out, s[1] + s[3] * along + s[5] * out));
            }
        }
    }
    const std::size_t count = ring.polygon.size();
    for (std::size_t i = 0; i < count; ++i) {
        ring.distances.push_back(Wall(ring.polygon[(i + count - 1) % count], ring.polygon[i]));
    }
    return ring;
}

std::unique_ptr<Inputs> MakeInputs(int n) {
    auto in = std::make_unique<Inputs>();
    in->n = n;
    in->shapes[kWobbly] = Wobbly(n);
    in->shapes[kBattlement] = Battlement(n);
    return in;
}

std::vector<RvPolygon2D> Run(Inputs& in, int shape, int method, double sign) {
    Ring& ring = in.shapes[shape];
    std::vector<RvPolygon2D> out;
    // The per-edge offsets change their distances in place: every run gets a fresh copy.
    std::vector<double> d = ring.distances;
    for (double& x : d) {
        x *= sign;
    }
    if (method == kGetExtendEx) {
        ring.polygon.GetExtendEx(d, out);
    } else if (method == kGetExtendEx2) {
        ring.polygon.GetExtendEx2(d, out);
    } else {
        ring.polygon.GetExtend(sign * kDistance, out);
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

// The area of the ring of the moved edge lines of an orthogonal ring, counterclockwise: vertex i
// moves by the outward normals of its two edges, each times its edge's distance.
double MovedLinesArea(const Ring& ring, double sign) {
    const std::size_t count = ring.polygon.size();
    std::vector<RvPoint2D> moved;
    for (std::size_t i = 0; i < count; ++i) {
        const RvPoint2D& prev = ring.polygon[(i + count - 1) % count];
        const RvPoint2D& v = ring.polygon[i];
        const RvPoint2D& next = ring.polygon[(i + 1) % count];
        const std::size_t after = (i + 1) % count;
        auto outward = [](const RvPoint2D& a, const RvPoint2D& b) {
            const double length = std::hypot(b.x - a.x, b.y - a.y);
            return std::pair{(b.y - a.y) / length, -(b.x - a.x) / length};
        };
        const auto [ax, ay] = outward(prev, v);
        const auto [bx, by] = outward(v, next);
        const double da = sign * ring.distances[i];
        const double db = sign * ring.distances[after];
        moved.emplace_back(v.x + ax * da + bx * db, v.y + ay * da + by * db);
    }
    double twice = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        const RvPoint2D& a = moved[i];
        const RvPoint2D& b = moved[(i + 1) % count];
        twice += a.x * b.y - b.x * a.y;
    }
    return 0.5 * twice;
}

// GetExtend has one distance for every edge: it runs on the wobbly ring only.
bool Applies(int method, int shape) {
    return method != kGetExtend || shape == kWobbly;
}

struct CaseKey {
    int n;
    int direction;
    int shape;
    int method;
    bool operator<(const CaseKey& o) const {
        return std::tie(direction, shape, n, method) <
               std::tie(o.direction, o.shape, o.n, o.method);
    }
};

std::map<CaseKey, double> g_seconds;

void CheckPass(const std::vector<std::unique_ptr<Inputs>>& inputs) {
    std::printf(
        "Per-edge offsets: area (rings) of one run and its seconds, and the relative difference\n"
        "of the area from the expected one (GetExtend's for the wobbly ring, the moved edge\n"
        "lines' for the battlement). Above 1e-6 it is flagged MISMATCH.\n");
    std::printf("%-8s %-10s %6s %6s %28s %9s %28s %9s %28s\n", "offset", "ring", "N", "vertices",
                "GetExtendEx", "rel.diff", "GetExtendEx2", "rel.diff", "GetExtend");
    for (int direction = 0; direction < kDirectionCount; ++direction) {
        const double sign = kDirections[direction].sign;
        for (int shape = 0; shape < kShapes; ++shape) {
            for (const auto& in : inputs) {
                double area[kMethods] = {0.0, 0.0, 0.0};
                char cells[kMethods][48] = {"-", "-", "-"};
                for (int m = 0; m < kMethods; ++m) {
                    if (!Applies(m, shape)) {
                        continue;
                    }
                    const auto start = std::chrono::steady_clock::now();
                    const std::vector<RvPolygon2D> out = Run(*in, shape, m, sign);
                    const double seconds =
                        std::chrono::duration<double>(std::chrono::steady_clock::now() - start)
                            .count();
                    g_seconds[{in->n, direction, shape, m}] = seconds;
                    area[m] = Area(out);
                    std::snprintf(cells[m], sizeof cells[m], "%.3f (%zu) %.3fs", area[m],
                                  out.size(), seconds);
                }
                const double expected =
                    shape == kWobbly ? area[kGetExtend] : MovedLinesArea(in->shapes[shape], sign);
                char diff[2][16];
                bool mismatch = false;
                for (int m = 0; m < 2; ++m) {
                    const double d = std::fabs(area[m] - expected) / expected;
                    std::snprintf(diff[m], sizeof diff[m], "%.2e", d);
                    mismatch = mismatch || d > 1e-6;
                }
                std::printf("%-8s %-10s %6d %6zu %28s %9s %28s %9s %28s%s\n",
                            kDirections[direction].name, kShapeNames[shape], in->n,
                            in->shapes[shape].polygon.size(), cells[kGetExtendEx],
                            diff[kGetExtendEx], cells[kGetExtendEx2], diff[kGetExtendEx2],
                            cells[kGetExtend], mismatch ? "  MISMATCH" : "");
                std::fflush(stdout);
            }
        }
    }
    std::printf("\n");
}

std::string BenchmarkName(const CaseKey& key) {
    return std::string("BM_") + kMethodNames[key.method] + "/" + kDirections[key.direction].name +
           "/" + kShapeNames[key.shape] + "/" + std::to_string(key.n);
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
                    auto out = Run(*in, k.shape, k.method, kDirections[k.direction].sign);
                    benchmark::DoNotOptimize(out);
                }
            });
        SetIterations(b, seconds);
    }
}

void PrintRatios(const CollectingReporter& reporter, const std::vector<int>& sizes) {
    std::printf("\nCPU time per offset (ms); on the wobbly ring, the ratios to GetExtend\n");
    std::printf("%-8s %-10s %6s %12s %12s %12s %10s %10s\n", "offset", "ring", "N", "GetExtendEx",
                "GetExtendEx2", "GetExtend", "Ex/Ext", "Ex2/Ext");
    for (int direction = 0; direction < kDirectionCount; ++direction) {
        for (int shape = 0; shape < kShapes; ++shape) {
            for (const int n : sizes) {
                double ms[kMethods] = {0.0, 0.0, 0.0};
                char cells[kMethods][24] = {"-", "-", "-"};
                for (int m = 0; m < kMethods; ++m) {
                    const auto found = reporter.cpuMs.find(BenchmarkName({n, direction, shape, m}));
                    if (found != reporter.cpuMs.end()) {
                        ms[m] = found->second;
                        std::snprintf(cells[m], sizeof cells[m], "%.3f", ms[m]);
                    }
                }
                char ratios[2][16] = {"-", "-"};
                for (int m = 0; m < 2 && ms[kGetExtend] > 0.0; ++m) {
                    std::snprintf(ratios[m], sizeof ratios[m], "%.3g", ms[m] / ms[kGetExtend]);
                }
                std::printf("%-8s %-10s %6d %12s %12s %12s %10s %10s\n",
                            kDirections[direction].name, kShapeNames[shape], n, cells[kGetExtendEx],
                            cells[kGetExtendEx2], cells[kGetExtend], ratios[0], ratios[1]);
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

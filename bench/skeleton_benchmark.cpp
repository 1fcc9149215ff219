// Times the construction of RvSkeleton against CGAL's interior straight skeleton
// (create_interior_straight_skeleton_2, with the exact-predicates, inexact-constructions
// kernel) on the same polygons at 100, 1,000 and 10,000 vertices, and prints the time ratios
// (Ravelin / CGAL) after the benchmarks.
//
// Two shapes: a convex polygon (points on an ellipse, jittered along it) and a star with
// alternating radii, whose inner vertices, half of all, are reflex. Before anything is timed,
// both libraries build every skeleton once, and the offsets that both read from their skeletons
// at one distance are printed side by side, so that the timed work is known to be comparable.
// That single run also serves as an estimate: a size whose one construction would take longer
// than the limit (--limit_s, 60 s by default), predicted from the two smaller sizes of the same
// shape by the growth between them, and at least quadratically, is reported as such and not
// run; one that did take longer in the check is not timed.
//
// Extra flags, besides Google Benchmark's own:
//   --sizes=100,1000,10000   the vertex counts
//   --limit_s=60             the longest one construction may take to be timed

#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Polygon_2.h>
#include <CGAL/create_offset_polygons_2.h>
#include <CGAL/create_straight_skeleton_2.h>
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "BenchSupport.h"
#include "ravelin/polygon/RvPolygon2D.h"
#include "ravelin/skeleton/RvSkeleton.h"

namespace {

using ravelin::kPi;

using ravelin::Point;
using ravelin::RvPolygon2D;
using ravelin::RvSkeleton;

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using CgalPoint = Kernel::Point_2;
using CgalPolygon = CGAL::Polygon_2<Kernel>;

// ---------------------------------------------------------------------------------------------
// Inputs

enum class Shape { Convex, Reflex };

struct ShapeInfo {
    Shape shape;
    const char* name;
};

constexpr ShapeInfo kShapes[] = {{Shape::Convex, "Convex"}, {Shape::Reflex, "Reflex"}};
constexpr const char* kLibraries[] = {"Ravelin", "CGAL"};

// A value in [lo, hi) from one raw 32-bit output, the same with every standard library.
double Uniform(std::mt19937& g, double lo, double hi) {
    const double u = static_cast<double>(g()) / 4294967296.0;
    return lo + (hi - lo) * u;
}

// One polygon, counterclockwise for CGAL and clockwise for the skeleton.
struct Inputs {
    int n = 0;
    Shape shape = Shape::Convex;
    std::vector<CgalPoint> counterclockwise;
    std::vector<std::vector<Point>> clockwise;  // one contour
};

// The convex polygon: `n` points on an ellipse of semi-axes 450 and 380 about (500, 500), each
// at a parameter jittered by up to 0.3 of a step. The star: `n` points about (500, 500), every
// other one on an outer radius and the rest, which are reflex, on an inner one. The two radii
// are 400 plus and minus half the spacing of the vertices along the circle (400 times the
// angular step), so that the teeth have the same shape at every size: corners of about 90
// degrees at the outer vertices and 270 at the inner ones. Each radius is jittered by up to 0.1
// of the spacing and each angle by up to 0.2 of a step, so that no two events happen at one
// height.
std::unique_ptr<Inputs> MakeInputs(Shape shape, int n) {
    auto in = std::make_unique<Inputs>();
    in->n = n;
    in->shape = shape;
    std::mt19937 g(static_cast<std::uint32_t>(n) * 2 + (shape == Shape::Reflex ? 1 : 0));
    const double step = 2 * kPi / n;
    std::vector<Point> ring;
    for (int i = 0; i < n; ++i) {
        Point p;
        if (shape == Shape::Convex) {
            const double t = step * (i + Uniform(g, -0.3, 0.3));
            p = {500.0 + 450.0 * std::cos(t), 500.0 + 380.0 * std::sin(t)};
        } else {
            const double spacing = 400.0 * step;
            const double t = step * (i + Uniform(g, -0.2, 0.2));
            const double r = 400.0 + (i % 2 == 0 ? 0.5 : -0.5) * spacing +
                             Uniform(g, -0.1 * spacing, 0.1 * spacing);
            p = {500.0 + r * std::cos(t), 500.0 + r * std::sin(t)};
        }
        ring.push_back(p);
        in->counterclockwise.emplace_back(p.x, p.y);
    }
    std::reverse(ring.begin(), ring.end());
    in->clockwise.push_back(ring);
    return in;
}

// ---------------------------------------------------------------------------------------------
// The two constructions. The skeleton's constructor cleans the contours it is given in place,
// so each run works on a copy of them; the copy is part of the timed work (a few microseconds
// at 10,000 vertices).

std::unique_ptr<RvSkeleton> RavelinSkeleton(const Inputs& in) {
    std::vector<std::vector<Point>> contours = in.clockwise;
    return std::make_unique<RvSkeleton>(contours);
}

auto CgalSkeleton(const Inputs& in) {
    return CGAL::create_interior_straight_skeleton_2(in.counterclockwise.begin(),
                                                     in.counterclockwise.end(), Kernel());
}

// The largest event time of CGAL's skeleton: the radius of the largest inscribed circle.
template <class Skeleton>
double TopTime(const Skeleton& ss) {
    double top = 0.0;
    for (auto v = ss.vertices_begin(); v != ss.vertices_end(); ++v) {
        top = std::max(top, CGAL::to_double(v->time()));
    }
    return top;
}

// The area of the offset rings; the skeleton's rings run clockwise like the polygon.
double RavelinOffsetArea(RvSkeleton& s, double distance, std::size_t& rings) {
    std::vector<RvPolygon2D> out;
    s.GetExtendPolygons(-distance, 0.0, out);
    rings = out.size();
    double twice = 0.0;
    for (const RvPolygon2D& ring : out) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const auto& a = ring[i];
            const auto& b = ring[(i + 1) % ring.size()];
            twice -= a.x2D * b.y2D - b.x2D * a.y2D;
        }
    }
    return 0.5 * twice;
}

template <class Skeleton>
double CgalOffsetArea(const Skeleton& ss, double distance, std::size_t& rings) {
    const auto out = CGAL::create_offset_polygons_2<CgalPolygon>(distance, ss);
    rings = out.size();
    double area = 0.0;
    for (const auto& ring : out) {
        area += CGAL::to_double(ring->area());
    }
    return area;
}

// ---------------------------------------------------------------------------------------------
// The check

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

struct CaseKey {
    int n;
    int shape;
    int library;
    bool operator<(const CaseKey& o) const {
        return std::tie(shape, n, library) < std::tie(o.shape, o.n, o.library);
    }
};

// Seconds of the single run of each case, and the cases not run or not to be timed, with the
// reason.
std::map<CaseKey, double> g_seconds;
std::map<CaseKey, std::string> g_skipped;

// The time one construction is predicted to take at `n`, from the runs at smaller sizes of the
// same shape and library: the growth exponent between the last two, but at least 2; 0 when
// there is no run to go by.
double Predict(int shape, int library, int n) {
    std::vector<std::pair<int, double>> runs;
    for (const auto& [key, seconds] : g_seconds) {
        if (key.shape == shape && key.library == library && key.n < n) {
            runs.emplace_back(key.n, seconds);
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
        exponent = std::max(exponent, std::log(s1 / s0) / std::log(static_cast<double>(n1) / n0));
    }
    return runs.back().second * std::pow(static_cast<double>(n) / runs.back().first, exponent);
}

// Runs one construction once unless it is predicted to take longer than the limit; records
// its time, or why it is not timed. True if it ran.
template <class Build>
bool CheckRun(const CaseKey& key, double limitSeconds, Build build, double& seconds) {
    const double predicted = Predict(key.shape, key.library, key.n);
    if (predicted > limitSeconds) {
        char reason[160];
        std::snprintf(reason, sizeof reason,
                      "not run: one construction predicted to take about %.3g s", predicted);
        g_skipped[key] = reason;
        return false;
    }
    const Clock::time_point start = Clock::now();
    build();
    seconds = SecondsSince(start);
    g_seconds[key] = seconds;
    if (seconds > limitSeconds) {
        char reason[160];
        std::snprintf(reason, sizeof reason,
                      "not timed: the one construction of the check took %.0f s", seconds);
        g_skipped[key] = reason;
    }
    return true;
}

// Builds every skeleton once with each library and prints, for the offset at a quarter of the
// largest event time, the ring count and area that each reads from its skeleton.
void CheckPass(const std::vector<std::unique_ptr<Inputs>>& inputs, double limitSeconds) {
    std::printf(
        "Offsets read from each skeleton at a quarter of the largest event time: area (rings),\n"
        "and the seconds of the one construction of the check.\n");
    std::printf("%-7s %6s %10s %22s %22s %10s %10s %10s\n", "shape", "N", "distance", "Ravelin",
                "CGAL", "rel. diff", "Ravelin s", "CGAL s");
    for (const auto& in : inputs) {
        const int shape = static_cast<int>(in->shape);
        std::unique_ptr<RvSkeleton> ravelin;
        decltype(CgalSkeleton(*in)) cgal;
        double ravelinSeconds = 0.0;
        double cgalSeconds = 0.0;
        const bool ranRavelin = CheckRun(
            {in->n, shape, 0}, limitSeconds, [&] { ravelin = RavelinSkeleton(*in); },
            ravelinSeconds);
        const bool ranCgal = CheckRun(
            {in->n, shape, 1}, limitSeconds, [&] { cgal = CgalSkeleton(*in); }, cgalSeconds);
        char distanceText[32] = "-";
        char ravelinText[48] = "not run";
        char cgalText[48] = "not run";
        char diffText[32] = "-";
        char ravelinSecondsText[32] = "-";
        char cgalSecondsText[32] = "-";
        if (ranCgal && cgal) {
            const double d = 0.25 * TopTime(*cgal);
            std::snprintf(distanceText, sizeof distanceText, "%.4f", d);
            std::size_t cgalRings = 0;
            const double cgalArea = CgalOffsetArea(*cgal, d, cgalRings);
            std::snprintf(cgalText, sizeof cgalText, "%.4f (%zu)", cgalArea, cgalRings);
            std::snprintf(cgalSecondsText, sizeof cgalSecondsText, "%.4f", cgalSeconds);
            if (ranRavelin) {
                std::size_t ravelinRings = 0;
                const double ravelinArea = RavelinOffsetArea(*ravelin, d, ravelinRings);
                std::snprintf(ravelinText, sizeof ravelinText, "%.4f (%zu)", ravelinArea,
                              ravelinRings);
                std::snprintf(diffText, sizeof diffText, "%.2e",
                              std::fabs(ravelinArea - cgalArea) / cgalArea);
            }
        } else if (ranCgal) {
            std::snprintf(cgalText, sizeof cgalText, "no skeleton");
        }
        if (ranRavelin) {
            std::snprintf(ravelinSecondsText, sizeof ravelinSecondsText, "%.4f", ravelinSeconds);
        }
        std::printf("%-7s %6d %10s %22s %22s %10s %10s %10s\n", kShapes[shape].name, in->n,
                    distanceText, ravelinText, cgalText, diffText, ravelinSecondsText,
                    cgalSecondsText);
        std::fflush(stdout);
    }
    std::printf("\n");
}

// ---------------------------------------------------------------------------------------------
// Benchmarks and the ratio table

std::string BenchmarkName(int library, int shape, int n) {
    return std::string("BM_") + kLibraries[library] + "/" + kShapes[shape].name + "/" +
           std::to_string(n);
}

void RegisterAll(const std::vector<std::unique_ptr<Inputs>>& inputs) {
    for (const ShapeInfo& shapeInfo : kShapes) {
        const int shape = static_cast<int>(shapeInfo.shape);
        for (const auto& owned : inputs) {
            const Inputs* in = owned.get();
            if (in->shape != shapeInfo.shape) {
                continue;
            }
            const CaseKey ravelinKey{in->n, shape, 0};
            if (g_seconds.count(ravelinKey) != 0 && g_skipped.count(ravelinKey) == 0) {
                SetIterations(benchmark::RegisterBenchmark(BenchmarkName(0, shape, in->n).c_str(),
                                                           [in](benchmark::State& state) {
                                                               for (auto _ : state) {
                                                                   auto s = RavelinSkeleton(*in);
                                                                   benchmark::DoNotOptimize(s);
                                                               }
                                                           }),
                              g_seconds.at(ravelinKey));
            }
            const CaseKey cgalKey{in->n, shape, 1};
            if (g_seconds.count(cgalKey) != 0 && g_skipped.count(cgalKey) == 0) {
                SetIterations(benchmark::RegisterBenchmark(BenchmarkName(1, shape, in->n).c_str(),
                                                           [in](benchmark::State& state) {
                                                               for (auto _ : state) {
                                                                   auto s = CgalSkeleton(*in);
                                                                   benchmark::DoNotOptimize(s);
                                                               }
                                                           }),
                              g_seconds.at(cgalKey));
            }
        }
    }
}

// The ratio table. A construction that was not timed because its one run in the check took
// longer than the limit is shown with that run's time, and its ratio is marked with '*'; one
// that was not run at all has no ratio.
void PrintRatios(const CollectingReporter& reporter, const std::vector<int>& sizes) {
    std::printf("\nCPU time per construction (ms) and ratio Ravelin / CGAL\n");
    std::printf("%-7s %6s %22s %22s %14s\n", "shape", "N", "Ravelin", "CGAL", "Ravelin/CGAL");
    bool marked = false;
    for (const ShapeInfo& shapeInfo : kShapes) {
        const int shape = static_cast<int>(shapeInfo.shape);
        for (const int n : sizes) {
            double ms[2] = {0.0, 0.0};
            bool known[2] = {false, false};
            bool fromCheck = false;
            char cells[3][48];
            for (int l = 0; l < 2; ++l) {
                const CaseKey key{n, shape, l};
                const auto timed = reporter.cpuMs.find(BenchmarkName(l, shape, n));
                const auto checked = g_seconds.find(key);
                if (timed != reporter.cpuMs.end()) {
                    ms[l] = timed->second;
                    known[l] = true;
                    std::snprintf(cells[l], sizeof cells[l], "%.3f", ms[l]);
                } else if (checked != g_seconds.end()) {
                    ms[l] = 1000.0 * checked->second;
                    known[l] = true;
                    fromCheck = true;
                    std::snprintf(cells[l], sizeof cells[l], "%.0f s, once", checked->second);
                } else if (g_skipped.count(key) != 0) {
                    std::snprintf(cells[l], sizeof cells[l], "not run");
                } else {
                    std::snprintf(cells[l], sizeof cells[l], "-");
                }
            }
            if (known[0] && known[1] && ms[1] > 0.0) {
                std::snprintf(cells[2], sizeof cells[2], "%.3g%s", ms[0] / ms[1],
                              fromCheck ? "*" : "");
                marked = marked || fromCheck;
            } else {
                std::snprintf(cells[2], sizeof cells[2], "-");
            }
            std::printf("%-7s %6d %22s %22s %14s\n", shapeInfo.name, n, cells[0], cells[1],
                        cells[2]);
        }
    }
    if (marked) {
        std::printf(
            "* from the single construction of the check, which took longer than the limit and\n"
            "  was not timed further\n");
    }
    for (const auto& [key, reason] : g_skipped) {
        std::printf("%s %s at N = %d: %s\n", kLibraries[key.library], kShapes[key.shape].name,
                    key.n, reason.c_str());
    }
    std::printf(
        "A convex polygon has only edge events, each taken from the queue in logarithmic time.\n"
        "Each reflex vertex, and each new vertex that is reflex, looks for its split event by\n"
        "testing every edge of the wavefront, and a split is checked against every vertex for\n"
        "an earlier meeting, so the run with many reflex vertices is quadratic in N.\n");
}

// The vertex counts this program's shapes can have.
bool ValidSize(int n) {
    return n >= 4 && n % 2 == 0;
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    std::vector<int> sizes = {100, 1000, 10000};
    double limitSeconds = 60.0;
    if (!ParseOwnFlags(argc, argv, sizes, limitSeconds, ValidSize, "an even count of 4 or more")) {
        return 2;
    }
    std::vector<std::unique_ptr<Inputs>> inputs;
    for (const ShapeInfo& shape : kShapes) {
        for (const int n : sizes) {
            inputs.push_back(MakeInputs(shape.shape, n));
        }
    }
    CheckPass(inputs, limitSeconds);
    RegisterAll(inputs);
    CollectingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    PrintRatios(reporter, sizes);
    benchmark::Shutdown();
    return 0;
}

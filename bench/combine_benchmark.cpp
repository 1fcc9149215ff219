// Times RvPolygon2D::Combine in each mode against Clipper 6, Boost.Geometry and GEOS on the same
// pair of star-shaped polygons at 100, 1,000 and 10,000 vertices per operand, and prints the time
// ratios (Ravelin / peer) after the benchmarks.
//
// Before anything is timed, every library computes every case once: the areas of the results are
// printed side by side, so that the timed work is known to be the same work. The single Ravelin
// run also serves as an estimate: a case whose one operation would take longer than the limit
// (--limit_s, 60 s by default; predicted from the next smaller size by the quadratic cost)
// is reported as such and not timed.
//
// Extra flags, besides Google Benchmark's own:
//   --sizes=100,1000,10000   the vertex counts per operand
//   --limit_s=60     the longest one Ravelin operation may take to be timed

#include <benchmark/benchmark.h>
#include <geos_c.h>
#include <unistd.h>
#include <polyclipping/clipper.hpp>

// Boost 1.74's own math headers include one of its deprecated headers; that note is no concern
// of this program.
#define BOOST_ALLOW_DEPRECATED_HEADERS

#include <algorithm>
#include <boost/geometry/algorithms/append.hpp>
#include <boost/geometry/algorithms/area.hpp>
#include <boost/geometry/algorithms/correct.hpp>
#include <boost/geometry/algorithms/difference.hpp>
#include <boost/geometry/algorithms/intersection.hpp>
#include <boost/geometry/algorithms/is_valid.hpp>
#include <boost/geometry/algorithms/union.hpp>
#include <boost/geometry/geometries/multi_polygon.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#include <chrono>
#include <cmath>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "BenchSupport.h"
#include "ravelin/numeric/RvPoint2D.h"
#include "ravelin/polygon/RvIntersection.h"
#include "ravelin/polygon/RvPolygon2D.h"

namespace {

using ravelin::kPi;

namespace bg = boost::geometry;

using ravelin::RvPoint2D;
using ravelin::RvPolygon2D;

// Boost.Geometry: counterclockwise, closed rings of doubles.
using BgPoint = bg::model::d2::point_xy<double>;
using BgPolygon = bg::model::polygon<BgPoint, false, true>;
using BgMultiPolygon = bg::model::multi_polygon<BgPolygon>;

// Clipper works on integers: a drawing unit becomes 1000 steps, so coordinates up to 1000 stay
// far inside its range and the rounding (0.0005 units at most) is well below Ravelin's own 0.01
// tolerance.
constexpr double kClipperScale = 1000.0;

// ---------------------------------------------------------------------------------------------
// Operations

enum class Op { Difference, Intersection, Union };

struct OpInfo {
    Op op;
    const char* name;
    ravelin::_RvCombineMode ravelin;
    ClipperLib::ClipType clipper;
};

constexpr OpInfo kOps[] = {
    {Op::Difference, "Difference", ravelin::CombineDifference, ClipperLib::ctDifference},
    {Op::Intersection, "Intersection", ravelin::CombineIntersection, ClipperLib::ctIntersection},
    {Op::Union, "Union", ravelin::CombineUnion, ClipperLib::ctUnion},
};

const char* const kLibraries[] = {"Ravelin", "Clipper", "Boost", "Geos"};

// ---------------------------------------------------------------------------------------------
// GEOS context

GEOSContextHandle_t g_geos = nullptr;

void GeosMessage(const char* fmt, ...) {
    va_list args;
    va_start(args, fmt);
    std::fputs("GEOS: ", stderr);
    std::vfprintf(stderr, fmt, args);
    std::fputc('\n', stderr);
    va_end(args);
}

struct GeosDeleter {
    void operator()(GEOSGeometry* g) const { GEOSGeom_destroy_r(g_geos, g); }
};
using GeosPtr = std::unique_ptr<GEOSGeometry, GeosDeleter>;

// ---------------------------------------------------------------------------------------------
// Inputs

struct XY {
    double x;
    double y;
};
using Ring = std::vector<XY>;

// The radius of an operand as a function of the angle: a smooth closed-form wobble of two
// waves round a base radius.
struct Wobble {
    double base;
    double amp1;
    int lobes1;
    double phase1;
    double amp2;
    int lobes2;
    double phase2;

    double Radius(double angle) const {
        return base + amp1 * std::sin(lobes1 * angle + phase1) +
               amp2 * std::sin(lobes2 * angle + phase2);
    }
};

constexpr XY kCentre = {500.0, 500.0};

// A star-shaped operand about kCentre: vertex i lies on the wobble at the angle
// 2 pi (i + offset[i]) / n. The offsets stay within 0.3 of a step of a common value, so the
// angles grow with i and the ring is simple and counterclockwise, and every edge spans at least
// 0.4 of a step: at the smallest radius, 275, that is 0.07 units at 10,000 vertices, well above
// the 0.01 within which Ravelin merges vertices.
struct Star {
    Wobble shape;
    int n;
    double common;
    std::vector<double> offset;

    Star(const Wobble& w, int count, double commonOffset)
        : shape(w),
          n(count),
          common(commonOffset),
          offset(static_cast<std::size_t>(count), commonOffset) {}

    XY Vertex(int i) const {
        const double angle = 2.0 * kPi * (i + offset[static_cast<std::size_t>(i)]) / n;
        const double r = shape.Radius(angle);
        return {kCentre.x + r * std::cos(angle), kCentre.y + r * std::sin(angle)};
    }

    Ring ToRing() const {
        Ring ring;
        ring.reserve(static_cast<std::size_t>(n));
        for (int i = 0; i < n; ++i) {
            ring.push_back(Vertex(i));
        }
        return ring;
    }
};

double SegmentDistance(const XY& p, const XY& a, const XY& b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    double t = ((p.x - a.x) * dx + (p.y - a.y) * dy) / (dx * dx + dy * dy);
    t = std::clamp(t, 0.0, 1.0);
    return std::hypot(a.x + t * dx - p.x, a.y + t * dy - p.y);
}

// How far `p` stays from touching the edge from `a` to `b` as Ravelin tests it: the distance from
// the segment, and also, for an edge less than 0.1 long along one axis, the distance from the
// level of either end across that axis wherever `p` lies within the edge's span along it.
// (Ravelin takes the foot of a point on such an edge as if the edge ran parallel to the axis
// through its end vertex, so a point level with that vertex within 0.01 counts as on the edge.)
double EdgeClearance(const XY& p, const XY& a, const XY& b) {
    double d = SegmentDistance(p, a, b);
    if (std::fabs(b.y - a.y) < 0.1 && p.x > std::min(a.x, b.x) && p.x < std::max(a.x, b.x)) {
        d = std::min({d, std::fabs(p.y - a.y), std::fabs(p.y - b.y)});
    }
    if (std::fabs(b.x - a.x) < 0.1 && p.y > std::min(a.y, b.y) && p.y < std::max(a.y, b.y)) {
        d = std::min({d, std::fabs(p.x - a.x), std::fabs(p.x - b.x)});
    }
    return d;
}

// The clearance of `p` from the boundary of `s`, over the edges of `s` within three steps of the
// angle of `p`: a nearer edge could only lie at nearly the same angle.
double ClearanceFrom(const XY& p, const Star& s) {
    double angle = std::atan2(p.y - kCentre.y, p.x - kCentre.x);
    if (angle < 0.0) {
        angle += 2.0 * kPi;
    }
    const int k = static_cast<int>(std::floor(angle * s.n / (2.0 * kPi)));
    double best = std::numeric_limits<double>::max();
    for (int d = -3; d <= 3; ++d) {
        const int i = ((k + d) % s.n + s.n) % s.n;
        best = std::min(best, EdgeClearance(p, s.Vertex(i), s.Vertex((i + 1) % s.n)));
    }
    return best;
}

// Ravelin counts a vertex within 0.01 of the other polygon's boundary, measured as in
// EdgeClearance, as touching it. Touching operands are a different, degenerate problem; inputs in
// general position keep every vertex at least this clearance from the other boundary.
constexpr double kClearance = 0.05;

// Moves each vertex of `moving` nearer than kClearance to the boundary of `other` along its own
// curve, by at most 0.3 of a step, to the first of a few trial places that is clear enough (or
// else the clearest of them). Returns how many moved.
int Separate(Star& moving, const Star& other) {
    static constexpr double kShifts[] = {0.15, -0.15, 0.3, -0.3};
    int moved = 0;
    for (int i = 0; i < moving.n; ++i) {
        const double clearance = ClearanceFrom(moving.Vertex(i), other);
        if (clearance >= kClearance) {
            continue;
        }
        double& offset = moving.offset[static_cast<std::size_t>(i)];
        double bestOffset = offset;
        double bestDistance = clearance;
        for (const double shift : kShifts) {
            offset = moving.common + shift;
            const double d = ClearanceFrom(moving.Vertex(i), other);
            if (d > bestDistance) {
                bestDistance = d;
                bestOffset = offset;
            }
            if (d >= kClearance) {
                break;
            }
        }
        offset = bestOffset;
        ++moved;
    }
    return moved;
}

// The least clearance of a vertex of either operand from the other's boundary.
double LeastClearance(const Star& a, const Star& b) {
    double least = std::numeric_limits<double>::max();
    for (int i = 0; i < a.n; ++i) {
        least = std::min(least, ClearanceFrom(a.Vertex(i), b));
    }
    for (int i = 0; i < b.n; ++i) {
        least = std::min(least, ClearanceFrom(b.Vertex(i), a));
    }
    return least;
}

// The two operands of one size, in each library's form. The GEOS geometries belong to the
// context, which outlives every Inputs.
struct Inputs {
    int n = 0;
    int nudged = 0;          // vertices moved off the other operand's boundary
    double clearance = 0.0;  // least clearance of a vertex from the other operand's boundary
    RvPolygon2D ravelinA;
    RvPolygon2D ravelinB;
    ClipperLib::Path clipperA;
    ClipperLib::Path clipperB;
    BgPolygon boostA;
    BgPolygon boostB;
    GeosPtr geosA;
    GeosPtr geosB;
};

RvPolygon2D ToRavelin(const Ring& ring) {
    RvPolygon2D p;
    for (const XY& v : ring) {
        p.push_back(RvPoint2D(v.x, v.y));
    }
    return p;
}

ClipperLib::Path ToClipper(const Ring& ring) {
    ClipperLib::Path p;
    for (const XY& v : ring) {
        p.emplace_back(static_cast<ClipperLib::cInt>(std::llround(v.x * kClipperScale)),
                       static_cast<ClipperLib::cInt>(std::llround(v.y * kClipperScale)));
    }
    return p;
}

BgPolygon ToBoost(const Ring& ring) {
    BgPolygon p;
    for (const XY& v : ring) {
        bg::append(p.outer(), BgPoint(v.x, v.y));
    }
    bg::append(p.outer(), BgPoint(ring.front().x, ring.front().y));
    bg::correct(p);
    return p;
}

GeosPtr ToGeos(const Ring& ring) {
    const auto size = static_cast<unsigned int>(ring.size());
    GEOSCoordSequence* seq = GEOSCoordSeq_create_r(g_geos, size + 1, 2);
    for (unsigned int i = 0; i <= size; ++i) {
        const XY& v = ring[i % size];
        GEOSCoordSeq_setXY_r(g_geos, seq, i, v.x, v.y);
    }
    GEOSGeometry* shell = GEOSGeom_createLinearRing_r(g_geos, seq);
    return GeosPtr(GEOSGeom_createPolygon_r(g_geos, shell, nullptr, 0));
}

std::unique_ptr<Inputs> MakeInputs(int n) {
    // Both operands wave eight times round the same centre, in opposite phase, with a slower
    // wave of their own on top: the boundaries cross sixteen times at steep angles, so each mode
    // gives several rings and neither operand contains the other. Both are star-shaped about
    // the same centre, so no result has holes and the sum of the rings' areas is the area of the
    // result. The vertices of the two sit at unrelated fractions of a step.
    Star starA({380.0, 90.0, 8, 0.0, 15.0, 3, 0.4}, n, 0.37);
    Star starB({390.0, 90.0, 8, kPi + 0.35, 12.0, 5, 1.1}, n, 0.81);
    int nudged = 0;
    for (int pass = 0; pass < 10; ++pass) {
        const int moved = Separate(starA, starB) + Separate(starB, starA);
        if (moved == 0) {
            break;
        }
        nudged += moved;
    }
    const Ring a = starA.ToRing();
    const Ring b = starB.ToRing();
    auto in = std::make_unique<Inputs>();
    in->n = n;
    in->nudged = nudged;
    in->clearance = LeastClearance(starA, starB);
    in->ravelinA = ToRavelin(a);
    in->ravelinB = ToRavelin(b);
    in->clipperA = ToClipper(a);
    in->clipperB = ToClipper(b);
    in->boostA = ToBoost(a);
    in->boostB = ToBoost(b);
    in->geosA = ToGeos(a);
    in->geosB = ToGeos(b);
    return in;
}

// ---------------------------------------------------------------------------------------------
// The operation of each library, as timed

void RavelinCombine(const Inputs& in, const OpInfo& op, std::vector<RvPolygon2D>& out) {
    in.ravelinA.Combine(in.ravelinB, op.ravelin, out);
}

void ClipperCombine(const Inputs& in, const OpInfo& op, ClipperLib::Paths& out) {
    ClipperLib::Clipper clipper;
    clipper.AddPath(in.clipperA, ClipperLib::ptSubject, true);
    clipper.AddPath(in.clipperB, ClipperLib::ptClip, true);
    clipper.Execute(op.clipper, out, ClipperLib::pftNonZero, ClipperLib::pftNonZero);
}

void BoostCombine(const Inputs& in, const OpInfo& op, BgMultiPolygon& out) {
    switch (op.op) {
        case Op::Difference:
            bg::difference(in.boostA, in.boostB, out);
            break;
        case Op::Intersection:
            bg::intersection(in.boostA, in.boostB, out);
            break;
        case Op::Union:
            bg::union_(in.boostA, in.boostB, out);
            break;
    }
}

GeosPtr GeosCombine(const Inputs& in, const OpInfo& op) {
    switch (op.op) {
        case Op::Difference:
            return GeosPtr(GEOSDifference_r(g_geos, in.geosA.get(), in.geosB.get()));
        case Op::Intersection:
            return GeosPtr(GEOSIntersection_r(g_geos, in.geosA.get(), in.geosB.get()));
        case Op::Union:
            return GeosPtr(GEOSUnion_r(g_geos, in.geosA.get(), in.geosB.get()));
    }
    return nullptr;
}

// ---------------------------------------------------------------------------------------------
// Areas of the results

// The sum of the rings' absolute areas, on the planar coordinates in which Combine works.
double RavelinArea(const std::vector<RvPolygon2D>& rings) {
    double total = 0.0;
    for (const RvPolygon2D& ring : rings) {
        double twice = 0.0;
        const std::size_t n = ring.size();
        for (std::size_t i = 0; i < n; ++i) {
            const RvPoint2D& p = ring[i];
            const RvPoint2D& q = ring[(i + 1) % n];
            twice += p.x2D * q.y2D - q.x2D * p.y2D;
        }
        total += std::fabs(twice) / 2.0;
    }
    return total;
}

// Outer rings come back positive and holes negative.
double ClipperArea(const ClipperLib::Paths& paths) {
    double total = 0.0;
    for (const ClipperLib::Path& path : paths) {
        total += ClipperLib::Area(path);
    }
    return std::fabs(total) / (kClipperScale * kClipperScale);
}

double GeosArea(const GEOSGeometry* g) {
    double area = 0.0;
    if (g == nullptr || GEOSArea_r(g_geos, g, &area) == 0) {
        return std::nan("");
    }
    return area;
}

int GeosParts(const GEOSGeometry* g) {
    return g == nullptr ? -1 : GEOSGetNumGeometries_r(g_geos, g);
}

// ---------------------------------------------------------------------------------------------
// Sanity pass

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

struct CaseKey {
    int n;
    int op;
    bool operator<(const CaseKey& o) const { return n != o.n ? n < o.n : op < o.op; }
};

// Seconds of the single Ravelin run of each case, and the cases not run or not to be timed,
// with the reason.
std::map<CaseKey, double> g_ravelinSeconds;
std::map<CaseKey, std::string> g_ravelinSkipped;

void PrintInputCheck(const Inputs& in) {
    std::printf(
        "N = %d: operands valid in Boost.Geometry: %s/%s, in GEOS: %s/%s; least clearance of a "
        "vertex from the other boundary %.4f (%d vertices moved along their curve to keep %.2f)\n",
        in.n, bg::is_valid(in.boostA) ? "yes" : "no", bg::is_valid(in.boostB) ? "yes" : "no",
        GEOSisValid_r(g_geos, in.geosA.get()) == 1 ? "yes" : "no",
        GEOSisValid_r(g_geos, in.geosB.get()) == 1 ? "yes" : "no", in.clearance, in.nudged,
        kClearance);
}

// Computes every case once with every library and prints the areas and ring counts. A Ravelin
// run predicted, from the same mode at the previous size and the quadratic cost, to take longer
// than `limitSeconds` is not made; one that did take longer is not timed afterwards.
void SanityPass(const std::vector<std::unique_ptr<Inputs>>& inputs, double limitSeconds) {
    std::printf(
        "Result areas (rings or polygons in brackets); rel. diff = largest relative\n"
        "difference of a peer's area from Ravelin's.\n");
    std::printf("%6s %-12s %18s %18s %18s %18s %10s %9s\n", "N", "mode", "Ravelin", "Clipper",
                "Boost", "GEOS", "rel. diff", "Ravelin s");
    std::map<int, std::pair<int, double>> previous;  // op -> (n, seconds)
    for (const auto& in : inputs) {
        for (const OpInfo& op : kOps) {
            const int opIndex = static_cast<int>(op.op);
            const CaseKey key{in->n, opIndex};

            ClipperLib::Paths clipperOut;
            ClipperCombine(*in, op, clipperOut);
            BgMultiPolygon boostOut;
            BoostCombine(*in, op, boostOut);
            const GeosPtr geosOut = GeosCombine(*in, op);
            const double clipperArea = ClipperArea(clipperOut);
            const double boostArea = bg::area(boostOut);
            const double geosArea = GeosArea(geosOut.get());

            char ravelinText[64];
            char secondsText[32];
            char diffText[32] = "-";
            double worst = 0.0;
            const auto prev = previous.find(opIndex);
            const double predicted =
                prev == previous.end()
                    ? 0.0
                    : prev->second.second *
                          std::pow(static_cast<double>(in->n) / prev->second.first, 2.0);
            if (predicted > limitSeconds) {
                char reason[160];
                std::snprintf(reason, sizeof reason,
                              "not run: one operation predicted to take about %.1f s", predicted);
                g_ravelinSkipped[key] = reason;
                std::snprintf(ravelinText, sizeof ravelinText, "not run");
                std::snprintf(secondsText, sizeof secondsText, "~%.0f?", predicted);
            } else {
                std::vector<RvPolygon2D> ravelinOut;
                const Clock::time_point start = Clock::now();
                RavelinCombine(*in, op, ravelinOut);
                const double seconds = SecondsSince(start);
                g_ravelinSeconds[key] = seconds;
                previous[opIndex] = {in->n, seconds};
                if (seconds > limitSeconds) {
                    char reason[160];
                    std::snprintf(reason, sizeof reason,
                                  "not timed: the one operation of the check took %.1f s", seconds);
                    g_ravelinSkipped[key] = reason;
                }
                const double ravelinArea = RavelinArea(ravelinOut);
                for (const double peer : {clipperArea, boostArea, geosArea}) {
                    const double diff = std::fabs(peer - ravelinArea) / std::fabs(peer);
                    worst = std::isnan(diff) ? diff : std::max(worst, diff);
                }
                std::snprintf(ravelinText, sizeof ravelinText, "%.2f (%zu)", ravelinArea,
                              ravelinOut.size());
                std::snprintf(secondsText, sizeof secondsText, "%.3f", seconds);
                std::snprintf(diffText, sizeof diffText, "%.2e", worst);
            }
            char clipperText[64];
            char boostText[64];
            char geosText[64];
            std::snprintf(clipperText, sizeof clipperText, "%.2f (%zu)", clipperArea,
                          clipperOut.size());
            std::snprintf(boostText, sizeof boostText, "%.2f (%zu)", boostArea, boostOut.size());
            std::snprintf(geosText, sizeof geosText, "%.2f (%d)", geosArea,
                          GeosParts(geosOut.get()));
            std::printf("%6d %-12s %18s %18s %18s %18s %10s %9s%s\n", in->n, op.name, ravelinText,
                        clipperText, boostText, geosText, diffText, secondsText,
                        worst > 1e-3 || std::isnan(worst) ? "  MISMATCH" : "");
            std::fflush(stdout);
        }
    }
    std::printf("\n");
}

// ---------------------------------------------------------------------------------------------
// Benchmarks and the ratio table

std::string BenchmarkName(const char* library, const OpInfo& op, int n) {
    return std::string("BM_") + library + "/" + op.name + "/" + std::to_string(n);
}

void RegisterAll(const std::vector<std::unique_ptr<Inputs>>& inputs) {
    for (const OpInfo& op : kOps) {
        for (const auto& owned : inputs) {
            const Inputs* in = owned.get();
            const OpInfo* o = &op;
            const CaseKey key{in->n, static_cast<int>(op.op)};
            if (g_ravelinSkipped.count(key) == 0) {
                auto* b = benchmark::RegisterBenchmark(BenchmarkName("Ravelin", op, in->n).c_str(),
                                                       [in, o](benchmark::State& state) {
                                                           for (auto _ : state) {
                                                               std::vector<RvPolygon2D> out;
                                                               RavelinCombine(*in, *o, out);
                                                               benchmark::DoNotOptimize(out);
                                                           }
                                                       });
                SetIterations(b, g_ravelinSeconds.at(key));
            }
            benchmark::RegisterBenchmark(BenchmarkName("Clipper", op, in->n).c_str(),
                                         [in, o](benchmark::State& state) {
                                             for (auto _ : state) {
                                                 ClipperLib::Paths out;
                                                 ClipperCombine(*in, *o, out);
                                                 benchmark::DoNotOptimize(out);
                                             }
                                         })
                ->Unit(benchmark::kMillisecond);
            benchmark::RegisterBenchmark(BenchmarkName("Boost", op, in->n).c_str(),
                                         [in, o](benchmark::State& state) {
                                             for (auto _ : state) {
                                                 BgMultiPolygon out;
                                                 BoostCombine(*in, *o, out);
                                                 benchmark::DoNotOptimize(out);
                                             }
                                         })
                ->Unit(benchmark::kMillisecond);
            benchmark::RegisterBenchmark(BenchmarkName("Geos", op, in->n).c_str(),
                                         [in, o](benchmark::State& state) {
                                             for (auto _ : state) {
                                                 GeosPtr out = GeosCombine(*in, *o);
                                                 benchmark::DoNotOptimize(out);
                                             }
                                         })
                ->Unit(benchmark::kMillisecond);
        }
    }
}

void PrintRatios(const CollectingReporter& reporter, const std::vector<int>& sizes) {
    const auto find = [&reporter](const std::string& name) -> const double* {
        const auto it = reporter.cpuMs.find(name);
        return it == reporter.cpuMs.end() ? nullptr : &it->second;
    };
    std::printf("\nCPU time per operation (ms) and ratio Ravelin / peer\n");
    std::printf("%-12s %6s %11s %10s %10s %10s %12s %12s %12s\n", "mode", "N", "Ravelin", "Clipper",
                "Boost", "GEOS", "R/Clipper", "R/Boost", "R/GEOS");
    for (const OpInfo& op : kOps) {
        for (const int n : sizes) {
            const double* times[4];
            for (int l = 0; l < 4; ++l) {
                times[l] = find(BenchmarkName(kLibraries[l], op, n));
            }
            char cells[7][32];
            for (int l = 0; l < 4; ++l) {
                if (times[l] != nullptr) {
                    std::snprintf(cells[l], sizeof cells[l], "%.3f", *times[l]);
                } else if (l == 0 && g_ravelinSkipped.count({n, static_cast<int>(op.op)}) != 0) {
                    std::snprintf(cells[l], sizeof cells[l], "not run");
                } else {
                    std::snprintf(cells[l], sizeof cells[l], "-");
                }
            }
            for (int l = 1; l < 4; ++l) {
                if (times[0] != nullptr && times[l] != nullptr && *times[l] > 0.0) {
                    std::snprintf(cells[3 + l], sizeof cells[3 + l], "%.0f", *times[0] / *times[l]);
                } else {
                    std::snprintf(cells[3 + l], sizeof cells[3 + l], "-");
                }
            }
            std::printf("%-12s %6d %11s %10s %10s %10s %12s %12s %12s\n", op.name, n, cells[0],
                        cells[1], cells[2], cells[3], cells[4], cells[5], cells[6]);
        }
    }
    for (const auto& [key, reason] : g_ravelinSkipped) {
        std::printf("Ravelin %s at N = %d: %s\n", kOps[key.op].name, key.n, reason.c_str());
    }
    std::printf(
        "Ravelin's cost grows with the square of N (every node is linked against every\n"
        "other, every edge pair is tested, and every link's midpoint is classified by a\n"
        "point-in-polygon test over the whole other ring); the peers' sweeps and\n"
        "spatial indexes grow about as N log N, so the ratios grow about tenfold or more per\n"
        "tenfold N.\n");
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

    g_geos = GEOS_init_r();
    GEOSContext_setNoticeHandler_r(g_geos, GeosMessage);
    GEOSContext_setErrorHandler_r(g_geos, GeosMessage);
    {
        std::vector<std::unique_ptr<Inputs>> inputs;
        for (const int n : sizes) {
            inputs.push_back(MakeInputs(n));
            PrintInputCheck(*inputs.back());
        }
        std::printf("\n");
        SanityPass(inputs, limitSeconds);

        RegisterAll(inputs);
        CollectingReporter reporter;
        benchmark::RunSpecifiedBenchmarks(&reporter);
        PrintRatios(reporter, sizes);
        benchmark::Shutdown();
    }
    GEOS_finish_r(g_geos);
    return 0;
}

// A union whose single ring passes through every node of the graph: the trace is as long as the
// graph. It must not depend on the size of the machine stack.

#include <gtest/gtest.h>
#include <pthread.h>

#include <cmath>
#include <numbers>
#include <vector>

#include "ravelin/polygon/RvPolygon2D.h"

namespace ravelin {
namespace {

constexpr int kVertices = 5000;
constexpr double kRadius = 1000.0;
constexpr std::size_t kSmallStack = 256 * 1024;

// Half of a circle of `kRadius` in `kVertices` vertices, from (R, 0) to (-R, 0): below the x
// axis for `sign` -1, above it for +1. The two halves share their closing edge along the axis.
RvPolygon2D HalfDisc(double sign) {
    RvPolygon2D p;
    for (int k = 0; k < kVertices; ++k) {
        const double t = std::numbers::pi * k / (kVertices - 1);
        p.push_back(RvPoint2D(kRadius * std::cos(t), sign * kRadius * std::sin(t)));
    }
    return p;
}

struct UnionJob {
    RvPolygon2D a;
    RvPolygon2D b;
    std::vector<RvPolygon2D> result;
    bool answered = false;
};

void* RunUnion(void* arg) {
    auto* job = static_cast<UnionJob*>(arg);
    job->answered = job->a.Combine(job->b, CombineUnion, job->result);
    return nullptr;
}

// Runs the union on a thread whose whole stack is `kSmallStack`.
void RunOnSmallStack(UnionJob& job) {
    pthread_attr_t attr;
    ASSERT_EQ(pthread_attr_init(&attr), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attr, kSmallStack), 0);
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attr, RunUnion, &job), 0);
    ASSERT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attr);
}

TEST(RvPolygon2DCombineDeepTest, UnionThroughTenThousandNodesFitsInA256KiBStack) {
    UnionJob job{HalfDisc(-1.0), HalfDisc(1.0), {}, false};
    RunOnSmallStack(job);
    ASSERT_TRUE(job.answered);
    // The shared axis is a secondary link and drops out; the ring is both arcs, whose common
    // ends are one node each: 2 * 5000 - 2 points.
    ASSERT_EQ(job.result.size(), 1U);
    const RvPolygon2D& ring = job.result[0];
    EXPECT_EQ(ring.size(), static_cast<std::size_t>(2 * kVertices - 2));
    // The first node is the shared end (R, 0); the trace leaves it along the lower arc.
    EXPECT_NEAR(ring[0].x2D, kRadius, 1e-9);
    EXPECT_NEAR(ring[0].y2D, 0.0, 1e-9);
    EXPECT_LT(ring[1].y2D, 0.0);
    EXPECT_GT(ring[ring.size() - 1].y2D, 0.0);
    // Both halves, and nothing else, make up the union.
    const double halves = job.a.GetPlochu() + job.b.GetPlochu();
    EXPECT_NEAR(ring.GetPlochu(), halves, halves * 1e-12);
}

}  // namespace
}  // namespace ravelin

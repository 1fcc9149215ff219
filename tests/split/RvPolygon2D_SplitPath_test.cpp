#include <gtest/gtest.h>

#include "ravelin/polygon/RvPolygon2D.h"

TEST(Placeholder, ReplacedByTheRealTests) { EXPECT_TRUE(true); }

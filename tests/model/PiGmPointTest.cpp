#include "model/PiGmPoint.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

TEST(PiGmPoint, OneThatHoldsNothingIsUnsetInBothCoordinates)
{
    EXPECT_EQ(PiGmPoint().x, UNSET_DOUBLE);
    EXPECT_EQ(PiGmPoint().y, UNSET_DOUBLE);
}

TEST(PiGmPoint, TwoAreEqualInBothCoordinates)
{
    EXPECT_EQ(PiGmPoint(1.0, 2.0), PiGmPoint(1.0, 2.0));
    EXPECT_FALSE(PiGmPoint(1.0, 2.0) == PiGmPoint(3.0, 2.0));
    EXPECT_FALSE(PiGmPoint(1.0, 2.0) == PiGmPoint(1.0, 3.0));
}

} // namespace
} // namespace jlandxml

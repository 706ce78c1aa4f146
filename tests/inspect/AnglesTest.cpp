#include "inspect/Angles.h"

#include <gtest/gtest.h>

namespace jlandxml::inspect
{
namespace
{

TEST(Angles, InDegreesMinutesAndSecondsAreReadByTheirDigits)
{
    const DegreesMinutesSeconds angle = ReadDegreesMinutesSeconds(L"63.38452961").value();
    EXPECT_EQ(angle.degrees, 63);
    EXPECT_EQ(angle.minutes, 38);
    EXPECT_DOUBLE_EQ(angle.seconds, 45.2961);
    EXPECT_DOUBLE_EQ(ReadDegreesMinutesSeconds(L"62.3").value().minutes, 30);
    EXPECT_DOUBLE_EQ(ReadDegreesMinutesSeconds(L"110.").value().degrees, 110);
    EXPECT_DOUBLE_EQ(ReadDegreesMinutesSeconds(L"-0.0001").value().Radians(), -RADIANS_OF_A_SECOND);
}

TEST(Angles, ThatAreNoPlainNumberAreNone)
{
    for (const wchar_t* const text : {L"", L".", L"-", L"1e2", L"12.3.4", L"12.x"})
    {
        EXPECT_FALSE(ReadDegreesMinutesSeconds(text).has_value()) << text;
    }
}

TEST(Angles, FollowTheUnit)
{
    EXPECT_DOUBLE_EQ(ReadAngle(ReadFigure(L"90.3"), L"decimal dd.mm.ss").value(), 90.5 * RADIANS_OF_A_DEGREE);
    EXPECT_DOUBLE_EQ(ReadAngle(ReadFigure(L"90.5"), L"decimal degrees").value(), 90.5 * RADIANS_OF_A_DEGREE);
    EXPECT_DOUBLE_EQ(ReadAngle(ReadFigure(L"100"), L"grads").value(), std::numbers::pi / 2);
    EXPECT_DOUBLE_EQ(ReadAngle(ReadFigure(L"1.5"), L"radians").value(), 1.5);
    EXPECT_FALSE(ReadAngle(ReadFigure(L"1.5"), L"gon").has_value());
    EXPECT_FALSE(ReadAngle(ReadFigure(L"INF"), L"radians").has_value());
}

} // namespace
} // namespace jlandxml::inspect

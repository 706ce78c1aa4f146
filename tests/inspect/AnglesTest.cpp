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
    for (const wchar_t* const text : {L"", L".", L"-", L"12.3.4", L"12.x", L"1e", L"e1", L".e1", L"1e2.5", L"1e 2x",
                                      L"1.2.3e1", L"1.2.3e-1", L"1e401", L"1e-401", L"1e-2147483648", L"1e2e3"})
    {
        EXPECT_FALSE(ReadDegreesMinutesSeconds(text).has_value()) << text;
    }
}

/// A figure with an exponent and the same without one.
struct Exponent
{
    const char* name;
    const wchar_t* text;
    const wchar_t* plain;
};
constexpr Exponent EXPONENTS[] = {
    {"ToTheRight", L"6.23015e1", L"62.3015"},  {"BeyondTheDigits", L"6.2E+2", L"620"},
    {"ToTheLeft", L"6230.15e-2", L"62.3015"},  {"InFrontOfTheDigits", L"3.5e-3", L"0.0035"},
    {"FromNoWholeDigits", L".623e2", L"62.3"}, {"Nowhere", L"62.3e0", L"62.3"},
    {"BelowZero", L"-6.23e1", L"-62.3"},
};

class AnglesWithExponents : public testing::TestWithParam<Exponent>
{};

TEST_P(AnglesWithExponents, AreReadByTheirDigits)
{
    const std::optional<DegreesMinutesSeconds> angle = ReadDegreesMinutesSeconds(GetParam().text);
    const std::optional<DegreesMinutesSeconds> plain = ReadDegreesMinutesSeconds(GetParam().plain);
    ASSERT_TRUE(angle && plain);
    EXPECT_EQ(angle->isNegative, plain->isNegative);
    EXPECT_EQ(angle->degrees, plain->degrees);
    EXPECT_EQ(angle->minutes, plain->minutes);
    EXPECT_EQ(angle->seconds, plain->seconds);
}

INSTANTIATE_TEST_SUITE_P(Inspect, AnglesWithExponents, testing::ValuesIn(EXPONENTS),
                         [](const auto& one) { return std::string(one.param.name); });

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

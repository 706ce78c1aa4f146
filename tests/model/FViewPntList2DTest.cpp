#include "model/FViewPntList2D.h"

#include "support/RowName.h"
#include "support/XmlText.h"

#include <cmath>
#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

PiCmList<PiGmPoint> Points(const std::wstring& text)
{
    PiCmList<PiGmPoint> points;
    ParsePointList(text, points);
    return points;
}

struct PointListCase
{
    const wchar_t* text;
    std::vector<PiGmPoint> points;
};

class PointList : public testing::TestWithParam<PointListCase>
{};

TEST_P(PointList, IsReadNumberByNumber)
{
    EXPECT_EQ(Points(GetParam().text), GetParam().points);
}

INSTANTIATE_TEST_SUITE_P(FViewPntList2D, PointList,
                         testing::Values(PointListCase{L"", {}}, PointListCase{L"1", {}},
                                         PointListCase{L"1 2", {{1, 2}}}, PointListCase{L"1 2 3", {{1, 2}}},
                                         PointListCase{L"1 2 3 4", {{1, 2}, {3, 4}}},
                                         PointListCase{L" 1  2   3 4 ", {{1, 2}, {3, 4}}}, PointListCase{L"   ", {}},
                                         PointListCase{L"1.5 abc", {{1.5, 0}}}, PointListCase{L"1 2 ", {{1, 2}}},
                                         PointListCase{L"1\n2 3", {{0, 3}}}, PointListCase{L"-1 +2", {{-1, 2}}}),
                         BY_TEXT);

struct WrittenPointsCase
{
    std::vector<PiGmPoint> points;
    const wchar_t* text;
};

class WrittenPoints : public testing::TestWithParam<WrittenPointsCase>
{};

TEST_P(WrittenPoints, LeaveOutWhatRepeatsThePointBefore)
{
    FViewPntList2D list;
    list.points = GetParam().points;
    EXPECT_EQ(WrittenInto(list, L"<ProfSurf/>"),
              std::wstring(L"<ProfSurf><PntList2D>") + GetParam().text + L"</PntList2D></ProfSurf>");
}

INSTANTIATE_TEST_SUITE_P(
    FViewPntList2D, WrittenPoints,
    testing::Values(WrittenPointsCase{{{100, 12.5}}, L"100. 12.5"},
                    WrittenPointsCase{{{0, 1}, {0, 1}, {5, 2}}, L"0. 1. 5. 2."},
                    WrittenPointsCase{{{0, 1}, {5, 2}, {0, 1}}, L"0. 1. 5. 2. 0. 1."},
                    WrittenPointsCase{{{0, 1}, {1e-8, 1}, {0, 1.00000003}}, L"0. 1. 0. 1.00000003"},
                    WrittenPointsCase{{{0, 0}, {1.5e-8, 0}, {3e-8, 0}}, L"0. 0. 0.00000003 0."},
                    // Just the tolerance is a point of its own, in either coordinate and direction.
                    WrittenPointsCase{{{0, 1}, {GEOMETRY_TOLERANCE, 1}}, L"0. 1. 0.000000022204 1."},
                    WrittenPointsCase{{{0, 1}, {-GEOMETRY_TOLERANCE, 1}}, L"0. 1. -0.000000022204 1."},
                    WrittenPointsCase{{{1, 0}, {1, GEOMETRY_TOLERANCE}}, L"1. 0. 1. 0.000000022204"},
                    WrittenPointsCase{{{1, 0}, {1, -GEOMETRY_TOLERANCE}}, L"1. 0. 1. -0.000000022204"},
                    WrittenPointsCase{{{0, 2}, {std::nextafter(GEOMETRY_TOLERANCE, 0.0), 2}}, L"0. 2."},
                    WrittenPointsCase{{{2, 0}, {2, -std::nextafter(GEOMETRY_TOLERANCE, 0.0)}}, L"2. 0."},
                    WrittenPointsCase{{{UNSET_DOUBLE, UNSET_DOUBLE}, {UNSET_DOUBLE, UNSET_DOUBLE}}, L". . . ."},
                    WrittenPointsCase{{{UNSET_DOUBLE, 5}, {0, 5}}, L". 5. 0. 5."},
                    WrittenPointsCase{{{5, UNSET_DOUBLE}, {5, 0}}, L"5. . 5. 0."},
                    // Behind an unset point nothing is left out, but an unset point itself repeats (0, 0).
                    WrittenPointsCase{{{0, 0}, {UNSET_DOUBLE, UNSET_DOUBLE}, {1, 2}}, L"0. 0. 1. 2."},
                    WrittenPointsCase{{{1.0 / 3, -1e-13}}, L"0.333333333333 0."}),
    BY_TEXT);

TEST(FViewPntList2D, AMillionPointsAreReadAndWritten)
{
    std::wstring text;
    for (int point = 0; point < 1000000; ++point)
    {
        text += std::to_wstring(point) + L". 12.5 ";
    }
    text.pop_back();
    FViewPntList2D list;
    ParsePointList(text, list.points);
    ASSERT_EQ(list.points.size(), 1000000U);
    EXPECT_TRUE(WrittenInto(list, L"<P/>") == L"<P><PntList2D>" + text + L"</PntList2D></P>");
}

TEST(FViewPntList2D, ReadsItsTextAndBeginsAfresh)
{
    XmlText xml(L"<PntList2D>1 2</PntList2D>");
    FViewPntList2D list;
    list.points.emplace_back(9.0, 9.0);
    list.ReadElement(xml.Root());
    EXPECT_EQ(list.points, (PiCmList<PiGmPoint>{{1, 2}}));
}

} // namespace
} // namespace jlandxml

#include "model/FViewProfile.h"

#include "support/RowName.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

TEST(FViewProfile, AMarkedProfAlignBecomesAGroundLine)
{
    XmlText xml(L"<Profile><ProfAlign name='計画'><PVI>10 1</PVI></ProfAlign>"
                L"<ProfAlign name='ProfSurf_現況'><PVI>0 1</PVI><ParaCurve>5 5</ParaCurve><PVI>20 "
                L"2</PVI></ProfAlign></Profile>");
    FViewProfile profile;
    profile.ReadElement(xml.Root());
    EXPECT_EQ(profile.profAlignName, L"計画");
    EXPECT_EQ(profile.staStart, 10.0);
    ASSERT_EQ(profile.profSurfs.size(), 1U);
    EXPECT_EQ(profile.profSurfs[0].name, L"現況");
    EXPECT_EQ(profile.profSurfs[0].pntList2D.points, (PiCmList<PiGmPoint>{{0, 1}, {20, 2}}));
    EXPECT_EQ(xml.Text(), L"<Profile><ProfAlign name=\"計画\"><PVI>10 1</PVI></ProfAlign></Profile>");
    profile.WriteElement(xml.Root());
    EXPECT_EQ(xml.Text(), L"<Profile staStart=\"10.\"><ProfAlign name=\"計画\"><PVI>10 1</PVI></ProfAlign>"
                          L"<ProfSurf name=\"現況\"><PntList2D>0. 1. 20. 2.</PntList2D></ProfSurf></Profile>");
}

TEST(FViewProfile, TheMarkMayStandAnywhereAndEveryOneGoes)
{
    const auto profile =
        Read<FViewProfile>(L"<Profile><ProfAlign name='A_ProfSurf_B'/><ProfAlign name='ProfSurf_ProfSurf_C'/>"
                           L"<ProfAlign name='profsurf_D'/></Profile>");
    ASSERT_EQ(profile.profSurfs.size(), 2U);
    EXPECT_EQ(profile.profSurfs[0].name, L"A_B");
    EXPECT_EQ(profile.profSurfs[1].name, L"C");
    EXPECT_EQ(profile.profAlignName, L"profsurf_D");
}

struct ChoiceCase
{
    const wchar_t* rule;
    const wchar_t* xml;
    const wchar_t* name;
    double staStart;
};

class DesignProfile : public testing::TestWithParam<ChoiceCase>
{};

TEST_P(DesignProfile, IsTheOneThatStartsFirst)
{
    const auto profile = Read<FViewProfile>(GetParam().xml);
    EXPECT_EQ(profile.profAlignName, GetParam().name) << testing::PrintToString(GetParam().rule);
    EXPECT_EQ(profile.staStart, GetParam().staStart) << testing::PrintToString(GetParam().rule);
}

INSTANTIATE_TEST_SUITE_P(
    FViewProfile, DesignProfile,
    testing::Values(
        ChoiceCase{L"the second starts before the first",
                   L"<Profile><ProfAlign name='a'><PVI>100 1</PVI></ProfAlign><ProfAlign name='b'><PVI>50 "
                   L"1</PVI></ProfAlign></Profile>",
                   L"b", 50},
        ChoiceCase{L"of equal ones the first stays",
                   L"<Profile><ProfAlign name='a'><PVI>50 1</PVI></ProfAlign><ProfAlign name='b'><PVI>50 "
                   L"1</PVI></ProfAlign></Profile>",
                   L"a", 50},
        ChoiceCase{L"a first one without a start leaves the choice open",
                   L"<Profile><ProfAlign name='a'/><ProfAlign name='b'><PVI>50 1</PVI></ProfAlign></Profile>", L"b",
                   50},
        ChoiceCase{L"one without a start behind another isn't taken unless that starts above nothing",
                   L"<Profile><ProfAlign name='a'><PVI>0 1</PVI></ProfAlign><ProfAlign name='b'/></Profile>", L"a", 0},
        ChoiceCase{L"one without a start counts as a tiny positive number",
                   L"<Profile><ProfAlign name='a'><PVI>50 1</PVI></ProfAlign><ProfAlign name='b'/></Profile>", L"b",
                   UNSET_DOUBLE},
        ChoiceCase{L"the attribute bars what starts just at it",
                   L"<Profile staStart='50'><ProfAlign name='a'><PVI>50 1</PVI></ProfAlign></Profile>", L"", 50},
        ChoiceCase{L"of three the first of the two that start first",
                   L"<Profile><ProfAlign name='a'><PVI>100 1</PVI></ProfAlign><ProfAlign name='b'><PVI>50 1</PVI>"
                   L"</ProfAlign><ProfAlign name='c'><PVI>50 1</PVI></ProfAlign></Profile>",
                   L"b", 50},
        ChoiceCase{L"the attribute bars what starts at or behind it",
                   L"<Profile staStart='0'><ProfAlign name='a'><PVI>0 1</PVI></ProfAlign></Profile>", L"", 0},
        ChoiceCase{L"before the attribute's station it is chosen",
                   L"<Profile staStart='10'><ProfAlign name='a'><PVI>5 1</PVI></ProfAlign></Profile>", L"a", 5},
        ChoiceCase{L"an attribute that is no number is 0",
                   L"<Profile staStart='x'><ProfAlign name='a'><PVI>5 1</PVI></ProfAlign></Profile>", L"", 0},
        ChoiceCase{L"a vertical curve before the first point",
                   L"<Profile><ProfAlign name='a'><PVI>50 1</PVI><ParaCurve>40 1</ParaCurve></ProfAlign></Profile>",
                   L"a", 40},
        ChoiceCase{L"a point before the first vertical curve",
                   L"<Profile><ProfAlign name='a'><ParaCurve>40 1</ParaCurve><PVI>30 1</PVI></ProfAlign></Profile>",
                   L"a", 30},
        ChoiceCase{L"a vertical curve alone",
                   L"<Profile><ProfAlign name='a'><ParaCurve>40 1</ParaCurve></ProfAlign></Profile>", L"a", 40},
        ChoiceCase{L"a point that isn't two numbers gives no start",
                   L"<Profile><ProfAlign name='a'><PVI>1 2 3</PVI></ProfAlign></Profile>", L"a", UNSET_DOUBLE},
        ChoiceCase{L"only the first point counts",
                   L"<Profile><ProfAlign name='a'><PVI>60 2</PVI><PVI>1 2</PVI></ProfAlign></Profile>", L"a", 60},
        ChoiceCase{L"names of elements count in their case",
                   L"<Profile><profalign name='x'><PVI>1 2</PVI></profalign><ProfAlign name='a'><pvi>1 2</pvi><PVI>7 "
                   L"2</PVI></ProfAlign>"
                   L"</Profile>",
                   L"a", 7},
        ChoiceCase{L"a vertical curve in another case gives no start",
                   L"<Profile><ProfAlign name='a'><paracurve>1 2</paracurve></ProfAlign></Profile>", L"a",
                   UNSET_DOUBLE},
        ChoiceCase{L"no design", L"<Profile/>", L"", UNSET_DOUBLE}),
    BY_RULE);

TEST(FViewProfile, RealGroundLinesFollowTheConvertedOnes)
{
    EXPECT_EQ(Written<FViewProfile>(L"<Profile><ProfSurf name='real'><PntList2D>1 2</PntList2D></ProfSurf>"
                                    L"<ProfAlign name='ProfSurf_a'><PVI>3 4</PVI></ProfAlign><x/></Profile>"),
              L"<Profile><x/><ProfSurf name=\"a\"><PntList2D>3. 4.</PntList2D></ProfSurf>"
              L"<ProfSurf name=\"real\"><PntList2D>1. 2.</PntList2D></ProfSurf></Profile>");
}

TEST(FViewProfile, GroundLinesAndTheirPointsCountInTheirCase)
{
    EXPECT_EQ(Written<FViewProfile>(L"<Profile><profsurf><PntList2D>1 2</PntList2D></profsurf>"
                                    L"<ProfAlign name='ProfSurf_a'><pvi>3 4</pvi><PVI>5 6</PVI></ProfAlign>"
                                    L"<ProfSurf><PntList2D>7 8</PntList2D></ProfSurf></Profile>"),
              L"<Profile><profsurf><PntList2D>1 2</PntList2D></profsurf>"
              L"<ProfSurf name=\"a\"><PntList2D>5. 6.</PntList2D></ProfSurf>"
              L"<ProfSurf><PntList2D>7. 8.</PntList2D></ProfSurf></Profile>");
}

TEST(FViewProfile, AGroundLineWithoutPointsDisappears)
{
    EXPECT_EQ(
        Written<FViewProfile>(L"<Profile><ProfSurf name='a'><PntList2D/></ProfSurf><ProfSurf name='b'/></Profile>"),
        L"<Profile/>");
}

TEST(FViewProfile, APointThatIsNotTwoNumbersIsWrittenAsTwoPoints)
{
    EXPECT_EQ(Written<FViewProfile>(L"<Profile><ProfAlign name='ProfSurf_a'><PVI>1 2 3</PVI></ProfAlign></Profile>"),
              L"<Profile><ProfSurf name=\"a\"><PntList2D>. .</PntList2D></ProfSurf></Profile>");
}

TEST(FViewProfile, TheStartIsWrittenWithFourDecimals)
{
    EXPECT_EQ(Written<FViewProfile>(L"<Profile staStart='12.34567'/>"), L"<Profile staStart=\"12.3457\"/>");
    EXPECT_EQ(Written<FViewProfile>(L"<Profile/>"), L"<Profile/>");
}

TEST(FViewProfile, AChosenProfileWithoutStartLeavesTheAttributeAsItStands)
{
    const std::wstring xml = L"<Profile staStart=\"5\"><ProfAlign name=\"a\"/></Profile>";
    EXPECT_EQ(Read<FViewProfile>(xml).profAlignName, L"a");
    EXPECT_EQ(Read<FViewProfile>(xml).staStart, UNSET_DOUBLE);
    EXPECT_EQ(Written<FViewProfile>(xml), xml);
}

struct StationCase
{
    const wchar_t* text;
    double station;
    double elevation;
};

class StationAndElevation : public testing::TestWithParam<StationCase>
{};

TEST_P(StationAndElevation, AreReadFromPointsAndCurvesAfresh)
{
    const auto [text, station, elevation] = GetParam();
    auto point = Read<FViewPVI>(L"<PVI>8 9</PVI>");
    point.ReadElement(XmlText(std::wstring(L"<PVI>") + text + L"</PVI>").Root());
    EXPECT_EQ(point.station, station);
    EXPECT_EQ(point.elevation, elevation);
    auto curve = Read<FViewParaCurve>(L"<ParaCurve>8 9</ParaCurve>");
    curve.ReadElement(XmlText(std::wstring(L"<ParaCurve>") + text + L"</ParaCurve>").Root());
    EXPECT_EQ(curve.station, station);
}

INSTANTIATE_TEST_SUITE_P(FViewProfile, StationAndElevation,
                         testing::Values(StationCase{L"1.5 -2", 1.5, -2}, StationCase{L"x 2", 0, 2},
                                         StationCase{L"1 2e1", 1, 0}, StationCase{L"1", UNSET_DOUBLE, UNSET_DOUBLE},
                                         StationCase{L"", UNSET_DOUBLE, UNSET_DOUBLE},
                                         StationCase{L"1 2 3", UNSET_DOUBLE, UNSET_DOUBLE}),
                         BY_TEXT);

TEST(FViewProfile, ReadingBeginsAfresh)
{
    auto profile = Read<FViewProfile>(L"<Profile staStart='5'><ProfAlign name='a'><PVI>1 2</PVI></ProfAlign>"
                                      L"<ProfSurf name='b'/></Profile>");
    profile.ReadElement(XmlText(L"<Profile/>").Root());
    EXPECT_EQ(profile.staStart, UNSET_DOUBLE);
    EXPECT_EQ(profile.profAlignName, L"");
    EXPECT_TRUE(profile.profSurfs.empty());

    auto profAlign = Read<FViewProfAlign>(L"<ProfAlign name='a'><PVI>1 2</PVI></ProfAlign>");
    profAlign.ReadElement(XmlText(L"<ProfAlign/>").Root());
    EXPECT_EQ(profAlign.name, L"");
    EXPECT_EQ(profAlign.startStation, UNSET_DOUBLE);
}

template <class Element>
void ExpectNothingWritten(const std::wstring& xml)
{
    EXPECT_EQ(Written<Element>(xml), xml);
    EXPECT_TRUE(Element().WriteElement(XmlText(xml).Root()));
}

TEST(FViewProfile, PointsCurvesAndDesignsStayAsTheyCame)
{
    ExpectNothingWritten<FViewPVI>(L"<PVI>1 x</PVI>");
    ExpectNothingWritten<FViewParaCurve>(L"<ParaCurve length=\"7\">1 x</ParaCurve>");
    ExpectNothingWritten<FViewProfAlign>(L"<ProfAlign name=\"a\"><PVI>1 x</PVI></ProfAlign>");
}

TEST(FViewProfile, AFinishedElementReadAgainGivesTheSameGroundLines)
{
    const std::wstring finished = Written<FViewProfile>(
        L"<Profile><ProfAlign name='計画'><PVI>0 1</PVI></ProfAlign><ProfAlign name='ProfSurf_現況'>"
        L"<PVI>0.1 1</PVI><PVI>20 2.5</PVI></ProfAlign></Profile>");
    EXPECT_EQ(Written<FViewProfile>(finished), finished);
}

TEST(FViewProfile, ItsDesignsHaveTheirNameInTheFormat)
{
    EXPECT_STREQ(FViewProfile().GetElementName(), L"Profile");
    EXPECT_STREQ(FViewProfAlign().GetElementName(), L"ProfAlign");
}

} // namespace
} // namespace jlandxml

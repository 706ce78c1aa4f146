#include "model/FViewLandXML.h"

#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

constexpr const wchar_t* PROJECT_FEATURE =
    L"<Feature><Property label=\"applicationCriterion\" value=\"MlitLandXmlVer.1.7\"/></Feature>";
constexpr const wchar_t* DEFAULT_SYSTEM = L"<CoordinateSystem name=\"CRS1\"/>";

TEST(FViewLandXML, OfTwoProjectsTheFirstIsReadAndWritten)
{
    const std::wstring second =
        L"<Project name=\"b\"><Feature><Property label=\"projectPhase\" value=\"予備\"/></Feature></Project>";
    EXPECT_EQ(
        Written<FViewLandXML>(L"<LandXML><CoordinateSystem name='c'/><Project name='a'/>" + second + L"</LandXML>"),
        std::wstring(L"<LandXML><CoordinateSystem name=\"c\"/><Project name=\"a\">") + PROJECT_FEATURE + L"</Project>" +
            second + L"</LandXML>");
    EXPECT_EQ(Read<FViewLandXML>(L"<LandXML><Project/>" + second + L"</LandXML>").project.projectPhase, L"");
}

TEST(FViewLandXML, WithoutAProjectNoneIsMade)
{
    EXPECT_EQ(Written<FViewLandXML>(L"<LandXML><CoordinateSystem name='c'/></LandXML>"),
              L"<LandXML><CoordinateSystem name=\"c\"/></LandXML>");
}

TEST(FViewLandXML, AProjectInAnotherCaseIsLeftAlone)
{
    EXPECT_EQ(Written<FViewLandXML>(L"<LandXML><project/><Project/><CoordinateSystem name='c'/></LandXML>"),
              L"<LandXML><project/><Project/><CoordinateSystem name=\"c\"/></LandXML>");
}

TEST(FViewLandXML, AMissingCoordinateSystemIsPutBeforeAlignments)
{
    EXPECT_EQ(Written<FViewLandXML>(L"<LandXML><Units/><Surfaces/><Alignments name='a'/></LandXML>"),
              std::wstring(L"<LandXML><Units/><Surfaces/>") + DEFAULT_SYSTEM + L"<Alignments name=\"a\"/></LandXML>");
}

TEST(FViewLandXML, AMissingCoordinateSystemIsPutBeforeSurfacesWithoutAlignments)
{
    EXPECT_EQ(Written<FViewLandXML>(L"<LandXML><Units/><Surfaces/></LandXML>"),
              std::wstring(L"<LandXML><Units/>") + DEFAULT_SYSTEM + L"<Surfaces/></LandXML>");
}

TEST(FViewLandXML, AMissingCoordinateSystemStandsAtTheEndOtherwise)
{
    EXPECT_EQ(Written<FViewLandXML>(L"<LandXML><Units/><x/></LandXML>"),
              std::wstring(L"<LandXML><Units/><x/>") + DEFAULT_SYSTEM + L"</LandXML>");
}

TEST(FViewLandXML, ACoordinateSystemInAnotherCaseIsLeftAlone)
{
    EXPECT_EQ(Written<FViewLandXML>(L"<LandXML><coordinateSystem/></LandXML>"),
              L"<LandXML><coordinateSystem/></LandXML>");
}

TEST(FViewLandXML, PointGroupsOfTheInputAreRemoved)
{
    XmlText xml(L"<LandXML><CgPoints><CgPoint>1 2</CgPoint></CgPoints><x/><CgPoints/><cgpoints/><CgPoints/></LandXML>");
    FViewLandXML root;
    EXPECT_TRUE(root.ReadElement(xml.Root()));
    EXPECT_EQ(xml.Text(), L"<LandXML><x/><cgpoints/></LandXML>");
}

TEST(FViewLandXML, PressuresAreGivenInHectopascals)
{
    EXPECT_EQ(Written<FViewLandXML>(
                  L"<LandXML><CoordinateSystem name='c'/><units><Metric PressureUnit='milliBars' a='b'/></units>"
                  L"<Units><Metric/></Units></LandXML>"),
              L"<LandXML><CoordinateSystem name=\"c\"/><units><Metric PressureUnit=\"HPA\" "
              L"a=\"b\"/></units><Units><Metric/></Units>"
              L"</LandXML>");
    EXPECT_EQ(
        Written<FViewLandXML>(L"<LandXML><CoordinateSystem name='c'/><Units><Imperial/><Metric/></Units></LandXML>"),
        L"<LandXML><CoordinateSystem name=\"c\"/><Units><Imperial/><Metric pressureUnit=\"HPA\"/></Units></LandXML>");
}

TEST(FViewLandXML, WithoutMetricUnitsNoPressureUnitIsSet)
{
    EXPECT_EQ(Written<FViewLandXML>(L"<LandXML><CoordinateSystem name='c'/><Units><Imperial/></Units></LandXML>"),
              L"<LandXML><CoordinateSystem name=\"c\"/><Units><Imperial/></Units></LandXML>");
}

TEST(FViewLandXML, WhatNoClassReadsStaysInItsPlace)
{
    const std::wstring rest =
        L"<Application name=\"host\" x=\"1\"><Author/></Application>text<![CDATA[c]]><Other a=\"b\"><C>d</C></Other>";
    EXPECT_EQ(
        Written<FViewLandXML>(L"<LandXML xmlns=\"u\" v=\"1\">" + rest + L"<CoordinateSystem name='c'/></LandXML>"),
        L"<LandXML xmlns=\"u\" v=\"1\">" + rest + L"<CoordinateSystem name=\"c\"/></LandXML>");
}

TEST(FViewLandXML, TheFirstAlignmentsProjectDataWin)
{
    const auto root = Read<FViewLandXML>(L"<LandXML><Project><Feature><Property label='projectPhase' "
                                         L"value='概略'/><Property label='applicationCriterion' value='c'/></Feature>"
                                         L"</Project><CoordinateSystem verticalDatum='O.P'/><Alignments><Alignment "
                                         L"desc='プロジェクト名 = n 事業段階 = 詳細 鉛直原子 = T.P'/>"
                                         L"<Alignment desc='プロジェクト名 = no'/></Alignments></LandXML>");
    EXPECT_EQ(root.project.name, L"n");
    EXPECT_EQ(root.project.projectPhase, L"詳細");
    EXPECT_EQ(root.project.applicationCriterion, L"c");
    EXPECT_EQ(root.coordinateSystem.verticalDatum, L"T.P");
}

TEST(FViewLandXML, AnEmptyProjectNameOfTheFirstAlignmentLeavesTheProject)
{
    EXPECT_EQ(Written<FViewLandXML>(L"<LandXML><Project name='n'/><CoordinateSystem name='c'/><Alignments name='a'>"
                                    L"<Alignment desc='プロジェクト名 = '/></Alignments></LandXML>")
                  .substr(0, 27),
              L"<LandXML><Project name=\"n\">");
    // Without an alignment in the first route nothing is taken from a later one.
    EXPECT_EQ(Read<FViewLandXML>(
                  L"<LandXML><Alignments/><Alignments><Alignment desc='プロジェクト名 = n'/></Alignments></LandXML>")
                  .project.name,
              L"");
}

TEST(FViewLandXML, RoutesAreWrittenByTheirPosition)
{
    EXPECT_EQ(Written<FViewLandXML>(
                  L"<LandXML><CoordinateSystem name='c'/><Alignments name='1'/><alignments/><Alignments/></LandXML>"),
              L"<LandXML><CoordinateSystem name=\"c\"/><Alignments name=\"1\"/><alignments/><Alignments "
              L"name=\"サイト\"/></LandXML>");
}

TEST(FViewLandXML, ReadingBeginsWithAnEmptyModel)
{
    XmlText full(L"<LandXML><Project><Feature><Property label='projectPhase' value='予備'/></Feature></Project>"
                 L"<CoordinateSystem name='c'/></LandXML>");
    XmlText empty(L"<LandXML/>");
    FViewLandXML root;
    root.ReadElement(full.Root());
    EXPECT_EQ(root.project.projectPhase, L"予備");
    EXPECT_EQ(root.coordinateSystem.name, L"c");
    root.ReadElement(empty.Root());
    EXPECT_EQ(root.project.projectPhase, L"");
    EXPECT_EQ(root.coordinateSystem.name, L"");
}

TEST(FViewLandXML, ACopyStandsApart)
{
    auto root = Read<FViewLandXML>(L"<LandXML><CoordinateSystem name='c'/></LandXML>");
    const FViewLandXML copy = root;
    root.coordinateSystem.name = L"d";
    root.SetOutputVersion(2);
    EXPECT_EQ(copy.coordinateSystem.name, L"c");
    EXPECT_EQ(copy.project.version, 0);
    EXPECT_EQ(root.project.version, 2);
    EXPECT_EQ(root.coordinateSystem.version, 0);
}

} // namespace
} // namespace jlandxml

#include "model/FViewLandXML.h"

#include "model/OutputVersion.h"
#include "support/ParserRoom.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>

#include <limits>

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

TEST(FViewLandXML, OfTwoCoordinateSystemsTheFirstIsReadAndWritten)
{
    const std::wstring xml = L"<LandXML><CoordinateSystem verticalDatum=\"T.P\"/>"
                             L"<CoordinateSystem name=\"b\" verticalDatum=\"O.P\" horizontalDatum=\"TD\"/></LandXML>";
    EXPECT_EQ(Written<FViewLandXML>(xml),
              L"<LandXML><CoordinateSystem verticalDatum=\"T.P\" name=\"CRS1\"/>"
              L"<CoordinateSystem name=\"b\" verticalDatum=\"O.P\" horizontalDatum=\"TD\"/></LandXML>");
    const auto root = Read<FViewLandXML>(xml);
    EXPECT_EQ(root.coordinateSystem.name, L"");
    EXPECT_EQ(root.coordinateSystem.verticalDatum, L"T.P");
    EXPECT_EQ(root.coordinateSystem.horizontalDatum, L"");
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

TEST(FViewLandXML, TheFirstAlignmentsVersionTextBeatsThatOfTheProject)
{
    EXPECT_EQ(Read<FViewLandXML>(L"<LandXML><Project><Feature><Property label='applicationCriterion' "
                                 L"value='MlitLandXmlVer.1.5'/></Feature></Project><Alignments><Alignment "
                                 L"desc='適用基準 = MlitLandXmlVer.1.6'/></Alignments></LandXML>")
                  .project.applicationCriterion,
              L"MlitLandXmlVer.1.6");
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

/// Point groups of a size each, 0 for one without points.
FViewLandXML WithGroups(const std::vector<int>& intermediate, const std::vector<int>& stakes)
{
    FViewLandXML root;
    for (const int size : intermediate)
    {
        root.intermediatePoints.emplace_back().points.resize(static_cast<std::size_t>(size));
    }
    for (const int size : stakes)
    {
        root.widthStakePoints.emplace_back().points.resize(static_cast<std::size_t>(size));
    }
    root.intermediatePoints.Number();
    return root;
}

/// The names of the children of a document that groups were placed in, each with its own name.
std::wstring Placed(const std::wstring& children, FViewLandXML root, std::int32_t version, bool succeeds = true)
{
    XmlText xml(L"<LandXML>" + children + L"</LandXML>");
    FViewLandXML read;
    read.ReadElement(xml.Root());
    read.intermediatePoints = root.intermediatePoints;
    read.widthStakePoints = root.widthStakePoints;
    read.SetOutputVersion(version);
    EXPECT_EQ(read.WriteElement(xml.Root()), succeeds);
    std::wstring names;
    WcXmNode child = xml.Root();
    for (bool more = child.MoveToFirstChild(); more; more = child.MoveToNextSibling())
    {
        const bool stakes = child.NodeName() == L"CgPoints" && !child.FindAttribute(L"name");
        names += (names.empty() ? L"" : L" ") + std::wstring(stakes ? L"Stakes" : child.NodeName());
    }
    return names;
}

/// Where things stand that the converter places, told once more in the plainest way.
std::wstring ExpectedPlaces(bool alignments, bool surfaces, bool system, int intermediate, int stakes,
                            std::int32_t version)
{
    std::vector<std::wstring> before;
    std::vector<std::wstring> after;
    for (int group = 0; group < intermediate; ++group)
    {
        before.push_back(L"CgPoints");
    }
    for (int group = 0; group < (version > 2 ? stakes : 0); ++group)
    {
        before.push_back(L"Stakes");
    }
    std::vector<std::wstring> all = {L"Units"};
    if (system)
    {
        all.push_back(L"CoordinateSystem");
    }
    else if (!before.empty() || alignments || surfaces)
    {
        before.insert(before.begin(), L"CoordinateSystem");
    }
    else
    {
        after.push_back(L"CoordinateSystem");
    }
    all.insert(all.end(), before.begin(), before.end());
    if (alignments)
    {
        all.push_back(L"Alignments");
    }
    if (surfaces)
    {
        all.push_back(L"Surfaces");
    }
    all.insert(all.end(), after.begin(), after.end());
    std::wstring names;
    for (const std::wstring& name : all)
    {
        names += (names.empty() ? L"" : L" ") + name;
    }
    return names;
}

TEST(FViewLandXML, PointGroupsAndCoordinateSystemArePlacedInEveryCombination)
{
    for (const std::int32_t version : {0, 1, 2, 3, 4})
    {
        for (int combination = 0; combination < 8; ++combination)
        {
            const bool alignments = (combination & 1) != 0;
            const bool surfaces = (combination & 2) != 0;
            const bool system = (combination & 4) != 0;
            for (const bool given : {false, true})
            {
                for (int groups = 0; groups < 9; ++groups)
                {
                    const int intermediate = groups % 3;
                    const int stakes = groups / 3;
                    std::wstring children = std::wstring(L"<Units/>") + (given ? L"<CgPoints name='host'/>" : L"") +
                                            (system ? L"<CoordinateSystem/>" : L"") +
                                            (alignments ? L"<Alignments/>" : L"") + (surfaces ? L"<Surfaces/>" : L"");
                    std::vector<int> sizes(static_cast<std::size_t>(intermediate), 1);
                    sizes.push_back(0);
                    EXPECT_EQ(Placed(children, WithGroups(sizes, std::vector<int>(static_cast<std::size_t>(stakes), 2)),
                                     version),
                              ExpectedPlaces(alignments, surfaces, system, intermediate, stakes, version))
                        << testing::PrintToString(children) << groups << " version " << version;
                }
            }
        }
    }
}

TEST(FViewLandXML, WhatTheyArePlacedBeforeIsFoundInAnyCase)
{
    const FViewLandXML both = WithGroups({1}, {1});
    EXPECT_EQ(Placed(L"<alignments/><Surfaces/>", both, 4), L"CoordinateSystem CgPoints Stakes alignments Surfaces");
    EXPECT_EQ(Placed(L"<x/><surfaces/>", both, 4), L"x CoordinateSystem CgPoints Stakes surfaces");
    EXPECT_EQ(Placed(L"<cgpoints/><alignments/>", WithGroups({}, {1}), 4),
              L"CoordinateSystem cgpoints Stakes alignments");
}

TEST(FViewLandXML, AlignmentsArePlacedBeforeEvenBehindSurfaces)
{
    EXPECT_EQ(Placed(L"<Surfaces/><Alignments/>", WithGroups({1}, {1}), 4),
              L"Surfaces CoordinateSystem CgPoints Stakes Alignments");
}

TEST(FViewLandXML, AGroupWithoutPointsHasNoElement)
{
    EXPECT_EQ(Placed(L"<Alignments/>", WithGroups({0}, {0}), 4), L"CoordinateSystem Alignments");
}

TEST(FViewLandXML, WidthStakesAreKnownFromVersion16On)
{
    EXPECT_EQ(Placed(L"<Alignments/>", WithGroups({}, {1}), 2), L"CoordinateSystem Alignments");
    EXPECT_EQ(Placed(L"<Alignments/>", WithGroups({}, {1}), 3), L"CoordinateSystem Stakes Alignments");
    for (const std::int32_t older : {-1, std::numeric_limits<std::int32_t>::min()})
    {
        EXPECT_EQ(Placed(L"<Alignments/>", WithGroups({}, {1}), older), L"CoordinateSystem Alignments") << older;
    }
}

TEST(FViewLandXML, StakesGoByTheProjectsVersionAndReferencesByTheRoots)
{
    const auto written = [](std::int32_t rootVersion, std::int32_t projectVersion) {
        XmlText xml(L"<LandXML><CoordinateSystem name='c'/><Surfaces><Surface><Feature><Property label='alignmentRefs' "
                    L"value='R1'/></Feature></Surface></Surfaces></LandXML>");
        FViewLandXML root;
        root.ReadElement(xml.Root());
        root.surfaces[0].surfaces[0].alignmentRefs = L"R2";
        root.widthStakePoints.emplace_back().points.resize(1);
        root.SetOutputVersion(rootVersion);
        root.project.SetOutputVersion(projectVersion);
        EXPECT_TRUE(root.WriteElement(xml.Root()));
        const std::wstring text = xml.Text();
        return std::pair(text.find(L"<CgPoints>") != std::wstring::npos, text.find(L"R2") != std::wstring::npos);
    };
    EXPECT_EQ(written(0, 4), std::pair(true, false));
    EXPECT_EQ(written(4, 0), std::pair(false, true));
}

TEST(FViewLandXML, TheOutputVersionReachesProjectAndAlignmentsAlone)
{
    XmlText xml(L"<LandXML><CoordinateSystem/><Alignments><Alignment><CrossSects/></Alignment></Alignments>"
                L"<Alignments/><Surfaces><Surface/></Surfaces></LandXML>");
    FViewLandXML root;
    root.ReadElement(xml.Root());
    root.intermediatePoints.resize(1);
    root.widthStakePoints.resize(1);
    root.SetOutputVersion(3);
    EXPECT_EQ(root.version, 3);
    EXPECT_EQ(root.project.version, 3);
    ASSERT_EQ(root.alignments.size(), 2U);
    EXPECT_EQ(root.alignments[0].version, 3);
    EXPECT_EQ(root.alignments[0].alignments[0].version, 3);
    EXPECT_EQ(root.alignments[0].alignments[0].crossSects[0].version, 3);
    EXPECT_EQ(root.alignments[1].version, 3);
    EXPECT_EQ(root.coordinateSystem.version, 0);
    EXPECT_EQ(root.intermediatePoints[0].version, 0);
    EXPECT_EQ(root.widthStakePoints[0].version, 0);
    EXPECT_EQ(root.surfaces[0].version, 0);
    EXPECT_EQ(root.surfaces[0].surfaces[0].version, 0);
}

TEST(FViewLandXML, GroupNumbersMayHaveGaps)
{
    XmlText xml(L"<LandXML><CoordinateSystem name='c'/><Alignments name='a'/></LandXML>");
    FViewLandXML root = WithGroups({1, 0, 1}, {});
    root.WriteElement(xml.Root());
    EXPECT_NE(xml.Text().find(L"<CgPoints name=\"IntermediatePnts-1\">"), std::wstring::npos);
    EXPECT_EQ(xml.Text().find(L"IntermediatePnts-2"), std::wstring::npos);
    EXPECT_NE(xml.Text().find(L"<CgPoints name=\"IntermediatePnts-3\">"), std::wstring::npos);
}

TEST(FViewLandXML, ASecondExportOfPointsOverTheSameTreeFails)
{
    XmlText xml(L"<LandXML><CoordinateSystem name='c'/></LandXML>");
    FViewLandXML root = WithGroups({1}, {});
    EXPECT_TRUE(root.WriteElement(xml.Root()));
    EXPECT_FALSE(root.WriteElement(xml.Root()));
    FViewLandXML stakes = WithGroups({}, {1});
    stakes.SetOutputVersion(4);
    EXPECT_TRUE(stakes.WriteElement(xml.Root()));
}

TEST(FViewLandXML, IntermediatePointsAreNotPlacedBesidePointsInAnotherCase)
{
    EXPECT_EQ(Placed(L"<cgpoints/><Alignments/>", WithGroups({1}, {}), 4, false), L"cgpoints Alignments");
    // A group without points is a group, too.
    EXPECT_EQ(Placed(L"<cgpoints/><Alignments/>", WithGroups({0}, {}), 4, false), L"cgpoints Alignments");
    EXPECT_EQ(Placed(L"<cgpoints/><CoordinateSystem/><Alignments/>", WithGroups({}, {1}), 4),
              L"cgpoints CoordinateSystem Stakes Alignments");
}

TEST(FViewLandXML, TheModelsOwnStakesKeepTheirNumbers)
{
    XmlText xml(L"<LandXML><CoordinateSystem name='c'/></LandXML>");
    FViewLandXML root = WithGroups({}, {2});
    root.coordinateSystem.name = L"c";
    root.widthStakePoints[0].points[0].sequenceText = L"x";
    root.SetOutputVersion(4);
    EXPECT_TRUE(root.WriteElement(xml.Root()));
    EXPECT_EQ(xml.Text(),
              L"<LandXML><CoordinateSystem name=\"c\"/><CgPoints><CgPoint/><CgPoint/></CgPoints></LandXML>");
    EXPECT_EQ(root.widthStakePoints[0].points[0].sequenceText, L"x");
    EXPECT_EQ(root.widthStakePoints[0].points[1].sequenceText, L"");
}

TEST(FViewLandXML, SurfaceReferencesDependOnTheVersionAndNotesNever)
{
    const std::wstring xml = L"<LandXML><CoordinateSystem name='c'/><Surfaces><Surface desc='a 線形名=b'><Feature "
                             L"name='f'><Property value='R1'/>"
                             L"</Feature></Surface></Surfaces></LandXML>";
    const std::wstring head = L"<LandXML><CoordinateSystem name=\"c\"/><Surfaces><Surface desc=\"a\"><Feature "
                              L"name=\"f\"><Property value=\"R1\"/></Feature>";
    const std::wstring reference = L"<Feature><Property label=\"alignmentRefs\" value=\"R1\"/></Feature>";
    const std::wstring tail = L"</Surface></Surfaces></LandXML>";
    EXPECT_EQ(Written<FViewLandXML>(xml, 0), head + tail);
    for (const std::int32_t version : {1, 2, 3, 4})
    {
        EXPECT_EQ(Written<FViewLandXML>(xml, version), head + reference + tail);
    }
    for (const std::int32_t unknown : {-1, NEWEST_VERSION.number + 1, std::numeric_limits<std::int32_t>::max()})
    {
        EXPECT_EQ(Written<FViewLandXML>(xml, unknown), head + tail) << unknown;
    }
}

TEST(FViewLandXML, SurfaceSetsPairByPositionAndGiveTheirReferencesAlone)
{
    XmlText xml(L"<LandXML><CoordinateSystem name='c'/><Surfaces><Surface desc='a'/></Surfaces><surfaces><Surface "
                L"desc='x 線形名=y'/></surfaces><Surfaces><Surface desc='b'/></Surfaces></LandXML>");
    FViewLandXML root;
    root.ReadElement(xml.Root());
    ASSERT_EQ(root.surfaces.size(), 2U);
    root.surfaces[0].surfaces[0].alignmentRefs = L"R1";
    root.surfaces[0].surfaces[0].desc = L"changed";
    root.surfaces[1].surfaces[0].alignmentRefs = L"R2";
    root.SetOutputVersion(4);
    EXPECT_TRUE(root.WriteElement(xml.Root()));
    EXPECT_EQ(xml.Text(),
              L"<LandXML><CoordinateSystem name=\"c\"/><Surfaces><Surface desc=\"a\"><Feature><Property "
              L"label=\"alignmentRefs\" value=\"R1\"/></Feature></Surface></Surfaces><surfaces><Surface desc=\"x "
              L"線形名=y\"/></surfaces><Surfaces><Surface desc=\"b\"><Feature><Property label=\"alignmentRefs\" "
              L"value=\"R2\"/></Feature></Surface></Surfaces></LandXML>");
}

TEST(FViewLandXML, NotesAreCutFromSurfaceSetsThatTheModelDoesNotKnow)
{
    FViewLandXML root;
    root.surfaces.emplace_back().surfaces.emplace_back().alignmentRefs = L"R1";
    root.SetOutputVersion(4);
    EXPECT_EQ(
        WrittenInto(root, L"<LandXML><CoordinateSystem name='CRS1'/><Surfaces/><Surfaces><Surface desc='a "
                          L"線形名=b'/></Surfaces></LandXML>"),
        L"<LandXML><CoordinateSystem name=\"CRS1\"/><Surfaces/><Surfaces><Surface desc=\"a\"/></Surfaces></LandXML>");
}

TEST(FViewLandXML, ACrossSectionKeepsTheGroundOfTheDocumentsSurfaces)
{
    XmlText xml(L"<LandXML><CoordinateSystem name='c'/><Alignments "
                L"name='a'><Alignment><CrossSects><CrossSect><CrossSectSurf name='EG_1'/></CrossSect>"
                L"</CrossSects></Alignment></Alignments><Surfaces><Surface name='EG' "
                L"desc='ExistingGround'/></Surfaces></LandXML>");
    FViewLandXML root;
    root.ReadElement(xml.Root());
    root.surfaces.FillOutPutCSS();
    EXPECT_TRUE(root.WriteElement(xml.Root()));
    EXPECT_NE(xml.Text().find(L"<CrossSect><CrossSectSurf name=\"ExistingGround\"/></CrossSect>"), std::wstring::npos);
}

TEST(FViewLandXML, EveryCrossSectionOfEveryRouteKnowsTheDocumentsSurfaces)
{
    const auto two = [](const std::wstring& name, const std::wstring& children) {
        const std::wstring element = L"<" + name + L">" + children + L"</" + name + L">";
        return element + element;
    };
    XmlText xml(
        L"<LandXML>" +
        two(L"Alignments", two(L"Alignment", two(L"CrossSects", two(L"CrossSect", L"<CrossSectSurf name='EG_1'/>")))) +
        L"<Surfaces><Surface name='EG' desc='ExistingGround'/></Surfaces></LandXML>");
    FViewLandXML root;
    root.ReadElement(xml.Root());
    root.surfaces.FillOutPutCSS();
    EXPECT_TRUE(root.WriteElement(xml.Root()));
    const std::wstring text = xml.Text();
    const std::wstring_view ground = L"<CrossSect><CrossSectSurf name=\"ExistingGround\"/></CrossSect>";
    int count = 0;
    for (std::size_t place = text.find(ground); place != std::wstring::npos; place = text.find(ground, place + 1))
    {
        ++count;
    }
    EXPECT_EQ(count, 16);
}

TEST(FViewLandXML, GroundLinesTakeTheNamesThatTheDocumentsSurfacesHaveAtEachExport)
{
    const auto document = [](const std::wstring& name) {
        return L"<LandXML><CoordinateSystem name='c'/><Alignments name='a'><Alignment><CrossSects><CrossSect>"
               L"<CrossSectSurf name='" +
               name + L"_1'/></CrossSect></CrossSects></Alignment></Alignments><Surfaces><Surface name='" + name +
               L"' desc='ExistingGround'/></Surfaces></LandXML>";
    };
    FViewLandXML root;
    for (const wchar_t* const name : {L"EG", L"地形"})
    {
        XmlText xml(document(name));
        root.ReadElement(xml.Root());
        root.surfaces.FillOutPutCSS();
        EXPECT_TRUE(root.WriteElement(xml.Root()));
        EXPECT_NE(xml.Text().find(L"<CrossSect><CrossSectSurf name=\"ExistingGround\"/></CrossSect>"),
                  std::wstring::npos);
    }
}

TEST(FViewLandXML, WritingThatFailsLeavesNothingButTheDocumentElement)
{
    XmlText xml(L"<LandXML><Alignments><Alignment><CrossSects><CrossSect><CrossSectSurf/></CrossSect></CrossSects>"
                L"</Alignment></Alignments></LandXML>");
    FViewLandXML root;
    root.ReadElement(xml.Root());
    EXPECT_FALSE(root.WriteElement(xml.Root()));
    EXPECT_FALSE(xml.Root().MoveToNextSibling());
}

TEST(FViewLandXML, AVersionThatTheStandardDoesNotHaveFailsWithTheProject)
{
    XmlText xml(L"<LandXML><Project/><Units><Metric/></Units></LandXML>");
    FViewLandXML root;
    root.ReadElement(xml.Root());
    root.SetOutputVersion(99);
    EXPECT_FALSE(root.WriteElement(xml.Root()));
    EXPECT_EQ(xml.Text(), L"<LandXML><Project/><Units><Metric/></Units></LandXML>");
}

TEST(FViewLandXML, WithoutTheParsersMemoryItIsWrittenWholeOrItsWantIsRaised)
{
    const auto raised = [](const std::wstring& children) {
        return RefusedPages(L"<LandXML>" + children + L"</LandXML>", [](XmlText& xml) {
            FViewLandXML root;
            root.ReadElement(xml.Root());
            FViewCgPointIntermediate& point = root.intermediatePoints.emplace_back().points.emplace_back();
            point.firstCoordinate = point.secondCoordinate = 1.0;
            root.intermediatePoints.Number();
            root.SetOutputVersion(4);
            return root.WriteElement(xml.Root());
        });
    };
    EXPECT_GT(raised(L"<Alignments/><Surfaces/>"), 20);
    EXPECT_GT(raised(L""), 20);
}

TEST(FViewLandXML, ARouteThatFailsLeavesWhatStandsBehindItInTheOrderOfWriting)
{
    XmlText xml(L"<LandXML><Project/><Units><Metric/></Units><Alignments name='a'/><Alignments name='b'><Alignment>"
                L"<CrossSects><CrossSect><CrossSectSurf/></CrossSect></CrossSects></Alignment></Alignments>"
                L"<Alignments/><Surfaces><Surface desc='x 線形名=y'/></Surfaces></LandXML>");
    FViewLandXML root;
    root.ReadElement(xml.Root());
    root.project.name = L"n";
    root.intermediatePoints.emplace_back().points.resize(1);
    root.widthStakePoints.emplace_back().points.resize(1);
    root.SetOutputVersion(4);
    EXPECT_FALSE(root.WriteElement(xml.Root()));
    const std::wstring text = xml.Text();
    EXPECT_TRUE(text.starts_with(std::wstring(L"<LandXML><Project name=\"n\">") + PROJECT_FEATURE +
                                 L"</Project><Units><Metric pressureUnit=\"HPA\"/></Units><Alignments name=\"a\"/>"));
    EXPECT_TRUE(
        text.ends_with(L"</Alignments><Alignments/><Surfaces><Surface desc=\"x 線形名=y\"/></Surfaces></LandXML>"))
        << testing::PrintToString(text);
    EXPECT_EQ(text.find(L"CgPoints"), std::wstring::npos);
    EXPECT_EQ(text.find(L"CoordinateSystem"), std::wstring::npos);
}

TEST(FViewLandXML, OnlyChildrenOfExactNameAreRead)
{
    const auto root = Read<FViewLandXML>(
        L"<LandXML><project><Feature><Property label='projectPhase' "
        L"value='概略'/></Feature></project><Project><Feature>"
        L"<Property label='projectPhase' value='詳細'/></Feature></Project><coordinateSystem name='a'/>"
        L"<CoordinateSystem name='b'/><alignments/><Alignments name='r'/><surfaces/><Surfaces/></LandXML>");
    EXPECT_EQ(root.project.projectPhase, L"詳細");
    EXPECT_EQ(root.coordinateSystem.name, L"b");
    EXPECT_EQ(root.alignments.size(), 1U);
    EXPECT_EQ(root.surfaces.size(), 1U);
}

TEST(FViewLandXML, ClearLeavesTheOutputTable)
{
    FViewLandXML root = WithGroups({1}, {1});
    root.alignments.resize(1);
    root.surfaces.resize(1);
    root.surfaces.outPutCSS.push_back({L"a", true, true});
    root.Clear();
    EXPECT_TRUE(root.intermediatePoints.empty() && root.widthStakePoints.empty() && root.alignments.empty() &&
                root.surfaces.empty());
    EXPECT_EQ(root.surfaces.outPutCSS.size(), 1U);
}

TEST(FViewLandXML, ADocumentFullOfStrangersKeepsThemCharacterForCharacter)
{
    // Around and inside every element that the converter edits stand elements, attributes and texts that it doesn't
    // know.
    const auto strangers = [](int number) {
        const std::wstring n = std::to_wstring(number);
        return L"t" + n + L"<Unknown" + n + L" a=\"&lt;&quot;" + n + L"\">x<y z=\"1\"/></Unknown" + n + L"><![CDATA[c" +
               n + L"]]>";
    };
    const std::wstring xml =
        L"<LandXML u=\"v\">" + strangers(1) + L"<Project name=\"n\" u=\"v\">" + strangers(2) + L"</Project>" +
        strangers(3) + L"<Units u=\"v\">" + strangers(4) + L"<Metric u=\"v\">" + strangers(5) +
        L"</Metric></Units><CoordinateSystem name=\"c\" u=\"v\">" + strangers(6) +
        L"</CoordinateSystem><Alignments name=\"a\" u=\"v\">" + strangers(7) + L"<Alignment name=\"b\" u=\"v\">" +
        strangers(8) + L"<CoordGeom u=\"v\">" + strangers(9) + L"<Line u=\"v\"><Start u=\"v\">1 2" + L"</Start>" +
        strangers(10) + L"<End/></Line></CoordGeom>" + L"<Profile u=\"v\">" + strangers(11) +
        L"<ProfAlign name=\"p\">" + strangers(12) + L"</ProfAlign></Profile><Superelevation u=\"v\">" + strangers(13) +
        L"</Superelevation><CrossSects u=\"v\">" + strangers(14) + L"<CrossSect u=\"v\">" + strangers(15) +
        L"<DesignCrossSectSurf name=\"d\" u=\"v\">" + strangers(16) +
        L"</DesignCrossSectSurf></CrossSect></CrossSects></Alignment></Alignments>" + L"<Surfaces u=\"v\">" +
        strangers(17) + L"<Surface u=\"v\">" + strangers(18) + L"</Surface></Surfaces>" + strangers(19) + L"</LandXML>";
    std::wstring written = Written<FViewLandXML>(xml);
    // What the converter adds, taken out again, leaves the input.
    for (const wchar_t* const added :
         {L"<Feature><Property label=\"applicationCriterion\" value=\"MlitLandXmlVer.1.7\"/></Feature>",
          L" pressureUnit=\"HPA\"",
          L"<Feature name=\"Horizontal\"><Property label=\"method\" value=\"要素法\"/></Feature>",
          L"<Feature name=\"SuperelevationConfig\"><Property label=\"singleLaneRoad\" value=\"false\"/>"
          L"<Property label=\"useSlopeList\" value=\"false\"/></Feature>",
          L" name=\"EP\"", L" side=\"left\"", L"<Feature><Property label=\"heightType\" value=\"fhOffset\"/></Feature>",
          L"<Feature><Property label=\"profAlignRefs\" value=\"p\"/></Feature>"})
    {
        const std::size_t place = written.find(added);
        ASSERT_NE(place, std::wstring::npos) << testing::PrintToString(added);
        written.erase(place, std::wstring_view(added).size());
    }
    EXPECT_EQ(written, xml);
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

TEST(FViewLandXML, ChangingTheListsOfACopyLeavesTheSource)
{
    FViewLandXML root = WithGroups({1}, {1});
    root.alignments.resize(1);
    root.alignments[0].name = L"route";
    root.alignments[0].alignments.resize(1);
    root.alignments[0].alignments[0].name = L"alignment";
    root.intermediatePoints[0].points[0].name = L"point";
    root.widthStakePoints[0].points[0].name = L"stake";

    FViewLandXML copy = root;
    ASSERT_EQ(copy.alignments.size(), 1U);
    ASSERT_EQ(copy.alignments[0].alignments.size(), 1U);
    ASSERT_EQ(copy.intermediatePoints.size(), 1U);
    ASSERT_EQ(copy.intermediatePoints[0].points.size(), 1U);
    ASSERT_EQ(copy.widthStakePoints.size(), 1U);
    ASSERT_EQ(copy.widthStakePoints[0].points.size(), 1U);
    // Each is taken over, and then changed in the copy alone.
    const auto change = [](auto& copied, const auto& source, const wchar_t* text) {
        EXPECT_EQ(copied, text);
        copied = L"changed";
        EXPECT_EQ(source, text);
    };
    change(copy.alignments[0].name, root.alignments[0].name, L"route");
    change(copy.alignments[0].alignments[0].name, root.alignments[0].alignments[0].name, L"alignment");
    change(copy.intermediatePoints[0].points[0].name, root.intermediatePoints[0].points[0].name, L"point");
    change(copy.widthStakePoints[0].points[0].name, root.widthStakePoints[0].points[0].name, L"stake");
    copy.alignments[0].alignments.clear();
    copy.intermediatePoints[0].points.clear();
    copy.widthStakePoints.clear();
    EXPECT_EQ(root.alignments[0].alignments.size(), 1U);
    EXPECT_EQ(root.intermediatePoints[0].points.size(), 1U);
    EXPECT_EQ(root.widthStakePoints.size(), 1U);
}

} // namespace
} // namespace jlandxml

#include "model/FViewCrossSects.h"

#include "support/ParserRoom.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

const std::wstring SECTION_HEIGHT = L"<Feature><Property label=\"heightType\" value=\"fhOffset\"/></Feature>";

/// Surfaces of the document, with the table that a load makes of them.
FViewSurfacesList Surfaces(const std::wstring& surfaces)
{
    FViewSurfacesList list;
    list.push_back(Read<FViewSurfaces>(L"<Surfaces>" + surfaces + L"</Surfaces>"));
    list.FillOutPutCSS();
    return list;
}

/// A cross section read and written against surfaces.
std::wstring WrittenSection(const std::wstring& children, FViewSurfacesList surfaces = {}, bool succeeds = true)
{
    XmlText xml(L"<CrossSect>" + children + L"</CrossSect>");
    FViewCrossSect section;
    section.ReadElement(xml.Root());
    section.surfacesList = &surfaces;
    EXPECT_EQ(section.WriteElement(xml.Root()), succeeds);
    return xml.Text();
}

TEST(FViewCrossSect, TheFormationComesFromItsFeature)
{
    XmlText xml(L"<CrossSect name='n' sta='1.50'><DesignCrossSectSurf name='Formation'/><Feature name='Formation'>"
                L"<Property label='clOffset' value='0.5'/></Feature></CrossSect>");
    FViewCrossSect section;
    section.ReadElement(xml.Root());
    EXPECT_EQ(section.name, L"n");
    EXPECT_EQ(section.sta, L"1.50");
    EXPECT_EQ(section.clOffset, 0.5);
    EXPECT_EQ(section.fhOffset, UNSET_DOUBLE);
    section.WriteElement(xml.Root());
    EXPECT_EQ(xml.Text(), L"<CrossSect name=\"n\" sta=\"1.50\"><DesignCrossSectSurf name=\"Formation\" side=\"left\">" +
                              SECTION_HEIGHT +
                              L"</DesignCrossSectSurf><Feature name=\"Formation\"><Property label=\"clOffset\" "
                              L"value=\"0.5\"/></Feature></CrossSect>");
}

TEST(FViewCrossSect, ALaterFormationOverwritesAndTextIsZero)
{
    const auto section = Read<FViewCrossSect>(
        L"<CrossSect><Feature name='Formation'><Property label='clOffset' value='1'/></Feature>"
        L"<Feature name='Formation'><Property label='clOffset' value='x'/><Property label='fhOffset' value='2'/>"
        L"</Feature></CrossSect>");
    EXPECT_EQ(section.clOffset, 0.0);
    EXPECT_EQ(section.fhOffset, 2.0);
}

TEST(FViewCrossSect, AFormationPropertyWithoutAValueIsZero)
{
    const auto section = Read<FViewCrossSect>(
        L"<CrossSect><Feature name='Formation'><Property label='fhOffset'/></Feature></CrossSect>");
    EXPECT_EQ(section.clOffset, UNSET_DOUBLE);
    EXPECT_EQ(section.fhOffset, 0.0);
    EXPECT_EQ(WrittenSection(L"<Feature name='Formation'><Property label='clOffset'/><Property/></Feature>"),
              L"<CrossSect><Feature name=\"Formation\"><Property label=\"clOffset\" value=\"0.\"/><Property/></Feature>"
              L"</CrossSect>");
}

TEST(FViewCrossSect, SurfacesNamedFormationBecomeValues)
{
    EXPECT_EQ(
        WrittenSection(
            L"<DesignCrossSectSurf name='Formation'><CrossSectPnt code='x'>9 9</CrossSectPnt></DesignCrossSectSurf>"
            L"<DesignCrossSectSurf name='Formation'><CrossSectPnt code='Formation'>1 2</CrossSectPnt>"
            L"<CrossSectPnt code='Formation'>0.12345 12.5</CrossSectPnt><CrossSectPnt code='Formation'>3 4 "
            L"5</CrossSectPnt></DesignCrossSectSurf>"
            L"<DesignCrossSectSurf name='Formation'><CrossSectPnt code='Formation'>7 "
            L"8</CrossSectPnt></DesignCrossSectSurf>"),
        L"<CrossSect><Feature name=\"Formation\"><Property label=\"clOffset\" value=\"0.1235\"/><Property "
        L"label=\"fhOffset\" value=\"12.5\"/>"
        L"</Feature></CrossSect>");
}

TEST(FViewCrossSect, AFormationSurfaceWithoutAPointGoesAllTheSame)
{
    EXPECT_EQ(WrittenSection(L"<DesignCrossSectSurf name='Formation'/><designcrosssectsurf name='Formation'/><x/>"),
              L"<CrossSect><designcrosssectsurf name=\"Formation\"/><x/></CrossSect>");
}

/// What a cross section with these children says of its formation, and what it leaves of them.
struct FormationCase
{
    const char* rule;
    const wchar_t* children;
    double clOffset;
    double fhOffset;
    const wchar_t* left;
};

class Formation : public testing::TestWithParam<FormationCase>
{};

TEST_P(Formation, IsKnownByItsExactNames)
{
    XmlText xml(std::wstring(L"<CrossSect>") + GetParam().children + L"<x/></CrossSect>");
    FViewCrossSect section;
    EXPECT_TRUE(section.ReadElement(xml.Root()));
    EXPECT_EQ(section.clOffset, GetParam().clOffset);
    EXPECT_EQ(section.fhOffset, GetParam().fhOffset);
    EXPECT_EQ(xml.Text(), std::wstring(L"<CrossSect>") + GetParam().left + L"<x/></CrossSect>");
}

INSTANTIATE_TEST_SUITE_P(
    FViewCrossSect, Formation,
    testing::Values(
        FormationCase{"AFeatureInAnotherCaseIsNone",
                      L"<Feature name=\"formation\"><Property label=\"clOffset\" value=\"1\"/></Feature>", UNSET_DOUBLE,
                      UNSET_DOUBLE,
                      L"<Feature name=\"formation\"><Property label=\"clOffset\" value=\"1\"/></Feature>"},
        FormationCase{"AnotherFeaturesOffsetIsAnotherOne",
                      L"<Feature name=\"x\"><Property label=\"clOffset\" value=\"1\"/></Feature>", UNSET_DOUBLE,
                      UNSET_DOUBLE, L"<Feature name=\"x\"><Property label=\"clOffset\" value=\"1\"/></Feature>"},
        FormationCase{"ASurfaceInAnotherCaseStays",
                      L"<DesignCrossSectSurf name=\"formation\"><CrossSectPnt code=\"Formation\">1 2</CrossSectPnt>"
                      L"</DesignCrossSectSurf>",
                      UNSET_DOUBLE, UNSET_DOUBLE,
                      L"<DesignCrossSectSurf name=\"formation\"><CrossSectPnt code=\"Formation\">1 2</CrossSectPnt>"
                      L"</DesignCrossSectSurf>"},
        FormationCase{"ACodeInAnotherCaseIsAnotherOne",
                      L"<DesignCrossSectSurf name='Formation'><CrossSectPnt code='formation'>1 2</CrossSectPnt>"
                      L"</DesignCrossSectSurf>",
                      UNSET_DOUBLE, UNSET_DOUBLE, L""},
        FormationCase{"OtherElementsAreNoPoints",
                      L"<DesignCrossSectSurf name='Formation'><CrossSectPnt code='Formation'>1 2</CrossSectPnt>"
                      L"<crosssectpnt code='Formation'>3 4</crosssectpnt><Other code='Formation'>5 6</Other>"
                      L"</DesignCrossSectSurf>",
                      1.0, 2.0, L""},
        FormationCase{"OneOffsetOfTheFeatureIsEnough",
                      L"<DesignCrossSectSurf name=\"Formation\"><CrossSectPnt code=\"Formation\">1 2</CrossSectPnt>"
                      L"</DesignCrossSectSurf><Feature name=\"Formation\"><Property label=\"fhOffset\" value=\"9\"/>"
                      L"</Feature>",
                      UNSET_DOUBLE, 9.0,
                      L"<DesignCrossSectSurf name=\"Formation\"><CrossSectPnt code=\"Formation\">1 2</CrossSectPnt>"
                      L"</DesignCrossSectSurf><Feature name=\"Formation\"><Property label=\"fhOffset\" value=\"9\"/>"
                      L"</Feature>"}),
    [](const auto& one) { return one.param.rule; });

TEST(FViewCrossSect, NamesOfGroundLinesAreRead)
{
    const auto section = Read<FViewCrossSect>(L"<CrossSect><CrossSectSurf name='a'/><CrossSectSurf/></CrossSect>");
    ASSERT_EQ(section.surfaces.size(), 2U);
    EXPECT_EQ(section.surfaces.at(0).name, L"a");
    EXPECT_EQ(section.surfaces.at(1).name, L"");
    EXPECT_TRUE(section.designSurfaces.empty());
    EXPECT_FALSE(WrittenOntoText(section.surfaces.at(0)));
}

TEST(FViewCrossSect, ReadingLeavesNothingOfTheFormerElement)
{
    XmlText full(L"<CrossSect name='n' sta='1'><CrossSectSurf name='a'/><Feature name='Formation'>"
                 L"<Property label='clOffset' value='1'/><Property label='fhOffset' value='2'/></Feature></CrossSect>");
    XmlText empty(L"<CrossSect/>");
    FViewCrossSect section;
    section.ReadElement(full.Root());
    EXPECT_EQ(section.fhOffset, 2.0);
    FViewSurfacesList surfaces;
    section.surfacesList = &surfaces;
    section.ReadElement(empty.Root());
    EXPECT_EQ(section.surfacesList, nullptr);
    EXPECT_EQ(section.name + section.sta, L"");
    EXPECT_EQ(section.clOffset, UNSET_DOUBLE);
    EXPECT_EQ(section.fhOffset, UNSET_DOUBLE);
    EXPECT_TRUE(section.surfaces.empty());
}

TEST(FViewCrossSect, ItsSurfacesAreThoseOfTheDocumentOnceTheyAreSet)
{
    FViewSurfacesList surfaces;
    auto section = Read<FViewCrossSect>(L"<CrossSect/>");
    EXPECT_EQ(section.surfacesList, nullptr);
    section.surfacesList = &surfaces;
    FViewCrossSect assigned;
    assigned = section;
    EXPECT_EQ(assigned.surfacesList, &surfaces);
}

TEST(FViewCrossSect, OnlyExistingGroundStays)
{
    EXPECT_EQ(WrittenSection(L"<CrossSectSurf name='EG_1'/><CrossSectSurf name='FG_1'/><x/>",
                             Surfaces(L"<Surface name='EG' desc='ExistingGround'/><Surface name='FG'/>")),
              L"<CrossSect><CrossSectSurf name=\"ExistingGround\"/><x/></CrossSect>");
}

TEST(FViewCrossSect, TwoCompositeNamesClaimTwoSurfaces)
{
    EXPECT_EQ(
        WrittenSection(L"<CrossSectSurf name='EG2_EG'/><CrossSectSurf name='EG2_EG'/><CrossSectSurf name='EG2_EG'/>",
                       Surfaces(L"<Surface name='EG' desc='ExistingGround'/><Surface name='EG2'/>")),
        L"<CrossSect><CrossSectSurf name=\"ExistingGround\"/></CrossSect>");
}

TEST(FViewCrossSect, ANameThatIsASurfacesOwnIsRight)
{
    EXPECT_EQ(
        WrittenSection(L"<CrossSectSurf name='EG'/><CrossSectSurf name='EG'/>",
                       Surfaces(L"<Surface name='EG' desc='ExistingGround'/>")),
        L"<CrossSect><CrossSectSurf name=\"ExistingGround\"/><CrossSectSurf name=\"ExistingGround\"/></CrossSect>");
}

TEST(FViewCrossSect, TheSecondFlagKeepsAGroundLine)
{
    FViewSurfacesList surfaces;
    surfaces.outPutCSS = {{L"first", true, false}, {L"second", false, true}};
    EXPECT_EQ(WrittenSection(L"<CrossSectSurf name='first'/><CrossSectSurf name='second' a='b'/>", surfaces),
              L"<CrossSect><CrossSectSurf name=\"ExistingGround\" a=\"b\"/></CrossSect>");
}

TEST(FViewCrossSect, AGroundLineTakesTheNameOfTheSurfaceThatItClaims)
{
    FViewSurfacesList surfaces = Surfaces(L"<Surface name='FG_1'/><Surface name='EG'/><Surface name='G'/>");
    XmlText xml(L"<CrossSectSurf name='EG_1'/>");
    EXPECT_TRUE(RenameToSurface(xml.Root(), surfaces));
    EXPECT_EQ(xml.Text(), L"<CrossSectSurf name=\"EG\"/>");
    EXPECT_FALSE(surfaces[0].surfaces[0].used);
    EXPECT_TRUE(surfaces[0].surfaces[1].used);
    EXPECT_FALSE(surfaces[0].surfaces[2].used);
    XmlText other(L"<CrossSectSurf name='x'/>");
    EXPECT_TRUE(RenameToSurface(other.Root(), surfaces));
    EXPECT_EQ(other.Text(), L"<CrossSectSurf name=\"x\"/>");
    XmlText nameless(L"<CrossSectSurf Name='EG_1'/>");
    EXPECT_FALSE(RenameToSurface(nameless.Root(), surfaces));
}

TEST(FViewCrossSect, WithoutTheParsersMemoryAGroundLineTakesItsSurfacesNameOrTheWantIsRaised)
{
    // A name that is far shorter than the former one gets a place of its own. Of some lengths the former one just fills
    // its page.
    FViewSurfacesList surfaces = Surfaces(L"<Surface name='EG'/>");
    bool isOldOneKept = false;
    for (std::size_t length = 100; length < 120 && !isOldOneKept; ++length)
    {
        const std::wstring composite = L"EG_" + std::wstring(length, L'1');
        RefusedPages(L"<CrossSectSurf/>", [&](XmlText& xml) {
            surfaces.ReleaseAll();
            xml.Root().SetAttribute(L"name", composite);
            const bool isRenamed = RenameToSurface(xml.Root(), surfaces);
            isOldOneKept = isOldOneKept || (!isRenamed && xml.Root().FindAttribute(L"name") == composite);
            return isRenamed;
        });
    }
    EXPECT_TRUE(isOldOneKept);
}

TEST(FViewCrossSect, WithoutSurfacesEveryGroundLineIsRemoved)
{
    EXPECT_EQ(WrittenSection(L"<CrossSectSurf name='EG'/><crosssectsurf name='EG'/><CrossSectSurf name=''/>"),
              L"<CrossSect><crosssectsurf name=\"EG\"/></CrossSect>");
}

TEST(FViewCrossSect, AGroundLineWithoutANameFailsTheOutput)
{
    WrittenSection(L"<CrossSectSurf name='EG'/><CrossSectSurf/>", Surfaces(L"<Surface name='EG'/>"), false);
    WrittenSection(L"<CrossSectSurf/>", {}, false);
    XmlText xml(L"<CrossSects><CrossSect><CrossSectSurf/></CrossSect></CrossSects>");
    FViewCrossSects sections;
    sections.ReadElement(xml.Root());
    EXPECT_FALSE(sections.WriteElement(xml.Root()));
}

TEST(FViewCrossSect, ClaimsBeginAfreshInEachSection)
{
    FViewSurfacesList surfaces = Surfaces(L"<Surface name='EG' desc='ExistingGround'/>");
    XmlText xml(L"<CrossSects><CrossSect><CrossSectSurf name='EG_1'/></CrossSect><CrossSect><CrossSectSurf "
                L"name='EG_2'/></CrossSect></CrossSects>");
    FViewCrossSects sections;
    sections.ReadElement(xml.Root());
    for (FViewCrossSect& section : sections.crossSects)
    {
        section.surfacesList = &surfaces;
    }
    EXPECT_TRUE(sections.WriteElement(xml.Root()));
    EXPECT_EQ(xml.Text(), L"<CrossSects><CrossSect><CrossSectSurf name=\"ExistingGround\"/></CrossSect>"
                          L"<CrossSect><CrossSectSurf name=\"ExistingGround\"/></CrossSect></CrossSects>");
}

struct MaterialCase
{
    const char* name;
    const wchar_t* names;
    MaterialMap materials;
};

class Materials : public testing::TestWithParam<MaterialCase>
{};

TEST_P(Materials, StandBehindTheirLayerInCompositeNames)
{
    XmlText xml(std::wstring(L"<CrossSect>") + GetParam().names + L"</CrossSect>");
    MaterialMap materials;
    CollectMaterials(xml.Root(), materials);
    EXPECT_EQ(materials, GetParam().materials);
}

INSTANTIATE_TEST_SUITE_P(
    FViewCrossSect, Materials,
    testing::Values(
        MaterialCase{"WithoutTheNumberAtItsEnd", L"<CrossSectSurf name='表層_ABC13'/>", {{L"表層", L"ABC"}}},
        MaterialCase{"NumbersWithSignsGo", L"<CrossSectSurf name='基層_ABC30-40'/>", {{L"基層", L"ABC"}}},
        MaterialCase{"OnlyTheEndGoes", L"<CrossSectSurf name='x表層_A1B+2.5'/>", {{L"表層", L"A1B"}}},
        MaterialCase{"NothingButANumber", L"<CrossSectSurf name='表層_13'/>", {{L"表層", L""}}},
        MaterialCase{
            "ALaterLineWins", L"<CrossSectSurf name='表層_A'/><CrossSectSurf name='表層_B'/>", {{L"表層", L"B"}}},
        MaterialCase{
            "TwoLayersInOneName", L"<CrossSectSurf name='表層_A基層_B1'/>", {{L"表層", L"A基層_B"}, {L"基層", L"B"}}},
        MaterialCase{"TheFirstMarkCounts", L"<CrossSectSurf name='表層_A表層_B1'/>", {{L"表層", L"A表層_B"}}},
        MaterialCase{"MiddleLayer", L"<CrossSectSurf name='中間層_M20'/>", {{L"中間層", L"M"}}},
        MaterialCase{"BasesOfTwoKinds",
                     L"<CrossSectSurf name='上層路盤_U1'/><CrossSectSurf name='下層路盤_L2'/>",
                     {{L"上層路盤", L"U"}, {L"下層路盤", L"L"}}},
        MaterialCase{"NoMarkNoNameNoElement",
                     L"<CrossSectSurf name='表層A'/><CrossSectSurf/><crosssectsurf name='表層_A'/>",
                     {}},
        MaterialCase{"WideDigitsStay", L"<CrossSectSurf name='表層_Ａ１'/>", {{L"表層", L"Ａ１"}}}),
    [](const auto& one) { return one.param.name; });

TEST(FViewCrossSect, MaterialsAreTakenBeforeTheirLinesGo)
{
    EXPECT_EQ(WrittenSection(L"<CrossSectSurf name='表層_ABC13'/><DesignCrossSectSurf name='表層' closedArea='true'/>"),
              L"<CrossSect><DesignCrossSectSurf name=\"Pavement\" closedArea=\"true\" side=\"left\" "
              L"material=\"ABC\"><Feature>"
              L"<Property label=\"heightType\" value=\"fhOffset\"/><Property label=\"pavementClass\" "
              L"value=\"表層\"/></Feature></DesignCrossSectSurf>"
              L"</CrossSect>");
}

TEST(FViewCrossSect, MaterialsAreTakenBeforeTheirLinesAreRenamed)
{
    EXPECT_EQ(WrittenSection(L"<CrossSectSurf name='表層_ABC13'/><DesignCrossSectSurf name='表層' closedArea='true'/>",
                             Surfaces(L"<Surface name='表層' desc='ExistingGround'/>")),
              L"<CrossSect><CrossSectSurf name=\"ExistingGround\"/><DesignCrossSectSurf name=\"Pavement\" "
              L"closedArea=\"true\" side=\"left\" material=\"ABC\"><Feature><Property label=\"heightType\" "
              L"value=\"fhOffset\"/><Property label=\"pavementClass\" value=\"表層\"/></Feature></DesignCrossSectSurf>"
              L"</CrossSect>");
}

TEST(FViewCrossSect, WhatWasDoneBeforeALineWithoutANameStays)
{
    EXPECT_EQ(
        WrittenSection(L"<CrossSectSurf name='EG_1'/><CrossSectSurf/><CrossSectSurf name='FG_1'/><DesignCrossSectSurf "
                       L"name='表層'/><Feature name='Formation'><Property label='clOffset' value='1'/></Feature>",
                       Surfaces(L"<Surface name='EG' desc='ExistingGround'/><Surface name='FG'/>"), false),
        L"<CrossSect><CrossSectSurf name=\"EG\"/><CrossSectSurf/><CrossSectSurf name=\"FG_1\"/><DesignCrossSectSurf "
        L"name=\"表層\"/><Feature name=\"Formation\"><Property label=\"clOffset\" "
        L"value=\"1.\"/></Feature></CrossSect>");
}

TEST(FViewCrossSect, AnOpenPavementIsRemovedInTheEnd)
{
    EXPECT_EQ(
        WrittenSection(L"<DesignCrossSectSurf name='Pavement' closedArea='false'/><DesignCrossSectSurf name='表層'/>"
                       L"<DesignCrossSectSurf name='x'/>"),
        L"<CrossSect><DesignCrossSectSurf name=\"x\" side=\"left\">" + SECTION_HEIGHT +
            L"</DesignCrossSectSurf></CrossSect>");
}

TEST(FViewCrossSect, TheSideIsKeptFromOneSurfaceToTheNext)
{
    EXPECT_EQ(WrittenSection(
                  L"<DesignCrossSectSurf name='a'><CrossSectPnt code='c'>0 1</CrossSectPnt></DesignCrossSectSurf>"
                  L"<DesignCrossSectSurf name='b'><CrossSectPnt code='c'>1 1</CrossSectPnt></DesignCrossSectSurf>"
                  L"<DesignCrossSectSurf name='c'><CrossSectPnt code='c'>0 1</CrossSectPnt></DesignCrossSectSurf>"),
              L"<CrossSect><DesignCrossSectSurf name=\"a\" side=\"left\"><CrossSectPnt code=\"c\">0 1</CrossSectPnt>" +
                  SECTION_HEIGHT +
                  L"</DesignCrossSectSurf><DesignCrossSectSurf name=\"b\" side=\"right\"><CrossSectPnt code=\"c\">1 "
                  L"1</CrossSectPnt>" +
                  SECTION_HEIGHT +
                  L"</DesignCrossSectSurf><DesignCrossSectSurf name=\"c\" side=\"right\"><CrossSectPnt code=\"c\">0 "
                  L"1</CrossSectPnt>" +
                  SECTION_HEIGHT + L"</DesignCrossSectSurf></CrossSect>");
}

TEST(FViewCrossSect, AnOpenPavementDecidesTheSideBeforeItGoes)
{
    EXPECT_EQ(
        WrittenSection(
            L"<DesignCrossSectSurf name='Pavement'><CrossSectPnt code='c'>1 1</CrossSectPnt></DesignCrossSectSurf>"
            L"<DesignCrossSectSurf name='x'><CrossSectPnt code='c'>0 1</CrossSectPnt></DesignCrossSectSurf>"),
        L"<CrossSect><DesignCrossSectSurf name=\"x\" side=\"right\"><CrossSectPnt code=\"c\">0 1</CrossSectPnt>" +
            SECTION_HEIGHT + L"</DesignCrossSectSurf></CrossSect>");
}

TEST(FViewCrossSect, OnlyAPavementThatSaysTrueIsClosed)
{
    EXPECT_EQ(WrittenSection(L"<DesignCrossSectSurf name='Pavement' closedArea='TRUE'/>"
                             L"<DesignCrossSectSurf name='Pavement' closedArea='1'/>"
                             L"<DesignCrossSectSurf name='Pavement' ClosedArea='true'/>"
                             L"<designcrosssectsurf name='Pavement'/>"),
              L"<CrossSect><designcrosssectsurf name=\"Pavement\"/></CrossSect>");
}

TEST(FViewCrossSect, AClosedPavementOfOnePointStays)
{
    EXPECT_EQ(WrittenSection(L"<DesignCrossSectSurf name='Pavement' closedArea='true'><CrossSectPnt>0 "
                             L"1</CrossSectPnt></DesignCrossSectSurf>"),
              L"<CrossSect><DesignCrossSectSurf name=\"Pavement\" closedArea=\"true\" side=\"left\"><CrossSectPnt>0 "
              L"1</CrossSectPnt>" +
                  SECTION_HEIGHT + L"</DesignCrossSectSurf></CrossSect>");
}

TEST(FViewCrossSect, EmptyTextsLeaveTheAttributes)
{
    FViewCrossSect section;
    EXPECT_EQ(WrittenInto(section, L"<CrossSect name='n' sta='1'/>"), L"<CrossSect name=\"n\" sta=\"1\"/>");
}

TEST(FViewCrossSects, EachSectionBeginsOnTheLeft)
{
    const std::wstring written = Written<FViewCrossSects>(
        L"<CrossSects><CrossSect><DesignCrossSectSurf><CrossSectPnt code='c'>1 1</CrossSectPnt></DesignCrossSectSurf>"
        L"</CrossSect><CrossSect><DesignCrossSectSurf><CrossSectPnt code='c'>0 1</CrossSectPnt></DesignCrossSectSurf>"
        L"</CrossSect></CrossSects>");
    EXPECT_EQ(written, L"<CrossSects><CrossSect><DesignCrossSectSurf side=\"right\"><CrossSectPnt code=\"c\">1 "
                       L"1</CrossSectPnt>" +
                           SECTION_HEIGHT +
                           L"</DesignCrossSectSurf></CrossSect><CrossSect><DesignCrossSectSurf "
                           L"side=\"left\"><CrossSectPnt code=\"c\">0 1</CrossSectPnt>" +
                           SECTION_HEIGHT + L"</DesignCrossSectSurf></CrossSect></CrossSects>");
}

TEST(FViewCrossSects, AFailureEndsTheWriting)
{
    const std::wstring failing = L"<CrossSect><CrossSectSurf/><DesignCrossSectSurf name=\"a\"/></CrossSect>";
    const std::wstring later = L"<CrossSect><CrossSectSurf name=\"x\"/><DesignCrossSectSurf name=\"b\"/></CrossSect>";
    EXPECT_EQ(Written<FViewCrossSects>(L"<CrossSects><CrossSect><CrossSectSurf name='x'/></CrossSect>" + failing +
                                       later + L"</CrossSects>"),
              L"<CrossSects><CrossSect/>" + failing + later + L"</CrossSects>");
}

TEST(FViewCrossSects, SectionsAreWrittenByTheirPosition)
{
    XmlText xml(L"<CrossSects name='old'><CrossSect sta='1'/><crosssect/><CrossSect sta='2'/></CrossSects>");
    FViewCrossSects sections;
    sections.ReadElement(xml.Root());
    EXPECT_EQ(sections.name, L"old");
    ASSERT_EQ(sections.crossSects.size(), 2U);
    sections.name = L"new";
    sections.crossSects[0].name = L"first";
    sections.crossSects[1].sta = L"3";
    sections.SetOutputVersion(3);
    EXPECT_EQ(sections.crossSects[1].version, 3);
    EXPECT_TRUE(sections.WriteElement(xml.Root()));
    EXPECT_EQ(xml.Text(), L"<CrossSects name=\"new\"><CrossSect sta=\"1\" name=\"first\"/><crosssect/>"
                          L"<CrossSect sta=\"3\"/></CrossSects>");
}

} // namespace
} // namespace jlandxml

#include "model/FViewDesignCrossSectSurf.h"

#include "model/CurrentDesignType.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

const std::wstring SURFACE_HEIGHT = L"<Feature><Property label=\"heightType\" value=\"fhOffset\"/></Feature>";

/// A design type for one test.
class DesignTypeScope
{
  public:
    explicit DesignTypeScope(const wchar_t* type) { GetCurrentDesignType() = type; }
    DesignTypeScope(const DesignTypeScope&) = delete;
    DesignTypeScope& operator=(const DesignTypeScope&) = delete;
    ~DesignTypeScope() { GetCurrentDesignType().clear(); }
};

std::wstring WrittenSurface(const std::wstring& xml, const MaterialMap& materials = {})
{
    FViewDesignCrossSectSurf surface;
    surface.materials = &materials;
    return WrittenInto(surface, xml);
}

struct ClassCase
{
    const wchar_t* name;
    const wchar_t* road;
    const wchar_t* river;
};

/// The letters of a name, as a test can bear them.
std::string Narrow(std::wstring_view text)
{
    std::string letters;
    for (const wchar_t letter : text)
    {
        letters += static_cast<char>(letter);
    }
    return letters;
}

class SurfaceDescription : public testing::TestWithParam<ClassCase>
{};

TEST_P(SurfaceDescription, FollowsFromTheNameAndTheDesign)
{
    const auto written = [](const wchar_t* type) {
        const DesignTypeScope scope(type);
        XmlText xml(std::wstring(L"<DesignCrossSectSurf name='") + GetParam().name + L"' desc='host'/>");
        ClassifySurface(xml.Root());
        return std::wstring(xml.Root().FindAttribute(L"desc").value());
    };
    EXPECT_EQ(written(L"道路"), GetParam().road);
    EXPECT_EQ(written(L""), GetParam().road);
    EXPECT_EQ(written(L"河川"), GetParam().river);
}

INSTANTIATE_TEST_SUITE_P(
    FViewDesignCrossSectSurf, SurfaceDescription,
    testing::Values(ClassCase{L"Carriageway", L"道路面", L"host"}, ClassCase{L"CenterStrip", L"道路面", L"host"},
                    ClassCase{L"RoadShoulder", L"道路面", L"host"}, ClassCase{L"StoppingLane", L"道路面", L"host"},
                    ClassCase{L"SideWalk", L"道路面", L"host"}, ClassCase{L"PlantingZone", L"道路面", L"host"},
                    ClassCase{L"FrontageRoad", L"道路面", L"host"}, ClassCase{L"Track", L"道路面", L"host"},
                    ClassCase{L"Spearator", L"道路面", L"host"}, ClassCase{L"Separator", L"host", L"host"},
                    ClassCase{L"MirginalStrip", L"道路面", L"host"}, ClassCase{L"MarginalStrip", L"host", L"host"},
                    ClassCase{L"SlopeFill", L"道路面", L"計画堤防面"}, ClassCase{L"SlopeCut", L"道路面", L"host"},
                    ClassCase{L"BermFill", L"道路面", L"計画堤防面"}, ClassCase{L"BermCut", L"道路面", L"host"},
                    ClassCase{L"RetainingWall", L"道路面", L"計画堤防面"}, ClassCase{L"Drainage", L"道路面", L"host"},
                    ClassCase{L"Other", L"道路面", L"計画堤防面"}, ClassCase{L"SubBase", L"路床面", L"host"},
                    ClassCase{L"SubGrade", L"路体面", L"host"}, ClassCase{L"Excavation", L"床掘面", L"host"},
                    ClassCase{L"Crown", L"host", L"計画堤防面"},
                    ClassCase{L"EarthWorkBaseLineFill", L"host", L"余盛堤防面"},
                    ClassCase{L"Pavement", L"host", L"host"}, ClassCase{L"Formation", L"host", L"host"},
                    ClassCase{L"carriageway", L"host", L"host"}),
    [](const auto& one) { return Narrow(one.param.name); });

TEST(FViewDesignCrossSectSurf, ACarriagewayHasItsDescriptionOnARoadOnly)
{
    EXPECT_EQ(WrittenSurface(L"<D name='Carriageway'/>"),
              L"<D name=\"Carriageway\" desc=\"道路面\">" + SURFACE_HEIGHT + L"</D>");
    const DesignTypeScope river(L"河川");
    EXPECT_EQ(WrittenSurface(L"<D name='Carriageway'/>"), L"<D name=\"Carriageway\">" + SURFACE_HEIGHT + L"</D>");
}

using LayerCase = std::pair<const char*, const wchar_t*>;

class PavementLayer : public testing::TestWithParam<LayerCase>
{};

TEST_P(PavementLayer, BecomesAPavementWithItsClassAndMaterial)
{
    const std::wstring layer = GetParam().second;
    EXPECT_EQ(WrittenSurface(L"<D name='" + layer + L"' closedArea='true'/>", {{layer, L"M"}, {L"x", L"y"}}),
              L"<D name=\"Pavement\" closedArea=\"true\" material=\"M\"><Feature><Property label=\"heightType\" "
              L"value=\"fhOffset\"/>"
              L"<Property label=\"pavementClass\" value=\"" +
                  layer + L"\"/></Feature></D>");
}

INSTANTIATE_TEST_SUITE_P(FViewDesignCrossSectSurf, PavementLayer,
                         testing::Values(LayerCase{"SurfaceCourse", L"表層"}, LayerCase{"BinderCourse", L"中間層"},
                                         LayerCase{"BaseCourse", L"基層"}, LayerCase{"UpperSubbase", L"上層路盤"},
                                         LayerCase{"LowerSubbase", L"下層路盤"}),
                         [](const auto& one) { return one.param.first; });

TEST(FViewDesignCrossSectSurf, ANameThatOnlyHoldsALayerIsNone)
{
    EXPECT_EQ(WrittenSurface(L"<D name='表層1'/>", {{L"表層", L"M"}}),
              L"<D name=\"表層1\">" + SURFACE_HEIGHT + L"</D>");
    EXPECT_EQ(WrittenSurface(L"<D name='x表層'/>", {{L"表層", L"M"}}),
              L"<D name=\"x表層\">" + SURFACE_HEIGHT + L"</D>");
}

TEST(FViewDesignCrossSectSurf, OnlyAPavementHasAMaterial)
{
    for (const wchar_t* const surface : {L"<D name=\"表層\"/>", L"<D name=\"pavement\"/>", L"<D/>"})
    {
        XmlText xml(surface);
        WriteMaterial(xml.Root(), {{L"表層", L"M"}}, L"表層");
        EXPECT_EQ(xml.Text(), surface);
    }
}

TEST(FViewDesignCrossSectSurf, APavementOfTheInputHasNoClassAndNoMaterial)
{
    EXPECT_EQ(WrittenSurface(L"<D name='Pavement' closedArea='true'/>", {{L"表層", L"M"}}),
              L"<D name=\"Pavement\" closedArea=\"true\">" + SURFACE_HEIGHT + L"</D>");
}

TEST(FViewDesignCrossSectSurf, AnEmptyMaterialGivesAnEmptyAttribute)
{
    XmlText xml(L"<D name='Pavement'/>");
    WriteMaterial(xml.Root(), {{L"表層", L""}}, L"表層");
    EXPECT_EQ(xml.Text(), L"<D name=\"Pavement\" material=\"\"/>");
}

TEST(FViewDesignCrossSectSurf, TheHeightMergesIntoANamelessFeature)
{
    EXPECT_EQ(
        WrittenSurface(
            L"<D name='x'><Feature name='f'/><Feature><Property label='heightType' value='old'/></Feature><y/></D>"),
        L"<D name=\"x\"><Feature name=\"f\"/>" + SURFACE_HEIGHT + L"<y/></D>");
}

TEST(FViewDesignCrossSectSurf, TheHeightFeatureHoldsNothingElse)
{
    FViewFeature feature(L"former");
    feature.properties.emplace_back(L"a", L"b");
    FViewDesignCrossSectSurf().MakeHeightFeature(feature, L"表層");
    EXPECT_EQ(WrittenInto(feature, L"<D/>"),
              L"<D><Feature><Property label=\"heightType\" value=\"fhOffset\"/><Property label=\"pavementClass\" "
              L"value=\"表層\"/></Feature></D>");
}

TEST(FViewDesignCrossSectSurf, ReadingTakesNothingFromTheTree)
{
    XmlText xml(L"<DesignCrossSectSurf name='x'><Feature name='f'/></DesignCrossSectSurf>");
    const MaterialMap materials;
    FViewDesignCrossSectSurf surface;
    surface.features.emplace_back(L"g");
    surface.materials = &materials;
    EXPECT_TRUE(surface.ReadElement(xml.Root()));
    EXPECT_TRUE(surface.features.empty());
    EXPECT_EQ(surface.materials, nullptr);
}

TEST(FViewDesignCrossSectSurf, GivenFeaturesTakeThePlaceOfTheHeight)
{
    FViewDesignCrossSectSurf surface;
    surface.features.emplace_back(L"f").properties.emplace_back(L"a", L"b");
    EXPECT_EQ(WrittenInto(surface, L"<D name='x'/>"),
              L"<D name=\"x\"><Feature name=\"f\"><Property label=\"a\" value=\"b\"/></Feature></D>");
    surface.Clear();
    EXPECT_TRUE(surface.features.empty());
}

struct ThicknessCase
{
    const char* name;
    const wchar_t* xml;
    const wchar_t* thickness;
};

class Thickness : public testing::TestWithParam<ThicknessCase>
{};

TEST_P(Thickness, IsTheHeightBetweenTheLastTwoPoints)
{
    XmlText xml(GetParam().xml);
    WriteThickness(xml.Root());
    EXPECT_EQ(xml.Root().FindAttributeIgnoreCase(L"typicalThickness").value_or(L"-"), GetParam().thickness);
}

INSTANTIATE_TEST_SUITE_P(
    FViewDesignCrossSectSurf, Thickness,
    testing::Values(
        ThicknessCase{
            "OfFourPoints",
            L"<D name='Pavement' closedArea='true'><CrossSectPnt>0 10</CrossSectPnt><CrossSectPnt>5 10</CrossSectPnt>"
            L"<CrossSectPnt>5 9.8</CrossSectPnt><CrossSectPnt>0 9.75</CrossSectPnt></D>",
            L"0.05"},
        ThicknessCase{"OnePoint", L"<D name='Pavement' closedArea='true'><CrossSectPnt>0 10</CrossSectPnt></D>", L"-"},
        ThicknessCase{"NoPoint", L"<D name='Pavement' closedArea='true'/>", L"-"},
        ThicknessCase{"Open",
                      L"<D name='Pavement' closedArea='false'><CrossSectPnt>0 1</CrossSectPnt><CrossSectPnt>0 "
                      L"2</CrossSectPnt></D>",
                      L"-"},
        ThicknessCase{
            "NoPavement",
            L"<D name='表層' closedArea='true'><CrossSectPnt>0 1</CrossSectPnt><CrossSectPnt>0 2</CrossSectPnt></D>",
            L"-"},
        ThicknessCase{"AnOldOneIsReplaced",
                      L"<D name='Pavement' closedArea='true' TypicalThickness='9'><CrossSectPnt>0 "
                      L"1</CrossSectPnt><CrossSectPnt>0 3</CrossSectPnt></D>",
                      L"2."},
        ThicknessCase{"AThirdFieldAndOtherElementsDontCount",
                      L"<D name='Pavement' closedArea='true'><CrossSectPnt>0 1</CrossSectPnt><CrossSectPnt>0 3 "
                      L"5</CrossSectPnt><crosssectpnt>0 9</crosssectpnt></D>",
                      L"2."},
        ThicknessCase{"EightDecimals",
                      L"<D name='Pavement' closedArea='true'><CrossSectPnt>0 0</CrossSectPnt><CrossSectPnt>0 "
                      L"0.123456789</CrossSectPnt></D>",
                      L"0.12345679"},
        ThicknessCase{"AnExponentIsNoNumber",
                      L"<D name='Pavement' closedArea='true'><CrossSectPnt>0 3</CrossSectPnt><CrossSectPnt>0 "
                      L"1e1</CrossSectPnt></D>",
                      L"3."},
        ThicknessCase{"ABlankInFrontIsAnEmptyField",
                      L"<D name='Pavement' closedArea='true'><CrossSectPnt>0 1</CrossSectPnt><CrossSectPnt> 5 "
                      L"3</CrossSectPnt></D>",
                      L"4."},
        ThicknessCase{"ClosedInAnotherCase",
                      L"<D name='Pavement' closedArea='TRUE'><CrossSectPnt>0 1</CrossSectPnt><CrossSectPnt>0 "
                      L"2</CrossSectPnt></D>",
                      L"-"},
        ThicknessCase{
            "AMissingFieldIsZero",
            L"<D name='Pavement' closedArea='true'><CrossSectPnt>7</CrossSectPnt><CrossSectPnt>0  3</CrossSectPnt></D>",
            L"0."}),
    [](const auto& one) { return one.param.name; });

struct SideCase
{
    const char* name;
    const wchar_t* points;
    const wchar_t* before;
    const wchar_t* side;
};

class SurfaceSide : public testing::TestWithParam<SideCase>
{};

TEST_P(SurfaceSide, IsThatOfTheFirstPointBesideTheCentreLine)
{
    XmlText xml(std::wstring(L"<D>") + GetParam().points + L"</D>");
    std::wstring side = GetParam().before;
    AssignSide(xml.Root(), side);
    EXPECT_EQ(side, GetParam().side);
    EXPECT_EQ(xml.Root().FindAttribute(L"side"), std::wstring_view(GetParam().side));
}

INSTANTIATE_TEST_SUITE_P(
    FViewDesignCrossSectSurf, SurfaceSide,
    testing::Values(
        SideCase{"Left", L"<CrossSectPnt code='a'>-1 2</CrossSectPnt>", L"right", L"left"},
        SideCase{"TheFirstBesideTheLine",
                 L"<CrossSectPnt code='a'>0 2</CrossSectPnt><CrossSectPnt code='a'>1 2</CrossSectPnt>", L"left",
                 L"right"},
        SideCase{"TheFirstOfTwoSidesDecides",
                 L"<CrossSectPnt code='a'>-1 2</CrossSectPnt><CrossSectPnt code='a'>1 2</CrossSectPnt>", L"right",
                 L"left"},
        SideCase{"ToTheRightToo",
                 L"<CrossSectPnt code='a'>1 2</CrossSectPnt><CrossSectPnt code='a'>-1 2</CrossSectPnt>", L"left",
                 L"right"},
        SideCase{"AllOnTheLine", L"<CrossSectPnt code='a'>0 2</CrossSectPnt><CrossSectPnt code='a'>0 3</CrossSectPnt>",
                 L"right", L"right"},
        SideCase{"WithoutACodeItDoesntDecide",
                 L"<CrossSectPnt>-1 2</CrossSectPnt><CrossSectPnt code=''>1 2</CrossSectPnt>", L"left", L"right"},
        SideCase{"TwoNumbersDecide",
                 L"<CrossSectPnt code='a'>-1 2 3</CrossSectPnt><CrossSectPnt code='a'>-1</CrossSectPnt>", L"right",
                 L"right"},
        SideCase{"AnyElementBehindTheFirstPoint", L"<crosssectpnt/><Other code='a'>5 5</Other>", L"left", L"right"},
        SideCase{"AnotherElementInFrontOfThePointsDoesntDecide",
                 L"<Other code='a'>5 5</Other><CrossSectPnt code='a'>-1 2</CrossSectPnt>", L"right", L"left"},
        SideCase{"NoPoint", L"", L"right", L"right"},
        SideCase{"NoPointButAnotherElement", L"<Other code='a'>5 5</Other>", L"left", L"left"},
        SideCase{"NoNumberIsZero", L"<CrossSectPnt code='a'>x 5</CrossSectPnt>", L"right", L"right"}),
    [](const auto& one) { return one.param.name; });

} // namespace
} // namespace jlandxml

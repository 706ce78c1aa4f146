#include "model/FViewCoordGeom.h"

#include "support/RowName.h"
#include "support/XmlText.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <utility>

namespace jlandxml
{
namespace
{

/// The elements that letters stand for: L, C, S for Line, Curve, Spiral; X for any other.
std::wstring Geometry(const std::wstring& letters)
{
    std::wstring xml;
    for (const wchar_t letter : letters)
    {
        xml += letter == L'L'   ? L"<Line><Start/><End/></Line>"
               : letter == L'C' ? L"<Curve><Start/><End/></Curve>"
               : letter == L'S' ? L"<Spiral><Start/><PI/><End/></Spiral>"
                                : L"<Chain/>";
    }
    return L"<CoordGeom>" + xml + L"</CoordGeom>";
}

/// The names as "start-end" of each element, separated by blanks.
std::wstring Names(const std::wstring& letters)
{
    std::wstring names;
    for (const FViewCoordGeomElement& element : Read<FViewCoordGeom>(Geometry(letters)).elements)
    {
        names += (names.empty() ? L"" : L" ") + element.startName + L"/" + element.endName;
    }
    return names;
}

constexpr auto BY_LETTERS = [](const auto& row) { return TextName(row.param.letters); };

struct NamingCase
{
    const wchar_t* letters;
    const wchar_t* names;
};

class PointNaming : public testing::TestWithParam<NamingCase>
{};

TEST_P(PointNaming, FollowsThePatternOfTheElements)
{
    EXPECT_EQ(Names(GetParam().letters), GetParam().names);
}

INSTANTIATE_TEST_SUITE_P(
    FViewCoordGeom, PointNaming,
    testing::Values(
        NamingCase{L"", L""}, NamingCase{L"L", L"BP/EP"}, NamingCase{L"LL", L"BP/IP.1 IP.1/EP"},
        NamingCase{L"LCL", L"BP/BC.1 BC.1/EC.1 EC.1/EP"},
        NamingCase{L"LSCSL", L"BP/KA.1-1 KA.1-1/KE.1-1 KE.1-1/KE.1-2 KE.1-2/KA.1-2 KA.1-2/EP"},
        NamingCase{L"LLCL", L"BP/IP.1 IP.1/BC.2 BC.2/EC.2 EC.2/EP"}, NamingCase{L"CL", L"BP/EC.1 EC.1/EP"},
        NamingCase{L"LC", L"BP/BC.1 BC.1/EP"}, NamingCase{L"LCCL", L"BP/BC.1 BC.1/PCC.1 PCC.1/EC.1 EC.1/EP"},
        NamingCase{L"LSCL", L"BP/KA.1-1 KA.1-1/KE.1-1 KE.1-1/KE.1-2 KE.1-2/EP"},
        NamingCase{L"LSSL", L"BP/KA.1-1 KA.1-1/KEA.1 KEA.1/KA.1-2 KA.1-2/EP"},
        NamingCase{L"LSCSCSL",
                   L"BP/KA.1-1 KA.1-1/KE.1-1 KE.1-1/KAE.1-1 KAE.1-1/KEE.1-1 KEE.1-1/KE.1-2 KE.1-2/KA.1-2 KA.1-2/EP"},
        NamingCase{L"SCSL", L"BP/KE.1-1 KE.1-1/KE.1-2 KE.1-2/KA.1-2 KA.1-2/EP"}, NamingCase{L"SL", L"BP/ /EP"},
        NamingCase{L"LCXL", L"BP/BC.1 BC.1/ / /EP"}, NamingCase{L"LCSL", L"BP/BC.1 BC.1/ / /EP"},
        NamingCase{L"CCC", L"BP/PCC.1 PCC.1/BC.2 BC.2/EP"}, NamingCase{L"X", L"BP/EP"},
        NamingCase{L"XLX", L"BP/ /IP.2 /EP"},
        NamingCase{L"LSCSLCL", L"BP/KA.1-1 KA.1-1/KE.1-1 KE.1-1/KE.1-2 KE.1-2/KA.1-2 KA.1-2/BC.2 BC.2/EC.2 EC.2/EP"}),
    BY_LETTERS);

struct GroupCase
{
    const wchar_t* letters;
    std::int32_t kind;
    std::size_t first; ///< place of the group's first element
    std::size_t taken;
};

class Group : public testing::TestWithParam<GroupCase>
{};

TEST_P(Group, HasItsKindAndLeavesTheCursorBehindIt)
{
    const auto [letters, kind, first, taken] = GetParam();
    auto list = Read<FViewCoordGeom>(Geometry(letters)).elements;
    std::span<FViewCoordGeomElement> rest(list);
    FViewIPElements group;
    // What the group before has left doesn't stay.
    group.kind = 9;
    group.elements.push_back(nullptr);
    group.CollectElements(rest);
    EXPECT_EQ(group.kind, kind);
    PiCmCopyList<FViewCoordGeomElement*> expected;
    for (std::size_t place = first; place < first + taken; ++place)
    {
        expected.push_back(&list[place]);
    }
    EXPECT_EQ(group.elements, expected);
    EXPECT_EQ(rest.size(), list.size() - first - taken);
    EXPECT_EQ(rest.data(), list.data() + first + taken);
}

INSTANTIATE_TEST_SUITE_P(
    FViewIPElements, Group,
    testing::Values(GroupCase{L"LSCSCSL", 5, 1, 5}, GroupCase{L"LSSCS", 4, 1, 2}, GroupCase{L"LSCSCL", 2, 1, 3},
                    GroupCase{L"LSCL", 3, 1, 2}, GroupCase{L"LCCC", 6, 1, 2}, GroupCase{L"LCS", 1, 1, 1},
                    GroupCase{L"LSL", 0, 0, 1}, GroupCase{L"LL", 0, 0, 1}, GroupCase{L"LX", 0, 0, 1},
                    GroupCase{L"L", 0, 0, 1}, GroupCase{L"SCSCSS", 5, 0, 5}, GroupCase{L"SSS", 4, 0, 2},
                    GroupCase{L"SCSCC", 2, 0, 3}, GroupCase{L"SCC", 3, 0, 2}, GroupCase{L"SL", -1, 0, 1},
                    GroupCase{L"S", -1, 0, 1}, GroupCase{L"CCS", 6, 0, 2}, GroupCase{L"CSCS", 1, 0, 1},
                    GroupCase{L"C", 1, 0, 1}, GroupCase{L"XSS", -1, 0, 1}, GroupCase{L"X", -1, 0, 1}),
    BY_LETTERS);

TEST(FViewCoordGeom, EverySpiralHasTheSamePi)
{
    const auto geometry = Read<FViewCoordGeom>(Geometry(L"LSCSLS"));
    for (const FViewCoordGeomElement& element : geometry.elements)
    {
        EXPECT_EQ(element.piName, element.type == FViewCoordGeomElement::SPIRAL ? L"IP" : L"");
    }
}

/// The naming once more, as plainly as it can be put.
std::wstring NaiveNames(const std::wstring& letters)
{
    const std::size_t count = letters.size();
    std::vector<std::wstring> start(count);
    std::vector<std::wstring> end(count);
    std::size_t at = 0;
    for (int number = 1; at < count; ++number)
    {
        const std::wstring n = std::to_wstring(number);
        const auto rest = [&](std::size_t from) { return letters.substr(std::min(from, count)); };
        std::vector<std::wstring> names;
        const bool line = letters[at] == L'L';
        const std::size_t first = line ? at + 1 : at;
        const bool spiral = letters[at] == L'S';
        const bool curve = letters[at] == L'C';
        if ((line || spiral) && rest(first).starts_with(L"SCSCS"))
        {
            names = {L"KA." + n + L"-1",  L"KE." + n + L"-1", L"KAE." + n + L"-1",
                     L"KEE." + n + L"-1", L"KE." + n + L"-2", L"KA." + n + L"-2"};
        }
        else if ((line || spiral) && rest(first).starts_with(L"SS"))
        {
            names = {L"KA." + n + L"-1", L"KEA." + n, L"KA." + n + L"-2"};
        }
        else if ((line || spiral) && rest(first).starts_with(L"SCS"))
        {
            names = {L"KA." + n + L"-1", L"KE." + n + L"-1", L"KE." + n + L"-2", L"KA." + n + L"-2"};
        }
        else if ((line || spiral) && rest(first).starts_with(L"SC"))
        {
            names = {L"KA." + n + L"-1", L"KE." + n + L"-1", L"KE." + n + L"-2"};
        }
        else if ((line || curve) && rest(first).starts_with(L"CC"))
        {
            names = {L"BC." + n, L"PCC." + n, L"EC." + n};
        }
        else if ((line || curve) && rest(first).starts_with(L"C"))
        {
            names = {L"BC." + n, L"EC." + n};
        }
        if (names.empty())
        {
            if (line)
            {
                end[at] = L"IP." + n;
            }
            ++at;
            continue;
        }
        for (std::size_t point = 0; point + 1 < names.size(); ++point)
        {
            start[first + point] = names[point];
            end[first + point] = names[point + 1];
        }
        at = first + names.size() - 1;
    }
    if (count > 0)
    {
        start.front() = L"BP";
        end.back() = L"EP";
    }
    std::wstring previous;
    for (std::size_t index = 0; index < count; ++index)
    {
        if (letters[index] == L'L' && start[index].empty())
        {
            start[index] = previous;
        }
        if (letters[index] == L'L' && end[index].empty() && index + 1 < count)
        {
            end[index] = start[index + 1];
        }
        previous = end[index];
    }
    std::wstring text;
    for (std::size_t index = 0; index < count; ++index)
    {
        if ((letters[index] == L'C' || letters[index] == L'S') && index + 1 < count)
        {
            end[index] = start[index + 1];
        }
        text += (index == 0 ? L"" : L" ") + start[index] + L"/" + end[index];
    }
    return text;
}

TEST(FViewCoordGeom, EveryListOfUpToSixElementsIsNamedAsTheTablesSay)
{
    constexpr wchar_t LETTERS[] = L"LCSX";
    std::vector<std::wstring> lists = {L""};
    for (std::size_t index = 0; index < lists.size(); ++index)
    {
        const std::wstring letters = lists[index];
        const std::wstring names = Names(letters);
        ASSERT_EQ(names, NaiveNames(letters)) << testing::PrintToString(letters);
        if (!letters.empty())
        {
            EXPECT_TRUE(names.starts_with(L"BP/"));
            EXPECT_TRUE(names.ends_with(L"/EP"));
        }
        if (letters.size() < 6)
        {
            for (const wchar_t letter : std::wstring_view(LETTERS))
            {
                lists.push_back(letters + letter);
            }
        }
    }
    EXPECT_EQ(lists.size(), 1U + 4 + 16 + 64 + 256 + 1024 + 4096);
}

TEST(FViewCoordGeom, OneGivenNameKeepsAllOthersEmpty)
{
    for (const wchar_t* const given :
         {L"<Line><Start name='x'/><End/></Line>", L"<Line><Start/><End name='x'/></Line>",
          L"<Curve><Start name='x'/></Curve>", L"<Curve><End name='x'/></Curve>", L"<Spiral><Start name='x'/></Spiral>",
          L"<Spiral><End name='x'/></Spiral>", L"<Spiral><PI name='x'/></Spiral>"})
    {
        const std::wstring xml = std::wstring(L"<CoordGeom><Line><Start/><End/></Line>") + given + L"</CoordGeom>";
        const auto geometry = Read<FViewCoordGeom>(xml);
        EXPECT_EQ(geometry.elements[0].startName, L"");
        EXPECT_EQ(geometry.elements[0].endName, L"");
    }
    // The name of an element that is none of the three, or of a curve's PI, doesn't count.
    EXPECT_EQ(
        Read<FViewCoordGeom>(L"<CoordGeom><Chain><Start name='x'/></Chain><Curve><PI name='y'/></Curve></CoordGeom>")
            .elements[1]
            .endName,
        L"EP");
}

TEST(FViewCoordGeom, ASingleLineRunsFromBpToEp)
{
    EXPECT_EQ(Written<FViewCoordGeom>(L"<CoordGeom><Line><Start/><End/></Line></CoordGeom>"),
              L"<CoordGeom><Line><Start name=\"BP\"/><End name=\"EP\"/></Line></CoordGeom>");
}

TEST(FViewCoordGeom, WithoutChildrenNothingChanges)
{
    EXPECT_TRUE(Read<FViewCoordGeom>(L"<CoordGeom/>").elements.empty());
    EXPECT_EQ(Written<FViewCoordGeom>(L"<CoordGeom a='b'/>"), L"<CoordGeom a=\"b\"/>");
}

TEST(FViewCoordGeom, ElementNamesCountInTheirCaseAndPointNamesInAny)
{
    EXPECT_EQ(Written<FViewCoordGeom>(L"<CoordGeom><line><Start/></line><Line><START/><end/></Line></CoordGeom>"),
              L"<CoordGeom><line><Start/></line><Line><START/><end name=\"EP\"/></Line></CoordGeom>");
}

TEST(FViewCoordGeom, AnEmptyNameIsNotWritten)
{
    EXPECT_EQ(Written<FViewCoordGeom>(
                  L"<CoordGeom><Curve><Start/><End/></Curve><Chain/><Line><Start/><End/></Line></CoordGeom>"),
              L"<CoordGeom><Curve><Start name=\"BP\"/><End/></Curve><Chain/><Line><Start/><End "
              L"name=\"EP\"/></Line></CoordGeom>");
}

TEST(FViewCoordGeom, TextBetweenTheElementsKeepsThePairing)
{
    EXPECT_EQ(
        Written<FViewCoordGeom>(L"<CoordGeom>x<Line><Start/><End/></Line>y<Line><Start/><End/></Line></CoordGeom>"),
        L"<CoordGeom>x<Line><Start/><End name=\"IP.2\"/></Line>y<Line><Start/><End "
        L"name=\"EP\"/></Line></CoordGeom>");
}

TEST(FViewCoordGeom, ElementsAndChildrenArePairedByTheirOrderAlone)
{
    const auto curve = Read<FViewCoordGeom>(Geometry(L"C"));
    EXPECT_EQ(
        WrittenInto(curve, L"<CoordGeom><Line radius='5'><Start/></Line><Line radius='5'><Start/></Line></CoordGeom>"),
        L"<CoordGeom><Line radius=\"5.00000000\"><Start name=\"BP\"/></Line><Line "
        L"radius=\"5\"><Start/></Line></CoordGeom>");
    EXPECT_EQ(WrittenInto(Read<FViewCoordGeom>(Geometry(L"LCL")), L"<CoordGeom><Chain><End/></Chain></CoordGeom>"),
              L"<CoordGeom><Chain><End name=\"BC.1\"/></Chain></CoordGeom>");
}

TEST(FViewCoordGeom, PointNamesAreReadInAnyCase)
{
    const auto geometry =
        Read<FViewCoordGeom>(L"<CoordGeom><Line><start name='a'/><END name='b'/></Line>"
                             L"<Spiral><START name='c'/><pi name='d'/><end name='e'/></Spiral></CoordGeom>");
    ASSERT_EQ(geometry.elements.size(), 2U);
    EXPECT_EQ(geometry.elements[0].startName, L"a");
    EXPECT_EQ(geometry.elements[0].endName, L"b");
    EXPECT_EQ(geometry.elements[1].startName, L"c");
    EXPECT_EQ(geometry.elements[1].piName, L"d");
    EXPECT_EQ(geometry.elements[1].endName, L"e");
}

TEST(FViewCoordGeom, OnlySpiralsHaveTheirPiNamed)
{
    EXPECT_EQ(Written<FViewCoordGeom>(
                  L"<CoordGeom><Line><PI/><Start/><End/></Line><Curve><Start/><Center/><PI/><End/></Curve>"
                  L"<Spiral><Start/><pi/><End/></Spiral><Line/></CoordGeom>"),
              L"<CoordGeom><Line><PI/><Start name=\"BP\"/><End name=\"BC.1\"/></Line><Curve><Start name=\"BC.1\"/>"
              L"<Center/><PI/><End/></Curve><Spiral><Start/><pi name=\"IP\"/><End/></Spiral><Line/></CoordGeom>");
}

TEST(FViewCoordGeom, TheParameterIsThatOfTheRadiiAsTheyAreWritten)
{
    // The radius at the start becomes that of a straight by its eight decimals.
    EXPECT_EQ(Written<FViewCoordGeom>(
                  L"<CoordGeom><Spiral radiusStart='0.000000024' radiusEnd='200' length='50'/></CoordGeom>"),
              L"<CoordGeom><Spiral radiusStart=\"0.00000002\" radiusEnd=\"200.00000000\" length=\"50\">"
              L"<Feature><Property label=\"A\" value=\"100.000000\"/></Feature></Spiral></CoordGeom>");
}

TEST(FViewIPElements, OfNothingNothingIsTaken)
{
    std::span<FViewCoordGeomElement> rest;
    FViewCoordGeomElement former;
    FViewIPElements group;
    group.kind = 1;
    group.elements.push_back(&former);
    group.CollectElements(rest);
    EXPECT_EQ(group.kind, -1);
    EXPECT_TRUE(group.elements.empty());
    EXPECT_TRUE(rest.empty());
    group.AssignPointNames(1);
}

TEST(FViewIPElements, AnUnknownKindNamesNoPoint)
{
    for (const std::int32_t kind : {-2, -1, 7, 8, 1000000, -2147483647})
    {
        FViewCoordGeomElement element;
        FViewIPElements group;
        group.kind = kind;
        group.elements.push_back(&element);
        group.AssignPointNames(1);
        EXPECT_EQ(element.startName + element.endName, L"") << kind;
    }
}

TEST(FViewIPElements, AGroupWithMoreElementsThanItsKindHasPointsNamesTheFirst)
{
    std::array<FViewCoordGeomElement, 9> elements;
    for (const auto& [kind, named] : {std::pair(1, 2), std::pair(5, 6)})
    {
        FViewIPElements group;
        group.kind = kind;
        for (FViewCoordGeomElement& element : elements)
        {
            element.Clear();
            group.elements.push_back(&element);
        }
        group.AssignPointNames(3);
        const auto starts = std::count_if(elements.begin(), elements.end(), [](const FViewCoordGeomElement& element) {
            return !element.startName.empty();
        });
        EXPECT_EQ(starts, named) << kind;
    }
    FViewIPElements fewer;
    fewer.kind = 5;
    fewer.AssignPointNames(1);
}

TEST(FViewCoordGeom, AnUnknownTypeCountsAsNoneOfTheThree)
{
    for (const std::int32_t type : {3, 100, -2, -2147483647})
    {
        FViewCoordGeom geometry;
        geometry.elements.resize(3);
        geometry.elements[0].type = FViewCoordGeomElement::LINE;
        geometry.elements[1].type = type;
        geometry.elements[2].type = FViewCoordGeomElement::LINE;
        geometry.NamePoints();
        EXPECT_EQ(geometry.elements[0].endName, L"IP.1") << type;
        EXPECT_EQ(geometry.elements[1].startName + geometry.elements[1].endName, L"") << type;
        geometry.elements[1].startName = L"x";
        EXPECT_EQ(
            WrittenInto(geometry, L"<CoordGeom><Line><Start/></Line><Chain radius='1'><Start/></Chain></CoordGeom>"),
            L"<CoordGeom><Line><Start name=\"BP\"/></Line><Chain radius=\"1\"><Start/></Chain></CoordGeom>")
            << type;
    }
}

constexpr auto BY_SHORT_TEXT = [](const auto& row) {
    return row.param.text.size() < 20 ? TextName(row.param.text) : "TheNumberThatMeansNotGiven";
};

struct RadiusCase
{
    std::wstring text;
    const wchar_t* written;
};

class Radius : public testing::TestWithParam<RadiusCase>
{};

TEST_P(Radius, HasEightDecimals)
{
    const auto radii = [](const std::wstring& radius) {
        return L"<CoordGeom><Curve radius=\"" + radius + L"\"/><Spiral radiusStart=\"" + radius + L"\" radiusEnd=\"" +
               radius + L"\"/></CoordGeom>";
    };
    EXPECT_EQ(Written<FViewCoordGeom>(radii(GetParam().text)), radii(GetParam().written));
}

INSTANTIATE_TEST_SUITE_P(FViewCoordGeom, Radius,
                         testing::Values(RadiusCase{L"200", L"200.00000000"}, RadiusCase{L"-150.5", L"-150.50000000"},
                                         RadiusCase{L"-0.000000001", L"0.00000000"}, RadiusCase{L"INF", L"INF"},
                                         RadiusCase{L"2e2", L"2e2"}, RadiusCase{L"", L"0.00000000"},
                                         RadiusCase{L"0.123456789", L"0.12345679"}, RadiusCase{L" 200", L" 200"},
                                         // the number that means "not given" leaves the point alone
                                         RadiusCase{L"0." + std::wstring(307, L'0') + L"22250738585072014", L"."}),
                         BY_SHORT_TEXT);

TEST(FViewCoordGeom, AMissingRadiusStaysMissing)
{
    EXPECT_EQ(Written<FViewCoordGeom>(L"<CoordGeom><Curve Radius='200'/></CoordGeom>"),
              L"<CoordGeom><Curve Radius=\"200\"/></CoordGeom>");
}

struct ParameterCase
{
    const wchar_t* rule;
    const wchar_t* attributes;
    const wchar_t* parameter;
};

class ClothoidParameter : public testing::TestWithParam<ParameterCase>
{};

TEST_P(ClothoidParameter, ComesFromLengthAndRadii)
{
    XmlText xml(std::wstring(L"<Spiral ") + GetParam().attributes + L"/>");
    const std::wstring before = xml.Text();
    WriteClothoidParameter(xml.Root());
    const std::wstring feature =
        std::wstring(L"><Feature><Property label=\"A\" value=\"") + GetParam().parameter + L"\"/></Feature></Spiral>";
    EXPECT_EQ(xml.Text(), *GetParam().parameter == L'\0' ? before : before.substr(0, before.size() - 2) + feature)
        << testing::PrintToString(GetParam().rule);
}

INSTANTIATE_TEST_SUITE_P(
    FViewCoordGeom, ClothoidParameter,
    testing::Values(
        ParameterCase{L"from a straight", L"radiusStart='INF' radiusEnd='200' length='50'", L"100.000000"},
        ParameterCase{L"to a straight", L"radiusStart='200' radiusEnd='INF' length='50'", L"100.000000"},
        ParameterCase{L"an egg clothoid", L"radiusStart='400' radiusEnd='200' length='50'", L"141.421356"},
        ParameterCase{L"an egg clothoid that opens", L"radiusStart='200' radiusEnd='400' length='50'", L"141.421356"},
        ParameterCase{L"both ends straight", L"radiusStart='INF' radiusEnd='INF' length='50'", L""},
        ParameterCase{L"radii below the tolerance are straights", L"radiusStart='0.00000002' radiusEnd='0' length='50'",
                      L""},
        ParameterCase{L"a radius just below the tolerance",
                      L"radiusStart='0.00000002220446049' radiusEnd='0' length='50'", L""},
        ParameterCase{L"a radius of just the tolerance is none of a straight",
                      L"radiusStart='0.00000002220446049250313' radiusEnd='0' length='50'", L"0.001054"},
        ParameterCase{L"a start radius above the tolerance", L"radiusStart='0.00000003' radiusEnd='0' length='50'",
                      L"0.001225"},
        ParameterCase{L"an end radius above the tolerance", L"radiusStart='0' radiusEnd='0.00000003' length='50'",
                      L"0.001225"},
        ParameterCase{L"an end radius below the tolerance", L"radiusStart='0' radiusEnd='0.00000002' length='50'", L""},
        ParameterCase{L"an end radius just below the tolerance",
                      L"radiusStart='0' radiusEnd='0.00000002220446049' length='50'", L""},
        ParameterCase{L"an end radius of just the tolerance is none of a straight",
                      L"radiusStart='0' radiusEnd='0.00000002220446049250313' length='50'", L"0.001054"},
        ParameterCase{L"an end radius below the tolerance behind a curve",
                      L"radiusStart='200' radiusEnd='0.00000002' length='50'", L"100.000000"},
        ParameterCase{L"an end radius of just the tolerance behind a curve",
                      L"radiusStart='200' radiusEnd='0.00000002220446049250313' length='50'", L"0.001054"},
        ParameterCase{L"a negative end radius below the tolerance",
                      L"radiusStart='200' radiusEnd='-0.00000002' length='50'", L"100.000000"},
        ParameterCase{L"a negative radius below the tolerance",
                      L"radiusStart='-0.00000002' radiusEnd='200' length='50'", L"100.000000"},
        ParameterCase{L"negative radii below the tolerance",
                      L"radiusStart='-0.00000002' radiusEnd='-0.00000002' length='50'", L""},
        ParameterCase{L"equal radii", L"radiusStart='200' radiusEnd='200' length='50'", L"inf."},
        ParameterCase{L"a negative radius", L"radiusStart='INF' radiusEnd='-200' length='50'", L"nan."},
        ParameterCase{L"a negative radius at the start", L"radiusStart='-200' radiusEnd='INF' length='50'", L"nan."},
        ParameterCase{L"an egg clothoid of negative radii", L"radiusStart='-400' radiusEnd='-200' length='50'",
                      L"nan."},
        ParameterCase{L"no length", L"radiusStart='INF' radiusEnd='200'", L""},
        ParameterCase{L"no start radius", L"radiusEnd='200' length='50'", L""},
        ParameterCase{L"no end radius", L"radiusStart='200' length='50'", L""},
        ParameterCase{L"a length that is no number", L"radiusStart='INF' radiusEnd='200' length='x'", L"0.000000"},
        ParameterCase{L"equal radii and no length", L"radiusStart='200' radiusEnd='200' length='0'", L"nan."}),
    BY_RULE);

TEST(FViewCoordGeom, ASpiralFromAStraightKeepsInfAndGetsItsParameter)
{
    EXPECT_EQ(
        Written<FViewCoordGeom>(L"<CoordGeom><Spiral radiusStart='INF' radiusEnd='200' length='50'/></CoordGeom>"),
        L"<CoordGeom><Spiral radiusStart=\"INF\" radiusEnd=\"200.00000000\" length=\"50\">"
        L"<Feature><Property label=\"A\" value=\"100.000000\"/></Feature></Spiral></CoordGeom>");
}

TEST(FViewCoordGeom, AGivenParameterIsKept)
{
    const std::wstring spiral =
        L"<Spiral radiusStart=\"INF\" radiusEnd=\"200.00000000\" length=\"50\"><Feature name=\"f\">"
        L"<Property label=\"A\" value=\"7\"/></Feature></Spiral>";
    EXPECT_EQ(Written<FViewCoordGeom>(L"<CoordGeom>" + spiral + L"</CoordGeom>"),
              L"<CoordGeom>" + spiral + L"</CoordGeom>");
}

TEST(FViewCoordGeom, TheParameterJoinsTheFirstFeature)
{
    EXPECT_EQ(
        Written<FViewCoordGeom>(L"<CoordGeom><Spiral radiusStart='0' radiusEnd='200' length='50'><Feature name='f'>"
                                L"<Property label='b' value='1'/></Feature><Feature/></Spiral></CoordGeom>"),
        L"<CoordGeom><Spiral radiusStart=\"0.00000000\" radiusEnd=\"200.00000000\" length=\"50\"><Feature name=\"f\">"
        L"<Property label=\"b\" value=\"1\"/><Property label=\"A\" value=\"100.000000\"/></Feature><Feature/></Spiral>"
        L"</CoordGeom>");
}

struct GivenParameterCase
{
    const wchar_t* rule;
    const wchar_t* features;
    const wchar_t* written;
};

class GivenParameter : public testing::TestWithParam<GivenParameterCase>
{};

TEST_P(GivenParameter, CountsInTheFirstFeatureWithItsExactLabel)
{
    const auto spiral = [](const wchar_t* features) {
        return std::wstring(L"<Spiral radiusStart=\"0\" radiusEnd=\"200\" length=\"50\">") + features + L"</Spiral>";
    };
    XmlText xml(spiral(GetParam().features));
    WriteClothoidParameter(xml.Root());
    EXPECT_EQ(xml.Text(), spiral(GetParam().written)) << testing::PrintToString(GetParam().rule);
}

INSTANTIATE_TEST_SUITE_P(
    FViewCoordGeom, GivenParameter,
    testing::Values(
        GivenParameterCase{L"one in the second Feature doesn't count",
                           L"<Feature name=\"f\"/><Feature name=\"g\"><Property label=\"A\" value=\"7\"/></Feature>",
                           L"<Feature name=\"f\"><Property label=\"A\" value=\"100.000000\"/></Feature>"
                           L"<Feature name=\"g\"><Property label=\"A\" value=\"7\"/></Feature>"},
        GivenParameterCase{L"the first Feature is found in any case",
                           L"<feature><Property label=\"A\" value=\"7\"/></feature><Feature/>",
                           L"<feature><Property label=\"A\" value=\"7\"/></feature><Feature/>"},
        GivenParameterCase{L"but only an exact one takes the parameter",
                           L"<feature><Property label=\"b\" value=\"1\"/></feature>",
                           L"<feature><Property label=\"b\" value=\"1\"/></feature><Feature><Property label=\"b\" "
                           L"value=\"1\"/><Property label=\"A\" value=\"100.000000\"/></Feature>"},
        GivenParameterCase{L"one without a value is kept too", L"<Feature><Property label=\"A\" value=\"\"/></Feature>",
                           L"<Feature><Property label=\"A\" value=\"\"/></Feature>"},
        GivenParameterCase{L"a label in another case is another label",
                           L"<Feature><Property label=\"a\" value=\"7\"/></Feature>",
                           L"<Feature><Property label=\"a\" value=\"7\"/><Property label=\"A\" "
                           L"value=\"100.000000\"/></Feature>"}),
    BY_RULE);

TEST(FViewCoordGeom, AFinishedElementReadAgainIsUnchanged)
{
    const std::wstring finished =
        Written<FViewCoordGeom>(L"<CoordGeom><Line><Start/><End/></Line><Spiral radiusStart='INF' radiusEnd='200' "
                                L"length='50'><Start/><PI/><End/></Spiral>"
                                L"<Curve radius='200'><Start/><End/></Curve><Line><Start/><End/></Line></CoordGeom>");
    EXPECT_EQ(Written<FViewCoordGeom>(finished), finished);
}

TEST(FViewCoordGeom, ClearEmptiesElementsAndGroups)
{
    FViewCoordGeomElement element;
    element.type = FViewCoordGeomElement::SPIRAL;
    element.startName = element.endName = element.piName = L"x";
    element.Clear();
    EXPECT_EQ(element.type, -1);
    EXPECT_EQ(element.startName + element.endName + element.piName, L"");

    FViewIPElements group;
    group.kind = 2;
    group.elements.push_back(&element);
    group.Clear();
    EXPECT_EQ(group.kind, -1);
    EXPECT_TRUE(group.elements.empty());

    auto geometry = Read<FViewCoordGeom>(Geometry(L"LCL"));
    geometry.Clear();
    EXPECT_TRUE(geometry.elements.empty());
}

TEST(FViewCoordGeom, ReadingBeginsAfresh)
{
    auto geometry = Read<FViewCoordGeom>(Geometry(L"LCL"));
    geometry.ReadElement(XmlText(Geometry(L"L")).Root());
    ASSERT_EQ(geometry.elements.size(), 1U);
    EXPECT_EQ(geometry.elements[0].startName + geometry.elements[0].endName, L"BPEP");
}

TEST(FViewCoordGeom, ACopyHasTheVersionAndItsOwnElements)
{
    auto geometry = Read<FViewCoordGeom>(L"<CoordGeom><Spiral><Start name='a'/><PI name='b'/><End name='c'/></Spiral>"
                                         L"</CoordGeom>");
    geometry.SetOutputVersion(3);
    const FViewCoordGeom copy(geometry);
    FViewCoordGeom assigned;
    assigned = geometry;
    geometry.elements[0].Clear();
    for (const FViewCoordGeom* const other : {&copy, static_cast<const FViewCoordGeom*>(&assigned)})
    {
        EXPECT_EQ(other->version, 3);
        ASSERT_EQ(other->elements.size(), 1U);
        const FViewCoordGeomElement& element = other->elements[0];
        EXPECT_EQ(element.type, FViewCoordGeomElement::SPIRAL);
        EXPECT_EQ(element.startName + element.piName + element.endName, L"abc");
    }
}

} // namespace
} // namespace jlandxml

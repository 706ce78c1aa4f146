// Measures single rules that could cost more than linear time: each on so many elements and on ten times as many, with
// the ratio of the two. A linear rule prints about x10, a quadratic one x100.
//
//   bench_rules [RULE [SIZE]]      without a rule: all of them

#include "model/FViewCoordGeom.h"
#include "model/FViewLandXML.h"
#include "model/OutputVersion.h"
#include "support/XmlText.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

namespace
{

using namespace jlandxml;

constexpr int ROUNDS = 3;

/// Time of the processor, so that other work of the machine doesn't count.
template <class Body>
double Seconds(Body&& body)
{
    const std::clock_t start = std::clock();
    body();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// A clothoid whose `Feature` holds many properties gets its parameter: the `Feature` is offered again as a whole.
double ManyPropertiesOfASpiral(int properties)
{
    std::wstring xml = L"<Spiral length=\"50\" radiusStart=\"INF\" radiusEnd=\"200\"><Feature>";
    for (int property = 0; property < properties; ++property)
    {
        const std::wstring number = std::to_wstring(property);
        xml += L"<Property label=\"p" + number + L"\" value=\"" + number + L"\"/>";
    }
    XmlText text(xml + L"</Feature></Spiral>");
    return Seconds([&] { WriteClothoidParameter(text.Root()); });
}

/// A document with surfaces of these names and cross sections with these ground lines is written.
double GroundLines(const std::vector<std::wstring>& names, const std::vector<std::vector<std::wstring>>& sections)
{
    std::wstring xml = L"<LandXML><Alignments><Alignment><CrossSects>";
    for (const std::vector<std::wstring>& lines : sections)
    {
        xml += L"<CrossSect>";
        for (const std::wstring& line : lines)
        {
            xml += L"<CrossSectSurf name='" + line + L"'/>";
        }
        xml += L"</CrossSect>";
    }
    xml += L"</CrossSects></Alignment></Alignments><Surfaces>";
    for (const std::wstring& name : names)
    {
        xml += L"<Surface name='" + name + L"' desc='ExistingGround'/>";
    }
    XmlText text(xml + L"</Surfaces></LandXML>");
    FViewLandXML root;
    root.ReadElement(text.Root());
    root.surfaces.FillOutPutCSS();
    return Seconds([&] { root.WriteElement(text.Root()); });
}

std::vector<std::wstring> Numbered(const std::wstring& front, int count, const std::wstring& end = {})
{
    std::vector<std::wstring> texts;
    for (int number = 0; number < count; ++number)
    {
        texts.push_back(front + std::to_wstring(number) + end);
    }
    return texts;
}

double LinesOfOneSection(int surfaces)
{
    return GroundLines(Numbered(L"G", surfaces), {Numbered(L"G", surfaces, L"_1")});
}

double LinesOfAsManySections(int surfaces)
{
    std::vector<std::vector<std::wstring>> sections;
    for (std::wstring& line : Numbered(L"G", surfaces, L"_1"))
    {
        sections.push_back({std::move(line)});
    }
    return GroundLines(Numbered(L"G", surfaces), sections);
}

/// Names of one repeated letter, each within all longer ones, and a line for each.
double NamesWithinEachOther(int characters)
{
    std::vector<std::wstring> names;
    for (std::size_t length = 1; characters > 0; characters -= static_cast<int>(length++))
    {
        names.emplace_back(length, L'A');
    }
    std::vector<std::wstring> lines = names;
    std::reverse(names.begin(), names.end());
    return GroundLines(names, {lines});
}

double LinesOfOneLongName(int characters)
{
    std::wstring name;
    while (name.size() < static_cast<std::size_t>(characters))
    {
        name += L"現況地形" + std::to_wstring(name.size());
    }
    return GroundLines({name, name + L"x", L"EG"}, {{name + L"_1", L"x" + name, L"EG_1"}});
}

double WidthStakeGroups(int groups)
{
    XmlText text(L"<LandXML><Alignments/></LandXML>");
    FViewLandXML root;
    root.ReadElement(text.Root());
    root.widthStakePoints.resize(static_cast<std::size_t>(groups));
    for (FViewCgPointsWidthStake& group : root.widthStakePoints)
    {
        group.points.resize(1);
    }
    root.SetOutputVersion(NEWEST_VERSION.number);
    return Seconds([&] { root.WriteElement(text.Root()); });
}

struct BenchRule
{
    const char* name;
    int size;
    double (*seconds)(int size); ///< the time of the rule alone
};

constexpr BenchRule RULES[] = {
    {"properties-of-a-spiral", 40000, ManyPropertiesOfASpiral},
    {"lines-of-one-section", 40000, LinesOfOneSection},
    {"lines-of-as-many-sections", 40000, LinesOfAsManySections},
    {"names-within-each-other", 2000000, NamesWithinEachOther},
    {"lines-of-one-long-name", 30000000, LinesOfOneLongName},
    {"width-stake-groups", 40000, WidthStakeGroups},
};

double Median(const BenchRule& rule, int size)
{
    std::array<double, ROUNDS> rounds{};
    for (double& round : rounds)
    {
        round = rule.seconds(size);
    }
    std::sort(rounds.begin(), rounds.end());
    return rounds[ROUNDS / 2];
}

} // namespace

int main(int count, char** values)
{
    for (const BenchRule& rule : RULES)
    {
        if (count > 1 && std::string(values[1]) != rule.name)
        {
            continue;
        }
        const int size = count > 2 ? std::atoi(values[2]) : rule.size;
        const double one = Median(rule, size / 10);
        const double ten = Median(rule, size);
        std::printf("%-28s %9d %9.4f s %9d %9.4f s  x%.1f\n", rule.name, size / 10, one, size, ten, ten / one);
        std::fflush(stdout);
    }
    return 0;
}

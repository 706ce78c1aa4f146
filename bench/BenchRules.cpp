// Measures single rules that could cost more than linear time: each on so many elements and on ten times as many, with
// the ratio of the two. A linear rule prints about x10, a quadratic one x100.
//
//   bench_rules [RULE [SIZE]]      without a rule: all of them

#include "model/FViewCoordGeom.h"
#include "support/XmlText.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace
{

using namespace jlandxml;

constexpr int ROUNDS = 3;

template <class Body>
double Seconds(Body&& body)
{
    const auto start = std::chrono::steady_clock::now();
    body();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
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

struct BenchRule
{
    const char* name;
    int size;
    double (*seconds)(int size); ///< the time of the rule alone
};

constexpr BenchRule RULES[] = {
    {"properties-of-a-spiral", 40000, ManyPropertiesOfASpiral},
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

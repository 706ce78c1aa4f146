#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace jlandxml
{

/// The number of a version of the exchange standard: its place in OUTPUT_VERSIONS.
using OutputVersion = std::int32_t;

/// One version of the exchange standard.
struct VersionOfStandard
{
    OutputVersion number;
    const wchar_t* text;  ///< as a file holds it, the value of `applicationCriterion`
    const wchar_t* shown; ///< as the dialog shows it, and as code names the version
    bool offered;         ///< finished files can follow it
};

/// All versions, the oldest first. A new version is one row more; with it, it also becomes what a file is written as
/// whose text names no offered version. Which one the dialog selects by default stands in DialogFields.h. What a
/// version brings is guarded where that is written, by VersionNumber.
inline constexpr auto OUTPUT_VERSIONS = std::to_array<VersionOfStandard>({
    {0, L"MlitLandXmlVer.1.3", L"1.3", false},
    {1, L"MlitLandXmlVer.1.4", L"1.4", false},
    {2, L"MlitLandXmlVer.1.5", L"1.5", true},
    {3, L"MlitLandXmlVer.1.6", L"1.6", true},
    {4, L"MlitLandXmlVer.1.7", L"1.7", true},
});

/// The version that a file follows where its text names none that is offered.
inline constexpr const VersionOfStandard& NEWEST_VERSION = OUTPUT_VERSIONS.back();

/// The version of that number; null if there is none.
constexpr const VersionOfStandard* FindVersion(OutputVersion number)
{
    const bool known = number >= 0 && static_cast<std::size_t>(number) < OUTPUT_VERSIONS.size();
    return known ? &OUTPUT_VERSIONS[static_cast<std::size_t>(number)] : nullptr;
}

/// The version of which a file holds that text, character for character; null if there is none.
constexpr const VersionOfStandard* FindVersion(std::wstring_view text)
{
    const auto* const end = OUTPUT_VERSIONS.data() + OUTPUT_VERSIONS.size();
    const auto* const version =
        std::find_if(OUTPUT_VERSIONS.data(), end, [&](const VersionOfStandard& row) { return row.text == text; });
    return version != end ? version : nullptr;
}

/// The number of the version that is shown so: what was brought by 1.5 asks for `version >= VersionNumber(L"1.5")`. A
/// version that the table doesn't hold doesn't compile.
consteval OutputVersion VersionNumber(std::wstring_view shown)
{
    for (const VersionOfStandard& row : OUTPUT_VERSIONS)
    {
        if (row.shown == shown)
        {
            return row.number;
        }
    }
    throw std::invalid_argument("no such version");
}

static_assert(std::all_of(OUTPUT_VERSIONS.begin(), OUTPUT_VERSIONS.end(),
                          [](const VersionOfStandard& row) { return FindVersion(row.number) == &row; }),
              "a version's number is its place");
static_assert(NEWEST_VERSION.offered);

} // namespace jlandxml

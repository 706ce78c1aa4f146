#include "model/OutputVersion.h"

#include <gtest/gtest.h>

#include <limits>

namespace jlandxml
{
namespace
{

TEST(OutputVersion, EveryVersionIsFoundByNumberAndByText)
{
    for (const VersionOfStandard& version : OUTPUT_VERSIONS)
    {
        EXPECT_EQ(FindVersion(version.number), &version);
        EXPECT_EQ(FindVersion(std::wstring_view(version.text)), &version);
    }
}

TEST(OutputVersion, ATextIsThatOfItsShownVersion)
{
    for (const VersionOfStandard& version : OUTPUT_VERSIONS)
    {
        EXPECT_EQ(version.text, std::wstring(L"MlitLandXmlVer.") + version.shown);
    }
}

TEST(OutputVersion, NumbersBeyondTheTableAreNoVersions)
{
    using Limits = std::numeric_limits<std::int32_t>;
    for (const std::int32_t number : {Limits::min(), -1, NEWEST_VERSION.number + 1, Limits::max()})
    {
        EXPECT_EQ(FindVersion(number), nullptr) << number;
    }
}

TEST(OutputVersion, TextsAreComparedCharacterForCharacter)
{
    for (const wchar_t* const text : {L"", L"1.5", L"mlitlandxmlver.1.5", L"MlitLandXmlVer.1.5 ", L"MlitLandXmlVer.1."})
    {
        EXPECT_EQ(FindVersion(std::wstring_view(text)), nullptr) << testing::PrintToString(text);
    }
}

TEST(OutputVersion, CodeNamesAVersionAsItIsShown)
{
    static_assert(VersionNumber(L"1.3") == 0);
    static_assert(VersionNumber(L"1.4") == 1);
    static_assert(VersionNumber(L"1.5") == 2);
    static_assert(VersionNumber(L"1.6") == 3);
    static_assert(VersionNumber(L"1.7") == 4);
}

} // namespace
} // namespace jlandxml

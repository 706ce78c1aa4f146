#include "xml/LoadContent.h"

#include "base/Text.h"
#include "support/Encodings.h"

#include <gtest/gtest.h>

#include <string>

namespace jlandxml
{
namespace
{

/// Line and character of the fault, "-" where there is none.
std::string Fault(std::string_view content)
{
    const std::optional<FaultPlace> fault = FindFault(content);
    return fault ? std::to_string(fault->line) + ":" + std::to_string(fault->column) : "-";
}

TEST(FindFault, CountsLinesAndCharactersAsEditorsDo)
{
    EXPECT_EQ(Fault("<a/>"), "-");
    const std::string first = Fault("<a><b></a>");
    EXPECT_EQ(Fault("<a>\n<b>\n</a>").substr(0, 2), "3:");
    EXPECT_EQ(Fault("\xEF\xBB\xBF<a><b></a>"), first);
    // A Japanese character is one, however many bytes it has.
    EXPECT_EQ(Fault("<a n='x'><b></a>"), Fault("<a n='\xE8\xB7\xAF'><b></a>"));
}

TEST(FindFault, KnowsTheEncodingsThatFilesComeIn)
{
    constexpr const char* BROKEN = "<a>\n<b></a>";
    const std::string place = Fault(BROKEN);
    EXPECT_EQ(Fault(Utf16(L"\xFEFF" + WideFromUtf8(BROKEN), false)), place);
    EXPECT_EQ(Fault(Utf16(L"\xFEFF" + WideFromUtf8(BROKEN), true)), place);
    const std::string declared = "<?xml version='1.0' encoding='Shift_JIS'?>";
    EXPECT_EQ(Fault(declared + "\n<a n='\x98\x48'><b></a>"), Fault(declared + "\n<a n='x'><b></a>"));
    // What the code page doesn't have is read as UTF-8 after all.
    EXPECT_EQ(Fault(declared + "\n<a n='緀'><b></a>"), Fault(declared + "\n<a n='x'><b></a>"));
}

TEST(FindMalformedUtf8, CountsLinesAndCharactersAsEditorsDo)
{
    const auto place = [](std::string_view content) {
        const FaultPlace found = FindMalformedUtf8(content);
        return std::to_string(found.line) + ":" + std::to_string(found.column);
    };
    EXPECT_EQ(place("\xFF"), "1:1");
    EXPECT_EQ(place("<a>\n<b n='\xE8\xB7\xAF\xFF'/>\n\xFF"), "2:8");
    EXPECT_EQ(place("\xEF\xBB\xBF<\xFF"), "1:2");
}

} // namespace
} // namespace jlandxml

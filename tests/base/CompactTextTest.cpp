#include "base/CompactText.h"

#include "base/Text.h"

#include <gtest/gtest.h>
#include <random>

namespace jlandxml
{
namespace
{

TEST(CompactText, IsAsLargeAsTwoPointers)
{
    EXPECT_LE(sizeof(CompactText), 16U);
}

TEST(CompactText, HoldsTextsOfAnyLength)
{
    for (std::size_t length = 0; length < 40; ++length)
    {
        for (const wchar_t character : {L'a', L'é', L'線', L'\0'})
        {
            const std::wstring text(length, character);
            const CompactText compact = text;
            EXPECT_EQ(compact.Wide(), text);
            EXPECT_EQ(compact.empty(), length == 0);
            EXPECT_EQ(compact, CompactText(text));
            EXPECT_FALSE(compact == CompactText(text + L"b"));
        }
    }
}

TEST(CompactText, AnyUnitComesBackAsItWas)
{
    constexpr std::uint32_t END = sizeof(wchar_t) == 2 ? 0x10000 : 0x110000;
    for (std::uint32_t unit = 0; unit < END; unit += unit < 0x1000 ? 1 : 61)
    {
        const std::wstring text(2, static_cast<wchar_t>(unit));
        ASSERT_EQ(CompactText(text).Wide(), text) << unit;
    }
    const std::wstring halves = {static_cast<wchar_t>(0xDC00), static_cast<wchar_t>(0xD800),
                                 static_cast<wchar_t>(0xDFFF)};
    EXPECT_EQ(CompactText(halves).Wide(), halves);
}

#ifndef _WIN32
TEST(CompactText, AUnitThatNoCharacterCouldHaveIsReplaced)
{
    const std::wstring text = {static_cast<wchar_t>(0x110000), static_cast<wchar_t>(0x200000),
                               static_cast<wchar_t>(0x7FFFFFFF)};
    EXPECT_EQ(CompactText(text).Wide(), std::wstring(1, static_cast<wchar_t>(0x110000)) + L"\xFFFD\xFFFD");
}
#endif

TEST(CompactText, BytesBecomeTheTextThatTheyDecodeTo)
{
    std::mt19937 random(3);
    const std::string pieces[] = {"a", "1", "線", "\xF0\x9F\x98\x80", "\xFF", "\xE7\xB7", "\xED\xA0\x80"};
    for (int round = 0; round < 2000; ++round)
    {
        std::string bytes;
        for (auto count = random() % 9; count > 0; --count)
        {
            bytes += pieces[random() % std::size(pieces)];
        }
        ASSERT_EQ(CompactText::FromUtf8(bytes).Wide(), WideFromUtf8(bytes));
        ASSERT_EQ(CompactText::FromUtf8(bytes), CompactText(WideFromUtf8(bytes)));
    }
}

TEST(CompactText, CopiesStandApartAndWhatWasMovedIsEmpty)
{
    for (const wchar_t* const text : {L"short", L"longer than what has room in it"})
    {
        CompactText first = text;
        CompactText copy = first;
        first = L"other";
        EXPECT_EQ(copy, text);
        const CompactText moved = std::move(copy);
        EXPECT_EQ(moved, text);
        EXPECT_TRUE(copy.empty()); // NOLINT(bugprone-use-after-move)
        CompactText assigned = L"some text that needs memory of its own";
        assigned = moved;
        EXPECT_EQ(assigned, text);
        const CompactText& self = assigned;
        assigned = self;
        EXPECT_EQ(assigned, text);
        assigned.clear();
        EXPECT_TRUE(assigned.empty());
        EXPECT_EQ(assigned.Wide(), L"");
    }
}

TEST(CompactText, IsJoinedAsWideText)
{
    const CompactText text = L"線";
    EXPECT_EQ(text + L"形", L"線形");
    EXPECT_EQ(std::wstring(L"曲") + text, L"曲線");
    EXPECT_EQ(text + text, L"線線");
    EXPECT_EQ(text.Bytes(), "線");
}

} // namespace
} // namespace jlandxml

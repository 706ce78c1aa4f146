#include "base/Text.h"

#include <gtest/gtest.h>
#include <random>

namespace jlandxml
{
namespace
{

TEST(Text, WhiteSpaceIsTheFixedSetWhateverTheLocale)
{
    std::wstring found;
    for (wchar_t character = 0; character < 0xFFFF; ++character)
    {
        if (IsWhiteSpace(character))
        {
            found += character;
        }
    }
    EXPECT_EQ(found, L"\t\n\v\f\r \x85\xA0\x1680\x2000\x2001\x2002\x2003\x2004\x2005\x2006\x2007\x2008\x2009\x200A"
                     L"\x2028\x2029\x202F\x205F\x3000");
}

TEST(Text, TrimCutsBothEndsAndLeavesTheMiddle)
{
    EXPECT_EQ(Trim(L"\x3000 線形 1\t\r\n"), L"線形 1");
    EXPECT_EQ(TrimLeft(L" a "), L"a ");
    EXPECT_EQ(TrimRight(L" a "), L" a");
    EXPECT_EQ(Trim(L" \x3000 "), L"");
    EXPECT_EQ(Trim(L""), L"");
}

TEST(Text, Utf8IsTrimmedAsTheWideTextThatItStandsFor)
{
    for (std::uint32_t code = 1; code < 0x14000; ++code)
    {
        if (code >= 0xD800 && code < 0xE000)
        {
            continue;
        }
        std::wstring wide;
        if (sizeof(wchar_t) == 2 && code > 0xFFFF)
        {
            wide += static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10));
            wide += static_cast<wchar_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
        }
        else
        {
            wide += static_cast<wchar_t>(code);
        }
        const std::wstring text = wide + L" a" + wide + L"b" + wide + wide;
        ASSERT_EQ(WideFromUtf8(TrimUtf8(Utf8FromWide(text))), Trim(text)) << code;
        ASSERT_EQ(WideFromUtf8(TrimUtf8(Utf8FromWide(wide))), Trim(wide)) << code;
    }
    EXPECT_EQ(TrimUtf8(""), "");
}

TEST(Text, OnlyAsciiLettersCompareWithoutCase)
{
    EXPECT_TRUE(EqualsIgnoreCase(L"PROJECT", L"Project"));
    EXPECT_TRUE(EqualsIgnoreCase(L"", L""));
    EXPECT_FALSE(EqualsIgnoreCase(L"Project", L"Projects"));
    EXPECT_FALSE(EqualsIgnoreCase(L"ａ", L"Ａ"));
    EXPECT_FALSE(EqualsIgnoreCase(L"é", L"É"));
    EXPECT_FALSE(EqualsIgnoreCase(L"[", L"{"));
}

TEST(Text, NamesCompareAlikeWhetherTheirLengthIsKnownOrNot)
{
    for (const wchar_t* const first : {L"", L"P", L"Project", L"PROJECTS", L"Ｐ"})
    {
        for (const std::wstring_view second : {L"", L"p", L"project", L"projects", L"ｐ"})
        {
            EXPECT_EQ(EqualsIgnoreCase(first, second), EqualsIgnoreCase(std::wstring_view(first), second));
        }
    }
    EXPECT_FALSE(EqualsIgnoreCase(L"a", std::wstring_view(L"a\0", 2)));
}

TEST(Text, FoldingTakesAsciiCapitalsAloneInAnyTypeOfCharacter)
{
    EXPECT_EQ(FoldAscii('A'), 'a');
    EXPECT_EQ(FoldAscii(L'Z'), L'z');
    EXPECT_EQ(FoldAscii(U'M'), U'm');
    for (const char character : {'@', '[', 'a', 'z', '0', '\xC4'})
    {
        EXPECT_EQ(FoldAscii(character), character);
    }
    EXPECT_EQ(FoldAscii(U'\u00C4'), U'\u00C4');
}

TEST(Text, TheHalvesOfACharacterAreToldFromItsNeighbours)
{
    EXPECT_FALSE(IsHighSurrogate(0xD7FF));
    EXPECT_TRUE(IsHighSurrogate(0xD800));
    EXPECT_TRUE(IsHighSurrogate(0xDBFF));
    EXPECT_FALSE(IsHighSurrogate(0xDC00));
    EXPECT_FALSE(IsLowSurrogate(0xDBFF));
    EXPECT_TRUE(IsLowSurrogate(0xDC00));
    EXPECT_TRUE(IsLowSurrogate(0xDFFF));
    EXPECT_FALSE(IsLowSurrogate(0xE000));
}

TEST(Text, ReplaceAllDoesNotLookAtWhatItFormed)
{
    EXPECT_EQ(ReplaceAll(L"a %, b  %", L" %", L"%"), L"a%, b %");
    EXPECT_EQ(ReplaceAll(L"aaa", L"aa", L"a"), L"aa");
    EXPECT_EQ(ReplaceAll(L"線形", L"", L"x"), L"線形");
    EXPECT_EQ(ReplaceAll(L"", L"a", L"b"), L"");
}

struct MalformedCase
{
    const char* name;
    const char* bytes;
    const wchar_t* text;
};

class MalformedUtf8 : public testing::TestWithParam<MalformedCase>
{};

TEST_P(MalformedUtf8, BecomesAReplacementCharacter)
{
    EXPECT_EQ(WideFromUtf8(GetParam().bytes), GetParam().text);
    EXPECT_FALSE(IsWellFormedUtf8(GetParam().bytes));
    std::wstring decoded(std::string_view(GetParam().bytes).size(), L'\0');
    bool isWellFormed = true;
    decoded.resize(DecodeUtf8(GetParam().bytes, decoded.data(), isWellFormed));
    EXPECT_EQ(decoded, GetParam().text);
    EXPECT_FALSE(isWellFormed);
    EXPECT_EQ(RepairUtf8(GetParam().bytes), Utf8FromWide(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    Text, MalformedUtf8,
    testing::Values(MalformedCase{"AloneFollower", "a\x80z", L"a\xFFFDz"},
                    MalformedCase{"Overlong", "\xC0\x80", L"\xFFFD\xFFFD"},
                    MalformedCase{"CutOffAtTheEnd", "\xE3\x81", L"\xFFFD"},
                    MalformedCase{"CutOffByAnother", "\xE3\x81z", L"\xFFFDz"},
                    MalformedCase{"Surrogate", "\xED\xA0\x80", L"\xFFFD\xFFFD\xFFFD"},
                    MalformedCase{"AboveTheLastCharacter", "\xF4\x90\x80\x80", L"\xFFFD\xFFFD\xFFFD\xFFFD"},
                    MalformedCase{"CutOffOfFour", "\xF0\x9F\x98", L"\xFFFD"},
                    MalformedCase{"NoBeginning", "\xFF", L"\xFFFD"},
                    MalformedCase{"BehindPlainOnes", "abcdefgh\xE0\x9F\x80", L"abcdefgh\xFFFD\xFFFD\xFFFD"}),
    [](const auto& row) { return row.param.name; });

TEST(Text, Utf8RoundTripsEveryCharacter)
{
    std::wstring text;
    for (wchar_t character = 1; character < 0xFFFE; ++character)
    {
        if (character < 0xD800 || character > 0xDFFF)
        {
            text += character;
        }
    }
    text += L"😀𠮷";
    const std::string bytes = Utf8FromWide(text);
    EXPECT_TRUE(IsWellFormedUtf8(bytes));
    EXPECT_EQ(WideFromUtf8(bytes), text);
    EXPECT_EQ(RepairUtf8(bytes), bytes);
    EXPECT_EQ(Utf8FromWide(L"😀"), "\xF0\x9F\x98\x80");
}

TEST(Text, WellFormedUtf8EndsWhereTheFirstMalformedSequenceBegins)
{
    EXPECT_EQ(WellFormedUtf8Length(""), 0U);
    EXPECT_EQ(WellFormedUtf8Length("abcdefghijklmnop"), 16U);
    EXPECT_EQ(WellFormedUtf8Length("abcdefgh\xE8\xB7\xAF\xFFz\xFF"), 11U);
    EXPECT_EQ(WellFormedUtf8Length("\xE8\xB7"), 0U);
    // The replacement character itself is well formed.
    wchar_t decoded[3]{};
    bool isWellFormed = false;
    EXPECT_EQ(DecodeUtf8("\xEF\xBF\xBD", decoded, isWellFormed), 1U);
    EXPECT_TRUE(isWellFormed);
}

TEST(Text, LoneSurrogatesAreReplacedAndPairsAreJoined)
{
    EXPECT_EQ(Utf8FromWide(std::wstring{L'a', static_cast<wchar_t>(0xD800), L'b'}), "a\xEF\xBF\xBD"
                                                                                    "b");
    EXPECT_EQ(Utf8FromWide(std::wstring{static_cast<wchar_t>(0xDC00)}), "\xEF\xBF\xBD");
    EXPECT_EQ(Utf8FromWide(std::wstring{static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)}),
              "\xF0\x9F\x98\x80");
}

TEST(Text, AnyBytesDecodeToTextThatEncodes)
{
    std::mt19937 random(20261121);
    for (int round = 0; round < 2000; ++round)
    {
        std::string bytes(random() % 40, '\0');
        for (char& byte : bytes)
        {
            byte = static_cast<char>(random() % 3 == 0 ? random() % 128 : random() % 256);
        }
        const std::string repaired = RepairUtf8(bytes);
        EXPECT_TRUE(IsWellFormedUtf8(repaired));
        EXPECT_EQ(Utf8FromWide(WideFromUtf8(bytes)), repaired);
        EXPECT_EQ(repaired == bytes, IsWellFormedUtf8(bytes));
    }
}

TEST(Text, CodePage932KeepsTheExtendedCharacters)
{
    EXPECT_EQ(WideFromCp932("\x81\x60\x87\x40\x87\x8A\xFB\xFC\xFA\xB1\x5C\x7E\xB1"), L"～①㈱髙﨑\\~ｱ");
    EXPECT_EQ(Cp932FromWide(L"～①㈱髙﨑\\~ｱ"), "\x81\x60\x87\x40\x87\x8A\xFB\xFC\xFA\xB1\x5C\x7E\xB1");
}

TEST(Text, CodePage932TakesAsciiAsItStands)
{
    std::string bytes;
    for (char byte = 0; byte < 127; ++byte)
    {
        bytes += byte;
    }
    bytes += '\x7F';
    const std::wstring text(bytes.begin(), bytes.end());
    EXPECT_EQ(WideFromCp932(bytes), text);
    EXPECT_EQ(Cp932FromWide(text), bytes);
}

TEST(Text, BytesThatAreNotCodePage932AreRefused)
{
    for (const char* const bytes : {"\x80", "\xA0", "\xFD", "\xFF", "a\x81", "\x81\x39", "\x81\xFF"})
    {
        EXPECT_EQ(WideFromCp932(bytes), std::nullopt) << testing::PrintToString(bytes);
    }
}

/// One number for the whole code page, so that both platforms prove the same table.
TEST(Text, CodePage932IsTheSameTableOnEveryPlatform)
{
    std::uint64_t sum = 14695981039346656037U;
    int assigned = 0;
    for (int lead = 0x81; lead <= 0xFC; ++lead)
    {
        for (int trail = 0x40; trail <= 0xFC; ++trail)
        {
            const std::string bytes = {static_cast<char>(lead), static_cast<char>(trail)};
            const auto text = WideFromCp932(bytes);
            if (text && text->size() == 1)
            {
                ++assigned;
                sum = (sum ^ static_cast<std::uint64_t>(text->front())) * 1099511628211U;
            }
            else
            {
                sum = (sum ^ 0U) * 1099511628211U;
            }
        }
    }
    EXPECT_EQ(assigned, 9604);
    EXPECT_EQ(sum, 4021959331307995115U);
}

TEST(Text, LongCodePage932TextSurvivesBlockBorders)
{
    std::string bytes;
    std::wstring text;
    for (int index = 0; index < 20000; ++index)
    {
        bytes += index % 7 == 0 ? "a" : "\x90\xFC";
        text += index % 7 == 0 ? L"a" : L"線";
    }
    EXPECT_EQ(WideFromCp932(bytes), text);
    EXPECT_EQ(Cp932FromWide(text), bytes);
}

TEST(Text, APairIsOneCharacter)
{
    const std::wstring text = L"a\xD83D\xDE00"
                              L"b\xD83D";
    EXPECT_EQ(CountCharacters(text), 4U);
    EXPECT_EQ(CountCharacters(L""), 0U);
    EXPECT_EQ(FirstCharacters(text, 0), L"");
    EXPECT_EQ(FirstCharacters(text, 2), L"a\xD83D\xDE00");
    EXPECT_EQ(FirstCharacters(text, 4), text);
    EXPECT_EQ(FirstCharacters(text, 9), text);
}

TEST(Text, ANameIsComparedToItsEndAlsoWithNullCharacters)
{
    EXPECT_TRUE(EqualsText(L"a", L"a"));
    EXPECT_FALSE(EqualsText(L"a", std::wstring_view(L"a\0", 2)));
    EXPECT_FALSE(EqualsText(L"a", std::wstring_view(L"a\0b", 3)));
    EXPECT_FALSE(EqualsText(L"ab", L"a"));
    EXPECT_FALSE(EqualsText(L"a", L"ab"));
}

#ifndef _WIN32

TEST(Text, AUnitBeyondUnicodeIsReplaced)
{
    EXPECT_EQ(Utf8FromWide(std::wstring(1, static_cast<wchar_t>(0x10FFFF))), "\xF4\x8F\xBF\xBF");
    EXPECT_EQ(Utf8FromWide(std::wstring(1, static_cast<wchar_t>(0x110000))), "\xEF\xBF\xBD");
}

TEST(Text, CodePage932HasNoCharacterBeyondTheBasicPlane)
{
    EXPECT_EQ(Cp932FromWide(L"a😀線"), "a?\x90\xFC");
}

#endif

} // namespace
} // namespace jlandxml

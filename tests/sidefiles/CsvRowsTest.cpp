#include "sidefiles/CsvRows.h"

#include "base/Exceptions.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "model/UnsetDouble.h"
#include "support/TemporaryFolder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <unordered_map>

namespace jlandxml
{
namespace
{

using Fields = std::vector<std::wstring>;

/// The rows of a file.
std::vector<Fields> Rows(const std::string& content)
{
    const TestFolder folder;
    CsvRows rows;
    rows.Read(folder.Write(L"side.csv", content));
    std::vector<Fields> all;
    CsvRow row;
    while (rows.Next(row))
    {
        Fields& fields = all.emplace_back();
        for (std::size_t index = 0; index < row.Size(); ++index)
        {
            fields.push_back(WideFromUtf8(row[index]));
        }
    }
    return all;
}

struct RowsCase
{
    const char* name;
    std::string content;
    std::vector<Fields> rows;
};

class Csv : public testing::TestWithParam<RowsCase>
{};

TEST_P(Csv, IsCutIntoRowsAndFields)
{
    EXPECT_EQ(Rows(GetParam().content), GetParam().rows);
}

INSTANTIATE_TEST_SUITE_P(
    CsvRows, Csv,
    testing::Values(RowsCase{"Empty", "", {}}, RowsCase{"MarkAlone", "\xEF\xBB\xBF", {}},
                    RowsCase{"TrailingCommas", "a, b ,,", {{L"a", L"b", L"", L""}}},
                    RowsCase{"OneField", "a", {{L"a"}}},
                    RowsCase{"BlankBeforePercent", "1,2 %,3", {{L"1", L"2%", L"3"}}},
                    RowsCase{"TwoBlanksBeforePercent", "2  %", {{L"2 %"}}}, RowsCase{"PercentAlone", " %", {{L"%"}}},
                    RowsCase{"CarriageReturns", "a\r\nb\r\n", {{L"a"}, {L"b"}}},
                    RowsCase{"BlankLines", "\n\na\n \t\r\n　\n\nb", {{L"a"}, {L"b"}}},
                    RowsCase{"Quotes", "\"a,b\"", {{L"\"a", L"b\""}}}, RowsCase{"CommaAlone", ",", {{L"", L""}}},
                    RowsCase{"MarkAndFullWidthBlanks", "\xEF\xBB\xBF線形,　名　", {{L"線形", L"名"}}},
                    RowsCase{"BrokenMark", "\xEF\xBB", {{L"\xFFFD"}}},
                    RowsCase{"Null", std::string("a\0b,c", 5), {{std::wstring(L"a\0b", 3), L"c"}}},
                    RowsCase{"CarriageReturnWithin", "a\rb", {{L"a\rb"}}},
                    RowsCase{"Malformed",
                             "\xE7\xB7,\xFF"
                             "b",
                             {{L"\xFFFD", L"\xFFFD"
                                          L"b"}}},
                    RowsCase{"Semicolon", "a;b\n", {{L"a;b"}}}),
    [](const auto& test) { return test.param.name; });

TEST(CsvRows, AMissingFileHasNoRows)
{
    CsvRows rows;
    CsvRow row;
    rows.Read(TestFolder().Name(L"missing"));
    EXPECT_FALSE(rows.Next(row));
}

TEST(CsvRows, AnIndexPastTheEndIsAnInvalidArgument)
{
    CsvRow row;
    EXPECT_TRUE(row.Cut("a,b"));
    EXPECT_EQ(row[1], "b");
    EXPECT_THROW(row[2], CInvalidArgException);
}

TEST(CsvRows, SkippingCountsRowsThatHoldSomething)
{
    const TestFolder folder;
    CsvRows rows;
    rows.Read(folder.Write(L"side.csv", "\n1\n\n \n2\n3\n"));
    rows.Skip(2);
    CsvRow row;
    EXPECT_TRUE(rows.Next(row));
    EXPECT_EQ(row[0], "3");
    rows.Skip(5);
    EXPECT_FALSE(rows.Next(row));
}

TEST(CsvRows, TheRowsToComeAreCountedByTheirFields)
{
    const TestFolder folder;
    CsvRows rows;
    rows.Read(folder.Write(L"side.csv", "\xEF\xBB\xBFt\n左,1,2\n\nlong,enough\n,,\n,\n,\n右,3\n左,,終点"));
    rows.Skip(1);
    using Counts = std::unordered_map<std::string, std::size_t>;
    EXPECT_EQ(rows.CountRows(3), 3U);
    EXPECT_EQ(rows.CountRows(3, "終点"), 2U);
    EXPECT_EQ(rows.CountRows(4), 0U);
    EXPECT_EQ(rows.CountByFirstField(3), (Counts{{"左", 2}, {"", 1}}));
    rows.Skip(9);
    EXPECT_EQ(rows.CountRows(3), 0U);
    EXPECT_EQ(rows.CountByFirstField(3), Counts());
}

TEST(CsvRows, ARowKnowsTheLineThatItStoodIn)
{
    const TestFolder folder;
    CsvRows rows;
    CsvRow row;
    rows.Read(folder.Write(L"side.csv", "\n1\n\n \n2\n3"));
    EXPECT_EQ(rows.Line(), 0U);
    for (const std::size_t line : {2U, 5U, 6U})
    {
        EXPECT_TRUE(rows.Next(row));
        EXPECT_EQ(rows.Line(), line);
    }
    rows.Read(folder.Name(L"side.csv"));
    EXPECT_EQ(rows.Line(), 0U);
}

TEST(CsvRows, OneLineOfTenMegabytesIsOneRow)
{
    std::string content;
    for (int field = 0; field < 1000000; ++field)
    {
        content += "12345.67 ,";
    }
    const auto rows = Rows(content);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].size(), 1000001U);
    EXPECT_EQ(rows[0][999999], L"12345.67");
    EXPECT_EQ(rows[0][1000000], L"");
}

/// Rows and fields cut in the plainest way.
std::vector<Fields> NaiveRows(const std::string& content)
{
    std::vector<Fields> all;
    std::wstring text = WideFromUtf8(content.starts_with("\xEF\xBB\xBF") ? content.substr(3) : content);
    text += L'\n';
    std::wstring line;
    for (const wchar_t character : text)
    {
        if (character != L'\n')
        {
            line += character;
            continue;
        }
        line = Trim(std::wstring(line));
        for (std::size_t hit = line.find(L" %"); hit != std::wstring::npos; hit = line.find(L" %", hit + 1))
        {
            line.erase(hit, 1);
        }
        if (!line.empty())
        {
            Fields fields(1);
            for (const wchar_t one : line)
            {
                if (one == L',')
                {
                    fields.emplace_back();
                }
                else
                {
                    fields.back() += one;
                }
            }
            for (std::wstring& field : fields)
            {
                field = Trim(std::wstring(field));
            }
            all.push_back(fields);
        }
        line.clear();
    }
    return all;
}

TEST(CsvRows, RandomFilesAreCutAsByAPlainCut)
{
    std::mt19937 random(4);
    const std::string pieces[] = {",",
                                  ",",
                                  "\n",
                                  "\r\n",
                                  " ",
                                  " %",
                                  "%",
                                  "\"",
                                  "1.5",
                                  "線",
                                  "\xE3\x80\x80",
                                  "\xFF",
                                  "\xE7\xB7",
                                  "\t",
                                  std::string(1, '\0'),
                                  "m"};
    for (int round = 0; round < 2000; ++round)
    {
        std::string content = random() % 4 == 0 ? "\xEF\xBB\xBF" : "";
        for (auto count = random() % 30; count > 0; --count)
        {
            content += pieces[random() % std::size(pieces)];
        }
        ASSERT_EQ(Rows(content), NaiveRows(content)) << testing::PrintToString(content);
    }
}

TEST(CsvRows, NumbersAreReadAsTheCLibraryDoes)
{
    EXPECT_EQ(CsvNumber(""), UNSET_DOUBLE);
    EXPECT_EQ(CsvNumber("12.5m"), 12.5);
    EXPECT_EQ(CsvNumber("1e3"), 1000.0);
    EXPECT_EQ(CsvNumber("0x10"), 16.0);
    EXPECT_EQ(CsvNumber("abc"), 0.0);
    EXPECT_EQ(CsvNumber("-inf"), -HUGE_VAL);
    EXPECT_TRUE(std::isnan(CsvNumber("nan")));
    EXPECT_EQ(CsvNumber("１"), 0.0);
}

TEST(CsvRows, NumbersOfDigitsAreReadAsAllOthers)
{
    std::mt19937 random(7);
    constexpr std::string_view CHARACTERS = "0123456789012345678900..+-e ";
    for (int round = 0; round < 50000; ++round)
    {
        std::string field;
        for (auto count = 1 + random() % 24; count > 0; --count)
        {
            field += CHARACTERS[random() % CHARACTERS.size()];
        }
        const double expected = ParseDouble(WideFromUtf8(field)).value;
        ASSERT_EQ(CsvNumber(field), expected) << field;
        ASSERT_EQ(std::signbit(CsvNumber(field)), std::signbit(expected)) << field;
    }
}

TEST(CsvRows, LinesMayEndAnywhereInABlock)
{
    constexpr std::size_t BLOCK = std::size_t{1} << 18;
    for (std::size_t first = BLOCK - 8; first < BLOCK + 8; ++first)
    {
        const std::string content = std::string(first, 'x') + ",線\n" + std::string(3 * BLOCK, 'y') + ",形\r\nz";
        const auto rows = Rows(content);
        ASSERT_EQ(rows.size(), 3U);
        EXPECT_EQ(rows[0], (Fields{std::wstring(first, L'x'), L"線"}));
        EXPECT_EQ(rows[1], (Fields{std::wstring(3 * BLOCK, L'y'), L"形"}));
        EXPECT_EQ(rows[2], Fields{L"z"});
    }
}

TEST(CsvRows, RowsToComeAreCountedFromWhereverTheFileHasBeenRead)
{
    std::string content = "\xEF\xBB\xBF";
    constexpr std::size_t ROWS = 60000;
    for (std::size_t row = 0; row < ROWS; ++row)
    {
        content += "左,12,3\n";
    }
    const TestFolder folder;
    CsvRows rows;
    rows.Read(folder.Write(L"side.csv", content));
    CsvRow row;
    for (std::size_t taken = 0; taken < ROWS; ++taken)
    {
        if (taken % 7001 == 0)
        {
            EXPECT_EQ(rows.CountRows(3), ROWS - taken);
        }
        ASSERT_TRUE(rows.Next(row));
        EXPECT_EQ(row[0], "左");
    }
    EXPECT_EQ(rows.CountRows(2), 0U);
}

} // namespace
} // namespace jlandxml

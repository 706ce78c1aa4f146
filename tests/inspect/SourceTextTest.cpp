#include "inspect/SourceText.h"

#include "base/Text.h"

#include <gtest/gtest.h>

namespace jlandxml::inspect
{
namespace
{

/// A file's bytes, and its text.
struct EncodedText
{
    const char* name;
    std::string bytes;
    std::string text;
};

class DecodedBytes : public testing::TestWithParam<EncodedText>
{};

TEST_P(DecodedBytes, AreTheTextInUtf8WithoutAMark)
{
    EXPECT_EQ(DecodedText(GetParam().bytes), GetParam().text);
}

using namespace std::string_literals;

constexpr const char* CP932_ROUTE = "\x98\x48\x90\xFC"; // 路線

INSTANTIATE_TEST_SUITE_P(
    Inspect, DecodedBytes,
    testing::Values(
        EncodedText{"Utf8", "<a>路線</a>", "<a>路線</a>"}, EncodedText{"Utf8WithMark", "\xEF\xBB\xBF<a/>", "<a/>"},
        EncodedText{"Utf16LittleEndian", "\xFF\xFE\xEF\x8D\xDA\x7D"s, "路線"},
        EncodedText{"Utf16BigEndian", "\xFE\xFF\x8D\xEF\x7D\xDA"s, "路線"},
        EncodedText{"Utf16Pair", "\xFF\xFE\x42\xD8\xB7\xDF"s, "𠮷"},
        EncodedText{"Utf16CutInAPair", "\xFF\xFE\x42\xD8"s, "\uFFFD"},
        EncodedText{"Utf16HighBeforeAnother", "\xFF\xFE\x42\xD8\x61\x00"s, "\uFFFDa"},
        EncodedText{"Utf16HighBeforePrivateUse", "\xFF\xFE\x42\xD8\x00\xE0"s, "\uFFFD\uE000"},
        EncodedText{"Utf16LowAlone", "\xFF\xFE\xB7\xDF"s, "\uFFFD"},
        EncodedText{"Utf16OddByte", "\xFF\xFE\xEF\x8D\xDA"s, "路"},
        EncodedText{"CodePage932", "<?xml encoding='Shift_JIS'?>"s + CP932_ROUTE, "<?xml encoding='Shift_JIS'?>路線"},
        EncodedText{"CodePage932ByItsOtherName", "<?xml encoding=\"windows-31j\"?>"s + CP932_ROUTE,
                    "<?xml encoding=\"windows-31j\"?>路線"},
        EncodedText{"MalformedCodePage932", "<?xml encoding='SJIS'?>\x98", "<?xml encoding='SJIS'?>\x98"},
        EncodedText{"UnquotedEncoding", "<?xml encoding=SJIS?>\x98\x48", "<?xml encoding=SJIS?>\x98\x48"},
        EncodedText{"HalfQuotedEncoding", "<?xml encoding='SJIS?>\x98\x48", "<?xml encoding='SJIS?>\x98\x48"},
        EncodedText{"NoEncoding", "<?xml version='1.0'?>\x98\x48", "<?xml version='1.0'?>\x98\x48"},
        EncodedText{"EncodingOfAnElement", "<a encoding='SJIS'/>\x98\x48", "<a encoding='SJIS'/>\x98\x48"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(SourceText, OnlyPlainTagsOfPointsAndFacesHavePassages)
{
    SourceText text("<Pnts><P id=\"1\">1 2 3</P></Pnts><Faces n='1'><F>1 1 1</F></Faces><PntsX/><Pnts");
    EXPECT_EQ(text.Text(), L"<Pnts></Pnts><Faces n='1'><F>1 1 1</F></Faces><PntsX/><Pnts");
    ASSERT_NE(text.PassageAt(1), nullptr);
    EXPECT_EQ(text.PassageAt(1)->points.size(), 1U);
    EXPECT_EQ(text.PassageAt(14), nullptr);
}

} // namespace
} // namespace jlandxml::inspect

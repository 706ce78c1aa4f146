#include "inspect/ReadLandXml.h"

#include "SoundFile.h"
#include "base/Exceptions.h"
#include "inspect/Summary.h"

#include <cmath>
#include <cstdlib>

namespace jlandxml::inspect
{
namespace
{

LandXmlFile Read(std::string bytes)
{
    return ReadLandXmlBytes(std::move(bytes), L"file.xml");
}

std::string Error(std::string bytes)
{
    try
    {
        Read(std::move(bytes));
        return "";
    }
    catch (const CFileException& exception)
    {
        return exception.what();
    }
}

/// The text in another encoding's bytes, with two bytes a unit.
std::string Utf16(const std::string& utf8, bool isBigEndian)
{
    std::string bytes = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const wchar_t character : WideFromUtf8(utf8))
    {
        const char low = static_cast<char>(character & 0xFF);
        const char high = static_cast<char>((character >> 8) & 0xFF);
        bytes += isBigEndian ? std::string{high, low} : std::string{low, high};
    }
    return bytes;
}

constexpr const char* PROJECT = "<LandXML version=\"1.2\"><Project name=\"架空バイパス\"/></LandXML>";

TEST(ReadLandXml, TellsEncodingsApart)
{
    const std::string cp932 = Cp932FromWide(WideFromUtf8(PROJECT));
    for (const std::string& bytes : {std::string(PROJECT), "\xEF\xBB\xBF" + std::string(PROJECT), Utf16(PROJECT, false),
                                     Utf16(PROJECT, true), "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>" + cp932,
                                     "<?xml version='1.0' encoding='windows-31j'?>" + cp932})
    {
        const LandXmlFile file = Read(bytes);
        EXPECT_EQ(file.projectName, L"架空バイパス");
        EXPECT_EQ(file.encoding.fault, EncodingFault::None);
    }
}

/// A file's bytes, and how its encoding is judged.
struct DeclaredBytes
{
    const char* name;
    std::string bytes;
    EncodingFault fault;
    std::wstring declared;
    std::wstring read;
};

class DeclaredEncodings : public testing::TestWithParam<DeclaredBytes>
{};

TEST_P(DeclaredEncodings, AreHeldAgainstTheBytes)
{
    const SourceEncoding encoding = SourceText(GetParam().bytes).Encoding();
    EXPECT_EQ(encoding.fault, GetParam().fault);
    EXPECT_EQ(encoding.declared, GetParam().declared);
    EXPECT_EQ(encoding.read, GetParam().read);
}

std::string Declared(const std::string& encoding, const std::string& content)
{
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?><a>" + content + "</a>";
}

std::string Marked(const std::string& text)
{
    return "\xEF\xBB\xBF" + text;
}

constexpr const char* EUC_JP_ROUTE = "\xCF\xA9\xC0\xFE"; // 路線

INSTANTIATE_TEST_SUITE_P(
    Inspect, DeclaredEncodings,
    testing::Values(
        DeclaredBytes{"None", "<a>路線</a>", EncodingFault::None, L"", L"UTF-8"},
        DeclaredBytes{"Utf8InSmallLetters", Declared("utf-8", "路線"), EncodingFault::None, L"utf-8", L"UTF-8"},
        DeclaredBytes{"MalformedUtf8", Declared("UTF-8", EUC_JP_ROUTE), EncodingFault::MalformedBytes, L"UTF-8",
                      L"UTF-8"},
        DeclaredBytes{"EucJp", Declared("EUC-JP", EUC_JP_ROUTE), EncodingFault::UnknownDeclared, L"EUC-JP", L"UTF-8"},
        DeclaredBytes{"EucJpOfAsciiAlone", Declared("EUC-JP", "a"), EncodingFault::None, L"EUC-JP", L"UTF-8"},
        DeclaredBytes{"AnEscapeToOtherCharacters", Declared("ISO-2022-JP", "\x1B$B"), EncodingFault::UnknownDeclared,
                      L"ISO-2022-JP", L"UTF-8"},
        DeclaredBytes{"ANameThatNobodyKnows", Declared("X", "路線"), EncodingFault::UnknownDeclared, L"X", L"UTF-8"},
        DeclaredBytes{"Utf16OfUtf8", Declared("utf-16", "a"), EncodingFault::AnotherDeclared, L"utf-16", L"UTF-8"},
        DeclaredBytes{"Cp932", Declared("Shift_JIS", "\x98\x48"), EncodingFault::None, L"Shift_JIS", L"Shift_JIS"},
        DeclaredBytes{"Cp932OfUtf8", Declared("Shift_JIS", "橋"), EncodingFault::AnotherDeclared, L"Shift_JIS",
                      L"UTF-8"},
        DeclaredBytes{"MalformedCp932", Declared("Shift_JIS", "\x98"), EncodingFault::MalformedBytes, L"Shift_JIS",
                      L"UTF-8"},
        DeclaredBytes{"Cp932BehindAMark", Marked(Declared("Shift_JIS", "a")), EncodingFault::AnotherDeclared,
                      L"Shift_JIS", L"UTF-8"},
        DeclaredBytes{"EucJpBehindAMark", Marked(Declared("EUC-JP", "a")), EncodingFault::AnotherDeclared, L"EUC-JP",
                      L"UTF-8"},
        DeclaredBytes{"Utf8BehindAMark", Marked(Declared("UTF-8", "路線")), EncodingFault::None, L"UTF-8", L"UTF-8"},
        DeclaredBytes{"Utf16", Utf16(Declared("UTF-16", "路線"), false), EncodingFault::None, L"UTF-16", L"UTF-16"},
        DeclaredBytes{"Utf16WithoutADeclaration", Utf16("<a/>", true), EncodingFault::None, L"", L"UTF-16"},
        DeclaredBytes{"Utf8OfUtf16", Utf16(Declared("UTF-8", "路線"), false), EncodingFault::AnotherDeclared, L"UTF-8",
                      L"UTF-16"},
        DeclaredBytes{"ALoneSurrogate", Utf16("<a/>", false) + "\x42\xD8", EncodingFault::MalformedBytes, L"",
                      L"UTF-16"},
        DeclaredBytes{"ASurrogateInFrontOfAnother", Utf16("<a/>", false) + "\x42\xD8\x42\xD8",
                      EncodingFault::MalformedBytes, L"", L"UTF-16"},
        DeclaredBytes{"ASurrogatePair", Utf16("<a/>", false) + "\x42\xD8\xB7\xDF", EncodingFault::None, L"", L"UTF-16"},
        DeclaredBytes{"AnOddByte", Utf16("<a/>", false) + " ", EncodingFault::MalformedBytes, L"", L"UTF-16"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ReadLandXml, SaysAsWhatItJudgesAFileOfAnotherVersion)
{
    const auto format = [](const std::string& root) {
        const std::wstring summary = SummaryText(Read(root));
        const std::size_t line = summary.find(L"形式: ");
        return Utf8FromWide(summary.substr(line, summary.find(L'\n', line) - line));
    };
    const std::string name = "xmlns=\"http://www.landxml.org/schema/LandXML-1.2\"";
    EXPECT_EQ(format("<LandXML " + name + " version=\"1.2\"/>"), "形式: LandXML 1.2");
    EXPECT_EQ(format("<LandXML " + name + " version=\"1.0\"/>"), "形式: LandXML 1.0（LandXML 1.2として検査）");
    EXPECT_EQ(format("<LandXML version=\"1.2\"/>"), "形式: LandXML 1.2（LandXML 1.2として検査）");
    EXPECT_EQ(format("<LandXML/>"), "形式: LandXML （指定なし）（LandXML 1.2として検査）");
}

TEST(ReadLandXml, ReadsEveryKindOfElement)
{
    const LandXmlFile file = SoundFile();
    EXPECT_EQ(file.version, L"1.2");
    EXPECT_EQ(file.coordinateSystem->zoneName, L"9(X,Y)");
    EXPECT_EQ(file.units->direction, L"decimal dd.mm.ss");
    EXPECT_EQ(file.pointGroups.size(), 2U);
    EXPECT_TRUE(file.pointGroups[0].IsIntermediate());
    EXPECT_TRUE(file.pointGroups[1].IsWidthStakes());
    EXPECT_EQ(file.pointGroups[1].alignmentRefs, L"線形1");
    EXPECT_EQ(file.pointGroups[0].points[2].direction.text, L"63.38452961");
    const Alignment& alignment = file.routes.front().alignments.front();
    EXPECT_EQ(alignment.elements.size(), 5U);
    EXPECT_EQ(alignment.elements[1].parameter.text, L"100.000000");
    EXPECT_EQ(alignment.elements[1].pi.name, L"IP");
    EXPECT_EQ(alignment.intersections.size(), 3U);
    EXPECT_EQ(alignment.equations[1].ahead.text, L"265.000");
    EXPECT_EQ(alignment.profiles.front().designs.front().elements.size(), 4U);
    EXPECT_EQ(alignment.profiles.front().grounds.front().lists.front().pairs.size(), 4U);
    EXPECT_EQ(alignment.superelevations.front().stations.size(), 6U);
    EXPECT_EQ(alignment.superelevations.front().fullSuperelev.text, L"5.0");
    EXPECT_EQ(alignment.wideningLeft.size(), 4U);
    EXPECT_EQ(alignment.wideningRight[1].At(1).text, L"0.25");
    EXPECT_FALSE(alignment.wideningRight[1].At(9).IsWritten());
    const CrossSect& section = alignment.crossSects.front().sections.front();
    EXPECT_EQ(section.designs.size(), 3U);
    EXPECT_TRUE(section.designs[1].IsClosed());
    EXPECT_EQ(section.designs[1].points.size(), 5U);
    EXPECT_EQ(file.roadways.front().designSpeeds.front(), L"60");
    EXPECT_EQ(file.surfaces.front().points.size(), 6U);
    EXPECT_EQ(file.surfaces.front().faces.size(), 4U);
    EXPECT_TRUE(file.skipped.empty());
    EXPECT_TRUE(file.unreadable.empty());
}

TEST(ReadLandXml, FollowsALongWayOfReferencesFromPointToPoint)
{
    constexpr int COUNT = 100;
    std::string text = "<LandXML><CgPoints>";
    for (int number = 0; number < COUNT; ++number)
    {
        text += "<CgPoint name=\"" + std::to_string(number) + "\" pntRef=\"" + std::to_string(number + 1) + "\"/>";
    }
    const LandXmlFile file = Read(text + "<CgPoint name=\"100\">1. 2. 3.</CgPoint></CgPoints></LandXML>");
    ASSERT_EQ(file.pointGroups.size(), 1U);
    for (const CgPoint& one : file.pointGroups.front().points)
    {
        EXPECT_EQ(one.point.north.text, L"1.");
        EXPECT_EQ(one.point.east.text, L"2.");
        EXPECT_EQ(one.point.height.text, L"3.");
        EXPECT_FALSE(one.point.isRound);
    }
}

TEST(ReadLandXml, KnowsTheLineOfEveryElementAlsoBehindPointsAndFaces)
{
    const LandXmlFile file =
        SoundFile({{"</LandXML>", "<Roadways>\n<Roadway name='last' alignmentRefs='x'/></Roadways>\n</LandXML>"}});
    const std::string text = SoundText();
    const auto lineOf = [&](const char* part) {
        return static_cast<std::size_t>(
                   std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(text.find(part)), '\n')) +
               1;
    };
    EXPECT_EQ(file.surfaces.front().line, lineOf("<Surface name"));
    EXPECT_EQ(file.surfaces.front().points[2].line, lineOf("<P id=\"3\""));
    EXPECT_EQ(file.surfaces.front().faces[3].line, lineOf("<F>3 6 5"));
    EXPECT_EQ(file.surfaces.front().features.front().line, lineOf("</Definition>") + 1);
    EXPECT_EQ(file.roadways.back().line, lineOf("</LandXML>") + 1);
}

struct Surfaces
{
    const char* name;
    const char* points;
    const char* faces;
};

const Surfaces SAME_SURFACES[] = {
    {"Plain", "<P id=\"1\">1 2 3</P>\n<P id=\"2\">4 5 6</P>", "<F>1 2 1</F>"},
    {"WithBlanks", " <P  id='1'>\t1 2\n3 </P >", "<F>1 2 1</F>"},
    {"WithAComment", "<P id=\"1\">1 2 3</P><!-- <P id='9'>0 0 0</P> --><P id=\"2\">4 5 6</P>", "<F>1 2 1</F>"},
    {"WithAnEntity", "<P id=\"&#49;\">1 2 3</P>", "<F>1 2&#32;1</F>"},
    {"WithOtherAttributes", "<P id=\"1\" name=\"a>b\" code='x'>1 2 3</P>", "<F n=\"0 1 2\">1 2 1</F>"},
    {"WithCharacterData", "<P id=\"1\"><![CDATA[1 2 3]]></P>", "<F>1 2 1</F>"},
    {"WithSigns", "<P id=\"1\">+1 2e0 3.</P>", "<F>1 2 1</F>"},
};

class SameSurfaces : public testing::TestWithParam<Surfaces>
{};

TEST_P(SameSurfaces, AreReadTheSameBesideTheTreeAndInIt)
{
    const LandXmlFile file = Read("<LandXML><Surfaces><Surface name=\"s\"><Definition surfType=\"TIN\"><Pnts>" +
                                  std::string(GetParam().points) + "</Pnts><Faces>" + GetParam().faces +
                                  "</Faces></Definition></Surface></Surfaces></LandXML>");
    const Surface& surface = file.surfaces.front();
    ASSERT_GE(surface.points.size(), 1U);
    EXPECT_EQ(surface.points.front().id, 1U);
    EXPECT_EQ(surface.points.front().north, 1);
    EXPECT_EQ(surface.points.front().east, 2);
    EXPECT_EQ(surface.points.front().height, 3);
    ASSERT_EQ(surface.faces.size(), 1U);
    EXPECT_EQ(surface.faces.front().cornerCount, 3);
    EXPECT_EQ(surface.faces.front().corners, (std::array<std::uint32_t, 4>{1, 2, 1, 0}));
}

INSTANTIATE_TEST_SUITE_P(Inspect, SameSurfaces, testing::ValuesIn(SAME_SURFACES),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(ReadLandXml, PointsInACommentBelongToNoSurface)
{
    const LandXmlFile file = Read("<LandXML><!--<Pnts><P id=\"1\">1 2 3</P></Pnts>--><Surfaces><Surface name=\"s\"/>"
                                  "</Surfaces></LandXML>");
    EXPECT_TRUE(file.surfaces.front().points.empty());
}

TEST(ReadLandXml, NamespacePrefixesDoNotMatter)
{
    const LandXmlFile file =
        Read("<x:LandXML xmlns:x='http://www.landxml.org/schema/LandXML-1.2'><x:Project name='p'/></x:LandXML>");
    EXPECT_EQ(file.projectName, L"p");
}

TEST(ReadLandXml, SaysWhyAFileCannotBeRead)
{
    EXPECT_EQ(Error("<LandXML>\n<Project>\n</LandXML>"), "XMLとして読み込めません（3行目）");
    EXPECT_EQ(Error("<gpx/>"), "LandXMLのファイルではありません（最上位の要素: gpx）");
    EXPECT_EQ(Error(""), "XMLとして読み込めません（1行目）");
    EXPECT_EQ(Error("\xFF\xFE"), "XMLとして読み込めません（1行目）");
    EXPECT_THROW(ReadLandXmlFile(L"無い.xml"), CFileException);
}

TEST(SurfacePoints, HaveTheNearestNumbersToTheirTexts)
{
    for (const char* const text :
         {"0", "-0.0", "12463.305", "-104.300", "0.1", ".5", "5.", "999999999999999", "0.000000000000001",
          "9007199254740993", "123456789.123456789", "1e5", "+3.25", "-1.7976931348623157e308", "0.30000000000000004"})
    {
        EXPECT_EQ(ReadSurfacePoint("1", text, 1).north, std::strtod(text, nullptr)) << text;
    }
    for (const char* const text : {".", "-", "", "1.2.3", "1,5", "12a", "--1", "0x10", "１"})
    {
        EXPECT_TRUE(std::isnan(ReadSurfacePoint("1", text, 1).north)) << text;
    }
}

// Extents

TEST(ReadLandXml, ExtentsOfASurfaceAreTheFilesOwnText)
{
    for (const char* const note : {"", "<!-- read by the parser -->"})
    {
        const LandXmlFile file =
            ReadLandXmlBytes("<LandXML><Surfaces><Surface><Definition surfType=\"TIN\"><Pnts>" + std::string(note) +
                                 "<P id=\"1\">1.500 20.0 -0.10</P><P id=\"2\">x 5 7.000</P>"
                                 "<P id=\"3\">1.5000 30.00 5</P><P id=\"4\">-2.50 +20.5 5</P>"
                                 "</Pnts><Faces></Faces></Definition></Surface></Surfaces></LandXML>",
                             L"x");
        const Extents extents = ExtentsOf(file);
        EXPECT_EQ(extents.north.SmallestText() + L"～" + extents.north.LargestText(), L"-2.50～1.500");
        EXPECT_EQ(extents.east.SmallestText() + L"～" + extents.east.LargestText(), L"5～30.00");
        EXPECT_EQ(extents.height.SmallestText() + L"～" + extents.height.LargestText(), L"-0.10～7.000");
    }
}

} // namespace
} // namespace jlandxml::inspect

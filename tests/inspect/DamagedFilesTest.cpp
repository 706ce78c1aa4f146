// Sound files with one place damaged, each place in turn: whatever is missing or nonsense there, the file is judged,
// summed up, tabulated and drawn to the end, or it is none that can be read.

#include "SoundFile.h"

#include "base/Exceptions.h"
#include "inspect/Checks.h"
#include "inspect/Printing.h"
#include "inspect/Report.h"
#include "inspect/Summary.h"
#include "inspect/Tables.h"
#include "support/Rounds.h"

#include <algorithm>
#include <string_view>

namespace jlandxml::inspect
{
namespace
{

/// A range of a file's text.
struct TextRange
{
    std::size_t begin;
    std::size_t end;
};

/// The values of all attributes, without their quotes.
std::vector<TextRange> AttributeValues(const std::string& text)
{
    std::vector<TextRange> values;
    for (std::size_t open = text.find("=\""); open != std::string::npos; open = text.find("=\"", open))
    {
        const std::size_t begin = open + 2;
        open = text.find('"', begin);
        values.push_back({begin, open});
    }
    return values;
}

/// The attributes with the blank before them.
std::vector<TextRange> WholeAttributes(const std::string& text)
{
    std::vector<TextRange> attributes = AttributeValues(text);
    for (TextRange& attribute : attributes)
    {
        attribute = {text.find_last_of(" \n\t", attribute.begin), attribute.end + 1};
    }
    return attributes;
}

/// The texts between tags that are more than white space.
std::vector<TextRange> ElementTexts(const std::string& text)
{
    std::vector<TextRange> texts;
    for (std::size_t close = text.find('>'); close != std::string::npos; close = text.find('>', close + 1))
    {
        const std::size_t end = std::min(text.find('<', close), text.size());
        if (text.find_first_not_of(" \r\n\t", close + 1) < end)
        {
            texts.push_back({close + 1, end});
        }
    }
    return texts;
}

/// The elements that hold no others of their own name, from tag to tag.
std::vector<TextRange> Elements(const std::string& text)
{
    std::vector<TextRange> elements;
    for (std::size_t open = text.find('<'); open != std::string::npos; open = text.find('<', open + 1))
    {
        const std::size_t nameEnd = text.find_first_of(" \n\t/>", open + 1);
        const std::string name = text.substr(open + 1, nameEnd - open - 1);
        const std::size_t tagEnd = text.find('>', open);
        const std::string closing = "</" + name + ">";
        const std::size_t closed = text.find(closing, open);
        if (text[tagEnd - 1] == '/')
        {
            elements.push_back({open, tagEnd + 1});
        }
        else if (!name.empty() && closed != std::string::npos)
        {
            elements.push_back({open, closed + closing.size()});
        }
    }
    return elements;
}

/// What takes the place of a range.
struct Damage
{
    const char* name;
    std::vector<TextRange> (*places)(const std::string& text);
    const char* text;
};

constexpr Damage DAMAGES[] = {
    {"AttributeMissing", WholeAttributes, ""},
    {"AttributeNoNumber", AttributeValues, "x"},
    {"AttributeNegative", AttributeValues, "-1"},
    {"AttributeHuge", AttributeValues, "1e300"},
    {"TextMissing", ElementTexts, ""},
    {"TextZero", ElementTexts, "0 0 0"},
    {"TextHuge", ElementTexts, "1e300 -1e300 1e300 -1e300"},
    {"ElementMissing", Elements, ""},
};

void ExpectIsToldOf(const LandXmlFile& file, std::size_t lines)
{
    const std::vector<Finding> findings = Inspect(file, EveryCheck());
    for (const Finding& finding : findings)
    {
        EXPECT_LE(finding.line, lines);
        EXPECT_FALSE(FindingLine(finding).empty());
    }
    EXPECT_FALSE(SummaryText(file).empty());
    const std::wstring json = JsonLine(file, findings);
    EXPECT_EQ(json.find(L'\n'), json.size() - 1);
    EXPECT_TRUE(ReportPage(file, findings).ends_with("</script></body></html>\n"));
    for (const Table& table : AllTables(file))
    {
        EXPECT_TRUE(std::all_of(table.rows.begin(), table.rows.end(),
                                [&](const auto& row) { return row.size() == table.columns.size(); }));
    }
}

/// Under the sanitizers, where a page takes ten times as long, each fourth place; the fuzz targets try the others
/// there.
constexpr std::size_t STEP = HAS_SANITIZERS ? 4 : 1;

class DamagedFile : public testing::TestWithParam<Damage>
{};

TEST_P(DamagedFile, IsToldOfToTheEnd)
{
    const std::string sound = SoundText();
    const std::size_t lines = static_cast<std::size_t>(std::count(sound.begin(), sound.end(), '\n')) + 1;
    const std::vector<TextRange> places = GetParam().places(sound);
    ASSERT_GT(places.size(), 30U);
    std::size_t read = 0;
    std::size_t tried = 0;
    for (std::size_t index = 0; index < places.size(); index += STEP)
    {
        const TextRange& place = places[index];
        ++tried;
        SCOPED_TRACE(sound.substr(place.begin, std::min<std::size_t>(place.end - place.begin, 60)));
        std::string damaged = sound;
        damaged.replace(place.begin, place.end - place.begin, GetParam().text);
        try
        {
            const LandXmlFile file = ReadLandXmlBytes(damaged, L"damaged.xml");
            ++read;
            ExpectIsToldOf(file, lines);
        }
        catch (const CException& exception)
        {
            EXPECT_FALSE(ErrorText(exception).empty());
        }
    }
    // Hardly a place keeps a file from being read.
    EXPECT_GE(read, tried - 3);
}

INSTANTIATE_TEST_SUITE_P(Inspect, DamagedFile, testing::ValuesIn(DAMAGES),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace jlandxml::inspect

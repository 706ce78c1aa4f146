#include "inspect/SchemaValidation.h"

#include "SoundFile.h"
#include "inspect/SourceText.h"
#include "support/RowName.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <iterator>

namespace jlandxml::inspect
{
namespace
{

/// Of a road's elements, of which a section alone has to have a name.
constexpr const char* ROAD_SCHEMA =
    "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element name='Road'><xs:complexType><xs:sequence>"
    "<xs:element name='Section' maxOccurs='unbounded'><xs:complexType mixed='true'><xs:sequence>"
    "<xs:any minOccurs='0' maxOccurs='unbounded' processContents='skip'/></xs:sequence>"
    "<xs:attribute name='name' use='required'/></xs:complexType></xs:element>"
    "<xs:element name='End'/></xs:sequence></xs:complexType></xs:element></xs:schema>";

std::string Told(const XmlFault& fault)
{
    return std::to_string(fault.line) + " " + Utf8FromWide(fault.path) + " " + Utf8FromWide(fault.reason);
}

/// The lines, paths and reasons of a file's faults against the schema of roads.
std::vector<std::string> FaultsOf(const std::string& file)
{
    const TestFolder folder;
    const SchemaFaults faults = XmlSchema(folder.Write(L"road.xsd", ROAD_SCHEMA)).Validate(file);
    EXPECT_EQ(faults.more, 0U);
    std::vector<std::string> said;
    if (faults.end)
    {
        said.push_back(Told(*faults.end));
    }
    std::transform(faults.listed.begin(), faults.listed.end(), std::back_inserter(said), Told);
    return said;
}

/// Of the file's form without a schema.
std::vector<std::string> FormFaultsOf(const std::string& file)
{
    const std::optional<XmlFault> fault = SourceText(file).FormFault();
    return fault ? std::vector{Told(*fault)} : std::vector<std::string>();
}

/// A slip in the text of a file that a parser can't read past.
struct Slip
{
    const char* name;
    std::vector<Change> changes; ///< of a road without a fault
    std::vector<std::string> said;
    bool isOfTheForm = true; ///< the first of them, if there is one, is a fault without any schema too
};

const std::string ROAD = "<?xml version=\"1.0\"?>\n<Road>\n<Section name=\"1\">道</Section>\n<Section name=\"2\"/>\n"
                         "<End/>\n</Road>\n";

std::string Repeated(std::string_view text, std::size_t count)
{
    std::string repeated;
    for (; count > 0; --count)
    {
        repeated += text;
    }
    return repeated;
}

/// So many elements may be open.
constexpr std::size_t DEEPEST = 257;

const Slip SLIPS[] = {
    {"None", {}, {}},
    {"NoneInATextThatWasDecoded", {{"<?xml version=\"1.0\"", "<?xml\nversion=\"1.0\" encoding=\"UTF-16\""}}, {}},
    {"AControlCharacter", {{"道", "道\x01"}}, {"3 /Road/Section PCDATA invalid Char value 1"}},
    {"AControlCharacterInAnAttribute", {{"\"1\"", "\"1\x02\""}}, {"3 /Road invalid character in attribute value"}},
    {"AReferenceToAControlCharacter", {{"道", "道&#1;"}}, {"3 /Road/Section xmlParseCharRef: invalid xmlChar value 1"}},
    {"AnAngleBracketInAnAttribute", {{"\"2\"", "\"2<3\""}}, {"4 /Road Unescaped '<' not allowed in attributes values"}},
    {"AnAttributeTwice", {{"name=\"2\"", "name=\"2\" name=\"3\""}}, {"4 /Road Attribute name redefined"}},
    {"AnAmpersand", {{"道", "道 & 橋"}}, {"3 /Road/Section xmlParseEntityRef: no name"}},
    {"AnEntityThatIsNotThere", {{"道", "道&foo;"}}, {"3 /Road/Section Entity 'foo' not defined"}},
    {"TwoHyphensInAComment", {{"<End/>", "<!-- a -- b --><End/>"}}, {"5 /Road Double hyphen within comment"}},
    {"ASecondOutermostElement", {{"</Road>\n", "</Road>\n<Road/>"}}, {"7 / Extra content at the end of the document"}},
    {"AnElementThatStaysOpen", {{"</Road>", ""}}, {"7 /Road Premature end of data in tag Road line 2"}},
    {"NothingAtAll", {{ROAD, ""}}, {"1 / Document is empty"}},
    {"TooManyLevels",
     {{"道", Repeated("<a>", 3000) + Repeated("</a>", 3000)}},
     {"3 /Road/Section" + Repeated("/a", DEEPEST - 2) + " Excessive depth in document: 256 use XML_PARSE_HUGE option"},
     false},
    {"TwoOfThem",
     {{"道", "道\x01"}, {"name=\"2\"", "name=\"2\" name=\"3\""}},
     {"3 /Road/Section PCDATA invalid Char value 1"}},
    {"AFaultInFrontOfIt",
     {{" name=\"1\"", ""}, {"\"2\"", "\"2<3\""}},
     {"4 /Road Unescaped '<' not allowed in attributes values",
      "3 /Road/Section Element 'Section': The attribute 'name' is required but missing."}},
    {"AFaultBehindIt", {{" name=\"2\"", ""}, {"道", "道\x01"}}, {"3 /Road/Section PCDATA invalid Char value 1"}},
    {"AFaultOfItsOwnElement",
     {{" name=\"1\"", " title=\"1\""}, {"道", "道\x01"}},
     {"3 /Road/Section PCDATA invalid Char value 1",
      "3 /Road/Section attribute 'title': The attribute 'title' is not allowed.",
      "3 /Road/Section Element 'Section': The attribute 'name' is required but missing."}},
};

class Slips : public testing::TestWithParam<Slip>
{
  protected:
    void SetUp() override
    {
        if (!CanValidate())
        {
            GTEST_SKIP() << "built without the validating library";
        }
    }
};

TEST_P(Slips, AreOneFaultWhereTheyStand)
{
    EXPECT_EQ(FaultsOf(Changed(ROAD, GetParam().changes)), GetParam().said);
}

TEST_P(Slips, AreFaultsOfTheFormWithoutASchema)
{
    const Slip& slip = GetParam();
    const std::vector<std::string> first(slip.said.begin(), slip.said.begin() + (slip.said.empty() ? 0 : 1));
    EXPECT_EQ(FormFaultsOf(Changed(ROAD, slip.changes)), slip.isOfTheForm ? first : std::vector<std::string>());
}

INSTANTIATE_TEST_SUITE_P(Inspect, Slips, testing::ValuesIn(SLIPS),
                         [](const auto& slip) { return std::string(slip.param.name); });

} // namespace
} // namespace jlandxml::inspect

#include "inspect/WellFormedness.h"

#include "SoundFile.h"
#include "inspect/SourceText.h"

namespace jlandxml::inspect
{
namespace
{

std::string Repeat(std::string_view text, std::size_t count)
{
    std::string repeated;
    for (; count > 0; --count)
    {
        repeated += text;
    }
    return repeated;
}

/// So many attributes of different names.
std::string Attributes(int count, const std::string& prefix)
{
    std::string attributes;
    for (int index = 0; index < count; ++index)
    {
        attributes += " " + prefix + std::to_string(index) + "=\"u\"";
    }
    return attributes;
}

/// A change to a surface's file, and the one fault of its form, by line, path and words.
struct Form
{
    const char* name;
    std::vector<Change> changes;
    std::string said; ///< empty: none
};

const std::string SURFACE =
    "<?xml version=\"1.0\"?>\n<LandXML>\n<Surface name=\"地形\"><Pnts>\n<P id=\"1\">1 2 3</P>\n<P id=\"2\" >4 5 6</P>\n"
    "</Pnts><Faces>\n<F>1 2 2</F>\n</Faces>\n</Surface>\n<Project name=\"路線\"/>\n</LandXML>\n";

constexpr const char* SECOND_POINT = "<P id=\"2\" >4 5 6</P>";

const Form FORMS[] = {
    {"None", {}, ""},
    {"NoneInATextThatWasDecoded", {{"<?xml version=\"1.0\"", "<?xml version=\"1.0\" encoding=\"UTF-16\""}}, ""},
    {"NoneWithBytesThatAreNoCharacter", {{"路線", "\xFF\xFE"}}, ""},
    {"ADeclarationWithoutAVersion",
     {{"<?xml version=\"1.0\"", "<?xml encoding=\"UTF-8\""}},
     "1 / Malformed declaration expecting version"},
    {"ANamespaceThatIsNotThere",
     {{"<Project name", "<Project gml:name"}},
     "10 /LandXML Namespace prefix gml for name on Project is not defined"},
    {"ANamespaceWhoseNameIsNoUri", {{"<Project", "<Project xmlns:q=\"http://www.example.jp/設計\""}}, ""},
    {"ANamespaceWithABlank", {{"<Project", "<Project xmlns:q=\"a b\""}}, ""},
    {"AnAttributeAboveTheLibrarysLimit", {{"路線", Repeat("線", 3'500'000)}}, ""},
    {"BehindASurface", {{"name=\"路線\"", "name=\"路線\" name=\"\""}}, "10 /LandXML Attribute name redefined"},
    {"TextBehindTheEnd", {{"</LandXML>\n", "</LandXML>\nend"}}, "12 / Extra content at the end of the document"},
    {"TheEndOfASectionInAText",
     {{"地形\">", "地形\">]]>"}},
     "3 /LandXML/Surface Sequence ']]>' not allowed in content"},
    {"AnAttributeOfAPointTwice",
     {{SECOND_POINT, "<P id=\"2\" id=\"3\">4 5 6</P>"}},
     "5 /LandXML/Surface/Pnts Attribute id redefined"},
    {"AControlCharacterOfAPoint",
     {{SECOND_POINT, "<P id=\"2\" >4 5 6\x01</P>"}},
     "5 /LandXML/Surface/Pnts/P PCDATA invalid Char value 1"},
    {"ANoncharacterOfAPoint",
     {{SECOND_POINT, "<P id=\"2\" >4 5 6\xEF\xBF\xBF</P>"}},
     "5 /LandXML/Surface/Pnts/P Char 0xFFFF out of allowed range"},
    {"TheEndOfASectionInAPoint",
     {{SECOND_POINT, "<P id=\"2\" >4 5 6]]></P>"}},
     "5 /LandXML/Surface/Pnts/P Sequence ']]>' not allowed in content"},
    {"ANamespaceOfAPointThatIsNotThere",
     {{SECOND_POINT, "<P id=\"2\" a:b=\"\">4 5 6</P>"}},
     "5 /LandXML/Surface/Pnts Namespace prefix a for b on P is not defined"},
    {"ADigitInFrontOfAnAttributesName",
     {{SECOND_POINT, "<P id=\"2\" 1b=\"\">4 5 6</P>"}},
     "5 /LandXML/Surface/Pnts error parsing attribute name"},
    {"TwoHyphensOfAPointInAComment",
     {{"<Surface", "<!--<Surface"}, {"</Surface>", "</Surface>-->"}, {SECOND_POINT, "<P id=\"2\" >4 5 --6</P>"}},
     "5 /LandXML Comment must not contain '--' (double-hyphen)"},
    {"NoneInAComment", {{"<Surface", "<!--<Surface"}, {"</Surface>", "</Surface>-->"}}, ""},
    {"NotJudgedBehindEntities",
     {{"<LandXML>", "<!DOCTYPE LandXML [<!ENTITY a \"b\">]><LandXML>"}, {"路線", "&a;"}},
     ""},
    {"NotJudgedBehindAttributesThatAreDeclared",
     {{"<LandXML>", "<!DOCTYPE LandXML [<!ATTLIST Project a CDATA \"b\">]><LandXML>"},
      {"name=\"路線\"", Repeat(" ", 20000) + "name=\"路線\" name=\"\""}},
     ""},
    {"NotJudgedWhereATagHasAttributesWithoutEnd", {{"name=\"路線\"", Attributes(3000, "a") + " a1=\"\""}}, ""},
    {"NotJudgedWhereNamespacesHaveNoEnd",
     {{"<Project name=\"路線\"", "<a" + Attributes(60, "xmlns:a") + "><b" + Attributes(60, "xmlns:b") + ">" +
                                     Repeat(" ", 20000) + "</b></a><Project name=\"\" name=\"路線\""}},
     ""},
    {"ManyAttributes", {{"name=\"路線\"", Attributes(300, "a") + " a1=\"\""}}, "10 /LandXML Attribute a1 redefined"},
};

class FormOfFiles : public testing::TestWithParam<Form>
{
  protected:
    void SetUp() override
    {
        if (!KnowsWhatIsWellFormed())
        {
            GTEST_SKIP() << "built without the library that knows what is well-formed";
        }
    }
};

TEST_P(FormOfFiles, HasOneFaultWhereItStands)
{
    const SourceText text(Changed(SURFACE, GetParam().changes));
    const std::optional<XmlFault>& fault = text.FormFault();
    EXPECT_EQ(fault ? std::to_string(fault->line) + " " + Utf8FromWide(fault->path) + " " + Utf8FromWide(fault->reason)
                    : std::string(),
              GetParam().said);
}

INSTANTIATE_TEST_SUITE_P(Inspect, FormOfFiles, testing::ValuesIn(FORMS),
                         [](const auto& form) { return std::string(form.param.name); });

} // namespace
} // namespace jlandxml::inspect

#include "xml/WcXmPassages.h"

#include <gtest/gtest.h>
#include <string>

namespace
{

using namespace jlandxml;

/// A document with this content in the `Pnts` of a surface.
std::string WithPoints(const std::string& content)
{
    return "<LandXML><Surfaces><Surface><Definition><Pnts>" + content +
           "</Pnts></Definition></Surface></Surfaces></LandXML>";
}

/// So many elements, one in the other.
std::string Nested(std::size_t depth)
{
    std::string text;
    for (std::size_t level = 0; level < depth; ++level)
    {
        text = "<a>" + text + "</a>";
    }
    return text;
}

/// What the parser is handed, with "*" in the place of each passage; empty if the document is the parser's alone.
std::string Dissected(const std::string& document)
{
    WcXmPassages passages;
    std::string text;
    if (passages.Find(document))
    {
        for (const WcXmPassages::Piece& piece : passages.Pieces())
        {
            text += piece.isPassage ? "*" : std::string(piece.bytes);
        }
    }
    return text;
}

/// The passage of that content as content of an element at depth 1, lines parted by "|".
std::string Printed(const std::string& content)
{
    const std::string document = WithPoints(content);
    WcXmPassages passages;
    std::string text;
    if (passages.Find(document))
    {
        ByteBlocks blocks([&](std::string_view bytes) { text += bytes; });
        AppendPassage(blocks, passages.Passage(0), 1, "|");
        blocks.Flush();
    }
    return text;
}

/// Names a row of a table by its first column.
constexpr auto NameOf = [](const auto& row) { return std::string(row.param.name); };

struct Place
{
    const char* name;
    std::string document;
    std::string dissected;
};

class PlacesOfPassages : public testing::TestWithParam<Place>
{};

TEST_P(PlacesOfPassages, AreTheContentOfPointsAndFacesInASurfacesDefinition)
{
    EXPECT_EQ(Dissected(GetParam().document), GetParam().dissected);
}

INSTANTIATE_TEST_SUITE_P(
    All, PlacesOfPassages,
    testing::Values(
        Place{
            "PointsAndFaces",
            "<L><Surfaces><Surface><Definition><Pnts><P>1 2 3</P></Pnts><Faces><F>1</F></Faces></Definition></Surface>"
            "</Surfaces></L>",
            "<L><Surfaces><Surface><Definition><Pnts>*</Pnts><Faces>*</Faces></Definition></Surface></Surfaces></L>"},
        Place{"EverySurface",
              "<L><Surfaces><Surface><Definition><Pnts><P>1</P></Pnts></Definition></"
              "Surface><Surface><Definition><Pnts a='b'>"
              "<P>1</P></Pnts></Definition></Surface></Surfaces></L>",
              "<L><Surfaces><Surface><Definition><Pnts>*</Pnts></Definition></Surface><Surface><Definition><Pnts "
              "a='b'>*</Pnts>"
              "</Definition></Surface></Surfaces></L>"},
        Place{"BehindADeclarationAndAnInstruction",
              "\xEF\xBB\xBF<?xml version='1.0'?><?style "
              "a?><L><Surfaces><Surface><Definition><Pnts><P>1</P></Pnts></Definition>"
              "</Surface></Surfaces></L>",
              "\xEF\xBB\xBF<?xml version='1.0'?><L><Surfaces><Surface><Definition><Pnts>*</Pnts></Definition></Surface>"
              "</Surfaces></L>"},
        Place{"BesideACommentAndASection",
              "<L><!-- <Surfaces> --><a><![CDATA[</a>]]></a><b "
              "c='>'/><Surfaces><Surface><Definition><Pnts><P>1</P></Pnts>"
              "</Definition></Surface></Surfaces></L>",
              "<L><!-- <Surfaces> --><a><![CDATA[</a>]]></a><b c='>'/><Surfaces><Surface><Definition><Pnts>*</Pnts>"
              "</Definition></Surface></Surfaces></L>"},
        Place{"OnePlainOneNot",
              "<L><Surfaces><Surface><Definition><Pnts><P>&lt;</P></Pnts><Faces><F>1</F></Faces></Definition></"
              "Surface></Surfaces>"
              "</L>",
              "<L><Surfaces><Surface><Definition><Pnts><P>&lt;</P></Pnts><Faces>*</Faces></Definition></Surface></"
              "Surfaces></L>"},
        Place{"NoneInOtherPlaces", "<L><Surface><Definition><Pnts><P>1</P></Pnts></Definition></Surface></L>", ""},
        Place{"NoneInOtherCase",
              "<L><Surfaces><surface><Definition><Pnts><P>1</P></Pnts></Definition></surface></Surfaces></L>", ""},
        Place{"NoneOneLevelDeeper",
              "<L><a><Surfaces><Surface><Definition><Pnts><P>1</P></Pnts></Definition></Surface></Surfaces></a></L>",
              ""},
        Place{"NoneInOtherElements",
              "<L><Surfaces><Surface><Definition><Point><P>1</P></Point></Definition></Surface></Surfaces></L>", ""},
        Place{"NoneInAnUnclosedDocument",
              "<L><Surfaces><Surface><Definition><Pnts><P>1</P></Pnts></Definition></Surface></Surfaces>", ""},
        Place{"NoneBesideAWrongEndTag",
              "<L><Surfaces><Surface><Definition><Pnts><P>1</P></Pnts></Definition></Surfaces></Surface></L>", ""},
        Place{"NoneBesideADoctype", "<!DOCTYPE L>" + WithPoints("<P>1</P>"), ""},
        Place{"NoneBesideAnInstructionWithinTheRoot", "<L><?a?>" + WithPoints("<P>1</P>").substr(9), ""},
        Place{"NoneBesideASecondDeclaration", "<?xml version='1.0'?><?XML a?>" + WithPoints("<P>1</P>"), ""},
        Place{"NoneBehindADeclarationWithAnUnclosedValue",
              "<?xml v=\"?><LandXML a='\"/><LandXML><?passage 0?>' >" + WithPoints("<P>1</P>").substr(9), ""},
        Place{"NoneBesideANullInAnInstruction", std::string("<?a \0?>", 8) + WithPoints("<P>1</P>"), ""},
        Place{"NoneBesideAnInstructionInAValue", "<L a='<?a?>'>" + WithPoints("<P>1</P>").substr(9), ""},
        Place{"BesideQuestionMarks",
              "<L a='?'>?<Surfaces><Surface><Definition><Pnts><P>1</P></Pnts></Definition></Surface></Surfaces></L>",
              "<L a='?'>?<Surfaces><Surface><Definition><Pnts>*</Pnts></Definition></Surface></Surfaces></L>"},
        Place{"NoneBesideAnUnclosedComment", WithPoints("<P>1</P>") + "<!--", ""},
        Place{"NoneBesideAnUnclosedValue", "<L a='" + WithPoints("<P>1</P>").substr(8), ""},
        Place{"NoneBesideElementsThatAreNestedDeeperThanAnyOfTheFormat",
              "<L>" + Nested(256) + WithPoints("<P>1</P>").substr(9), ""},
        Place{"BesideElementsThatAreNestedAsDeepAsCanBe",
              "<L>" + Nested(255) +
                  "<Surfaces><Surface><Definition><Pnts><P>1</P></Pnts></Definition></Surface>"
                  "</Surfaces></L>",
              "<L>" + Nested(255) +
                  "<Surfaces><Surface><Definition><Pnts>*</Pnts></Definition></Surface></Surfaces>"
                  "</L>"},
        Place{"NoneWhereATagHoldsATag", "<L <a>" + WithPoints("<P>1</P>"), ""}),
    NameOf);

struct Content
{
    const char* name;
    std::string content;
    std::string printed; ///< empty if it isn't a passage
};

class ContentOfPassages : public testing::TestWithParam<Content>
{};

TEST_P(ContentOfPassages, PrintsAsTheParserWouldHavePrintedIt)
{
    EXPECT_EQ(Printed(GetParam().content), GetParam().printed);
}

INSTANTIATE_TEST_SUITE_P(
    Plain, ContentOfPassages,
    testing::Values(Content{"OneLineEach", "\n  <P>1 2 3</P>\n  <P>4 5 6</P>\n ", "|\t<P>1 2 3</P>|\t<P>4 5 6</P>"},
                    Content{"CarriageReturns", "\r\n<P>1</P> \r\n<P>2</P>\r\n", "|\t<P>1</P>|\t<P>2</P>"},
                    Content{"AllOnOneLine", "<P>1</P><P>2</P>", "|\t<P>1</P>|\t<P>2</P>"},
                    Content{"SomeOnOneLine", "\n<P>1</P><P>2</P>\n<P>3</P>", "|\t<P>1</P>|\t<P>2</P>|\t<P>3</P>"},
                    Content{"Attributes", "\n<P id=\"1\" a=\"b\">1</P>", "|\t<P id=\"1\" a=\"b\">1</P>"},
                    Content{"BlanksInTags", "<P  id=\"1\"\n\ta=\"b\" >1</P >", "|\t<P id=\"1\" a=\"b\">1</P>"},
                    Content{"EmptyElements", "\n<P/>\n<P />\n<P></P>\n<P id=\"1\"/>",
                            "|\t<P />|\t<P />|\t<P />|\t<P id=\"1\" />"},
                    Content{"BlanksAroundATextStay", "<P> 1 2 </P>", "|\t<P> 1 2 </P>"},
                    Content{"JapaneseTexts", "\n<P name=\"\xE7\x82\xB9\">\xE7\x82\xB9 1</P>",
                            "|\t<P name=\"\xE7\x82\xB9\">\xE7\x82\xB9 1</P>"},
                    Content{"EmptyNamespacesGo", "\n<P xmlns=\"\" id=\"1\">1</P><P id=\"1\" xmlns=\"\"/>",
                            "|\t<P id=\"1\">1</P>|\t<P id=\"1\" />"},
                    Content{"NamespacesWithAValueStay", "\n<P xmlns=\"a\">1</P>", "|\t<P xmlns=\"a\">1</P>"},
                    Content{"ApostrophesStay", "\n<P a=\"'\">'</P>", "|\t<P a=\"'\">'</P>"},
                    Content{"ALongText", "\n<P>" + std::string(300000, '1') + "</P>",
                            "|\t<P>" + std::string(300000, '1') + "</P>"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    NotPlain, ContentOfPassages,
    testing::Values(Content{"Nothing", "", ""}, Content{"BlanksAlone", " \n ", ""}, Content{"Text", "1", ""},
                    Content{"TextBesideAnElement", "<P>1</P>2", ""}, Content{"Entities", "<P>&amp;</P>", ""},
                    Content{"EntitiesInValues", "<P a=\"&#65;\">1</P>", ""},
                    Content{"Comments", "<P>1</P><!-- -->", ""}, Content{"CommentsInElements", "<P>1<!-- --></P>", ""},
                    Content{"Sections", "<P><![CDATA[1]]></P>", ""}, Content{"Instructions", "<P>1</P><?a?>", ""},
                    Content{"SingleQuotes", "<P a='1'>1</P>", ""},
                    Content{"BlanksAroundTheEqualsSign", "<P a =\"1\">1</P>", ""},
                    Content{"NoBlankBetweenAttributes", "<P a=\"1\"b=\"2\"/>", ""},
                    Content{"AValueWithoutQuotes", "<P a=1/>", ""}, Content{"ElementsInElements", "<P><Q/></P>", ""},
                    Content{"ABlankText", "<P> </P>", ""}, Content{"ATabInAText", "<P>1\t2</P>", ""},
                    Content{"ALineEndInAText", "<P>1\n2</P>", ""}, Content{"ALineEndInAValue", "<P a=\"1\n2\"/>", ""},
                    Content{"AControlCharacter", "<P>1\x01</P>", ""},
                    Content{"AZero", std::string("<P>1\0</P>", 10), ""}, Content{"AGreaterThanSign", "<P>1>2</P>", ""},
                    Content{"AQuotationMark", "<P>\"</P>", ""}, Content{"MalformedUtf8InAText", "<P>\xE7\x82</P>", ""},
                    Content{"MalformedUtf8InAValue", "<P a=\"\xFF\"/>", ""},
                    Content{"OtherLettersInNames", "<\xE7\x82\xB9>1</\xE7\x82\xB9>", ""},
                    Content{"PrefixesInNames", "<a:P>1</a:P>", ""}, Content{"AnotherEndTag", "<P>1</Q>", ""},
                    Content{"ALongerEndTag", "<P>1</PQ>", ""}, Content{"NoEndTag", "<P>1", ""},
                    Content{"NoName", "<>1</>", ""}, Content{"ADigitFirst", "<1>1</1>", ""}),
    NameOf);

TEST(WcXmPassages, StandInTheTreeAsPlaceholders)
{
    const std::string document = WithPoints("<P>1</P>");
    WcXmPassages passages;
    ASSERT_TRUE(passages.Find(document));
    pugi::xml_document tree;
    const std::string text = WithPoints(PassagePlaceholder(0));
    ASSERT_TRUE(tree.load_buffer(text.data(), text.size(), pugi::parse_default | pugi::parse_pi));
    EXPECT_TRUE(passages.AreIn(tree));
    const pugi::xml_node points =
        tree.child(L"LandXML").child(L"Surfaces").child(L"Surface").child(L"Definition").child(L"Pnts");
    EXPECT_EQ(passages.Of(points), &passages.Passage(0));
    EXPECT_EQ(passages.Of(points.parent()), nullptr);
    passages.Expand(tree);
    EXPECT_EQ(std::wstring(points.child(L"P").text().get()), L"1");
}

TEST(WcXmPassages, AreNotInATreeThatLacksAPlaceholderOrHasItElsewhere)
{
    const std::string document = WithPoints("<P>1</P>");
    WcXmPassages passages;
    ASSERT_TRUE(passages.Find(document));
    pugi::xml_document tree;
    EXPECT_FALSE(passages.AreIn(tree));
    const std::string elsewhere = "<LandXML>" + PassagePlaceholder(0) + "</LandXML>";
    ASSERT_TRUE(tree.load_buffer(elsewhere.data(), elsewhere.size(), pugi::parse_default | pugi::parse_pi));
    EXPECT_FALSE(passages.AreIn(tree));
}

TEST(WcXmPassages, AreNotInATreeWhereOneStandsInThePlaceOfAnother)
{
    const auto surfaces = [](const std::string& first, const std::string& second) {
        return "<LandXML><Surfaces><Surface><Definition><Pnts>" + first + "</Pnts><Faces>" + second +
               "</Faces></Definition></Surface></Surfaces></LandXML>";
    };
    WcXmPassages passages;
    const std::string document = surfaces("<P>1</P>", "<F>1</F>");
    ASSERT_TRUE(passages.Find(document));
    const auto areIn = [&](std::size_t first, std::size_t second) {
        const std::string text = surfaces(PassagePlaceholder(first), PassagePlaceholder(second));
        pugi::xml_document tree;
        EXPECT_TRUE(tree.load_buffer(text.data(), text.size(), pugi::parse_default | pugi::parse_pi));
        return passages.AreIn(tree);
    };
    EXPECT_TRUE(areIn(0, 1));
    EXPECT_FALSE(areIn(1, 0));
    EXPECT_FALSE(areIn(0, 0));
    EXPECT_FALSE(areIn(1, 1));
}

} // namespace

#include "run/FinishedDocument.h"

#include "base/Text.h"
#include "model/FViewLandXML.h"
#include "model/OutputVersion.h"
#include "support/Encodings.h"
#include "support/Rounds.h"
#include "support/XmlText.h"
#include "xml/WcXmDocument.h"

#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace jlandxml
{
namespace
{

/// Loads bytes as a work file is loaded.
class LoadedDocument
{
  public:
    LoadedDocument(const std::string& bytes, bool keepsPassages)
    {
        document_.Create();
        document_.appDocument->keepsPassages = keepsPassages;
        ParserBuffer content(bytes.size());
        std::memcpy(content.Data(), bytes.data(), bytes.size());
        loaded_ = document_.appDocument->LoadBytes(std::move(content));
    }

    bool Loaded() const { return loaded_; }
    WcXmAppDocument& Document() { return *document_.appDocument; }

    /// What a run does to the tree: notes are cut out of the surfaces, references and point groups come in.
    void Edit()
    {
        FViewLandXML model;
        model.ReadElement(WcXmNode(document_));
        for (FViewSurfaces& set : model.surfaces)
        {
            for (FViewSurface& surface : set.surfaces)
            {
                surface.alignmentRefs = L"線形";
            }
        }
        model.SetOutputVersion(NEWEST_VERSION.number);
        model.WriteElement(WcXmNode(document_));
    }

  private:
    WcXmDocument document_;
    bool loaded_ = false;
};

std::string Finished(const WcXmAppDocument& document)
{
    std::string text;
    PrintFinished(document, [&](std::string_view bytes) { text += bytes; });
    return text;
}

/// The finished form of a document that was loaded as it stands.
std::string Finished(const std::string& bytes)
{
    LoadedDocument loaded(bytes, true);
    return loaded.Loaded() ? Finished(loaded.Document()) : "not well formed";
}

std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    for (std::size_t hit = text.find(from); hit != std::string::npos; hit = text.find(from, hit + to.size()))
    {
        text.replace(hit, from.size(), to);
    }
    return text;
}

/// The finished form by another way: the parser prints the tree, and its text is rewritten line by line.
std::string FinishedByTheParser(const WcXmAppDocument& document)
{
    const std::string text = Utf8FromWide(PrintedByTheParser(document, pugi::format_indent));
    std::string finished = BYTE_ORDER_MARK;
    for (std::size_t begin = 0; begin < text.size();)
    {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        std::string line = text.substr(begin, end - begin);
        if (line.ends_with('\r'))
        {
            line.pop_back();
        }
        if (begin == 0)
        {
            line = Replaced(line, " encoding=\"UTF-8\" standalone=\"no\"?>", "?>");
        }
        finished += Replaced(line, " xmlns=\"\"", "") + "\r\n";
        begin = end + 1;
    }
    return finished;
}

struct Form
{
    const char* name;
    std::string document;
    std::string finished; ///< without the byte-order mark
};

std::string NameOf(const testing::TestParamInfo<Form>& form)
{
    return form.param.name;
}

class FinishedForms : public testing::TestWithParam<Form>
{};

TEST_P(FinishedForms, ArePrintedFromTheTree)
{
    EXPECT_EQ(Finished(GetParam().document), BYTE_ORDER_MARK + GetParam().finished);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, FinishedForms,
    testing::Values(
        Form{"ElementsStandOnLinesOfTheirOwn", "<a><b><c/></b><d/></a>",
             "<a>\r\n\t<b>\r\n\t\t<c />\r\n\t</b>\r\n\t<d />\r\n</a>\r\n"},
        Form{"TextsStayOnTheLine", "<a><b>1</b><c>2<d/>3</c></a>", "<a>\r\n\t<b>1</b>\r\n\t<c>2<d />3</c>\r\n</a>\r\n"},
        Form{"ElementsBehindATextAndAnElement", "<a>1<b/><c/></a>", "<a>1<b />\r\n\t<c />\r\n</a>\r\n"},
        Form{"Attributes", "<a b='1' c=\"2\"/>", "<a b=\"1\" c=\"2\" />\r\n"},
        Form{"SeveralLinesOfAText", "<a>1\n2\r\n3</a>", "<a>1\r\n2\r\n3</a>\r\n"},
        Form{"CarriageReturnsWithinALineStay", "<a>1&#13;2</a>", "<a>1\r2</a>\r\n"},
        Form{"ACarriageReturnInFrontOfALineEndIsItsOwn", "<a>1&#13;\n2&#13;&#13;\n</a>", "<a>1\r\n2\r\r\n</a>\r\n"},
        Form{"Sections", "<a><![CDATA[<1>&\n\"]]></a>", "<a><![CDATA[<1>&\r\n\"]]></a>\r\n"},
        Form{"AnEmptySection", "<a><![CDATA[]]></a>", "<a><![CDATA[]]></a>\r\n"},
        Form{"Escapes", "<a b=\"&lt;&gt;&amp;&quot;'&#9;&#10;&#1;\">&lt;&gt;&amp;\"'&#9;&#1;</a>",
             "<a b=\"&lt;>&amp;&quot;'&#09;&#10;&#01;\">&lt;&gt;&amp;\"'\t&#01;</a>\r\n"},
        Form{"JapaneseAndCharactersOfFourBytes",
             "<\xE7\x82\xB9 \xE5\x90\x8D=\"\xF0\xA9\xB8\xBD\">\xF0\xA9\xB8\xBD\xE7\x82\xB9</\xE7\x82\xB9>",
             "<\xE7\x82\xB9 \xE5\x90\x8D=\"\xF0\xA9\xB8\xBD\">\xF0\xA9\xB8\xBD\xE7\x82\xB9</\xE7\x82\xB9>\r\n"},
        Form{"TheLastOfAsciiAndTheFirstBeyond", "<a b=\"\x7F\xC2\x80\">\x7F\xC2\x80</a>",
             "<a b=\"\x7F\xC2\x80\">\x7F\xC2\x80</a>\r\n"},
        Form{"NothingOfCommentsAndInstructions", "<a><!--1--><?b c?><d/></a>", "<a>\r\n\t<d />\r\n</a>\r\n"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    FirstLine, FinishedForms,
    testing::Values(
        Form{"AStandaloneDeclarationBecomesBare", "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?><a/>",
             "<?xml version=\"1.0\"?>\r\n<a />\r\n"},
        Form{"ADeclarationWithVersionAndEncodingStays", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><a/>",
             "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<a />\r\n"},
        Form{"AnotherOrderStays", "<?xml version=\"1.0\" standalone=\"no\" encoding=\"UTF-8\"?><a/>",
             "<?xml version=\"1.0\" standalone=\"no\" encoding=\"UTF-8\"?>\r\n<a />\r\n"},
        Form{"AnotherValueStays", "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?><a/>",
             "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n<a />\r\n"},
        Form{"AnotherSpellingStays", "<?xml version=\"1.0\" Encoding=\"UTF-8\" standalone=\"no\"?><a/>",
             "<?xml version=\"1.0\" Encoding=\"UTF-8\" standalone=\"no\"?>\r\n<a />\r\n"},
        Form{"OnlyTheFirstLineLosesTheDeclarationsEnd",
             "<a>&#13;<![CDATA[ encoding=\"UTF-8\" standalone=\"no\"?>\n encoding=\"UTF-8\" standalone=\"no\"?>]]></a>",
             "<a>\r<![CDATA[?>\r\n encoding=\"UTF-8\" standalone=\"no\"?>]]></a>\r\n"},
        Form{"TheDeclarationsEndIsLookedForFirst",
             "<?xml version=\"1.0\" encoding=\"UTF-8\" xmlns=\"\" standalone=\"no\"?><a/>",
             "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>\r\n<a />\r\n"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    EmptyNamespaces, FinishedForms,
    testing::Values(
        Form{"GoFromEveryLineTheFirstIncluded", "<a xmlns=\"\" b=\"\" xmlns=\"\"><c xmlns=\"\"/></a>",
             "<a b=\"\">\r\n\t<c />\r\n</a>\r\n"},
        Form{"StayWithAValue", "<a><b xmlns=\"c\"/></a>", "<a>\r\n\t<b xmlns=\"c\" />\r\n</a>\r\n"},
        Form{"StayInAnAttributesValue", "<a><b c=' xmlns=\"\"'/></a>",
             "<a>\r\n\t<b c=\" xmlns=&quot;&quot;\" />\r\n</a>\r\n"},
        Form{"GoFromTextsAndSections", "<a><b>1 xmlns=\"\"2</b><b><![CDATA[1 xmlns=\"\"2]]></b></a>",
             "<a>\r\n\t<b>12</b>\r\n\t<b><![CDATA[12]]></b>\r\n</a>\r\n"},
        Form{"AreNotLookedForInWhatARemovalForms", "<a><b> xm xmlns=\"\"lns=\"\" xmlns=\"\" xmlns=\"\"</b></a>",
             "<a>\r\n\t<b> xmlns=\"\"</b>\r\n</a>\r\n"},
        Form{"OtherNamesStay", "<a><b xmlns:x=\"\" yxmlns=\"\" Xmlns=\"\"/></a>",
             "<a>\r\n\t<b xmlns:x=\"\" yxmlns=\"\" Xmlns=\"\" />\r\n</a>\r\n"},
        Form{"NeedABlankInFront", "<a><b>xmlns=\"\"</b></a>", "<a>\r\n\t<b>xmlns=\"\"</b>\r\n</a>\r\n"},
        Form{"GoBehindACarriageReturnThatStays", "<a>\n1&#13; xmlns=\"\"\n2</a>", "<a>\r\n1\r\r\n2</a>\r\n"}),
    NameOf);

TEST(FinishedDocument, ASectionsEndInASectionPartsIt)
{
    LoadedDocument loaded("<a><![CDATA[x]]></a>", true);
    loaded.Document().xmlDocument->document_element().first_child().set_value(L"1]]>2]]>");
    EXPECT_EQ(Finished(loaded.Document()), BYTE_ORDER_MARK + "<a><![CDATA[1]]]]><![CDATA[>2]]]]><![CDATA[>]]></a>\r\n");
}

TEST(FinishedDocument, WhatHasNoNameIsPrintedAsTheParserPrintsIt)
{
    LoadedDocument loaded("<a/>", true);
    pugi::xml_node nameless = loaded.Document().xmlDocument->document_element().append_child(pugi::node_element);
    nameless.append_attribute(L"").set_value(L"1");
    EXPECT_EQ(Finished(loaded.Document()), BYTE_ORDER_MARK + "<a>\r\n\t<:anonymous :anonymous=\"1\" />\r\n</a>\r\n");
}

TEST(FinishedDocument, NothingIsOnlyTheMark)
{
    const WcXmAppDocument document;
    EXPECT_EQ(Finished(document), BYTE_ORDER_MARK);
}

TEST(FinishedDocument, AMillionLevelsArePrinted)
{
    // A text beside each element keeps all of them on one line: nothing is indented.
    constexpr std::size_t LEVELS = 1000000;
    std::string document;
    std::string end;
    for (std::size_t level = 0; level < LEVELS; ++level)
    {
        document += "<a>1";
        end += "</a>2";
    }
    end.pop_back();
    EXPECT_EQ(Finished(document + end), BYTE_ORDER_MARK + document + end + "\r\n");
}

TEST(FinishedDocument, BlocksAreSmall)
{
    LoadedDocument loaded("<a b=\"" + std::string(3000000, '1') + "\"/>", true);
    std::size_t longest = 0;
    std::size_t size = 0;
    PrintFinished(loaded.Document(), [&](std::string_view bytes) {
        longest = std::max(longest, bytes.size());
        size += bytes.size();
    });
    EXPECT_LE(longest, std::size_t{1} << 18);
    EXPECT_EQ(size, 3000000 + std::string("MRK<a b=\"\" />\r\n").size());
}

TEST(FinishedDocument, ABlocksEndMayStandAnywhere)
{
    constexpr std::size_t BLOCK = std::size_t{1} << 18;
    for (std::size_t size = BLOCK - 40; size < BLOCK + 4; ++size)
    {
        const std::string room(size, '1');
        ASSERT_TRUE(Finished("<a>\n" + room + " xmlns=\"\"2</a>") == BYTE_ORDER_MARK + "<a>\r\n" + room + "2</a>\r\n")
            << size;
        ASSERT_TRUE(Finished("<a>\n" + room + "&#13;\n2</a>") == BYTE_ORDER_MARK + "<a>\r\n" + room + "\r\n2</a>\r\n")
            << size;
    }
}

TEST(FinishedDocument, AnInstructionThatADeclarationHidesIsNoPassage)
{
    const std::string terrain =
        "<Surfaces><Surface><Definition><Pnts><P>1</P></Pnts></Definition></Surface></Surfaces></LandXML>";
    for (const std::string instruction : {"<?foo?>", "<?foo 0?>", "<?passage 0?>"})
    {
        const std::string bytes = "<?xml v=\"?><LandXML a='\"/><LandXML>" + instruction + "' >" + terrain;
        LoadedDocument plain(bytes, false);
        ASSERT_TRUE(plain.Loaded());
        EXPECT_EQ(Finished(bytes), FinishedByTheParser(plain.Document()));
    }
}

/// Documents of surfaces with points, as they come and damaged in ways of every kind.
class DocumentGenerator
{
  public:
    explicit DocumentGenerator(std::uint64_t seed) : random_(seed) {}

    std::string Next()
    {
        std::string document = Pick({"", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n", "\xEF\xBB\xBF",
                                     "<?xml version=\"1.0\" "
                                     "encoding=\"UTF-8\" standalone=\"no\"?>\r\n<?style a?>\n"});
        document += "<LandXML>\n" + Repeat(2, [&] { return Surfaces(); }) +
                    Pick({"", "<Alignments/>", "text", "<Alignments><Alignment name=\"a\"/></Alignments>"}) +
                    "</LandXML>\n";
        if (Below(8) == 0)
        {
            document = InAnotherEncoding(document);
        }
        for (std::size_t damage = Below(4); damage > 0; --damage)
        {
            Damage(document);
        }
        return document;
    }

  private:
    std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(random_() % limit); }

    std::string Pick(std::initializer_list<const char*> texts) { return *(texts.begin() + Below(texts.size())); }

    template <class Part>
    std::string Repeat(std::size_t most, Part part)
    {
        std::string text;
        for (std::size_t count = Below(most + 1); count > 0; --count)
        {
            text += part();
        }
        return text;
    }

    /// With a mark or without, declared or not.
    std::string InAnotherEncoding(const std::string& document)
    {
        const std::wstring text =
            ReplaceAll(WideFromUtf8(document), L"UTF-8",
                       WideFromUtf8(Pick({"UTF-8", "UTF-16", "Shift_JIS", "ISO-8859-1", "UTF-32"})));
        if (Below(3) == 0)
        {
            return Cp932FromWide(text);
        }
        const std::size_t size = Pick({"2", "4"}) == "2" ? 2 : 4;
        return InUnits(text, size, Below(2) == 0);
    }

    std::string Blank() { return Pick({"", " ", "\n", "\r\n\t\t", "\n    "}); }

    std::string Surfaces()
    {
        return "<Surfaces>" +
               Repeat(3,
                      [&] {
                          return Blank() + "<Surface name=\"s\"" +
                                 Pick({"", " desc=\"ExistingGround\"", " desc=\"g 線形名=a\""}) +
                                 "><Definition surfType=\"TIN\">" + Blank() + Repeat(3, [&] { return Points(); }) +
                                 "</Definition>" + Blank() + "</Surface>";
                      }) +
               Blank() + "</Surfaces>";
    }

    std::string Points()
    {
        const std::string name = Pick({"Pnts", "Faces"});
        const std::string between = Blank();
        return "<" + name + Pick({"", " a=\"1\"", " "}) + ">" + Repeat(4, [&] { return between + Element(); }) +
               Blank() + "</" + name + ">" + Blank();
    }

    std::string Element()
    {
        return Pick({"<P id=\"1\">1.5 2 3</P>", "<P id=\"2\">-1 2 3</P>", "<P>1</P>", "<P/>", "<P />", "<P></P>",
                     "<F>1 2 3</F>", "<F i=\"1\">1 2 3</F>", "<P  id=\"1\" >1</P >", "<P xmlns=\"\">1</P>",
                     "<P n=\"\xE7\x82\xB9\">\xE7\x82\xB9</P>"});
    }

    void Damage(std::string& document)
    {
        const std::size_t place = Below(document.size());
        switch (Below(4))
        {
        case 0:
            document.erase(place, 1 + Below(6));
            break;
        case 1:
            document.insert(place, document.substr(Below(document.size()), 1 + Below(30)));
            break;
        case 2:
            document[place] = static_cast<char>(Below(256));
            break;
        default:
            document.insert(place, Pick({"<!-- x -->",
                                         "<![CDATA[x]]>",
                                         "<![CDATA[ xmlns=\"\"]]>",
                                         "&amp;",
                                         "&#65;",
                                         "<?a b?>",
                                         "<?passage 0?>",
                                         " xmlns=\"\"",
                                         "'",
                                         "\"",
                                         ">",
                                         "<",
                                         "]]>",
                                         "\t",
                                         "\n",
                                         "\r",
                                         "/",
                                         "=",
                                         "<a>",
                                         "</a>",
                                         "<a/>",
                                         "\xFF",
                                         "\xE7",
                                         "text",
                                         "<!DOCTYPE a>",
                                         "<?xml?>",
                                         "</Pnts>",
                                         "<Pnts>"}));
        }
    }

    std::mt19937_64 random_;
};

TEST(FinishedDocument, PassagesArePrintedAsTheParserPrintsThem)
{
    DocumentGenerator generator(1);
    std::size_t withPassages = 0;
    for (int count = 0; count < Rounds(100000); ++count)
    {
        const std::string bytes = generator.Next();
        LoadedDocument plain(bytes, false);
        LoadedDocument kept(bytes, true);
        ASSERT_EQ(kept.Loaded(), plain.Loaded()) << bytes;
        const std::string expected = FinishedByTheParser(plain.Document());
        ASSERT_EQ(Finished(plain.Document()), expected) << bytes;
        ASSERT_EQ(Finished(kept.Document()), expected) << bytes;
        if (!kept.Document().passages.IsEmpty())
        {
            ++withPassages;
            kept.Document().ExpandPassages();
            ASSERT_EQ(FinishedByTheParser(kept.Document()), expected) << bytes;
        }
    }
    EXPECT_GT(withPassages, static_cast<std::size_t>(Rounds(10000)));
}

TEST(FinishedDocument, PassagesStayWhatTheyAreWhereARunEditsTheTree)
{
    DocumentGenerator generator(2);
    std::size_t edited = 0;
    for (int count = 0; count < Rounds(20000); ++count)
    {
        const std::string bytes = generator.Next();
        LoadedDocument plain(bytes, false);
        LoadedDocument kept(bytes, true);
        if (plain.Loaded() && kept.Loaded())
        {
            edited += kept.Document().passages.IsEmpty() ? 0 : 1;
            plain.Edit();
            kept.Edit();
            ASSERT_EQ(Finished(kept.Document()), Finished(plain.Document())) << bytes;
        }
    }
    EXPECT_GT(edited, static_cast<std::size_t>(Rounds(2000)));
}

} // namespace
} // namespace jlandxml

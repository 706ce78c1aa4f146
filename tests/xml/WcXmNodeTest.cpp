#include "xml/WcXmNode.h"

#include "support/ParserRoom.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>
#include <sstream>

namespace jlandxml
{
namespace
{

TEST(WcXmNode, StandsOnTheDocumentElementWhateverComesBefore)
{
    XmlText xml(L"<?xml version=\"1.0\"?><!-- host --><LandXML/>");
    EXPECT_EQ(xml.Root().NodeName(), L"LandXML");
}

TEST(WcXmNode, ADocumentWithoutAnElementAnswersWithEmptyResults)
{
    XmlText xml(L"");
    WcXmNode node = xml.Root();
    std::map<std::wstring, std::wstring> attributes;
    node.GetAttributes(attributes);
    EXPECT_EQ(node.NodeName(), L"");
    EXPECT_EQ(node.GetTextContent(), L"");
    EXPECT_EQ(node.FindAttribute(L"name"), std::nullopt);
    EXPECT_EQ(attributes, (std::map<std::wstring, std::wstring>{{L"", L""}}));
    EXPECT_FALSE(node.MoveToNextSibling());
    EXPECT_FALSE(node.MoveToFirstChild());
    EXPECT_FALSE(node.SelectFirstChild(L""));
    EXPECT_FALSE(node.SetAttribute(L"name", L"x"));
    EXPECT_FALSE(node.InsertElementBefore(L"a", L"b"));
    EXPECT_FALSE(node.RemoveChild(node.appNode));
    node.SetTextContent(L"x");
    EXPECT_EQ(xml.Text(), L"");
}

/// An element with a text in it reads and changes as if the text were a child of its own, which it may be or not.
class FirstText : public testing::TestWithParam<unsigned int>
{
  protected:
    FirstText()
    {
        document.Create();
        document.appDocument->xmlDocument->load_string(L"<a b=\"1\">one<c/>two</a>", GetParam());
    }

    std::wstring Text() const
    {
        std::wostringstream out;
        document.appDocument->xmlDocument->save(out, L"", pugi::format_raw | pugi::format_no_declaration);
        return out.str();
    }

    WcXmDocument document;
};

TEST_P(FirstText, IsTheFirstChild)
{
    WcXmNode node(document);
    EXPECT_EQ(node.GetTextContent(), L"one");
    EXPECT_TRUE(node.HasChild());
    EXPECT_TRUE(node.MoveToFirstChild());
    EXPECT_EQ(node.NodeName(), L"");
    EXPECT_EQ(node.GetTextContent(), L"one");
    EXPECT_FALSE(node.MoveToFirstChild());
    EXPECT_TRUE(node.MoveToNextSibling());
    EXPECT_EQ(node.NodeName(), L"c");
    EXPECT_TRUE(node.MoveToNextSibling());
    EXPECT_EQ(node.GetTextContent(), L"two");
    EXPECT_FALSE(node.MoveToNextSibling());
    EXPECT_EQ(Text(), L"<a b=\"1\">one<c/>two</a>");
}

TEST_P(FirstText, IsReplaced)
{
    WcXmNode(document).SetTextContent(L"2 < 3");
    EXPECT_EQ(Text(), L"<a b=\"1\">2 &lt; 3<c/>two</a>");
    WcXmNode(document).SetTextContent(L"");
    EXPECT_EQ(Text(), L"<a b=\"1\"><c/>two</a>");
    // An empty text is still one.
    WcXmNode(document).SetTextContent(L"4");
    EXPECT_EQ(Text(), L"<a b=\"1\">4<c/>two</a>");
}

TEST_P(FirstText, StaysInFrontOfWhatIsAdded)
{
    const WcXmNode node(document);
    EXPECT_TRUE(node.AppendChildElement(L"d"));
    EXPECT_TRUE(node.InsertElementBefore(L"c", L"e"));
    EXPECT_EQ(Text(), L"<a b=\"1\">one<e/><c/>two<d/></a>");
}

TEST_P(FirstText, IsNoValueOfItsElement)
{
    document.appDocument->xmlDocument->load_string(L"<a>one</a>", GetParam());
    std::map<std::wstring, std::wstring> attributes;
    WcXmNode(document).GetAttributes(attributes);
    EXPECT_EQ(attributes, (std::map<std::wstring, std::wstring>{{L"a", L""}}));
}

INSTANTIATE_TEST_SUITE_P(WcXmNode, FirstText,
                         testing::Values(unsigned{pugi::parse_default},
                                         unsigned{pugi::parse_default} | unsigned{pugi::parse_embed_pcdata}),
                         [](const auto& test) {
                             return test.param == pugi::parse_default ? "OfItsOwn" : "HeldByTheElement";
                         });

/// Documents without a tree, of all the kinds that there can be.
struct NoTreeCase
{
    const char* name;
    void (*prepare)(WcXmDocument& document);
};

class NoTree : public testing::TestWithParam<NoTreeCase>
{};

TEST_P(NoTree, GivesACursorThatToleratesEverything)
{
    WcXmDocument document;
    GetParam().prepare(document);
    WcXmNode node(document);
    WcXmNode out = node;
    std::map<std::wstring, std::wstring> attributes{{L"old", L"entry"}};
    node.GetAttributes(attributes);
    EXPECT_EQ(attributes, (std::map<std::wstring, std::wstring>{{L"", L""}}));
    EXPECT_FALSE(node.HasNode());
    EXPECT_FALSE(node.HasChild());
    EXPECT_EQ(node.NodeName(), L"");
    EXPECT_EQ(node.GetTextContent(), L"");
    EXPECT_EQ(node.FindAttribute(L""), std::nullopt);
    EXPECT_EQ(node.FindAttributeIgnoreCase(L""), std::nullopt);
    EXPECT_FALSE(node.MoveToNextSibling());
    EXPECT_FALSE(node.MoveToFirstChild());
    EXPECT_FALSE(node.SelectFirstChild(L""));
    EXPECT_FALSE(node.SetAttribute(L"name", L"x"));
    node.SetTextContent(L"x");
    EXPECT_FALSE(node.InsertElementBefore(L"", L"a", &out));
    EXPECT_FALSE(node.InsertElementBefore(L"", L"a"));
    EXPECT_FALSE(node.RemoveChild(node.appNode));
    EXPECT_TRUE(node.AppendChildElement(L"a"));
    EXPECT_TRUE(node.AppendChildElement(L"a", &out));
    EXPECT_FALSE(out.HasNode());
    EXPECT_EQ(out.document, &document);
}

INSTANTIATE_TEST_SUITE_P(WcXmNode, NoTree,
                         testing::Values(NoTreeCase{"NeverCreated", [](WcXmDocument& /*document*/) {}},
                                         NoTreeCase{"Closed",
                                                    [](WcXmDocument& document) {
                                                        document.Create();
                                                        document.Close();
                                                    }},
                                         NoTreeCase{"WithoutAParserDocument",
                                                    [](WcXmDocument& document) {
                                                        document.Create();
                                                        document.appDocument->xmlDocument.reset();
                                                    }}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(WcXmNode, SelectFirstChildFindsANameInAnyCase)
{
    XmlText xml(L"<a>text<Other/><Project n='1'/><project n='2'/></a>");
    WcXmNode node = xml.Root();
    EXPECT_TRUE(node.SelectFirstChild(L"PROJECT"));
    EXPECT_EQ(node.NodeName(), L"Project");
    EXPECT_EQ(node.FindAttribute(L"n"), L"1");
}

TEST(WcXmNode, ASearchWithoutAHitLeavesTheCursor)
{
    XmlText xml(L"<a><b/></a>");
    WcXmNode node = xml.Root();
    EXPECT_FALSE(node.SelectFirstChild(L"c"));
    EXPECT_EQ(node.NodeName(), L"a");
}

TEST(WcXmNode, ANamelessChildComparesAsTheEmptyText)
{
    XmlText xml(L"<a><b/>text</a>");
    WcXmNode node = xml.Root();
    EXPECT_TRUE(node.SelectFirstChild(L""));
    EXPECT_EQ(node.GetTextContent(), L"text");
}

TEST(WcXmNode, SiblingsOfAnyKindAreVisited)
{
    XmlText xml(L"<a>1<b/><![CDATA[2]]></a>");
    WcXmNode node = xml.Root();
    ASSERT_TRUE(node.MoveToFirstChild());
    EXPECT_EQ(node.GetTextContent(), L"1");
    ASSERT_TRUE(node.MoveToNextSibling());
    EXPECT_EQ(node.NodeName(), L"b");
    ASSERT_TRUE(node.MoveToNextSibling());
    EXPECT_EQ(node.GetTextContent(), L"2");
    EXPECT_FALSE(node.MoveToNextSibling());
    EXPECT_EQ(node.GetTextContent(), L"2");
}

TEST(WcXmNode, ACopyMovesIndependently)
{
    XmlText xml(L"<a><b/></a>");
    const WcXmNode node = xml.Root();
    WcXmNode copy = node;
    EXPECT_TRUE(copy.SelectFirstChild(L"b"));
    EXPECT_EQ(node.NodeName(), L"a");
    EXPECT_EQ(copy.document, node.document);
    EXPECT_EQ(copy.appNode.xmlDocument, node.appNode.xmlDocument);
}

TEST(WcXmNode, AttributesWithoutAnyGiveTheNodesOwnName)
{
    XmlText xml(L"<Project/>");
    std::map<std::wstring, std::wstring> attributes{{L"old", L"entry"}};
    xml.Root().GetAttributes(attributes);
    EXPECT_EQ(attributes, (std::map<std::wstring, std::wstring>{{L"Project", L""}}));
}

TEST(WcXmNode, AttributesAreKeyedInTheirExactCaseAndTheLastDuplicateWins)
{
    XmlText xml(L"<a name='1' Name='2' name='3'/>");
    std::map<std::wstring, std::wstring> attributes;
    xml.Root().GetAttributes(attributes);
    EXPECT_EQ(attributes, (std::map<std::wstring, std::wstring>{{L"Name", L"2"}, {L"name", L"3"}}));
    EXPECT_EQ(xml.Root().FindAttribute(L"name"), L"3");
    EXPECT_EQ(xml.Root().FindAttribute(L"Name"), L"2");
    EXPECT_EQ(xml.Root().FindAttribute(L"NAME"), std::nullopt);
}

TEST(WcXmNode, TheTextOfAnElementIsItsFirstTextChild)
{
    XmlText xml(L"<a><b/><![CDATA[first]]>second</a>");
    EXPECT_EQ(xml.Root().GetTextContent(), L"first");
    EXPECT_EQ(xml.Child(L"b").GetTextContent(), L"");
}

TEST(WcXmNode, ADeclarationHasNoText)
{
    XmlText xml(L"<?xml version='1.0'?><a>text</a>");
    WcXmNode node = xml.Root();
    node.appNode.node = node.appNode.xmlDocument->first_child();
    ASSERT_EQ(node.NodeName(), L"xml");
    EXPECT_EQ(node.GetTextContent(), L"");
    node.SetTextContent(L"new");
    EXPECT_EQ(node.GetTextContent(), L"");
    EXPECT_EQ(xml.Root().GetTextContent(), L"text");
}

TEST(WcXmNode, SetAttributeKeepsTheSpellingOfAnExistingOne)
{
    XmlText xml(L"<a x='0' name='1' NAME='2'/>");
    EXPECT_TRUE(xml.Root().SetAttribute(L"NAME", L"新"));
    EXPECT_EQ(xml.Text(), L"<a x=\"0\" name=\"新\" NAME=\"2\"/>");
}

TEST(WcXmNode, SetAttributeAppendsANewOneBehindTheOthers)
{
    XmlText xml(L"<a x='0'/>");
    EXPECT_TRUE(xml.Root().SetAttribute(L"Side", L"left"));
    EXPECT_EQ(xml.Text(), L"<a x=\"0\" Side=\"left\"/>");
}

TEST(WcXmNode, ATextNodeHasNoAttributes)
{
    XmlText xml(L"<a>text</a>");
    WcXmNode node = xml.Root();
    node.MoveToFirstChild();
    EXPECT_FALSE(node.SetAttribute(L"name", L"x"));
    EXPECT_EQ(xml.Text(), L"<a>text</a>");
}

TEST(WcXmNode, SetTextContentReplacesTheFirstTextChild)
{
    XmlText xml(L"<a><b/>old<c/>other</a>");
    xml.Root().SetTextContent(L"新 & <");
    EXPECT_EQ(xml.Text(), L"<a><b/>新 &amp; &lt;<c/>other</a>");
}

TEST(WcXmNode, SetTextContentAppendsATextChildToAnElementWithout)
{
    XmlText xml(L"<a><b/></a>");
    xml.Root().SetTextContent(L"1. 2.");
    EXPECT_EQ(xml.Text(), L"<a><b/>1. 2.</a>");
}

TEST(WcXmNode, SetTextContentOnATextNodeSetsItsValue)
{
    XmlText xml(L"<a>old</a>");
    WcXmNode node = xml.Root();
    node.MoveToFirstChild();
    node.SetTextContent(L"new");
    EXPECT_EQ(xml.Text(), L"<a>new</a>");
}

TEST(WcXmNode, SetTextContentKeepsCharacterDataCharacterData)
{
    XmlText xml(L"<a><b/><![CDATA[old]]>other</a>");
    xml.Root().SetTextContent(L"1 < 2");
    EXPECT_EQ(xml.Text(), L"<a><b/><![CDATA[1 < 2]]>other</a>");
    WcXmNode node = xml.Child(L"b");
    ASSERT_TRUE(node.MoveToNextSibling());
    node.SetTextContent(L"3 > 2");
    EXPECT_EQ(xml.Text(), L"<a><b/><![CDATA[3 > 2]]>other</a>");
}

TEST(WcXmNode, AppendChildElementPutsTheOutCursorOnTheNewElement)
{
    XmlText xml(L"<a><b/></a>");
    XmlText other(L"<x/>");
    WcXmNode out = other.Root();
    EXPECT_TRUE(xml.Root().AppendChildElement(L"Feature", &out));
    EXPECT_EQ(out.document, &xml.document);
    out.SetAttribute(L"name", L"n");
    EXPECT_TRUE(xml.Root().AppendChildElement(L"c"));
    EXPECT_EQ(xml.Text(), L"<a><b/><Feature name=\"n\"/><c/></a>");
}

TEST(WcXmNode, AppendChildElementOnATextNodeIsTrueWithoutACursor)
{
    XmlText xml(L"<a>text</a>");
    WcXmNode node = xml.Root();
    node.MoveToFirstChild();
    WcXmNode out = xml.Root();
    EXPECT_TRUE(node.AppendChildElement(L"b", &out));
    EXPECT_FALSE(out.HasNode());
    EXPECT_EQ(xml.Text(), L"<a>text</a>");
}

TEST(WcXmNode, AppendChildElementOnNothingAppendsToTheDocument)
{
    XmlText xml(L"");
    WcXmNode out = xml.Root();
    EXPECT_TRUE(xml.Root().AppendChildElement(L"a", &out));
    EXPECT_EQ(out.NodeName(), L"a");
    EXPECT_EQ(xml.Text(), L"<a/>");
}

TEST(WcXmNode, InsertElementBeforePlacesDirectlyInFrontOfTheFirstHit)
{
    XmlText xml(L"<a><x/>text<alignments/><Alignments/></a>");
    WcXmNode out = xml.Root();
    EXPECT_TRUE(xml.Root().InsertElementBefore(L"Alignments", L"CgPoints", &out));
    EXPECT_EQ(out.NodeName(), L"CgPoints");
    EXPECT_EQ(xml.Text(), L"<a><x/>text<CgPoints/><alignments/><Alignments/></a>");
}

TEST(WcXmNode, InsertElementBeforeTakesAChildThatIsKnown)
{
    XmlText xml(L"<r><a/><b><c/></b></r>");
    WcXmNode out = xml.Root();
    EXPECT_TRUE(xml.Root().InsertElementBefore(xml.Child(L"b").appNode, L"n", &out));
    EXPECT_EQ(out.NodeName(), L"n");
    EXPECT_EQ(xml.Text(), L"<r><a/><n/><b><c/></b></r>");
    WcXmNode grandchild = xml.Child(L"b");
    grandchild.MoveToFirstChild();
    EXPECT_FALSE(xml.Root().InsertElementBefore(grandchild.appNode, L"n", &out));
    EXPECT_EQ(out.NodeName(), L"r");
    EXPECT_FALSE(xml.Root().InsertElementBefore(WcXmAppNode(), L"n"));
    EXPECT_EQ(xml.Text(), L"<r><a/><n/><b><c/></b></r>");
}

TEST(WcXmNode, InsertElementBeforeWithoutTheReferenceChangesNothing)
{
    XmlText xml(L"<a><b/></a>");
    WcXmNode out = xml.Child(L"b");
    EXPECT_FALSE(xml.Root().InsertElementBefore(L"c", L"CgPoints", &out));
    EXPECT_EQ(out.NodeName(), L"a");
    EXPECT_EQ(xml.Text(), L"<a><b/></a>");
}

TEST(WcXmNode, RemoveChildTakesAllBelowItAlong)
{
    XmlText xml(L"<a><b><c>x<d/></c></b><e/></a>");
    EXPECT_TRUE(xml.Root().RemoveChild(xml.Child(L"b").appNode));
    EXPECT_EQ(xml.Text(), L"<a><e/></a>");
}

TEST(WcXmNode, AChildOfAnotherParentStays)
{
    XmlText xml(L"<a><b><c/></b></a>");
    WcXmNode inner = xml.Child(L"b");
    inner.SelectFirstChild(L"c");
    EXPECT_TRUE(xml.Root().RemoveChild(inner.appNode));
    EXPECT_TRUE(xml.Root().RemoveChild(xml.Root().appNode));
    EXPECT_TRUE(xml.Root().RemoveChild(WcXmAppNode()));
    EXPECT_EQ(xml.Text(), L"<a><b><c/></b></a>");
}

TEST(WcXmNode, ADeepChildIsRemovedWithoutDeepRecursion)
{
    constexpr int DEPTH = 300000;
    std::wstring text = L"<a>";
    for (int depth = 0; depth < DEPTH; ++depth)
    {
        text += L"<b>";
    }
    for (int depth = 0; depth < DEPTH; ++depth)
    {
        text += L"</b>";
    }
    XmlText xml(text + L"<c/></a>");
    EXPECT_TRUE(xml.Root().RemoveChild(xml.Child(L"b").appNode));
    EXPECT_EQ(xml.Text(), L"<a><c/></a>");
}

TEST(WcXmNode, ATextGivesItsValueUnderTheEmptyKey)
{
    XmlText xml(L"<a>text</a>");
    WcXmNode node = xml.Root();
    ASSERT_TRUE(node.MoveToFirstChild());
    std::map<std::wstring, std::wstring> attributes;
    node.GetAttributes(attributes);
    EXPECT_EQ(attributes, (std::map<std::wstring, std::wstring>{{L"", L"text"}}));
}

TEST(WcXmNode, WithoutTheParsersMemoryATextIsSetOutWholeOrItsWantIsRaised)
{
    const auto second = [](XmlText& xml) {
        WcXmNode node = xml.Root();
        return node.MoveToFirstChild() && node.GetTextContent() == L"one";
    };
    EXPECT_GT(RefusedPages(L"<a>one<b/></a>", second), 0);
    XmlText xml(L"<a>" + std::wstring(20000, L'1') + L"<b/></a>");
    {
        // A text of that length needs a page of its own.
        const FailingParserAllocation failing(0);
        WcXmNode node = xml.Root();
        EXPECT_TRUE(node.MoveToFirstChild());
        EXPECT_EQ(node.NodeName(), L"b");
    }
    EXPECT_EQ(xml.Text(), L"<a>" + std::wstring(20000, L'1') + L"<b/></a>");
}

} // namespace
} // namespace jlandxml

#include "model/FViewProperty.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

const std::wstring CHILDREN =
    L"<F><property label='0'/><Property label='1'/>x<y/><Property label='2'/><Property label='3'/></F>";

std::wstring Labels(const std::wstring& xml, std::size_t stopAt = 99)
{
    XmlText text(xml);
    std::wstring labels;
    ForEachChild(text.Root(), L"Property", [&](const WcXmNode& child) {
        labels += PropertyLabel(child);
        return labels.size() < stopAt;
    });
    return labels;
}

TEST(FViewLandXMLBase, TheWalkBeginsInAnyCaseAndVisitsExactNames)
{
    EXPECT_EQ(Labels(CHILDREN), L"123");
    EXPECT_EQ(Labels(CHILDREN, 2), L"12");
    EXPECT_EQ(Labels(L"<F/>"), L"");
}

TEST(FViewLandXMLBase, AFirstChildIsReadByItsExactNameOrInAnyCase)
{
    XmlText xml(CHILDREN);
    FViewProperty property;
    EXPECT_TRUE(ReadFirstChild(xml.Root(), property));
    EXPECT_EQ(property.label, L"1");
    EXPECT_TRUE(ReadFirstChildInAnyCase(xml.Root(), property));
    EXPECT_EQ(property.label, L"0");
    XmlText none(L"<F><x/></F>");
    EXPECT_FALSE(ReadFirstChild(none.Root(), property));
    EXPECT_FALSE(ReadFirstChildInAnyCase(none.Root(), property));
    EXPECT_EQ(property.label, L"0");
}

/// Takes its number and reads false where that is 0.
class NotZero final : public FViewLandXMLBase
{
  public:
    void Clear() override {}
    const wchar_t* GetElementName() const override { return L"Property"; }
    bool ReadElement(const WcXmNode& node) override
    {
        number = node.FindAttribute(L"n").value_or(L"none");
        return number != L"0";
    }
    bool WriteElement(const WcXmNode& /*node*/) override { return true; }

    std::wstring number;
};

TEST(FViewLandXMLBase, OfAnElementThatCountsOnceTheFirstThatReadsIsTaken)
{
    XmlText second(L"<F><Property n='0'/><Property n='1'/><Property n='2'/></F>");
    NotZero element;
    EXPECT_TRUE(ReadFirstChild(second.Root(), element));
    EXPECT_EQ(element.number, L"1");
    XmlText none(L"<F><Property n='0'/></F>");
    EXPECT_FALSE(ReadFirstChild(none.Root(), element));
}

/// Writes its number onto its element and fails where told to.
class Entry final : public FViewLandXMLBase
{
  public:
    Entry(const wchar_t* number, bool succeeds) : number_(number), succeeds_(succeeds) {}

    void Clear() override {}
    const wchar_t* GetElementName() const override { return L"Property"; }
    bool ReadElement(const WcXmNode& /*node*/) override { return true; }
    bool WriteElement(const WcXmNode& node) override
    {
        node.SetAttribute(L"n", number_);
        return succeeds_;
    }

  private:
    const wchar_t* number_;
    bool succeeds_;
};

TEST(FViewLandXMLBase, AFirstChildIsWrittenOnlyIfItsNameIsExact)
{
    Entry entry(L"7", true);
    XmlText other(L"<F><property/><Property/></F>");
    EXPECT_TRUE(WriteFirstChild(other.Root(), entry));
    EXPECT_EQ(other.Text(), L"<F><property/><Property/></F>");
    XmlText exact(L"<F><x/><Property/><Property/></F>");
    EXPECT_TRUE(WriteFirstChild(exact.Root(), entry));
    EXPECT_EQ(exact.Text(), L"<F><x/><Property n=\"7\"/><Property/></F>");
    XmlText none(L"<F/>");
    EXPECT_TRUE(WriteFirstChild(none.Root(), entry));
    Entry failing(L"7", false);
    EXPECT_FALSE(WriteFirstChild(exact.Root(), failing));
    EXPECT_TRUE(WriteFirstChild(none.Root(), failing));
}

TEST(FViewLandXMLBase, ChildrenPairWithEntriesByPositionUntilEitherEnds)
{
    const auto written = [](std::vector<Entry> entries) {
        XmlText xml(L"<F><property/><Property/>x<Property/><Property/></F>");
        const bool succeeded = WriteChildren(xml.Root(), entries);
        return xml.Text() + (succeeded ? L"" : L" failed");
    };
    EXPECT_EQ(written({}), L"<F><property/><Property/>x<Property/><Property/></F>");
    EXPECT_EQ(written({{L"1", true}, {L"2", true}}),
              L"<F><property/><Property n=\"1\"/>x<Property n=\"2\"/><Property/></F>");
    EXPECT_EQ(written({{L"1", true}, {L"2", true}, {L"3", true}, {L"4", false}}),
              L"<F><property/><Property n=\"1\"/>x<Property n=\"2\"/><Property n=\"3\"/></F>");
    EXPECT_EQ(written({{L"1", true}, {L"2", false}, {L"3", true}}),
              L"<F><property/><Property n=\"1\"/>x<Property n=\"2\"/><Property/></F> failed");
    EXPECT_EQ(written({{L"1", false}}), L"<F><property/><Property n=\"1\"/>x<Property/><Property/></F> failed");
}

TEST(FViewLandXMLBase, ChildrenAreRemovedByTheirExactNames)
{
    XmlText xml(L"<F><property/><Property a='1'/><Property/><Property a='2'/></F>");
    const auto hasAttribute = [](const WcXmNode& child) { return child.FindAttribute(L"a").has_value(); };
    EXPECT_TRUE(RemoveChildrenIf(xml.Root(), L"Property", hasAttribute));
    EXPECT_EQ(xml.Text(), L"<F><property/><Property/></F>");
    EXPECT_FALSE(RemoveChildrenIf(xml.Root(), L"Property", hasAttribute));
    RemoveChildren(xml.Root(), L"Property");
    EXPECT_EQ(xml.Text(), L"<F><property/></F>");
}

} // namespace
} // namespace jlandxml

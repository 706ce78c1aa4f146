#include "inspect/RunJournal.h"

#include "base/Text.h"

#include <gtest/gtest.h>

namespace jlandxml::inspect
{
namespace
{

using Kind = WcXmChange::Kind;

WcXmChange ChangeOf(Kind kind, std::wstring object, std::wstring name, std::wstring before, std::wstring after)
{
    WcXmChange change;
    change.kind = kind;
    change.object = std::move(object);
    change.name = std::move(name);
    change.oldText = std::move(before);
    change.newText = std::move(after);
    return change;
}

WcXmChange ChangedLength(const std::wstring& object, const std::wstring& after)
{
    return ChangeOf(Kind::AttributeChanged, object, L"length", L"1", after);
}

std::string Written(const RunJournal& journal)
{
    Html page;
    WriteRunJournal(page, &journal);
    return page.Take();
}

bool HasPart(const std::string& page, const std::string& part)
{
    return page.find(part) != std::string::npos;
}

TEST(RunJournal, WithoutAChangeSaysSo)
{
    EXPECT_TRUE(HasPart(Written({}), ">変換で変わったものはありません。</p>"));
    Html page;
    WriteRunJournal(page, nullptr);
    EXPECT_TRUE(HasPart(page.Take(), ">このページは完成したファイルだけから作成しました。"));
}

/// A change and where it is told.
struct ToldChange
{
    const char* name;
    Kind kind;
    bool sameNumbers;
    const char* chapter;
    const char* group;
};

class ToldChanges : public testing::TestWithParam<ToldChange>
{};

TEST_P(ToldChanges, StandInTheirChapterUnderTheirName)
{
    const ToldChange& row = GetParam();
    WcXmChange change = ChangeOf(row.kind, L"線形1", L"x", L"前", L"後");
    change.sameNumbers = row.sameNumbers;
    RunJournal journal;
    journal.Take(change);
    const std::string page = Written(journal);
    EXPECT_TRUE(HasPart(page, std::string(">") + row.chapter + "（1件）</h3><details>")) << page;
    EXPECT_TRUE(HasPart(page, std::string(">") + row.group + "：1件</summary>")) << page;
    EXPECT_TRUE(HasPart(page, "<tr><td>線形1</td><td>前</td><td>後</td></tr>")) << page;
}

INSTANTIATE_TEST_SUITE_P(
    Inspect, ToldChanges,
    testing::Values(ToldChange{"ANewElement", Kind::ElementAdded, false, "追加したもの", "要素 x"},
                    ToldChange{"AnElementThatIsGone", Kind::ElementRemoved, false, "削除したもの", "要素 x"},
                    ToldChange{"AnElementElsewhere", Kind::ElementMoved, false, "位置が変わったもの", "要素 x"},
                    ToldChange{"ANewAttribute", Kind::AttributeAdded, false, "追加したもの", "属性 x"},
                    ToldChange{"AnotherValue", Kind::AttributeChanged, false, "変更した値", "属性 x"},
                    ToldChange{"AnotherText", Kind::TextChanged, false, "変更した値", "要素 x の内容"},
                    ToldChange{"TheSameNumber", Kind::AttributeChanged, true, "表記だけが変わった数値", "属性 x"},
                    ToldChange{"TheSameNumbers", Kind::TextChanged, true, "表記だけが変わった数値", "要素 x の内容"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(RunJournal, TellsChangesOfOneNameTogether)
{
    RunJournal journal;
    journal.Take(ChangedLength(L"線形1", L"2"));
    journal.Take(ChangeOf(Kind::ElementRemoved, L"線形1", L"length", L"<length/>", L""));
    journal.Take(ChangedLength(L"線形2", L"3"));
    ASSERT_EQ(journal.Groups().size(), 2U);
    EXPECT_EQ(journal.Groups()[0].count, 2U);
    EXPECT_EQ(journal.Groups()[0].told[1].object, L"線形2");
    EXPECT_EQ(journal.Groups()[1].count, 1U);
}

TEST(RunJournal, CutsALongListAndSaysHowLongItIs)
{
    RunJournal journal;
    for (std::size_t number = 1; number <= RunJournal::MOST_TOLD + 12; ++number)
    {
        journal.Take(ChangedLength(L"線形" + std::to_wstring(number), L"2"));
    }
    const std::string page = Written(journal);
    EXPECT_TRUE(HasPart(page, ">属性 length：42件</summary>"));
    EXPECT_TRUE(HasPart(page, "<td>線形30</td>"));
    EXPECT_FALSE(HasPart(page, "<td>線形31</td>"));
    EXPECT_TRUE(HasPart(page, "data-en=\"Another 12 are left out.\">ほか12件は省略しました。</p></details>"));
}

TEST(RunJournal, CountsWhatGoesBeyondTheMostNames)
{
    RunJournal journal;
    for (std::size_t number = 0; number < RunJournal::MOST_GROUPS + 3; ++number)
    {
        journal.Take(ChangeOf(Kind::AttributeAdded, L"線形1", L"a" + std::to_wstring(number), L"", L"1"));
    }
    const std::string page = Written(journal);
    EXPECT_TRUE(HasPart(page, ">追加したもの（203件）</h3>"));
    EXPECT_TRUE(HasPart(page, ">ほかの名称の3件は省略しました。</p></section>"));
}

TEST(RunJournal, CutsALongTextAndSaysHowLongItIs)
{
    RunJournal journal;
    const std::wstring longest(RunJournal::LONGEST_TEXT, L'あ');
    journal.Take(ChangedLength(L"線形1", longest));
    journal.Take(ChangedLength(L"線形2", longest + L"い"));
    EXPECT_EQ(journal.Groups()[0].told[0].after.japanese, longest);
    EXPECT_EQ(journal.Groups()[0].told[1].after.japanese, longest + L"…（全201文字）");
    EXPECT_EQ(journal.Groups()[0].told[1].after.english, longest + L"… (201 characters in all)");
}

TEST(RunJournal, LeavesNoMarkupOfAFileInItsTexts)
{
    RunJournal journal;
    journal.Take(ChangeOf(Kind::ElementAdded, L"</script>", L"<b>", L"", L"<Feature name=\"'\"/>"));
    const std::string page = Written(journal);
    EXPECT_FALSE(HasPart(page, "<b>"));
    EXPECT_FALSE(HasPart(page, "<Feature"));
    EXPECT_TRUE(HasPart(page, "&lt;Feature name=&quot;&#39;&quot;/&gt;"));
}

} // namespace
} // namespace jlandxml::inspect

#include "inspect/RunJournal.h"

#include "base/Text.h"

#include <algorithm>
#include <iterator>

namespace jlandxml::inspect
{

namespace
{

enum Chapter : std::size_t
{
    CHANGED_VALUES,
    SPELT_ANEW,
    ADDED,
    DROPPED,
    MOVED,
};

/// What is told of a kind of change: where, and whether its name is that of an attribute.
struct KindOfChange
{
    WcXmChange::Kind kind;
    Chapter chapter;
    Sentence words;
};
constexpr Sentence OF_AN_ATTRIBUTE{L"属性 {}", L"attribute {}"};
constexpr Sentence OF_AN_ELEMENT{L"要素 {}", L"element {}"};
constexpr Sentence OF_A_TEXT{L"要素 {} の内容", L"content of element {}"};
constexpr KindOfChange KINDS_OF_CHANGES[] = {
    {WcXmChange::Kind::ElementAdded, ADDED, OF_AN_ELEMENT},
    {WcXmChange::Kind::ElementRemoved, DROPPED, OF_AN_ELEMENT},
    {WcXmChange::Kind::ElementMoved, MOVED, OF_AN_ELEMENT},
    {WcXmChange::Kind::AttributeAdded, ADDED, OF_AN_ATTRIBUTE},
    {WcXmChange::Kind::AttributeChanged, CHANGED_VALUES, OF_AN_ATTRIBUTE},
    {WcXmChange::Kind::TextChanged, CHANGED_VALUES, OF_A_TEXT},
};

const KindOfChange& Find(WcXmChange::Kind kind)
{
    return *std::find_if(std::begin(KINDS_OF_CHANGES), std::end(KINDS_OF_CHANGES),
                         [&](const KindOfChange& one) { return one.kind == kind; });
}

std::size_t ChapterOf(const WcXmChange& change)
{
    return change.sameNumbers ? SPELT_ANEW : Find(change.kind).chapter;
}

/// A text as it is told: cut where it is long, with the length of the whole.
Detail Told(std::wstring_view text)
{
    const std::size_t length = CountCharacters(text);
    if (length <= RunJournal::LONGEST_TEXT)
    {
        return Detail(text);
    }
    return {{L"{}…（全{}文字）", L"{}… ({} characters in all)"},
            {FirstCharacters(text, RunJournal::LONGEST_TEXT), std::to_wstring(length)}};
}

std::wstring Count(std::size_t count)
{
    return std::to_wstring(count);
}

void WriteChange(Html& page, const RunJournal::Change& change)
{
    page.Raw("<tr><td>").Text(change.object).Raw("</td>");
    page.Words("td", change.before).Words("td", change.after).Raw("</tr>\n");
}

void WriteGroup(Html& page, const RunJournal::Group& group)
{
    const Sentence& words = Find(group.kind).words;
    const Detail name(words, {group.name});
    const std::wstring count = Count(group.count);
    page.Raw("<details>").Words("summary", name.japanese + L"：" + count + L"件", name.english + L": " + count);
    page.Raw("<table><thead><tr>").Words("th", L"対象", L"Element").Words("th", L"変換前", L"Before");
    page.Words("th", L"変換後", L"After").Raw("</tr></thead><tbody>");
    for (const RunJournal::Change& change : group.told)
    {
        WriteChange(page, change);
    }
    page.Raw("</tbody></table>");
    if (group.count > group.told.size())
    {
        const std::wstring more = Count(group.count - group.told.size());
        page.Words("p class=\"leftout\"", L"ほか" + more + L"件は省略しました。",
                   L"Another " + more + L" are left out.");
    }
    page.Raw("</details>");
}

void WriteChapter(Html& page, const RunJournal& journal, std::size_t chapter)
{
    if (journal.CountOf(chapter) == 0)
    {
        return;
    }
    const Sentence& words = RunJournal::CHAPTERS[chapter];
    const std::wstring count = Count(journal.CountOf(chapter));
    page.Words("h3", words.japanese + (L"（" + count) + L"件）", words.english + (L" (" + count) + L")");
    for (const RunJournal::Group& group : journal.Groups())
    {
        if (group.chapter == chapter)
        {
            WriteGroup(page, group);
        }
    }
}

} // namespace

RunJournal::Group* RunJournal::GroupOf(const WcXmChange& change)
{
    const std::size_t chapter = ChapterOf(change);
    const auto found = std::find_if(groups_.begin(), groups_.end(), [&](const Group& group) {
        return group.chapter == chapter && group.kind == change.kind && group.name == change.name;
    });
    if (found != groups_.end())
    {
        return &*found;
    }
    return groups_.size() < MOST_GROUPS ? &groups_.emplace_back(Group{chapter, change.kind, change.name, 0, {}})
                                        : nullptr;
}

void RunJournal::Take(const WcXmChange& change)
{
    ++counts_[ChapterOf(change)];
    Group* const group = GroupOf(change);
    if (group == nullptr)
    {
        ++untold_;
        return;
    }
    if (++group->count <= MOST_TOLD)
    {
        group->told.push_back({change.object, Told(change.oldText), Told(change.newText)});
    }
}

void WriteRunJournal(Html& page, const RunJournal* journal)
{
    page.Raw("<section id=\"journal\">").Words("h2", L"変換の記録", L"Record of the conversion");
    if (journal == nullptr)
    {
        page.Words(
            "p", L"このページは完成したファイルだけから作成しました。変換で変更、追加、削除した値の記録はありません。",
            L"This page was made from the finished file alone. There is no record of what the conversion "
            L"changed, added or dropped.");
    }
    else if (journal->Groups().empty())
    {
        page.Words("p", L"変換で変わったものはありません。", L"The conversion changed nothing.");
    }
    for (std::size_t chapter = 0; journal != nullptr && chapter < std::size(RunJournal::CHAPTERS); ++chapter)
    {
        WriteChapter(page, *journal, chapter);
    }
    if (journal != nullptr && journal->Untold() > 0)
    {
        const std::wstring more = Count(journal->Untold());
        page.Words("p class=\"leftout\"", L"ほかの名称の" + more + L"件は省略しました。",
                   L"Another " + more + L" of other names are left out.");
    }
    page.Raw("</section>");
}

} // namespace jlandxml::inspect

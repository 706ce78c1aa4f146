#pragma once

#include "inspect/Finding.h"
#include "inspect/Html.h"
#include "xml/WcXmJournal.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

namespace jlandxml::inspect
{

/// What a run changed on the way to its finished file, gathered for people: changes of one kind to elements or
/// attributes of one name are one group, of which all are counted and the first ones told.
class RunJournal
{
  public:
    static constexpr std::size_t MOST_GROUPS = 200;
    static constexpr std::size_t MOST_TOLD = 30;     ///< changes of a group
    static constexpr std::size_t LONGEST_TEXT = 200; ///< characters of a value, a text or an element as XML

    struct Change
    {
        std::wstring object; ///< the element by names
        Detail before;       ///< empty for what is new
        Detail after;        ///< empty for what is gone
    };

    struct Group
    {
        std::size_t chapter; ///< place among Chapters()
        WcXmChange::Kind kind;
        std::wstring name; ///< of the elements or attributes
        std::size_t count = 0;
        std::vector<Change> told;
    };

    /// What is told apart, in the order in which it is told: values that were changed, numbers that were only spelt
    /// anew, what was added, dropped and moved.
    static constexpr Sentence CHAPTERS[] = {
        {L"変更した値", L"Values changed"}, {L"表記だけが変わった数値", L"Numbers spelt anew"},
        {L"追加したもの", L"Added"},        {L"削除したもの", L"Dropped"},
        {L"位置が変わったもの", L"Moved"},
    };

    void Take(const WcXmChange& change);

    /// In the order of their first changes.
    const std::vector<Group>& Groups() const { return groups_; }

    /// The changes that a chapter has in all.
    std::size_t CountOf(std::size_t chapter) const { return counts_[chapter]; }

    /// The changes of groups beyond MOST_GROUPS, which are only counted.
    std::size_t Untold() const { return untold_; }

  private:
    Group* GroupOf(const WcXmChange& change);

    std::vector<Group> groups_;
    std::array<std::size_t, std::size(CHAPTERS)> counts_{};
    std::size_t untold_ = 0;
};

/// Writes the chapter of a report on what the run changed; without a journal that there is no record of it.
void WriteRunJournal(Html& page, const RunJournal* journal);

} // namespace jlandxml::inspect

#include "model/SurfaceNames.h"

#include <algorithm>

namespace jlandxml
{

namespace
{

std::uint64_t BranchKey(std::uint32_t state, wchar_t letter)
{
    // The analyzer takes the state for a signed number.
    return std::uint64_t{state} << 32U | // NOLINT(clang-analyzer-core.UndefinedBinaryOperatorResult)
           static_cast<std::uint32_t>(letter);
}

} // namespace

SurfaceNames::SurfaceNames(std::span<const std::wstring_view> names, std::size_t longest)
    : longest_(longest),
      beginnings_(1),
      nextOfSameName_(names.size(), NONE),
      isTaken_(names.size(), false)
{
    std::vector<std::wstring_view> prepared;
    for (std::size_t place = 0; place < names.size(); ++place)
    {
        if (names[place].size() <= longest)
        {
            Insert(names[place], place);
            prepared.push_back(names[place]);
        }
    }
    Link(std::move(prepared));
    lastOfName_ = {};
}

void SurfaceNames::Insert(std::wstring_view name, std::size_t place)
{
    State state = ROOT;
    for (const wchar_t letter : name)
    {
        State next = Next(state, letter);
        if (next == NO_STATE)
        {
            next = static_cast<State>(beginnings_.size());
            beginnings_.emplace_back().letter = letter;
            if (next == state + 1)
            {
                beginnings_[state].goesOn = true;
            }
            else
            {
                beginnings_[state].branches = true;
                branches_.emplace(BranchKey(state, letter), next);
            }
        }
        state = next;
    }
    State& known = beginnings_[state].name;
    if (known == NO_NAME)
    {
        known = static_cast<State>(names_.size());
        names_.push_back({.length = name.size(), .head = place});
        lastOfName_.push_back(place);
        return;
    }
    nextOfSameName_[lastOfName_[known]] = place;
    lastOfName_[known] = place;
}

/// Links each beginning, the shorter ones first, since a longer one builds on them.
void SurfaceNames::Link(std::vector<std::wstring_view> names)
{
    if (const State empty = beginnings_[ROOT].name; empty != NO_NAME)
    {
        names_[empty].firstOfAll = names_[empty].head;
    }
    std::sort(names.begin(), names.end(), [](auto a, auto b) { return a.size() > b.size(); });
    std::vector<State> states(names.size(), ROOT);
    for (std::size_t depth = 0; !names.empty() && depth < names.front().size(); ++depth)
    {
        for (std::size_t index = 0; index < names.size() && names[index].size() > depth; ++index)
        {
            const State next = Next(states[index], names[index][depth]);
            if (beginnings_[next].fallback == NO_STATE)
            {
                LinkStep(states[index], next);
            }
            states[index] = next;
        }
    }
}

void SurfaceNames::LinkStep(State from, State to)
{
    Beginning& beginning = beginnings_[to];
    beginning.fallback = from == ROOT ? ROOT : Step(beginnings_[from].fallback, beginning.letter);
    const State shorter = beginnings_[beginning.fallback].name;
    if (beginning.name == NO_NAME)
    {
        beginning.name = shorter;
        return;
    }
    Name& name = names_[beginning.name];
    name.shorter = shorter;
    name.firstOfAll = shorter == NO_NAME ? name.head : std::min(name.head, names_[shorter].firstOfAll);
}

/// The beginning that has this character more; NO_STATE if no name begins so.
SurfaceNames::State SurfaceNames::Next(State from, wchar_t letter) const
{
    const Beginning& beginning = beginnings_[from];
    if (beginning.goesOn && beginnings_[from + 1].letter == letter)
    {
        return from + 1;
    }
    if (!beginning.branches)
    {
        return NO_STATE;
    }
    const auto branch = branches_.find(BranchKey(from, letter));
    return branch != branches_.end() ? branch->second : NO_STATE;
}

/// The longest beginning that a text ends with, after one character more.
SurfaceNames::State SurfaceNames::Step(State from, wchar_t letter) const
{
    State next = Next(from, letter);
    while (next == NO_STATE && from != ROOT)
    {
        from = beginnings_[from].fallback;
        next = Next(from, letter);
    }
    return next != NO_STATE ? next : ROOT;
}

std::size_t SurfaceNames::FirstWithin(std::wstring_view text)
{
    std::size_t first = text.empty() ? NONE : FirstFree(beginnings_[ROOT].name);
    State state = ROOT;
    for (const wchar_t letter : text)
    {
        state = Step(state, letter);
        State name = beginnings_[state].name;
        if (name != NO_NAME && names_[name].length == text.size())
        {
            name = names_[name].shorter;
        }
        first = std::min(first, FirstFree(name));
    }
    return first;
}

/// The first free place of a name and of all names that it ends with. Places are only taken, so what was the first one
/// stays it until it is taken itself; only then is the chain of shorter names looked at again.
std::size_t SurfaceNames::FirstFree(State name)
{
    std::size_t first = NONE;
    stale_.clear();
    for (; name != NO_NAME; name = names_[name].shorter)
    {
        Name& one = names_[name];
        if (one.round != round_)
        {
            one.round = round_;
            one.next = one.head;
            one.first = one.firstOfAll;
        }
        if (one.first == NONE || !isTaken_[one.first])
        {
            first = one.first;
            break;
        }
        stale_.push_back(name);
    }
    for (; !stale_.empty(); stale_.pop_back())
    {
        Name& one = names_[stale_.back()];
        while (one.next != NONE && isTaken_[one.next])
        {
            one.next = nextOfSameName_[one.next];
        }
        first = std::min(first, one.next);
        one.first = first;
    }
    return first;
}

void SurfaceNames::Take(std::size_t place)
{
    isTaken_[place] = true;
    takenPlaces_.push_back(place);
}

void SurfaceNames::GiveBackAll()
{
    for (const std::size_t place : takenPlaces_)
    {
        isTaken_[place] = false;
    }
    takenPlaces_.clear();
    ++round_;
}

} // namespace jlandxml

#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace jlandxml
{

/// The names of a document's surfaces, prepared for being found within the composite names of ground lines, such as
/// "EG" within "EG_1". A long river has tens of thousands of both, so all names are looked for at once, in one walk
/// over the text (Aho and Corasick, Communications of the ACM 18, 1975).
class SurfaceNames
{
  public:
    static constexpr std::size_t NONE = std::numeric_limits<std::size_t>::max();

    /// Prepares the names, which keep their places in the list. Those of more characters than `longest` stand within no
    /// text of that length and are left out.
    SurfaceNames(std::span<const std::wstring_view> names, std::size_t longest);

    /// The longest text that can be asked for.
    std::size_t Longest() const { return longest_; }

    /// The place of the first name that isn't taken, stands within the text and isn't all of it. NONE if there is none.
    std::size_t FirstWithin(std::wstring_view text);

    /// Takes a name: it isn't found until all are given back. Other places with the same name stay.
    void Take(std::size_t place);

    /// The places that are taken.
    std::span<const std::size_t> Taken() const { return takenPlaces_; }

    void GiveBackAll();

  private:
    using State = std::uint32_t;
    static constexpr State ROOT = 0;
    static constexpr State NO_STATE = std::numeric_limits<State>::max();
    static constexpr State NO_NAME = std::numeric_limits<State>::max();

    /// A beginning of one or more names, the root for the empty one.
    struct Beginning
    {
        wchar_t letter = 0;        ///< its last character
        bool goesOn = false;       ///< the next state has a character more
        bool branches = false;     ///< other states have, too
        State fallback = NO_STATE; ///< the longest end of it that is a beginning as well
        State name = NO_NAME;      ///< the longest name that it ends with
    };

    /// One of the different names, with the places that have it.
    struct Name
    {
        std::size_t length = 0;
        std::size_t head = NONE;       ///< its first place
        std::size_t firstOfAll = NONE; ///< the first place of it and of all names that it ends with
        State shorter = NO_NAME;       ///< the longest other name that it ends with
        // What is left of it since the last giving back; stale while `round` is an older one.
        std::size_t round = 0;
        std::size_t next = NONE;  ///< no earlier place of it is free
        std::size_t first = NONE; ///< as `firstOfAll`, but of free places when it was last looked at
    };

    void Insert(std::wstring_view name, std::size_t place);
    void Link(std::vector<std::wstring_view> names);
    void LinkStep(State from, State to);
    State Next(State from, wchar_t letter) const;
    State Step(State from, wchar_t letter) const;
    std::size_t FirstFree(State name);

    std::size_t longest_;
    std::vector<Beginning> beginnings_;
    std::unordered_map<std::uint64_t, State> branches_; ///< by state and character
    std::vector<Name> names_;
    std::vector<std::size_t> nextOfSameName_; ///< by place
    std::vector<std::size_t> lastOfName_;     ///< by name; while names are gathered
    std::vector<bool> isTaken_;               ///< by place
    std::vector<std::size_t> takenPlaces_;
    std::vector<State> stale_; ///< of FirstFree
    std::size_t round_ = 1;
};

} // namespace jlandxml

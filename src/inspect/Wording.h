#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace jlandxml::inspect
{

/// What is said, in both languages of the report. On the command line it is Japanese.
struct Sentence
{
    const wchar_t* japanese;
    const wchar_t* english;
};

/// A text in both languages: words of ours, or figures and names of the file, which are the same in both.
struct Detail
{
    std::wstring japanese;
    std::wstring english;

    Detail() = default;
    Detail(std::wstring_view text) : japanese(text), english(text) {}
    Detail(const std::wstring& text) : japanese(text), english(text) {}
    Detail(const wchar_t* text) : japanese(text), english(text) {}
    Detail(const Sentence& words) : japanese(words.japanese), english(words.english) {}

    /// Words in which each {} stands for one of the values, in their order; values beyond them aren't said.
    Detail(const Sentence& words, std::initializer_list<Detail> values);

    bool IsEmpty() const { return japanese.empty(); }
};

/// One behind the other.
Detail operator+(Detail first, const Detail& second);

} // namespace jlandxml::inspect

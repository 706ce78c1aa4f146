#include "inspect/Wording.h"

#include <utility>

namespace jlandxml::inspect
{

namespace
{

std::wstring Filled(std::wstring_view words, std::initializer_list<Detail> values, std::wstring Detail::*language)
{
    std::wstring text;
    for (const Detail& value : values)
    {
        const std::size_t place = words.find(L"{}");
        if (place == std::wstring_view::npos)
        {
            break;
        }
        text.append(words.substr(0, place)).append(value.*language);
        words.remove_prefix(place + 2);
    }
    return text.append(words);
}

} // namespace

Detail::Detail(const Sentence& words, std::initializer_list<Detail> values)
    : japanese(Filled(words.japanese, values, &Detail::japanese)),
      english(Filled(words.english, values, &Detail::english))
{}

Detail operator+(Detail first, const Detail& second)
{
    first.japanese += second.japanese;
    first.english += second.english;
    return first;
}

} // namespace jlandxml::inspect

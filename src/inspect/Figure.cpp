#include "inspect/Figure.h"

#include "base/Numbers.h"
#include "base/Text.h"

#include <algorithm>

namespace jlandxml::inspect
{

namespace
{

constexpr std::wstring_view BLANKS = L" \t\r\n";

} // namespace

Figure ReadFigure(std::wstring_view text)
{
    Figure figure{Trim(text)};
    if (figure.text == L"INF" || figure.text == L"-INF")
    {
        figure.value = (figure.text.front() == L'-' ? -1 : 1) * std::numeric_limits<double>::infinity();
        return figure;
    }
    // The C library reads more than figures: hexadecimal digits, "nan" and "infinity".
    if (figure.text.find_first_not_of(L"+-0123456789.eE") != std::wstring_view::npos)
    {
        return figure;
    }
    const ParsedDouble parsed = ParseDouble(figure.text);
    if (parsed.length == figure.text.size() && parsed.length > 0)
    {
        figure.value = parsed.value;
    }
    return figure;
}

std::vector<std::wstring_view> Words(std::wstring_view text)
{
    std::vector<std::wstring_view> words;
    for (std::size_t start = text.find_first_not_of(BLANKS); start != std::wstring_view::npos;)
    {
        const std::size_t end = std::min(text.find_first_of(BLANKS, start), text.size());
        words.push_back(text.substr(start, end - start));
        start = text.find_first_not_of(BLANKS, end);
    }
    return words;
}

std::vector<Figure> ReadFigures(std::wstring_view text)
{
    const std::vector<std::wstring_view> words = Words(text);
    std::vector<Figure> figures(words.size());
    std::transform(words.begin(), words.end(), figures.begin(), ReadFigure);
    return figures;
}

} // namespace jlandxml::inspect

#include "inspect/Html.h"

#include "base/Numbers.h"
#include "base/Text.h"

#include <cmath>

namespace jlandxml::inspect
{

namespace
{

const char* EntityOf(char character)
{
    switch (character)
    {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\'':
        return "&#39;";
    case '\t':
    case '\n':
    case '\r':
        return nullptr;
    default:
        // Control characters, which XML can spell, are none of HTML's.
        return static_cast<unsigned char>(character) < 0x20 || character == 0x7F ? "\xEF\xBF\xBD" : nullptr;
    }
}

} // namespace

Html& Html::Raw(std::string_view markup)
{
    page_ += markup;
    return *this;
}

Html& Html::Text(std::wstring_view text)
{
    for (const char character : Utf8FromWide(text))
    {
        const char* const entity = EntityOf(character);
        if (entity != nullptr)
        {
            page_ += entity;
        }
        else
        {
            page_ += character;
        }
    }
    return *this;
}

Html& Html::Number(double value, int decimals)
{
    FixedBuffer buffer;
    std::string_view text = FormatFixed(std::isfinite(value) ? value : 0, decimals, buffer);
    if (text.find('.') != std::string_view::npos)
    {
        text = text.substr(0, text.find_last_not_of('0') + 1);
        text = text.substr(0, text.find_last_not_of('.') + 1);
    }
    page_ += text == "-0" ? std::string_view("0") : text;
    return *this;
}

Html& Html::Words(std::string_view tag, std::wstring_view japanese, std::wstring_view english)
{
    Raw("<").Raw(tag).Raw(" data-en=\"").Text(english).Raw("\">").Text(japanese);
    return Close(tag);
}

Html& Html::Words(std::string_view tag, const Detail& text)
{
    return text.japanese == text.english ? Raw("<").Raw(tag).Raw(">").Text(text.japanese).Close(tag)
                                         : Words(tag, text.japanese, text.english);
}

Html& Html::Close(std::string_view tag)
{
    return Raw("</").Raw(tag.substr(0, tag.find(' '))).Raw(">");
}

} // namespace jlandxml::inspect

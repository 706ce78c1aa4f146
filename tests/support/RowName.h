#pragma once

#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace jlandxml
{

/// A name for the row of a parameter suite from the rule that it holds: "of equal ones the first stays" gives
/// "OfEqualOnesTheFirstStays".
inline std::string RowName(std::wstring_view rule)
{
    std::string name;
    bool wordBegins = true;
    for (const wchar_t character : rule)
    {
        const bool lower = character >= L'a' && character <= L'z';
        const bool upperOrDigit = (character >= L'A' && character <= L'Z') || (character >= L'0' && character <= L'9');
        if (lower || upperOrDigit)
        {
            name += static_cast<char>(lower && wordBegins ? character - L'a' + L'A' : character);
        }
        wordBegins = !lower && !upperOrDigit && character != L'\'';
    }
    return name;
}

/// A name from the very text that a row is about: letters and digits stand for themselves, every other character for
/// its word or its number. No text gives "Empty".
inline std::string TextName(std::wstring_view text)
{
    std::string name;
    for (const wchar_t character : text)
    {
        const bool plain = (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z') ||
                           (character >= L'0' && character <= L'9');
        switch (character)
        {
        case L' ':
            name += "_";
            break;
        case L'.':
            name += "Point";
            break;
        case L'-':
            name += "Minus";
            break;
        case L'+':
            name += "Plus";
            break;
        case L'=':
            name += "Is";
            break;
        default:
            if (plain)
            {
                name += static_cast<char>(character);
            }
            else
            {
                char number[16];
                std::snprintf(number, sizeof(number), "U%04X", static_cast<unsigned>(character));
                name += number;
            }
        }
    }
    return name.empty() ? "Empty" : name;
}

/// For INSTANTIATE_TEST_SUITE_P: names each row after its `rule`.
inline constexpr auto BY_RULE = [](const auto& row) { return RowName(row.param.rule); };

/// For INSTANTIATE_TEST_SUITE_P: names each row after its `text`.
inline constexpr auto BY_TEXT = [](const auto& row) { return TextName(row.param.text); };

} // namespace jlandxml

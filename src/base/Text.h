#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace jlandxml
{

/// What stands in the place of bytes or units that are no character.
inline constexpr char32_t REPLACEMENT_CHARACTER = 0xFFFD;

/// The first and second half of a character beyond the basic plane in UTF-16.
constexpr bool IsHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool IsLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// An ASCII capital as its small letter, all else as it is. `Character` is any type of character.
template <class Character>
constexpr Character FoldAscii(Character character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<Character>(character - 'A' + 'a') : character;
}

/// True for the white space that is cut off the ends of fields: the fixed set of Unicode's White_Space characters,
/// whatever the process's locale says. The full-width blank U+3000 belongs to it.
bool IsWhiteSpace(wchar_t character);

std::wstring_view TrimLeft(std::wstring_view text);
std::wstring_view TrimRight(std::wstring_view text);
std::wstring_view Trim(std::wstring_view text);

/// Trim for well-formed UTF-8.
std::string_view TrimUtf8(std::string_view text);

/// Compares names of elements, attributes and encodings: ASCII letters without regard to case, all else exactly.
bool EqualsIgnoreCase(std::wstring_view first, std::wstring_view second);

/// The same for a text that ends with a zero, as the parser holds names; its length isn't measured first.
bool EqualsIgnoreCase(const wchar_t* first, std::wstring_view second);

/// Compares a text that ends with a zero, as the parser holds names; its length isn't measured first.
inline bool EqualsText(const wchar_t* first, std::wstring_view second)
{
    for (const wchar_t wanted : second)
    {
        if (*first != wanted || wanted == L'\0')
        {
            return false;
        }
        ++first;
    }
    return *first == L'\0';
}

/// `text` with every occurrence of `from` replaced by `to`, from left to right; what a replacement forms isn't looked
/// at again.
std::wstring ReplaceAll(std::wstring_view text, std::wstring_view from, std::wstring_view to);

/// Decodes UTF-8. Each malformed sequence becomes one U+FFFD.
std::wstring WideFromUtf8(std::string_view text);

/// The same into memory that has room for as many units as the text has bytes. The number of units.
std::size_t DecodeUtf8(std::string_view text, wchar_t* out);

/// The same, and whether the text was well formed.
std::size_t DecodeUtf8(std::string_view text, wchar_t* out, bool& isWellFormed);

/// Encodes as UTF-8. A surrogate that has no partner becomes U+FFFD.
std::string Utf8FromWide(std::wstring_view text);

/// The longest UTF-8 that one unit of wide text can make.
inline constexpr std::size_t MOST_UTF8_BYTES = sizeof(wchar_t) == 2 ? 3 : 4;

/// The same into memory that has room for the longest that the text can become. The number of bytes.
std::size_t EncodeUtf8(std::wstring_view text, char* out) noexcept;

/// Appends the UTF-8 of `text` to `target`.
void AppendUtf8(std::string& target, std::wstring_view text);

/// What a UTF-8 file may begin with.
inline constexpr std::string_view UTF8_BYTE_ORDER_MARK = "\xEF\xBB\xBF";

/// How many characters a text has; a surrogate pair is one.
std::size_t CountCharacters(std::wstring_view text);

/// The front of a text, at most so many characters of it.
std::wstring_view FirstCharacters(std::wstring_view text, std::size_t count);

/// True if the bytes are well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
bool IsWellFormedUtf8(std::string_view text);

/// How many bytes at the front are well-formed UTF-8.
std::size_t WellFormedUtf8Length(std::string_view text);

/// True for a line that isn't in Shift_JIS as it is used in Japan (code page 932), or that may be UTF-8 as well. ASCII
/// alone says nothing. A file is only called that if no line speaks against it: one line may be cut UTF-8, which often
/// can be read as either.
bool SpeaksAgainstShiftJis(std::string_view line);

/// Well-formed UTF-8 made of any bytes: each malformed sequence becomes U+FFFD.
std::string RepairUtf8(std::string_view text);

/// Decodes code page 932 ("Shift_JIS" as it is used in Japan, with the characters of the extended rows).
/// Nothing if a byte sequence isn't code page 932. Throws std::bad_alloc if there is no memory for it.
std::optional<std::wstring> WideFromCp932(std::string_view text);

/// The same into memory that has room for as many units as the text has bytes. The number of units.
std::optional<std::size_t> DecodeCp932(std::string_view text, wchar_t* out);

/// Encodes as code page 932; what it doesn't hold becomes "?".
std::string Cp932FromWide(std::wstring_view text);

} // namespace jlandxml

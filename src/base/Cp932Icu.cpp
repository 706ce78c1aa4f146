#ifndef _WIN32

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <unicode/ucnv.h>
#include <unicode/utf16.h>

namespace jlandxml
{

namespace
{

/// The name under which ICU knows the code page with the extended rows, as Japanese systems use it.
constexpr const char* CODE_PAGE = "ibm-943_P15A-2003";

struct ConverterCloser
{
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterCloser>;

/// Null if ICU was built without the code page. Whatever else fails, fails for want of memory.
Converter OpenConverter()
{
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(CODE_PAGE, &status));
    if (status == U_FILE_ACCESS_ERROR)
    {
        return nullptr;
    }
    ucnv_setToUCallBack(converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    ucnv_setSubstChars(converter.get(), "?", 1, &status);
    if (U_FAILURE(status))
    {
        throw std::bad_alloc();
    }
    return converter;
}

/// ICU's table turns three control characters round, as IBM's hosts have them; files of the field mean ASCII.
UChar AsciiControl(UChar unit)
{
    switch (unit)
    {
    case 0x1A:
        return 0x7F;
    case 0x1C:
        return 0x1A;
    case 0x7F:
        return 0x1C;
    default:
        return unit;
    }
}

UChar HostControl(UChar unit)
{
    return AsciiControl(AsciiControl(unit));
}

} // namespace

std::optional<std::size_t> DecodeCp932(std::string_view text, wchar_t* out)
{
    const Converter converter = OpenConverter();
    if (!converter)
    {
        return std::nullopt;
    }
    std::size_t count = 0;
    std::array<UChar, 4096> block{};
    const char* source = text.data();
    const char* const end = source + text.size();
    UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
    while (status == U_BUFFER_OVERFLOW_ERROR)
    {
        status = U_ZERO_ERROR;
        UChar* target = block.data();
        ucnv_toUnicode(converter.get(), &target, block.data() + block.size(), &source, end, nullptr, true, &status);
        // Every character of the code page lies in the basic plane: one unit each.
        std::transform(block.data(), target, out + count,
                       [](UChar unit) { return static_cast<wchar_t>(AsciiControl(unit)); });
        count += static_cast<std::size_t>(target - block.data());
    }
    if (status == U_MEMORY_ALLOCATION_ERROR)
    {
        throw std::bad_alloc();
    }
    return U_SUCCESS(status) ? std::optional(count) : std::nullopt;
}

std::string Cp932FromWide(std::wstring_view text)
{
    const Converter converter = OpenConverter();
    if (!converter)
    {
        return {};
    }
    std::u16string units;
    units.reserve(text.size());
    for (const wchar_t character : text)
    {
        const auto codePoint = static_cast<char32_t>(character);
        if (U_IS_SUPPLEMENTARY(codePoint))
        {
            units += U16_LEAD(codePoint);
            units += U16_TRAIL(codePoint);
        }
        else
        {
            units += HostControl(static_cast<UChar>(character));
        }
    }
    std::string result;
    std::array<char, 4096> block{};
    const UChar* source = units.data();
    const UChar* const end = source + units.size();
    UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
    while (status == U_BUFFER_OVERFLOW_ERROR)
    {
        status = U_ZERO_ERROR;
        char* target = block.data();
        ucnv_fromUnicode(converter.get(), &target, block.data() + block.size(), &source, end, nullptr, true, &status);
        result.append(block.data(), target);
    }
    if (status == U_MEMORY_ALLOCATION_ERROR)
    {
        throw std::bad_alloc();
    }
    return result;
}

} // namespace jlandxml

#endif

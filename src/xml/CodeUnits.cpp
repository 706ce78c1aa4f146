#include "xml/CodeUnits.h"

#include "base/Text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>

namespace jlandxml
{

namespace
{

constexpr char32_t LAST_CHARACTER = 0x10FFFF;

/// Where an ampersand stands for itself.
struct Section
{
    std::string_view open;
    std::string_view close;
};
constexpr Section WITHOUT_REFERENCES[] = {{"<![CDATA[", "]]>"}, {"<!--", "-->"}};

/// How a character reference is written, and U+FFFD in it.
struct ReferenceForm
{
    std::string_view open;
    std::uint32_t base;
    std::string_view digits;
    std::string_view replacement;
};
constexpr ReferenceForm REFERENCE_FORMS[] = {
    {"&#x", 16, "0123456789ABCDEF", "FFFD"},
    {"&#", 10, "0123456789", "65533"},
};
constexpr char CLOSE_OF_REFERENCE = ';';

std::optional<std::uint32_t> DigitOf(char32_t unit, const ReferenceForm& form)
{
    const auto* const digit = std::find_if(form.digits.begin(), form.digits.end(), [&](char one) {
        return FoldAscii(static_cast<char32_t>(one)) == FoldAscii(unit);
    });
    return digit == form.digits.end() ? std::nullopt
                                      : std::optional(static_cast<std::uint32_t>(digit - form.digits.begin()));
}

void Replace(const CodeUnits& units, std::size_t first, std::size_t last, std::string_view replacement)
{
    for (std::size_t index = first; index < last; ++index)
    {
        const std::size_t fromEnd = last - index;
        units.Put(index, fromEnd > replacement.size()
                             ? U'0'
                             : static_cast<char32_t>(replacement[replacement.size() - fromEnd]));
    }
}

/// The place behind what was read of the reference. One to U+0000 is noted.
std::size_t RepairReference(const CodeUnits& units, std::size_t start, const ReferenceForm& form, bool& isToZero)
{
    const std::size_t first = start + form.open.size();
    std::uint32_t value = 0;
    for (std::size_t index = first; index < units.Count(); ++index)
    {
        const std::optional<std::uint32_t> digit = DigitOf(units.At(index), form);
        if (!digit)
        {
            if (value > LAST_CHARACTER && units.At(index) == CLOSE_OF_REFERENCE)
            {
                Replace(units, first, index, form.replacement);
            }
            isToZero = isToZero || value == 0;
            return index;
        }
        value = value * form.base + *digit;
    }
    return units.Count();
}

/// The place behind what stands at that place: a section without references, a reference, or one unit.
std::size_t RepairAt(const CodeUnits& units, std::size_t index, bool& isToZero)
{
    for (const Section& section : WITHOUT_REFERENCES)
    {
        if (units.HoldsAt(index, section.open))
        {
            return units.Find(section.close, index + section.open.size());
        }
    }
    const auto* const form = std::find_if(std::begin(REFERENCE_FORMS), std::end(REFERENCE_FORMS),
                                          [&](const ReferenceForm& one) { return units.HoldsAt(index, one.open); });
    return form == std::end(REFERENCE_FORMS) ? index + 1 : RepairReference(units, index, *form, isToZero);
}

} // namespace

char* CodeUnits::ByteOf(std::size_t index, std::size_t significance) const
{
    return bytes_ + index * unitSize_ + (bigEndian_ ? unitSize_ - 1 - significance : significance);
}

char32_t CodeUnits::At(std::size_t index) const
{
    char32_t unit = 0;
    for (std::size_t significance = unitSize_; significance > 0; --significance)
    {
        unit = unit << 8 | static_cast<unsigned char>(*ByteOf(index, significance - 1));
    }
    return unit;
}

void CodeUnits::Put(std::size_t index, char32_t unit) const
{
    for (std::size_t significance = 0; significance < unitSize_; ++significance)
    {
        *ByteOf(index, significance) = static_cast<char>(unit >> 8 * significance & 0xFF);
    }
}

bool CodeUnits::HoldsAt(std::size_t index, std::string_view ascii) const
{
    if (index + ascii.size() > count_)
    {
        return false;
    }
    for (std::size_t offset = 0; offset < ascii.size(); ++offset)
    {
        if (At(index + offset) != static_cast<char32_t>(ascii[offset]))
        {
            return false;
        }
    }
    return true;
}

std::size_t CodeUnits::Find(std::string_view ascii, std::size_t start) const
{
    std::size_t index = start;
    while (index < count_ && !HoldsAt(index, ascii))
    {
        ++index;
    }
    return std::min(index, count_);
}

void RepairUnits(const CodeUnits& units)
{
    for (std::size_t index = 0; index < units.Count(); ++index)
    {
        const char32_t unit = units.At(index);
        if (IsHighSurrogate(unit) && index + 1 < units.Count() && IsLowSurrogate(units.At(index + 1)))
        {
            ++index;
        }
        else if (IsHighSurrogate(unit) || IsLowSurrogate(unit) || unit > LAST_CHARACTER)
        {
            units.Put(index, REPLACEMENT_CHARACTER);
        }
    }
}

bool RepairReferences(const CodeUnits& units)
{
    bool isToZero = false;
    for (std::size_t index = 0; index < units.Count();)
    {
        index = RepairAt(units, index, isToZero);
    }
    return !isToZero;
}

} // namespace jlandxml

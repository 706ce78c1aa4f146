#pragma once

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace jlandxml
{

// Reading XML of the plainest form out of its bytes, without a tree: elements with attributes in double quotes and one
// text, well-formed UTF-8, and no character that the parser would decode or the printer would escape.

/// What the printer leaves out, with the blank in front of it.
inline constexpr std::string_view EMPTY_NAMESPACE_ATTRIBUTE = " xmlns=\"\"";

/// A position in bytes that are read from front to end; it never runs past the end.
class MarkupReader
{
  public:
    /// What a byte may be part of.
    enum ByteClass : std::uint8_t
    {
        NAME = 1,        ///< a name
        BLANK = 2,       ///< white space between elements and attributes
        IN_TAG_NAME = 4, ///< all that doesn't end the name of a tag
        IN_TAG = 8,      ///< all that neither ends a tag nor begins a value
    };

    explicit MarkupReader(std::string_view bytes) : at_(bytes.data()), end_(bytes.data() + bytes.size()) {}

    bool AtEnd() const { return at_ == end_; }
    const char* At() const { return at_; }
    void MoveTo(const char* position) { at_ = position; }
    bool StartsWith(std::string_view text) const
    {
        return static_cast<std::size_t>(end_ - at_) >= text.size() && std::equal(text.begin(), text.end(), at_);
    }
    std::string_view Rest() const { return {at_, static_cast<std::size_t>(end_ - at_)}; }

    bool Skip(char character)
    {
        if (at_ == end_ || *at_ != character)
        {
            return false;
        }
        ++at_;
        return true;
    }

    bool Skip(std::string_view text)
    {
        if (!StartsWith(text))
        {
            return false;
        }
        at_ += text.size();
        return true;
    }

    /// Moves behind the next `text`. False if there is none.
    bool SkipBehind(std::string_view text)
    {
        const std::size_t hit = Rest().find(text);
        at_ = hit == std::string_view::npos ? end_ : at_ + hit + text.size();
        return hit != std::string_view::npos;
    }

    /// Takes a text or the value of an attribute, up to what would be decoded or escaped. False if it is malformed.
    bool TakeText(std::string_view& text)
    {
        const char* const begin = at_;
        bool isAscii = true;
        for (SkipPlain(); at_ != end_ && static_cast<signed char>(*at_) < 0; SkipPlain())
        {
            isAscii = false;
            ++at_;
        }
        text = {begin, static_cast<std::size_t>(at_ - begin)};
        return isAscii || IsWellFormedUtf8(text);
    }

    std::string_view Take(ByteClass wanted)
    {
        const char* const begin = at_;
        while (at_ != end_ && (BYTE_CLASSES[static_cast<std::uint8_t>(*at_)] & wanted) != 0)
        {
            ++at_;
        }
        return {begin, static_cast<std::size_t>(at_ - begin)};
    }

  private:
    static constexpr std::array<std::uint8_t, 256> BYTE_CLASSES = [] {
        std::array<std::uint8_t, 256> classes{};
        for (std::size_t byte = 0; byte < classes.size(); ++byte)
        {
            const bool isName = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                                (byte >= 'a' && byte <= 'z') || byte == '_';
            const bool isBlank = byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n';
            const bool isInTagName = !isBlank && byte != '/' && byte != '>';
            const bool isInTag = byte != '<' && byte != '>' && byte != '"' && byte != '\'';
            classes[byte] = static_cast<std::uint8_t>((isName ? NAME : 0) | (isBlank ? BLANK : 0) |
                                                      (isInTagName ? IN_TAG_NAME : 0) | (isInTag ? IN_TAG : 0));
        }
        return classes;
    }();

    /// The same byte eight times.
    static constexpr std::uint64_t Eight(char byte) { return 0x0101010101010101U * static_cast<std::uint8_t>(byte); }

    /// The highest bit of the first of eight bytes, in memory order, that isn't plain ASCII text: a control character,
    /// one that is decoded or escaped, or a part of a longer character. Bits behind it mean nothing; 0 if all are
    /// plain.
    static constexpr std::uint64_t NotPlain(std::uint64_t bytes)
    {
        const auto zero = [](std::uint64_t eight) { return (eight - Eight(1)) & ~eight; };
        const std::uint64_t control = (bytes - Eight(' ')) & ~bytes;
        return (bytes | control | zero(bytes ^ Eight('&')) | zero(bytes ^ Eight('<')) | zero(bytes ^ Eight('>')) |
                zero(bytes ^ Eight('"')) | zero(bytes ^ Eight('\x7F'))) &
               Eight('\x80');
    }

    void SkipPlain()
    {
        static_assert(std::endian::native == std::endian::little);
        std::uint64_t bytes = 0;
        while (static_cast<std::size_t>(end_ - at_) >= sizeof(bytes))
        {
            std::memcpy(&bytes, at_, sizeof(bytes));
            if (const std::uint64_t found = NotPlain(bytes))
            {
                at_ += std::countr_zero(found) / 8;
                return;
            }
            at_ += sizeof(bytes);
        }
        while (at_ != end_ && NotPlain(Eight(*at_)) == 0)
        {
            ++at_;
        }
    }

    const char* at_;
    const char* end_;
};

/// Takes a name that begins as one.
inline std::string_view TakeName(MarkupReader& reader)
{
    return reader.AtEnd() || (*reader.At() >= '0' && *reader.At() <= '9') ? std::string_view()
                                                                          : reader.Take(MarkupReader::NAME);
}

/// Takes `name="value"`. An empty view if there is none that is plain.
inline std::string_view TakeAttribute(MarkupReader& reader)
{
    const char* const begin = reader.At();
    if (TakeName(reader).empty() || !reader.Skip("=\""))
    {
        return {};
    }
    std::string_view value;
    return reader.TakeText(value) && reader.Skip('"')
               ? std::string_view(begin, static_cast<std::size_t>(reader.At() - begin))
               : std::string_view();
}

/// One element without children.
struct PlainElement
{
    std::string_view name;
    std::string_view text;   ///< empty if it has none
    bool isAsPrinted = true; ///< spelt as it is printed
};

/// Reads an element from its "<" to behind it, and hands `attribute` each of its attributes. False if it isn't of the
/// plainest form.
template <class Attribute>
bool TakeElement(MarkupReader& reader, PlainElement& element, Attribute&& attribute)
{
    if (!reader.Skip('<') || (element.name = TakeName(reader)).empty())
    {
        return false;
    }
    std::string_view blanks = reader.Take(MarkupReader::BLANK);
    while (!reader.AtEnd() && *reader.At() != '>' && *reader.At() != '/')
    {
        const std::string_view found = blanks.empty() ? std::string_view() : TakeAttribute(reader);
        if (found.empty())
        {
            return false;
        }
        element.isAsPrinted = element.isAsPrinted && blanks == " " && found != EMPTY_NAMESPACE_ATTRIBUTE.substr(1);
        attribute(found);
        blanks = reader.Take(MarkupReader::BLANK);
    }
    if (reader.Skip("/>"))
    {
        element.isAsPrinted = element.isAsPrinted && blanks == " ";
        return true;
    }
    if (!reader.Skip('>'))
    {
        return false;
    }
    // A text of blanks alone isn't kept by the parser.
    if (!reader.TakeText(element.text) || !reader.Skip("</") || !reader.Skip(element.name) ||
        (!element.text.empty() && element.text.find_first_not_of(' ') == std::string_view::npos))
    {
        return false;
    }
    element.isAsPrinted = element.isAsPrinted && blanks.empty() && !element.text.empty() && reader.StartsWith(">");
    reader.Take(MarkupReader::BLANK);
    return reader.Skip('>');
}

} // namespace jlandxml

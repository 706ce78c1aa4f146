#pragma once

#include <cstddef>
#include <string_view>

namespace jlandxml
{

/// The text of an XML file as the units of its encoding: bytes, or 2 or 4 bytes in either order. The units are mended
/// in place before the parser sees them, since it would make something else of what Unicode doesn't know on a platform
/// whose wide characters have 16 bits than on one where they have 32.
class CodeUnits
{
  public:
    /// A last unit that isn't complete doesn't count.
    CodeUnits(char* bytes, std::size_t size, std::size_t unitSize, bool bigEndian)
        : bytes_(bytes),
          count_(size / unitSize),
          unitSize_(unitSize),
          bigEndian_(bigEndian)
    {}

    std::size_t Count() const { return count_; }
    char32_t At(std::size_t index) const;
    void Put(std::size_t index, char32_t unit) const;

    /// True if these ASCII characters stand at that place.
    bool HoldsAt(std::size_t index, std::string_view ascii) const;

    /// The first place from `start` on where these ASCII characters stand, or the count.
    std::size_t Find(std::string_view ascii, std::size_t start) const;

  private:
    char* ByteOf(std::size_t index, std::size_t significance) const;

    char* bytes_;
    std::size_t count_;
    std::size_t unitSize_;
    bool bigEndian_;
};

/// Puts U+FFFD in the place of every surrogate without a partner and of every unit above U+10FFFF.
void RepairUnits(const CodeUnits& units);

/// Puts U+FFFD in the place of every character reference above U+10FFFF, with zeros in front, so that the text keeps
/// its length. A number is taken as the parser takes it, modulo 2^32. Comments and CDATA sections hold no references.
/// True if no reference is left to U+0000, which ends a text where it stands.
bool RepairReferences(const CodeUnits& units);

} // namespace jlandxml

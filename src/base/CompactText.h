#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace jlandxml
{

/// A wide text for lists of thousands of entries. It is as large as two pointers: a text of up to 15 bytes lies in it,
/// a longer one in memory of its own. Each unit is kept by itself in the form of UTF-8, also half a surrogate pair, so
/// that any text comes back as it was.
class CompactText
{
  public:
    CompactText() noexcept : bytes_{} {}
    CompactText(std::wstring_view text) : bytes_{} { Assign(text); }
    CompactText(const std::wstring& text) : CompactText(std::wstring_view(text)) {}
    CompactText(const wchar_t* text) : CompactText(std::wstring_view(text)) {}
    CompactText(const CompactText& other) : bytes_{} { Keep(other.Bytes()); }
    CompactText(CompactText&& other) noexcept : bytes_{} { Swap(other); }
    CompactText& operator=(const CompactText& other) { return *this = CompactText(other); }
    CompactText& operator=(CompactText&& other) noexcept
    {
        CompactText taken(std::move(other));
        Swap(taken);
        return *this;
    }
    ~CompactText() { Release(); }

    /// The text of any bytes of UTF-8; what is malformed becomes U+FFFD.
    static CompactText FromUtf8(std::string_view text);

    std::wstring Wide() const;
    operator std::wstring() const { return Wide(); }

    /// The text in the form in which it is kept: for ASCII the characters themselves.
    std::string_view Bytes() const
    {
        return IsLong() ? std::string_view(Long().data, Long().size)
                        : std::string_view(bytes_, static_cast<std::size_t>(bytes_[LENGTH_PLACE]));
    }

    bool empty() const { return bytes_[LENGTH_PLACE] == 0; }
    void clear() { *this = CompactText(); }

    friend bool operator==(const CompactText& one, const CompactText& other) { return one.Bytes() == other.Bytes(); }
    friend std::wstring operator+(const CompactText& one, std::wstring_view other) { return one.Wide().append(other); }
    friend std::wstring operator+(const std::wstring& one, const CompactText& other) { return one + other.Wide(); }

  private:
    static constexpr std::size_t SIZE = 16;
    static constexpr std::size_t LENGTH_PLACE = SIZE - 1;
    static constexpr char LONG_MARK = static_cast<char>(SIZE);

    struct LongText
    {
        char* data;
        std::uint32_t size;
    };
    static_assert(sizeof(LongText::data) + sizeof(LongText::size) < SIZE);

    bool IsLong() const { return bytes_[LENGTH_PLACE] == LONG_MARK; }
    LongText Long() const
    {
        LongText text{};
        std::memcpy(&text.data, bytes_, sizeof text.data);
        std::memcpy(&text.size, bytes_ + sizeof text.data, sizeof text.size);
        return text;
    }
    void Assign(std::wstring_view text);
    void Keep(std::string_view bytes);
    void Release() noexcept
    {
        if (IsLong())
        {
            delete[] Long().data;
        }
    }
    void Swap(CompactText& other) noexcept { std::swap(bytes_, other.bytes_); }

    alignas(char*) char bytes_[SIZE]; ///< the text and, last, its length; or a LongText and its mark
};

} // namespace jlandxml

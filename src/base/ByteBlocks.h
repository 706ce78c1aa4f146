#pragma once

#include <cstring>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

namespace jlandxml
{

/// Bytes on their way to a file, handed on in blocks. The last few can be looked at and taken back.
class ByteBlocks
{
  public:
    using Sink = std::function<void(std::string_view)>;

    /// How many of the last bytes can be looked at, as long as so many were appended.
    static constexpr std::size_t LOOK_BACK = 32;

    explicit ByteBlocks(Sink sink) : sink_(std::move(sink)), block_(new char[CAPACITY]) {}

    void Append(char byte)
    {
        MakeRoom(1);
        block_[size_++] = byte;
    }

    void Append(std::string_view bytes)
    {
        while (bytes.size() > CAPACITY - LOOK_BACK)
        {
            Append(bytes.substr(0, CAPACITY - LOOK_BACK));
            bytes.remove_prefix(CAPACITY - LOOK_BACK);
        }
        MakeRoom(bytes.size());
        std::memcpy(block_.get() + size_, bytes.data(), bytes.size());
        size_ += bytes.size();
    }

    /// Appends the front of a text, character by character, as long as `isPlain` says so of them; `Character` is any
    /// type of character and the text ends with one that isn't plain. How many were appended.
    template <class Character, class IsPlain>
    std::size_t AppendWhile(const Character* text, IsPlain&& isPlain)
    {
        const Character* rest = text;
        for (;;)
        {
            MakeRoom(RUN);
            // In variables of its own, since a byte written could otherwise be any of the members.
            char* const begin = block_.get() + size_;
            std::size_t count = 0;
            for (; count < RUN && isPlain(rest[count]); ++count)
            {
                begin[count] = static_cast<char>(rest[count]);
            }
            size_ += count;
            rest += count;
            if (count < RUN)
            {
                return static_cast<std::size_t>(rest - text);
            }
        }
    }

    void Append(std::size_t count, char byte)
    {
        while (count > 0)
        {
            const std::size_t part = count < CAPACITY - LOOK_BACK ? count : CAPACITY - LOOK_BACK;
            MakeRoom(part);
            std::memset(block_.get() + size_, byte, part);
            size_ += part;
            count -= part;
        }
    }

    bool EndsWith(std::string_view bytes) const { return std::string_view(block_.get(), size_).ends_with(bytes); }

    /// How many bytes were appended and not taken back.
    std::size_t Position() const { return handedOut_ + size_; }

    /// Takes the last bytes back, at most LOOK_BACK.
    void TakeBack(std::size_t count) { size_ -= count; }

    /// Hands out what is left.
    void Flush() { HandOut(size_); }

  private:
    /// So many bytes are appended before room is looked for again.
    static constexpr std::size_t RUN = 256;

    static constexpr std::size_t CAPACITY = std::size_t{1} << 18;

    void MakeRoom(std::size_t count)
    {
        if (size_ + count > CAPACITY)
        {
            HandOut(size_ - LOOK_BACK);
        }
    }

    void HandOut(std::size_t count)
    {
        sink_({block_.get(), count});
        std::memmove(block_.get(), block_.get() + count, size_ - count);
        size_ -= count;
        handedOut_ += count;
    }

    Sink sink_;
    std::unique_ptr<char[]> block_;
    std::size_t size_ = 0;
    std::size_t handedOut_ = 0;
};

} // namespace jlandxml

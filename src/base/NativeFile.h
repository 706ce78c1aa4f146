#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace jlandxml
{

/// An open file of the system, closed with its scope. It is written and read without a buffer of its own.
class NativeFile
{
  public:
#ifdef _WIN32
    using Handle = void*;
#else
    using Handle = int;
#endif

    NativeFile() noexcept : handle_(NONE) {}
    explicit NativeFile(Handle handle) noexcept : handle_(handle) {}
    NativeFile(NativeFile&& other) noexcept : handle_(std::exchange(other.handle_, NONE)) {}
    NativeFile& operator=(NativeFile&& other) noexcept
    {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~NativeFile()
    {
        Close();
    }

    explicit operator bool() const
    {
        return handle_ != NONE;
    }
    Handle Get() const
    {
        return handle_;
    }
    /// Gives the open file away.
    Handle Release()
    {
        return std::exchange(handle_, NONE);
    }

    /// Reads the next bytes, as many as there are up to `size`; none at the file's end. Nothing if the system refuses
    /// it.
    std::optional<std::size_t> Read(char* bytes, std::size_t size);

    /// Writes all of the bytes. False if the system doesn't take them all. No signal is raised for it.
    bool Write(std::string_view bytes)
    {
        return WriteTo(handle_, bytes);
    }

    /// The same for a file that somebody else closes.
    static bool WriteTo(Handle handle, std::string_view bytes) noexcept;

    /// Hands what was written to the file's owner, as closing does, and leaves the file open. False if some of it is
    /// lost, which some systems over a network say only now.
    bool Deliver();

    /// Goes to the file's start.
    bool Rewind();

    /// The length in bytes; nothing if the system doesn't say.
    std::optional<std::uint64_t> Length() const;

    /// Cuts the file off at a length.
    bool Shorten(std::uint64_t length);

    /// Waits until what was written is safe on the volume.
    bool Sync();

    /// Closes the file. False if some of what was written is lost.
    bool Close();

  private:
#ifdef _WIN32
    static inline const Handle NONE = reinterpret_cast<Handle>(static_cast<long long>(-1));
#else
    static constexpr Handle NONE = -1;
#endif

    Handle handle_;
};

} // namespace jlandxml

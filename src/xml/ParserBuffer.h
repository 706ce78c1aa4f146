#pragma once

#include <algorithm>
#include <cstddef>
#include <new>
#include <pugixml.hpp>
#include <string_view>
#include <utility>

namespace jlandxml
{

/// Memory that the parser can take over with a document.
class ParserBuffer
{
  public:
    ParserBuffer() = default;
    explicit ParserBuffer(std::size_t size)
        : data_(pugi::get_memory_allocation_function()(std::max<std::size_t>(size, 1))),
          size_(size)
    {
        if (data_ == nullptr)
        {
            throw std::bad_alloc();
        }
    }
    ParserBuffer(ParserBuffer&& other) noexcept : data_(other.Release()), size_(other.size_) {}
    ParserBuffer& operator=(ParserBuffer&& other) noexcept
    {
        std::swap(data_, other.data_);
        std::swap(size_, other.size_);
        return *this;
    }
    ~ParserBuffer()
    {
        if (data_ != nullptr)
        {
            pugi::get_memory_deallocation_function()(data_);
        }
    }

    char* Data() { return static_cast<char*>(data_); }
    std::size_t Size() const { return size_; }
    void Shorten(std::size_t size) { size_ = size; }
    std::string_view View() const { return {static_cast<const char*>(data_), size_}; }
    void* Release() { return std::exchange(data_, nullptr); }

  private:
    void* data_ = nullptr;
    std::size_t size_ = 0;
};

} // namespace jlandxml

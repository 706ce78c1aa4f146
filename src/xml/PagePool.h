#pragma once

#include <atomic>
#include <cstddef>

namespace jlandxml
{

/// Memory for a parser that takes it in pages of one size and in pieces of any other. The first pages come one by one;
/// those of a large tree are cut from stretches that the system may back by large pages. A stretch goes back to the
/// system with its last page, and pages that were given back serve again before a new stretch is begun.
class PagePool
{
  public:
    explicit PagePool(std::size_t pageSize) : pageSize_(pageSize) {}
    PagePool(const PagePool&) = delete;
    PagePool& operator=(const PagePool&) = delete;
    ~PagePool() = default;

    /// Null if there is no memory.
    void* Allocate(std::size_t size) noexcept;

    /// Takes back what Allocate gave, or null.
    void Deallocate(void* memory) noexcept;

    /// How many stretches are in use.
    std::size_t Stretches() const { return stretches_; }

    /// So many pages are given out before the first stretch is begun.
    static constexpr std::size_t SINGLE_PAGES = 64;

    static constexpr std::size_t STRETCH_SIZE = std::size_t{1} << 22;

  private:
    struct Stretch;
    struct Head;

    /// Taken for some steps at a time. A mutex of MinGW's asks for memory when it is first taken, and throws without.
    class Lock
    {
      public:
        void lock() noexcept;
        void unlock() noexcept { isTaken_.clear(std::memory_order_release); }

      private:
        std::atomic_flag isTaken_;
    };

    void* AllocateSingle(std::size_t size) noexcept;
    void* TakePage() noexcept;
    void GivePage(Stretch& stretch, Head& page) noexcept;
    Stretch* BeginStretch() noexcept;
    void Link(Stretch& stretch) noexcept;
    void Unlink(Stretch& stretch) noexcept;
    std::size_t Stride() const;
    std::size_t PagesOfStretch() const;

    std::size_t pageSize_;
    std::size_t pages_ = 0;       ///< given out, single ones and cut ones
    Stretch* withRoom_ = nullptr; ///< the stretches that can give another page
    std::size_t stretches_ = 0;
    Lock lock_;
};

} // namespace jlandxml

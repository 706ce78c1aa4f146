#include "xml/PagePool.h"

#include "base/LargePages.h"

#include <mutex>
#include <new>
#include <thread>

namespace jlandxml
{

/// Stands in front of all memory that is given out.
struct alignas(std::max_align_t) PagePool::Head
{
    Stretch* stretch; ///< null for what stands alone
    union {
        Head* nextFree;   ///< of a page that was given back
        std::size_t size; ///< of what is given out
    };
};

/// Stands at the front of its own memory; the pages follow it.
struct alignas(std::max_align_t) PagePool::Stretch
{
    Stretch* previous = nullptr;
    Stretch* next = nullptr;
    Head* free = nullptr; ///< pages that were given back
    std::size_t cut = 0;  ///< pages that were ever given out
    std::size_t inUse = 0;
};

void PagePool::Lock::lock() noexcept
{
    while (isTaken_.test_and_set(std::memory_order_acquire))
    {
        std::this_thread::yield();
    }
}

std::size_t PagePool::Stride() const
{
    constexpr std::size_t ALIGNMENT = alignof(Head);
    return (sizeof(Head) + pageSize_ + ALIGNMENT - 1) / ALIGNMENT * ALIGNMENT;
}

std::size_t PagePool::PagesOfStretch() const
{
    return (STRETCH_SIZE - sizeof(Stretch)) / Stride();
}

void* PagePool::Allocate(std::size_t size) noexcept
{
    if (size != pageSize_)
    {
        return AllocateSingle(size);
    }
    const std::lock_guard lock(lock_);
    void* const page = pages_ < SINGLE_PAGES ? AllocateSingle(size) : TakePage();
    pages_ += page != nullptr ? 1 : 0;
    return page;
}

void PagePool::Deallocate(void* memory) noexcept
{
    if (memory == nullptr)
    {
        return;
    }
    Head* const head = static_cast<Head*>(memory) - 1;
    if (head->stretch == nullptr && head->size != pageSize_)
    {
        ::operator delete(head);
        return;
    }
    const std::lock_guard lock(lock_);
    --pages_;
    if (head->stretch == nullptr)
    {
        ::operator delete(head);
    }
    else
    {
        GivePage(*head->stretch, *head);
    }
}

void* PagePool::AllocateSingle(std::size_t size) noexcept
{
    void* const memory = ::operator new(sizeof(Head) + size, std::nothrow);
    if (memory == nullptr)
    {
        return nullptr;
    }
    PreferLargePages(memory, sizeof(Head) + size);
    Head* const head = new (memory) Head;
    head->stretch = nullptr;
    head->size = size;
    return head + 1;
}

void* PagePool::TakePage() noexcept
{
    Stretch* const stretch = withRoom_ != nullptr ? withRoom_ : BeginStretch();
    if (stretch == nullptr)
    {
        return nullptr;
    }
    Head* page = stretch->free;
    if (page != nullptr)
    {
        stretch->free = page->nextFree;
    }
    else
    {
        page = new (reinterpret_cast<char*>(stretch + 1) + stretch->cut++ * Stride()) Head;
        page->stretch = stretch;
    }
    page->size = pageSize_;
    if (++stretch->inUse == PagesOfStretch())
    {
        Unlink(*stretch);
    }
    return page + 1;
}

void PagePool::GivePage(Stretch& stretch, Head& page) noexcept
{
    if (stretch.inUse-- == PagesOfStretch())
    {
        Link(stretch);
    }
    page.nextFree = stretch.free;
    stretch.free = &page;
    if (stretch.inUse == 0)
    {
        Unlink(stretch);
        --stretches_;
        ::operator delete (&stretch, std::align_val_t{LARGE_PAGE});
    }
}

PagePool::Stretch* PagePool::BeginStretch() noexcept
{
    void* const memory = ::operator new (STRETCH_SIZE, std::align_val_t{LARGE_PAGE}, std::nothrow);
    if (memory == nullptr)
    {
        return nullptr;
    }
    PreferLargePages(memory, STRETCH_SIZE);
    auto* const stretch = new (memory) Stretch;
    Link(*stretch);
    ++stretches_;
    return stretch;
}

void PagePool::Link(Stretch& stretch) noexcept
{
    stretch.previous = nullptr;
    stretch.next = withRoom_;
    if (withRoom_ != nullptr)
    {
        withRoom_->previous = &stretch;
    }
    withRoom_ = &stretch;
}

void PagePool::Unlink(Stretch& stretch) noexcept
{
    (stretch.previous != nullptr ? stretch.previous->next : withRoom_) = stretch.next;
    if (stretch.next != nullptr)
    {
        stretch.next->previous = stretch.previous;
    }
}

} // namespace jlandxml

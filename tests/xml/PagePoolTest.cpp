#include "xml/PagePool.h"

#include "support/FailingAllocation.h"

#include <cstdint>
#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <vector>

namespace jlandxml
{
namespace
{

constexpr std::size_t PAGE = 32768;

/// Pages that are taken from a pool and given back in the end.
class Pages
{
  public:
    explicit Pages(PagePool& pool) : pool_(pool) {}
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;
    ~Pages()
    {
        while (!pages_.empty())
        {
            GiveBack(0);
        }
    }

    void Take(std::size_t count)
    {
        for (; count > 0; --count)
        {
            pages_.push_back(static_cast<char*>(pool_.Allocate(PAGE)));
            std::memset(pages_.back(), static_cast<int>(pages_.size() % 251), PAGE);
        }
    }

    void GiveBack(std::size_t index)
    {
        pool_.Deallocate(pages_[index]);
        pages_[index] = pages_.back();
        pages_.pop_back();
    }

    const std::vector<char*>& All() const { return pages_; }

  private:
    PagePool& pool_;
    std::vector<char*> pages_;
};

TEST(PagePool, TheFirstPagesStandAlone)
{
    PagePool pool(PAGE);
    Pages pages(pool);
    pages.Take(PagePool::SINGLE_PAGES);
    EXPECT_EQ(pool.Stretches(), 0U);
    pages.Take(1);
    EXPECT_EQ(pool.Stretches(), 1U);
}

TEST(PagePool, PagesAreAlignedAndApart)
{
    PagePool pool(PAGE);
    Pages pages(pool);
    pages.Take(500);
    std::set<std::uintptr_t> places;
    for (const char* const page : pages.All())
    {
        places.insert(reinterpret_cast<std::uintptr_t>(page));
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(page) % alignof(std::max_align_t), 0U);
    }
    EXPECT_EQ(places.size(), 500U);
    for (auto one = places.begin(), next = std::next(one); next != places.end(); one = next++)
    {
        EXPECT_GE(*next - *one, PAGE);
    }
}

TEST(PagePool, APageThatWasGivenBackServesAgain)
{
    PagePool pool(PAGE);
    Pages pages(pool);
    pages.Take(1000);
    const std::size_t stretches = pool.Stretches();
    for (int round = 0; round < 3; ++round)
    {
        for (std::size_t index = 500; index-- > 0;)
        {
            pages.GiveBack(2 * index);
        }
        pages.Take(500);
        EXPECT_LE(pool.Stretches(), stretches);
    }
}

TEST(PagePool, AStretchGoesWithItsLastPage)
{
    PagePool pool(PAGE);
    {
        Pages pages(pool);
        pages.Take(1000);
        EXPECT_GT(pool.Stretches(), 1U);
    }
    EXPECT_EQ(pool.Stretches(), 0U);
}

TEST(PagePool, PiecesOfOtherSizesStandAlone)
{
    PagePool pool(PAGE);
    Pages pages(pool);
    pages.Take(PagePool::SINGLE_PAGES + 1);
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, PAGE - 1, PAGE + 1, std::size_t{5} << 20})
    {
        void* const piece = pool.Allocate(size);
        ASSERT_NE(piece, nullptr);
        std::memset(piece, 1, size);
        EXPECT_EQ(pool.Stretches(), 1U);
        pool.Deallocate(piece);
    }
    pool.Deallocate(nullptr);
}

TEST(PagePool, WithoutMemoryThereIsNoPage)
{
    PagePool pool(PAGE);
    const FailingParserAllocation failing(0);
    EXPECT_EQ(pool.Allocate(PAGE), nullptr);
    void* const page = pool.Allocate(PAGE);
    EXPECT_NE(page, nullptr);
    pool.Deallocate(page);
}

TEST(PagePool, WhatStandsInPagesStaysWhileOthersComeAndGo)
{
    PagePool pool(PAGE);
    std::mt19937 random(11);
    std::vector<std::pair<unsigned char*, unsigned char>> pages;
    for (int step = 0; step < 4000; ++step)
    {
        if (pages.empty() || random() % 5 < 3)
        {
            auto* const page = static_cast<unsigned char*>(pool.Allocate(PAGE));
            const auto mark = static_cast<unsigned char>(random());
            std::memset(page, mark, PAGE);
            pages.emplace_back(page, mark);
            continue;
        }
        std::swap(pages[random() % pages.size()], pages.back());
        const auto [page, mark] = pages.back();
        pages.pop_back();
        EXPECT_EQ(page[0], mark);
        EXPECT_EQ(page[PAGE / 2], mark);
        EXPECT_EQ(page[PAGE - 1], mark);
        pool.Deallocate(page);
    }
    for (const auto& [page, mark] : pages)
    {
        EXPECT_EQ(page[PAGE - 1], mark);
        pool.Deallocate(page);
    }
    EXPECT_EQ(pool.Stretches(), 0U);
}

TEST(PagePool, WithoutMemoryForAStretchThereIsNoPage)
{
    PagePool pool(PAGE);
    Pages pages(pool);
    pages.Take(PagePool::SINGLE_PAGES);
    {
        const FailingParserAllocation failing(0);
        EXPECT_EQ(pool.Allocate(PAGE), nullptr);
        EXPECT_TRUE(failing.HasFailed());
    }
    EXPECT_EQ(pool.Stretches(), 0U);
    pages.Take(1);
    EXPECT_EQ(pool.Stretches(), 1U);
}

} // namespace
} // namespace jlandxml

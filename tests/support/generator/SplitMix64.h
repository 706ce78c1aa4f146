#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace jlandxml::generator
{

/// Random numbers that are the same on every platform and with every compiler, as the distributions of the standard
/// library aren't. One expression draws once only: the order in which the operands of an expression are evaluated is
/// the compiler's.
class SplitMix64
{
  public:
    explicit SplitMix64(std::uint64_t seed) : state_(seed) {}

    std::uint64_t Next()
    {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31U);
    }

    /// From 0 up to the count, without the count.
    std::size_t Below(std::size_t count) { return static_cast<std::size_t>(Next() % count); }

    /// From the least to the greatest, both included.
    int Between(int least, int greatest)
    {
        return least + static_cast<int>(Below(static_cast<std::size_t>(greatest - least) + 1));
    }

    /// True once in so many times.
    bool OneIn(std::size_t count) { return Below(count) == 0; }

    /// One entry of a table.
    template <class Table>
    const auto& Pick(const Table& table)
    {
        return *(std::begin(table) + static_cast<std::ptrdiff_t>(Below(std::size(table))));
    }

  private:
    std::uint64_t state_;
};

} // namespace jlandxml::generator

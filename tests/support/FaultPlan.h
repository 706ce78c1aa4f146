#pragma once

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string_view>

namespace jlandxml
{

/// Which call of a run fails, told by the environment, and how often each function was called:
///
///   FAULT_CALL     the function's name
///   FAULT_AT       which of its calls fails, counted from 1
///   FAULT_ERROR    the error as a number, or "short": half of what was asked for is read or written
///   FAULT_LASTING  if set, every later call of the function fails too
///   FAULT_COUNTS   a file that takes the number of calls of each function, one "name count" a line, at the end
///
/// Nothing in here allocates: what is counted is the program's own.
template <std::size_t CALL_COUNT>
class FaultPlan
{
  public:
    using Names = std::array<const char*, CALL_COUNT>;

    explicit constexpr FaultPlan(const Names& names) : names_(names) {}

    /// Reads the environment and counts from now on.
    void Begin()
    {
        const auto setting = [](const char* name) {
            const char* const value = std::getenv(name);
            return value != nullptr ? value : "";
        };
        const std::string_view wanted = setting("FAULT_ERROR");
        failingCall_ = static_cast<std::size_t>(std::distance(
            names_.begin(), std::find(names_.begin(), names_.end(), std::string_view(setting("FAULT_CALL")))));
        failsAt_ = std::atol(setting("FAULT_AT"));
        isShort_ = wanted == "short";
        error_ = wanted.empty() ? ENOMEM : std::atoi(wanted.data());
        isLasting_ = std::getenv("FAULT_LASTING") != nullptr;
        isCounting_ = true;
    }

    /// The error that a call fails with.
    int Error() const { return error_; }

    /// Counts a call of the program's. True if it fails; `errno` then tells the error.
    bool Fails(std::size_t call)
    {
        const bool fails = isCounting_ && IsDue(call, ++counts_[call]) && !isShort_;
        if (fails)
        {
            errno = error_;
        }
        return fails;
    }

    /// How much of what was asked for the call that was counted last reads or writes.
    std::size_t Shortened(std::size_t call, std::size_t size) const
    {
        return isCounting_ && isShort_ && IsDue(call, counts_[call]) ? (size + 1) / 2 : size;
    }

    /// Counts no more, and gives each line of the counts to `write(line, size)`.
    template <class Write>
    void End(Write write)
    {
        isCounting_ = false;
        for (std::size_t call = 0; call < CALL_COUNT; ++call)
        {
            std::array<char, 64> line{};
            const int size = std::snprintf(line.data(), line.size(), "%s %ld\n", names_[call], counts_[call].load());
            write(line.data(), static_cast<std::size_t>(size));
        }
    }

  private:
    bool IsDue(std::size_t call, long number) const
    {
        return call == failingCall_ && (number == failsAt_ || (isLasting_ && number > failsAt_));
    }

    const Names names_;
    std::array<std::atomic<long>, CALL_COUNT> counts_{};
    std::atomic<bool> isCounting_ = false;
    std::size_t failingCall_ = CALL_COUNT;
    long failsAt_ = 0;
    int error_ = 0;
    bool isShort_ = false;
    bool isLasting_ = false;
};

} // namespace jlandxml

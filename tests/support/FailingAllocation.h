#pragma once

#include "base/Exceptions.h"

#include <algorithm>
#include <cstddef>
#include <gtest/gtest.h>
#include <new>
#include <string>
#include <typeinfo>
#include <vector>

namespace jlandxml
{

/// A failure that an allocation may throw, and that the stages take for one of the framework's.
template <class Base>
class AllocationFailure : public Base, public std::bad_alloc
{
  public:
    using Base::Base;
};

[[noreturn]] inline void FailAsFramework()
{
    throw AllocationFailure<CException>(L"cause");
}

[[noreturn]] inline void FailAsFile()
{
    throw AllocationFailure<CFileException>(L"cause");
}

[[noreturn]] inline void FailOtherwise()
{
    throw std::bad_alloc();
}

/// While it lives, the allocation that follows `allowed` others fails once with what `fail` throws. With texts too long
/// to be kept inside their objects every step of a run allocates, so that each can be made to fail in the middle.
class FailingAllocation
{
  public:
    FailingAllocation(std::size_t allowed, void (*fail)());
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;
    ~FailingAllocation();

    /// True once the allocation has failed.
    bool HasFailed() const;
};

/// The same for the memory of the XML parser, which gets null. It takes its memory by the page, so that a small tree
/// asks for little.
class FailingParserAllocation
{
  public:
    explicit FailingParserAllocation(std::size_t allowed);
    FailingParserAllocation(const FailingParserAllocation&) = delete;
    FailingParserAllocation& operator=(const FailingParserAllocation&) = delete;
    ~FailingParserAllocation();

    /// True once the allocation has failed.
    bool HasFailed() const;
};

using Messages = std::vector<std::wstring>;

/// Makes every allocation of `act` fail in turn, each after `prepare`, and gives the messages in the order in which
/// they appear first. All of them are of the class `Expected`.
template <class Expected, class Prepare, class Act>
Messages MessagesOfAllFailures(void (*fail)(), Prepare prepare, Act act)
{
    Messages messages;
    for (std::size_t allowed = 0;; ++allowed)
    {
        prepare();
        const FailingAllocation failing(allowed, fail);
        try
        {
            act();
            if (!failing.HasFailed())
            {
                return messages;
            }
        }
        catch (const Expected& exception)
        {
            EXPECT_EQ(typeid(exception), typeid(Expected));
            const std::wstring message = ErrorText(exception);
            if (std::find(messages.begin(), messages.end(), message) == messages.end())
            {
                messages.push_back(message);
            }
        }
    }
}

} // namespace jlandxml

#pragma once

#ifndef _WIN32
#include <csignal>
#endif

namespace jlandxml
{

/// Keeps the signals of a failing write (nobody reads the pipe any more, the file would outgrow its limit) from the
/// process for as long as it lives, so that the write fails and nothing else. They are kept from this thread alone, and
/// what the host has decided on them stays in force.
class WriteSignals
{
  public:
#ifdef _WIN32
    WriteSignals() {} // writing raises none there
#else
    WriteSignals() noexcept;
#endif
    WriteSignals(const WriteSignals&) = delete;
    WriteSignals& operator=(const WriteSignals&) = delete;
#ifdef _WIN32
    ~WriteSignals() {}
#else
    ~WriteSignals();

  private:
    sigset_t former_;  ///< what the thread had blocked
    sigset_t waiting_; ///< what waited already and isn't ours to take
#endif
};

} // namespace jlandxml

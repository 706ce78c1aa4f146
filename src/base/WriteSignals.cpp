#ifndef _WIN32

#include "base/WriteSignals.h"

#include <array>
#include <ctime>

namespace jlandxml
{

namespace
{
constexpr std::array SIGNALS = {SIGPIPE, SIGXFSZ};
}

WriteSignals::WriteSignals() noexcept
{
    sigset_t blocked;
    sigemptyset(&blocked);
    for (const int signal : SIGNALS)
    {
        sigaddset(&blocked, signal);
    }
    sigpending(&waiting_);
    pthread_sigmask(SIG_BLOCK, &blocked, &former_);
}

WriteSignals::~WriteSignals()
{
    sigset_t raised;
    sigpending(&raised);
    for (const int signal : SIGNALS)
    {
        if (sigismember(&raised, signal) == 1 && sigismember(&waiting_, signal) == 0)
        {
            sigset_t taken;
            sigemptyset(&taken);
            sigaddset(&taken, signal);
            const timespec atOnce{};
            sigtimedwait(&taken, nullptr, &atOnce);
        }
    }
    pthread_sigmask(SIG_SETMASK, &former_, nullptr);
}

} // namespace jlandxml

#endif

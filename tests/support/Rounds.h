#pragma once

namespace jlandxml
{

#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool HAS_SANITIZERS = true;
#elif defined(__has_feature)
inline constexpr bool HAS_SANITIZERS = __has_feature(address_sanitizer);
#else
inline constexpr bool HAS_SANITIZERS = false;
#endif

/// How many rounds a test with random input goes. Under the sanitizers each takes many times as long, and a
/// twentieth of them reaches the same code; the other platform's tests go them all.
constexpr int Rounds(int count)
{
    return HAS_SANITIZERS ? count / 20 : count;
}

} // namespace jlandxml

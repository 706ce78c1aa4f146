#pragma once

#include <cstdint>
#include <string>

namespace jlandxml
{

/// Why a finished file may not have come into its place: looks at the target's folder once more, and at the temporary
/// one. The path that is in
/// the way with the system's reason, or the target's path alone where nothing is seen. `size` is how many bytes the
/// file needs, about.
std::wstring TargetTrouble(const std::wstring& target, std::uintmax_t size);

} // namespace jlandxml

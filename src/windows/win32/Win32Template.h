#pragma once

#include "windows/DialogTemplate.h"

#include <cstdint>
#include <vector>

namespace jlandxml
{

/// The dialog template in memory that the system makes a dialog of, in 32-bit units since it must be aligned so.
std::vector<std::uint32_t> MakeWin32Template(const DialogTemplate& dialog);

} // namespace jlandxml

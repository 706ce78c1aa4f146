#pragma once

#include "support/generator/Draft.h"
#include "support/generator/SplitMix64.h"

namespace jlandxml::generator
{

/// A work folder as a host writes it, of one to three roads or rivers, with the settings that complete what it leaves
/// open: its run ends with a finished file.
Draft DrawHostFolder(SplitMix64& random);

} // namespace jlandxml::generator

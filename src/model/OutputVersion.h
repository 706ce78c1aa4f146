#pragma once

#include <cstdint>

namespace jlandxml
{

/// The version of the exchange standard that a file follows, by its place among the known version texts.
enum OutputVersion : std::int32_t
{
    VERSION_1_3 = 0, ///< "MlitLandXmlVer.1.3"
    VERSION_1_4 = 1, ///< "MlitLandXmlVer.1.4"
    VERSION_1_5 = 2, ///< "MlitLandXmlVer.1.5"
    VERSION_1_6 = 3, ///< "MlitLandXmlVer.1.6"
    VERSION_1_7 = 4  ///< "MlitLandXmlVer.1.7"
};

} // namespace jlandxml

#pragma once

#include <string>

namespace jlandxml
{

/// The type of the `Alignments` being written, which decides how its cross sections are classified: "河川" as a river;
/// anything else, the empty text too, as a road. One for the whole process, so documents are written one at a time.
std::wstring& GetCurrentDesignType();

/// The two types of a design.
inline constexpr const wchar_t* ROAD_DESIGN = L"道路";
inline constexpr const wchar_t* RIVER_DESIGN = L"河川";

} // namespace jlandxml

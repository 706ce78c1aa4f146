#pragma once

#include "inspect/LandXmlFile.h"

#include <cstddef>
#include <string>
#include <vector>

namespace jlandxml::inspect
{

/// A calculation sheet. Figures that stand in the file are the file's own text; the others are computed: coordinates
/// and heights to a tenth of a millimetre, azimuths to a hundredth of a second.
struct Table
{
    const wchar_t* title;
    std::vector<const wchar_t*> columns;
    std::vector<std::vector<std::wstring>> rows;
    std::size_t kinds = static_cast<std::size_t>(-1); ///< the column that holds words instead of the file's texts
};

/// 線形計算書: every element with its main point: station, coordinates, azimuth, radii, parameter and length.
Table AlignmentTable(const LandXmlFile& file);

/// 測点座標一覧: the main stations and main points with coordinates, azimuth, design and ground height.
Table StationTable(const LandXmlFile& file);

/// 縦断計算書: the points of every design profile with gradients and vertical curves.
Table ProfileTable(const LandXmlFile& file);

/// 片勾配・拡幅表: superelevation, cross slopes and widening by station.
Table CrossSlopeTable(const LandXmlFile& file);

/// 中間点・幅杭一覧: the points of all groups.
Table PointTable(const LandXmlFile& file);

/// All of them in this order.
std::vector<Table> AllTables(const LandXmlFile& file);

/// A table as CSV (RFC 4180): UTF-8 with a byte-order mark, so that spreadsheets know it.
std::string CsvText(const Table& table);

} // namespace jlandxml::inspect

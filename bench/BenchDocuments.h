#pragma once

#include <filesystem>
#include <span>
#include <string_view>

namespace jlandxml
{

/// A work file to measure, as large as asked for.
struct BenchDocument
{
    std::string_view name;
    int size;                               ///< at full size: points, alignments, sections, rows
    void (*write)(std::ostream&, int size); ///< what stands between `Project` and the end of `LandXML`
    int routes;                             ///< `Alignments` elements
    bool hasSideFiles;                      ///< a route's four side files of so many rows belong to it
};

/// All of them, in the order in which they are shown.
std::span<const BenchDocument> BenchDocuments();

/// Writes the work file, its side files if it has any, and settings (settings.json) that leave nothing missing into a
/// folder that exists.
void WriteWorkFolder(const std::filesystem::path& folder, const BenchDocument& document, int size);

} // namespace jlandxml

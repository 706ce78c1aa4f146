#pragma once

#include "support/generator/OddFolder.h"

#include <cstdint>
#include <filesystem>

namespace jlandxml::generator
{

/// A work folder that a run can be made on: Landxml_temp.xml, side files and settings.json, which acts as the user.
struct WorkFolder
{
    FolderFiles files;
    /// As a host writes it, with settings that complete it: the run ends with status 0. Otherwise how it ends is open.
    bool hostLike = false;
    std::vector<Oddity> oddities; ///< what is amiss; nothing in a folder as hosts write it
};

/// The folder of a number, from 1; the same bytes for the same seed and number, on every platform. Odd numbers give
/// folders as a host writes them, even ones folders in which something is amiss.
WorkFolder MakeWorkFolder(std::uint64_t seed, std::uint32_t number);

/// Writes the files into a folder, which is made.
void WriteFiles(const FolderFiles& files, const std::filesystem::path& folder);

} // namespace jlandxml::generator

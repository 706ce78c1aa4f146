#pragma once

#include "cli/ExitStatus.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace jlandxml
{

/// What the command line asks for.
struct ConvertOptions
{
    std::vector<std::wstring> workFolders;   ///< at least one
    std::vector<std::wstring> settingsFiles; ///< each is merged into those before it
    std::wstring folderSettings;             ///< the name of a settings file in each work folder; empty: none
    std::wstring outputFile;                 ///< empty: there is none, or the output folder holds it
    std::wstring outputFolder;               ///< empty: none
    std::wstring reportFile;                 ///< empty: none
    std::wstring changesFile;                ///< empty: none
    std::optional<std::int32_t> routes;
    std::uint32_t jobs = 1; ///< work folders at a time; 0: one for each core
    bool check = false;
    bool dryRun = false;
    bool printSettings = false;
    bool json = false;
    bool strict = false;
    bool quiet = false;
    bool skipLocked = false;
    bool dialog = false;
};

/// The arguments as options, or the status with which the program ends at once.
struct ParsedConvert
{
    ConvertOptions options;
    std::optional<ExitStatus> ends;
};

/// Reads the arguments of jlandxml-convert. What is wrong with them has been told.
ParsedConvert ParseConvert(const std::vector<std::wstring>& arguments);

/// The long and short names of all options, as they are declared.
std::vector<std::string> ConvertOptionNames();

/// The finished file of a work folder; empty where none is asked for.
std::wstring OutputOf(const ConvertOptions& options, const std::wstring& workFolder);

/// The last name in the path of a folder, also of "." and of one that ends in separators; empty for a root.
std::wstring FolderName(const std::wstring& path);

} // namespace jlandxml

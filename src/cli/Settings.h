#pragma once

#include <optional>
#include <stdexcept>
#include <string>

namespace jlandxml
{

/// A settings file that can't be acted out. The text begins with the JSON path and says in Japanese what would be
/// right.
class SettingsError : public std::runtime_error
{
  public:
    SettingsError(const std::string& path, const std::string& text) : std::runtime_error(path + ": " + text) {}
};

/// What a settings file says of the project. What it doesn't say isn't touched.
struct ProjectSettings
{
    std::optional<std::wstring> projectName;
    std::optional<std::wstring> projectPhase;
    std::optional<std::wstring> applicationCriterion;
    std::optional<std::wstring> verticalDatum;
};

/// Reads a settings file: JSON in UTF-8. Throws SettingsError.
ProjectSettings ReadSettings(const std::wstring& path);

/// The text of a settings file that says the same, ready to be edited and fed back.
std::wstring PrintSettings(const ProjectSettings& settings);

} // namespace jlandxml

#pragma once

#include "cli/RunResult.h"
#include "cli/Settings.h"

#include <string>
#include <string_view>
#include <vector>

namespace jlandxml
{

// How runs are told: a line for eyes on standard error, whose first field is the text alone, and a line of JSON for
// programs.

/// Tells a line on standard error, what is in front of the text first.
void TellLine(std::wstring_view front, const ToldLine& line);

/// Tells a line of a work folder, its text and detail as a run of its own has told them.
void TellLineOf(const std::wstring& folder, std::wstring_view toldLine);

/// Writes a text on standard error with blanks for what would break its line: names of folders and values of the input
/// may hold anything.
void WriteWithinLine(std::wstring_view text);

/// Tells lines that stand in the way of a file.
void TellFindings(const std::vector<ToldLine>& findings);

/// Tells lines that are warnings.
void TellWarnings(const std::vector<ToldLine>& warnings);

/// A line about something that has no more parts than this.
ToldLine PlainLine(std::string_view code, std::wstring text, std::wstring detail = {});

/// A line about settings that can't be acted out.
ToldLine SettingsLine(const SettingsFault& fault);

/// The lines of all that is wrong with settings. `showFile`: the file stands behind each, since there are several.
std::vector<ToldLine> SettingsLines(const SettingsError& error, bool showFile);

/// A line of JSON about the run of a work folder, with its line feed.
std::wstring JsonLine(const RunResult& result);

} // namespace jlandxml

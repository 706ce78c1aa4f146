#pragma once

#include "inspect/Finding.h"
#include "inspect/LandXmlFile.h"

#include <string>
#include <vector>

namespace jlandxml::inspect
{

/// The findings for people: how many of each severity, then a line for each.
std::wstring FindingsText(const std::vector<Finding>& findings);

/// One of these lines, with its line feed: severity, code, line of the file, element, what is said.
std::wstring FindingLine(const Finding& finding);

/// A file's summary and findings as one line of JSON.
std::wstring JsonLine(const LandXmlFile& file, const std::vector<Finding>& findings);

/// The line of JSON for a file that can't be read.
std::wstring JsonErrorLine(const std::wstring& path, const std::wstring& error);

/// All checks for people: a line for each with tabs between code, severity, tolerances, text, remedy and source.
std::wstring ChecksText();

/// All checks, one line of JSON for each.
std::wstring ChecksJsonLines();

} // namespace jlandxml::inspect

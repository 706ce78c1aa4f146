#include "cli/Telling.h"

#include "base/Streams.h"
#include "base/Text.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace jlandxml
{

namespace
{

constexpr const wchar_t* WARNING_FRONT = L"警告: ";
constexpr double MILLISECONDS = 1000.0;

void AddText(PrintedJson& json, const char* key, const std::wstring& text)
{
    if (!text.empty())
    {
        json[key] = Utf8FromWide(text);
    }
}

/// True for a detail that other parts of the line don't hold already.
bool SaysMore(const ToldLine& line)
{
    const bool isRepeated = line.detail == line.path || line.detail == line.object || line.detail == line.file ||
                            line.detail == line.path + L"（" + line.object + L"）";
    return !line.detail.empty() && !isRepeated;
}

PrintedJson LineJson(const ToldLine& line)
{
    PrintedJson json;
    json["code"] = line.code;
    json["text"] = Utf8FromWide(line.text);
    AddText(json, "path", line.path);
    AddText(json, "object", line.object);
    AddText(json, "file", line.file);
    if (SaysMore(line))
    {
        json["detail"] = Utf8FromWide(line.detail);
    }
    if (line.row)
    {
        json["row"] = *line.row;
    }
    if (line.count > 1)
    {
        json["count"] = line.count;
    }
    return json;
}

PrintedJson LinesJson(const std::vector<ToldLine>& lines)
{
    PrintedJson json = PrintedJson::array();
    for (const ToldLine& line : lines)
    {
        json.push_back(LineJson(line));
    }
    return json;
}

PrintedJson CountsJson(const Counts& counts)
{
    PrintedJson json = PrintedJson::object();
    for (const auto& [name, count] : counts)
    {
        json[name] = count;
    }
    return json;
}

void TellLines(const wchar_t* front, const std::vector<ToldLine>& lines)
{
    for (const ToldLine& line : lines)
    {
        TellLine(front, line);
    }
}

/// A line feed, or what a terminal or a reader takes for one or for a command.
bool IsControl(wchar_t character)
{
    return character < L' ' || (character >= L'\x7F' && character <= L'\x9F') || character == L'\x2028' ||
           character == L'\x2029';
}

} // namespace

void WriteWithinLine(std::wstring_view text)
{
    while (!text.empty())
    {
        const auto* const control = std::find_if(text.data(), text.data() + text.size(), IsControl);
        const auto length = static_cast<std::size_t>(control - text.data());
        WriteStandardError(text.substr(0, length));
        if (length < text.size())
        {
            WriteStandardError(L" ");
        }
        text.remove_prefix(std::min(length + 1, text.size()));
    }
}

/// In pieces, since there may be no memory to join them.
void TellLine(std::wstring_view front, const ToldLine& line)
{
    WriteWithinLine(front);
    WriteWithinLine(line.text);
    if (!line.detail.empty())
    {
        WriteStandardError(L"\t");
        WriteWithinLine(line.detail);
    }
    WriteStandardError(L"\n");
}

void TellLineOf(const std::wstring& folder, std::wstring_view toldLine)
{
    WriteWithinLine(folder);
    WriteStandardError(L": ");
    WriteStandardError(toldLine);
    WriteStandardError(L"\n");
}

void TellFindings(const std::vector<ToldLine>& findings)
{
    TellLines(L"", findings);
}

void TellWarnings(const std::vector<ToldLine>& warnings)
{
    TellLines(WARNING_FRONT, warnings);
}

ToldLine PlainLine(std::string_view code, std::wstring text, std::wstring detail)
{
    ToldLine line;
    line.code = code;
    line.text = std::move(text);
    line.detail = std::move(detail);
    return line;
}

ToldLine SettingsLine(const SettingsFault& fault)
{
    ToldLine line = PlainLine("settings", WideFromUtf8(fault.Line()), WideFromUtf8(fault.object));
    line.path = WideFromUtf8(fault.path);
    line.object = line.detail;
    line.file = WideFromUtf8(fault.file);
    return line;
}

std::vector<ToldLine> SettingsLines(const SettingsError& error, bool showFile)
{
    std::vector<ToldLine> lines;
    for (const SettingsFault& fault : error.Faults())
    {
        lines.push_back(SettingsLine(fault));
        if (showFile && fault.path != fault.file)
        {
            lines.back().detail = lines.back().file;
        }
    }
    return lines;
}

std::wstring JsonLine(const RunResult& result)
{
    PrintedJson json;
    json["folder"] = Utf8FromWide(result.folder);
    AddText(json, "output", result.output);
    json["status"] = static_cast<int>(result.status);
    json["seconds"] = std::round(result.seconds * MILLISECONDS) / MILLISECONDS;
    json["findings"] = LinesJson(result.findings);
    json["warnings"] = LinesJson(result.warnings);
    json["counts"] = {{"read", CountsJson(result.read)}, {"written", CountsJson(result.written)}};
    return WideFromUtf8(json.dump(-1, ' ', false, PrintedJson::error_handler_t::replace)) + L"\n";
}

} // namespace jlandxml

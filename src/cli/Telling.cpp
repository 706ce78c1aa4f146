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

PrintedJson LineJson(const ToldLine& line)
{
    PrintedJson json;
    json["code"] = line.code;
    json["text"] = Utf8FromWide(line.text);
    AddText(json, "path", line.path);
    AddText(json, "object", line.object);
    AddText(json, "file", line.file);
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

/// Values of the input may hold line feeds; a line stays one whatever they are.
void WriteWithinLine(std::wstring_view text)
{
    while (!text.empty())
    {
        const auto* const control =
            std::find_if(text.data(), text.data() + text.size(), [](wchar_t character) { return character < L' '; });
        const auto length = static_cast<std::size_t>(control - text.data());
        WriteStandardError(text.substr(0, length));
        if (length < text.size())
        {
            WriteStandardError(L" ");
        }
        text.remove_prefix(std::min(length + 1, text.size()));
    }
}

} // namespace

/// In pieces, since there may be no memory to join them.
void TellLine(const wchar_t* front, const ToldLine& line)
{
    WriteStandardError(front);
    WriteStandardError(line.text);
    if (!line.detail.empty())
    {
        WriteStandardError(L"\t");
        WriteWithinLine(line.detail);
    }
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

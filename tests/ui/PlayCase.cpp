// Plays one case of tests/e2e at the module's real windows, in a host of its own, and holds what is seen against what
// the case expects of the command line. The finished file is compared by the caller.
//
//   play_case MODULE CASE.json SOURCE CASE_FOLDER OUT
//
// Status 0: as expected; 1: not; 77: the command line ends before there is a window.

#include "base/Files.h"
#include "base/Text.h"
#include "cli/SettingsUser.h"
#include "dialog/JLandXMLErrorDlg.h"
#include "dialog/JLandXmlConvertDlgControls.h"
#include "sidefiles/LoadSideFiles.h"
#include "ui/RealWindows.h"

#include <algorithm>
#include <cstdio>
#include <sstream>

namespace jlandxml
{
namespace
{

constexpr int AS_EXPECTED = 0;
constexpr int DIFFERENT = 1;
constexpr int NO_WINDOW = 77;

struct Case
{
    std::wstring folder;
    std::wstring settings;
    bool printSettings = false;
    std::int32_t routes = -1;
    std::string expectedOut;
    std::string expectedErr;
};

std::string Filled(std::string text, const std::vector<std::string>& places)
{
    const char* const names[] = {"@SOURCE@", "@CASE@", "@OUT@"};
    for (std::size_t name = 0; name < places.size(); ++name)
    {
        for (std::size_t at = 0; (at = text.find(names[name], at)) != std::string::npos; at += places[name].size())
        {
            text.replace(at, std::string_view(names[name]).size(), places[name]);
        }
    }
    return text;
}

Case ReadCase(const Json& json, const std::vector<std::string>& places)
{
    Case one;
    const Json& arguments = json["arguments"];
    for (std::size_t index = 0; index < arguments.size(); ++index)
    {
        const std::string argument = Filled(arguments[index], places);
        const auto next = [&] { return WideFromUtf8(Filled(arguments[++index], places)); };
        if (argument == "-s")
        {
            one.settings = next();
        }
        else if (argument == "-n")
        {
            one.routes = std::stoi(Utf8FromWide(next()));
        }
        else if (argument == "-o")
        {
            next();
        }
        else if (argument == "--print-settings")
        {
            one.printSettings = true;
        }
        else
        {
            one.folder = WideFromUtf8(argument);
        }
    }
    one.expectedOut = Filled(json.value("stdout", ""), places);
    one.expectedErr = Filled(json.value("stderr", ""), places);
    return one;
}

/// Without the warnings and details of the command line, of which users of the module are not told.
std::vector<std::string> SortedLines(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
    {
        if (!line.starts_with("警告: "))
        {
            lines.push_back(line.substr(0, line.find('\t')));
        }
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

/// What the driver saw: the lines that the command line would write.
struct Sight
{
    std::string printed;
    std::string told;
};

void WorkErrorList(Sight& sight)
{
    const auto list = WaitForDialog(KnownDialog::Errors);
    for (const std::wstring& finding : list->Entries(JLandXMLErrorDlg::MESSAGE_LIST))
    {
        sight.told += Utf8FromWide(finding) + "\n";
    }
    list->PressEnter();
    WaitUntilGone(KnownDialog::Errors);
    WaitForDialog(KnownDialog::Main)->PressEscape();
}

void WorkMainDialog(const Case& one, const Json& settings, Sight& sight)
{
    const auto dialog = WaitForDialog(KnownDialog::Main);
    SettingsUser user(*dialog);
    try
    {
        user.Act(settings);
    }
    catch (const SettingsError& error)
    {
        sight.told = std::string(error.what()) + "\n";
        dialog->PressEscape();
        return;
    }
    if (one.printSettings)
    {
        sight.printed = user.Print().dump(2) + "\n";
        dialog->PressEscape();
        return;
    }
    dialog->Click(convert_dlg::OUTPUT_BUTTON);
    WaitUntilGone(KnownDialog::Main);
}

void Drive(const Case& one, const Json& settings, const std::wstring& out, Sight& sight)
{
    bool saved = false;
    while (sight.told.empty() && sight.printed.empty())
    {
        switch (WaitForWindow())
        {
        case Seen::MainDialog:
            // Between the save dialog's end and its own, the dialog exports.
            saved ? WaitUntilGone(KnownDialog::Main) : WorkMainDialog(one, settings, sight);
            break;
        case Seen::ErrorList:
            WorkErrorList(sight);
            break;
        case Seen::SaveDialog:
            AnswerSaveDialog(out);
            saved = true;
            break;
        case Seen::Message:
            sight.told += Utf8FromWide(AnswerMessage()) + "\n";
            break;
        case Seen::Nothing:
            return;
        }
    }
}

/// A path as a person at the save dialog writes it.
std::wstring SaveDialogPath(std::wstring path)
{
#ifdef _WIN32
    if (path.starts_with(L'/'))
    {
        std::replace(path.begin(), path.end(), L'/', L'\\');
        return L"Z:" + path;
    }
#endif
    return path;
}

int Play(const std::vector<std::string>& arguments)
{
    const std::wstring module = WideFromUtf8(arguments[0]);
    const Json json = Json::parse(ReadWholeFile(WideFromUtf8(arguments[1])).value_or(""));
    const Case one = ReadCase(json, {arguments[2], arguments[3], arguments[4]});
    if (!PathExists(one.folder))
    {
        return NO_WINDOW;
    }
    Json settings = Json::object();
    try
    {
        settings = one.settings.empty() ? settings : ReadSettings(one.settings);
    }
    catch (const SettingsError&)
    {
        return NO_WINDOW;
    }
    Sight sight;
    Host host(module);
    host.Call(one.folder, one.routes >= 0 ? one.routes : CountRoutes(one.folder),
              [&] { Drive(one, settings, SaveDialogPath(WideFromUtf8(arguments[4])), sight); });
    const bool same = SortedLines(sight.told) == SortedLines(one.expectedErr) &&
                      one.expectedOut.ends_with(sight.printed) && host.IsInFront();
    if (!same)
    {
        std::fprintf(stderr, "told:\n%sinstead of:\n%sprinted:\n%s", sight.told.c_str(), one.expectedErr.c_str(),
                     sight.printed.c_str());
    }
    return same ? AS_EXPECTED : DIFFERENT;
}

} // namespace
} // namespace jlandxml

#ifdef _WIN32
int wmain(int count, wchar_t** values)
{
    std::vector<std::string> arguments;
    std::transform(values + 1, values + count, std::back_inserter(arguments),
                   [](const wchar_t* value) { return jlandxml::Utf8FromWide(value); });
    return jlandxml::Play(arguments);
}
#else
int main(int count, char** values)
{
    return jlandxml::Play(std::vector<std::string>(values + 1, values + count));
}
#endif

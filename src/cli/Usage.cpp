#include "cli/Usage.h"

#include "base/Streams.h"
#include "base/Text.h"
#include "cli/Paths.h"
#include "cli/Telling.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <numeric>
#include <sstream>
#include <utility>

#ifdef _WIN32
#include <windows.h>
#endif

namespace jlandxml
{

namespace
{

constexpr std::pair<const char*, const char*> HEADINGS[] = {
    {"Usage", "使い方"}, {"Positionals", "引数"}, {"OPTIONS", "オプション"}, {"REQUIRED", "（必須）"}};

/// An option with so many letters wrong, missing, too many or swapped is still taken for the one that is meant.
constexpr std::size_t MOST_MISTAKES = 2;
/// From so many letters on the beginning of an option is enough.
constexpr std::size_t SHORTEST_BEGINNING = 3;

#ifdef _WIN32

bool ReadsJapanese()
{
    return PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_JAPANESE;
}

#else

/// As the C library finds the language of messages, without touching the process's locale.
bool ReadsJapanese()
{
    for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
    {
        const char* const locale = std::getenv(variable);
        if (locale != nullptr && *locale != '\0')
        {
            return std::string_view(locale).starts_with("ja");
        }
    }
    return false;
}

#endif

/// How many letters of one text have to be changed, added or taken away to get the other.
std::size_t Mistakes(std::string_view one, std::string_view other)
{
    std::vector<std::size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < one.size(); ++i)
    {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < other.size(); ++j)
        {
            const std::size_t changed = diagonal + (one[i] == other[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

/// The long option that an unknown one may be meant for; empty if none is near.
std::string NearestOption(const CLI::App& app, std::string_view unknown)
{
    const std::string_view name = unknown.substr(0, unknown.find('=')).substr(std::min<std::size_t>(2, unknown.size()));
    std::string nearest;
    std::size_t fewest = MOST_MISTAKES + 1;
    for (const CLI::Option* const option : app.get_options())
    {
        for (const std::string& known : option->get_lnames())
        {
            const bool begins = name.size() >= SHORTEST_BEGINNING && known.starts_with(name);
            // Of a short word little would be left.
            const std::size_t mistakes = begins ? 0 : Mistakes(name.substr(0, known.size() + MOST_MISTAKES + 1), known);
            if (mistakes < std::min(fewest, (known.size() + 1) / 2))
            {
                nearest = "--" + known;
                fewest = mistakes;
            }
        }
    }
    return unknown.starts_with("--") ? nearest : std::string();
}

/// One line about the argument that is wrong.
std::string Problem(const CLI::ParseError& error, const std::string& missing)
{
    const std::string text = error.what();
    switch (static_cast<CLI::ExitCodes>(error.get_exit_code()))
    {
    case CLI::ExitCodes::RequiredError:
        return missing;
    case CLI::ExitCodes::ArgumentMismatch:
        return text.substr(0, text.find(':')) + ": 値を指定してください";
    default:
        return text;
    }
}

/// What is misspelt is told of before what isn't there.
void Parse(CLI::App& app, std::vector<std::string> arguments)
{
    try
    {
        app.parse(std::move(arguments));
    }
    catch (const CLI::RequiredError&)
    {
        RefuseFurtherArguments(app);
        throw;
    }
}

/// True for two paths to one file, or to one place where there is no file yet.
bool IsSameFile(const std::string& one, const std::string& other)
{
    std::error_code failure;
    const auto pathOf = [&](const std::string& text) { return std::filesystem::absolute(PathOf(text), failure); };
    // Most files that are compared with a new one are there, and need no more than this.
    const bool isThere = std::filesystem::exists(pathOf(one), failure);
    if (isThere != std::filesystem::exists(pathOf(other), failure))
    {
        return false;
    }
    if (isThere)
    {
        return std::filesystem::equivalent(pathOf(one), pathOf(other), failure);
    }
    const std::filesystem::path place = std::filesystem::weakly_canonical(pathOf(one), failure);
    return !place.empty() && place == std::filesystem::weakly_canonical(pathOf(other), failure);
}

} // namespace

CLI::ParseError WrongArgument(const std::string& argument, const std::string& problem)
{
    return {argument + ": " + problem, CLI::ExitCodes::ValidationError};
}

const char* InUsersLanguage(const char* japanese, const char* english)
{
    return ReadsJapanese() ? japanese : english;
}

void PrepareUsage(CLI::App& app, const std::string& name)
{
    for (const auto& [heading, translation] : HEADINGS)
    {
        app.get_formatter()->label(heading, InUsersLanguage(translation, heading));
    }
    app.option_defaults()
        ->group(InUsersLanguage("オプション", "Options"))
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    // A path may begin with a slash on Windows too.
    app.allow_windows_style_options(false);
    app.set_version_flag("-V,--version", name + " " JLANDXML_VERSION,
                         InUsersLanguage("バージョンを表示します", "prints the version"));
    app.set_help_flag("-h,--help", InUsersLanguage("この説明を表示します", "prints this help"));
    app.allow_extras();
}

void RefuseEmpty(const CLI::Option& option, const std::string& value, const std::string& problem)
{
    if (value.empty() && option.count() > 0)
    {
        throw WrongArgument("--" + option.get_lnames().front(), problem);
    }
}

void RefuseOverwriting(const CLI::Option& option, const std::string& path, const std::vector<std::string>& others)
{
    for (const std::string& other : others)
    {
        if (!path.empty() && !other.empty() && IsSameFile(path, other))
        {
            throw WrongArgument("--" + option.get_lnames().front(), "ほかに読み書きするファイルです: " + path);
        }
    }
}

void RefuseFurtherArguments(const CLI::App& app)
{
    std::vector<std::string> rest = app.remaining();
    std::erase(rest, "--"); // nothing but the end of the options
    if (!rest.empty())      // whatever isn't spelt like an option is a file or a folder
    {
        const std::string nearest = NearestOption(app, rest.front());
        throw WrongArgument(rest.front(),
                            "不明なオプションです" + (nearest.empty() ? "" : "（もしかして " + nearest + "）"));
    }
}

int MakeFolder(const std::wstring& folder)
{
    std::error_code failure;
    std::error_code unknown;
    const std::filesystem::path path = PathOf(folder);
    std::filesystem::create_directories(path, failure);
    if (std::filesystem::is_directory(path, unknown))
    {
        return 0;
    }
    const int error = failure.default_error_condition().value();
    return std::filesystem::exists(path, unknown) || error == 0 ? EEXIST : error;
}

bool WriteAnswer(std::wstring_view text)
{
    if (WriteStandardOutput(text))
    {
        return true;
    }
    WriteStandardError(L"標準出力に書き込めません\n");
    return false;
}

ArgumentsRead ReadArguments(CLI::App& app, const std::vector<std::wstring>& arguments, const std::string& missing)
{
    // The library takes them from the back.
    std::vector<std::string> narrow;
    std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(narrow),
                   [](const std::wstring& argument) { return Utf8FromWide(argument); });
    try
    {
        Parse(app, std::move(narrow));
    }
    catch (const CLI::Success& asked)
    {
        std::ostringstream out;
        app.exit(asked, out);
        return WriteAnswer(WideFromUtf8(out.str())) ? ArgumentsRead::Asked : ArgumentsRead::Untold;
    }
    catch (const CLI::ParseError& error)
    {
        WriteWithinLine(WideFromUtf8(Problem(error, missing)));
        WriteStandardError(L"\n");
        return ArgumentsRead::Wrong;
    }
    return ArgumentsRead::Whole;
}

} // namespace jlandxml

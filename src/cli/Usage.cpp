#include "cli/Usage.h"

#include "base/Streams.h"
#include "base/Text.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <utility>

namespace jlandxml
{

namespace
{

constexpr std::pair<const char*, const char*> HEADINGS[] = {
    {"Usage", "使い方"}, {"Positionals", "引数"}, {"OPTIONS", "オプション"}, {"REQUIRED", "（必須）"}};

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

/// True for two paths to one file, or to one place where there is no file yet.
bool IsSameFile(const std::string& one, const std::string& other)
{
    std::error_code failure;
    const auto pathOf = [&](const std::string& text) {
        return std::filesystem::absolute(std::u8string(text.begin(), text.end()), failure);
    };
    if (std::filesystem::equivalent(pathOf(one), pathOf(other), failure))
    {
        return true;
    }
    const std::filesystem::path place = std::filesystem::weakly_canonical(pathOf(one), failure);
    return !place.empty() && place == std::filesystem::weakly_canonical(pathOf(other), failure);
}

} // namespace

CLI::ParseError WrongArgument(const std::string& argument, const std::string& problem)
{
    return {argument + ": " + problem, CLI::ExitCodes::ValidationError};
}

void PrepareUsage(CLI::App& app, const std::string& name)
{
    for (const auto& [heading, translation] : HEADINGS)
    {
        app.get_formatter()->label(heading, translation);
    }
    app.option_defaults()->group("オプション")->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    // A path may begin with a slash on Windows too.
    app.allow_windows_style_options(false);
    app.set_version_flag("-V,--version", name + " " JLANDXML_VERSION, "バージョンを表示します");
    app.set_help_flag("-h,--help", "この説明を表示します");
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
    const std::vector<std::string> rest = app.remaining();
    if (!rest.empty())
    {
        throw WrongArgument(rest.front(), "余分な引数です。取り除いてください");
    }
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
        app.parse(narrow);
    }
    catch (const CLI::Success& asked)
    {
        std::ostringstream out;
        app.exit(asked, out);
        return WriteAnswer(WideFromUtf8(out.str())) ? ArgumentsRead::Asked : ArgumentsRead::Untold;
    }
    catch (const CLI::ParseError& error)
    {
        WriteStandardError(WideFromUtf8(Problem(error, missing)) + L"\n");
        return ArgumentsRead::Wrong;
    }
    return ArgumentsRead::Whole;
}

} // namespace jlandxml

#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jlandxml
{

// What the command lines share: how they are declared, and how they tell the user, in Japanese and in one line, what is
// wrong with the arguments. Texts are UTF-8.

/// Thrown for an argument that the library takes for a right one.
CLI::ParseError WrongArgument(const std::string& argument, const std::string& problem);

/// One of two texts, by the language of the user's locale: Japanese, or English in any other one.
const char* InUsersLanguage(const char* japanese, const char* english);

/// Gives a command line headings in the user's language, --help and --version. Of an option that is given several times
/// the last counts, unless it says otherwise.
void PrepareUsage(CLI::App& app, const std::string& name);

/// Throws if an option was given with nothing as its value.
void RefuseEmpty(const CLI::Option& option, const std::string& value, const std::string& problem);

/// Throws if the file that an option names for writing is one of those that are read or written besides, by whatever
/// path or link. Files that don't exist are told apart by their paths.
void RefuseOverwriting(const CLI::Option& option, const std::string& path, const std::vector<std::string>& others);

/// Throws if there are options that nothing was declared for, with the option that the first of them may be meant for.
void RefuseFurtherArguments(const CLI::App& app);

/// Makes a folder with those above it. An error number of the C library if there is none afterwards, else 0.
int MakeFolder(const std::wstring& folder);

/// Writes what the user asked for on standard output. False, with a line on standard error, if not all of it was taken.
bool WriteAnswer(std::wstring_view text);

/// How the reading of arguments ended.
enum class ArgumentsRead
{
    Whole,  ///< the program goes on
    Asked,  ///< help or version was printed
    Untold, ///< it couldn't be printed; a line on standard error says so
    Wrong,  ///< a line on standard error says why
};

/// Reads the arguments into what was declared. `missing` is the line for a required argument that isn't there.
ArgumentsRead ReadArguments(CLI::App& app, const std::vector<std::wstring>& arguments, const std::string& missing = {});

} // namespace jlandxml

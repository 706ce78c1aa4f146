// Both command lines: the arguments, one a line, then the work file, which is also the file that is inspected, settings
// and side files. The first argument says which of the two programs it is. Whatever they are, a status comes of it, and
// nothing stays in the temporary folder.

#include "FuzzInput.h"
#include "cli/CommandLine.h"
#include "cli/InspectCommandLine.h"
#include "run/ConversionContext.h"

#include <algorithm>
#include <cstdlib>

namespace
{

using namespace jlandxml;

constexpr const wchar_t* FILE_NAMES[] = {L"Landxml_temp.xml",           L"settings.json",
                                         L"intermediatePts_temp_1.csv", L"widthStake_temp_1.csv",
                                         L"superElevation_temp_1.csv",  L"widening_temp_1.csv"};

/// Nothing outside the folder that the process is in may be named: any file of the user's could be.
std::wstring WithinFolder(std::wstring argument)
{
    std::replace(argument.begin(), argument.end(), L'/', L'_');
    for (std::size_t dots = argument.find(L".."); dots != std::wstring::npos; dots = argument.find(L".."))
    {
        argument.replace(dots, 2, L"_");
    }
    return argument;
}

std::vector<std::wstring> Lines(const std::string& text)
{
    std::vector<std::wstring> lines;
    for (std::size_t begin = 0; begin < text.size();)
    {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        lines.push_back(WithinFolder(WideFromUtf8(std::string_view(text).substr(begin, end - begin))));
        begin = end + 1;
    }
    return lines;
}

} // namespace

/// What the programs tell isn't to be seen among what the fuzzer tells; the last flag counts.
extern "C" int LLVMFuzzerInitialize(int* count, char*** values)
{
    static std::string silent = "-close_fd_mask=3";
    static std::vector<char*> arguments(*values, *values + *count);
    arguments.push_back(silent.data());
    arguments.push_back(nullptr);
    *values = arguments.data();
    ++*count;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const TestFolder folder;
    static const TestFolder temporary;
    static const TemporaryFolderOverride temporaryFolder(temporary.Path());
    const std::vector<std::string> files = fuzz::Files(fuzz::Bytes(data, size), 1 + std::size(FILE_NAMES));
    for (std::size_t index = 0; index < std::size(FILE_NAMES); ++index)
    {
        folder.Write(FILE_NAMES[index], files[1 + index]);
    }
    std::vector<std::wstring> arguments = Lines(files[0]);
    const bool inspects = !arguments.empty() && arguments.front() == L"inspect";
    if (!arguments.empty())
    {
        arguments.erase(arguments.begin());
    }
    // The fuzzer itself finds its files from where it was started.
    const std::filesystem::path former = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    const int status =
        inspects ? static_cast<int>(RunInspectCommandLine(arguments)) : static_cast<int>(RunCommandLine(arguments));
    std::filesystem::current_path(former);
    if (status < 0 || status > 3 || !temporary.Files().empty())
    {
        std::abort();
    }
    GetConversionContext().model = FViewLandXML();
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path()))
    {
        std::filesystem::remove_all(entry);
    }
    return 0;
}

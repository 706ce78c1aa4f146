#include "cli/CommandLine.h"
#include "cli/HostCall.h"
#include "cli/Program.h"

#ifdef _WIN32
int wmain(int count, wchar_t** values)
#else
int main(int count, char** values)
#endif
{
    return jlandxml::RunProgram(count, values, [](const std::vector<std::wstring>& arguments) {
        return static_cast<int>(jlandxml::RunCommandLine(arguments, jlandxml::ProgramPath()));
    });
}

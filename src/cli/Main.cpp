#include "cli/CommandLine.h"
#include "cli/HostCall.h"
#include "cli/Program.h"

int main(int count, char** values)
{
    return jlandxml::RunProgram(count, values, [](const std::vector<std::wstring>& arguments) {
        return static_cast<int>(jlandxml::RunCommandLine(arguments, jlandxml::ProgramPath()));
    });
}

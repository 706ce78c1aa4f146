#include "cli/InspectCommandLine.h"
#include "cli/Program.h"

int main(int count, char** values)
{
    return jlandxml::RunProgram(count, values, [](const std::vector<std::wstring>& arguments) {
        return static_cast<int>(jlandxml::RunInspectCommandLine(arguments));
    });
}

#include "cli/Arguments.h"
#include "cli/CommandLine.h"

int main(int count, char** values)
{
    return static_cast<int>(jlandxml::RunCommandLine(jlandxml::Arguments(count, values)));
}

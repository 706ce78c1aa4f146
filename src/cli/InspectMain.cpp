#include "cli/Arguments.h"
#include "cli/InspectCommandLine.h"

int main(int count, char** values)
{
    return static_cast<int>(jlandxml::RunInspectCommandLine(jlandxml::Arguments(count, values)));
}

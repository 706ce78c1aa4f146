// The same header in C++, where it must not be given names of its own.
#include "jlandxml/JLandXmlConvert.h"

#include <type_traits>

static_assert(std::is_same<decltype(&ExecuteQuorvane), ExecuteQuorvaneFunction>::value, "one signature");

extern "C" ExecuteQuorvaneFunction FunctionOfCpp();

ExecuteQuorvaneFunction FunctionOfCpp()
{
    return ExecuteQuorvane;
}

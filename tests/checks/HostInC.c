// A host in C11 that is linked with the module: its header stands alone, and the function is there under the one name.
#include "jlandxml/JLandXmlConvert.h"

extern ExecuteQuorvaneFunction FunctionOfCpp(void);

int main(void)
{
    const ExecuteQuorvaneFunction function = ExecuteQuorvane;
    return function != 0 && function == FunctionOfCpp() ? 0 : 1;
}

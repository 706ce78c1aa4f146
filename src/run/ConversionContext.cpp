#include "run/ConversionContext.h"

namespace jlandxml
{

ConversionContext& GetConversionContext()
{
    static ConversionContext context;
    return context;
}

std::wstring& GetCurrentRouteName()
{
    static std::wstring name;
    return name;
}

} // namespace jlandxml

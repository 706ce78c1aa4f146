#include "model/CurrentDesignType.h"

namespace jlandxml
{

std::wstring& GetCurrentDesignType()
{
    static std::wstring type;
    return type;
}

} // namespace jlandxml

// In the place of SchemaValidation.cpp where the validating library isn't there.

#include "base/Exceptions.h"
#include "inspect/SchemaValidation.h"

namespace jlandxml::inspect
{

bool CanValidate()
{
    return false;
}

SchemaFaults ValidateAgainstSchema(std::string, const std::wstring& schemaPath)
{
    throw CFileException(L"スキーマとの照合ができるように作られていません: " + schemaPath);
}

} // namespace jlandxml::inspect

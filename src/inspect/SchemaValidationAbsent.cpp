// In the place of SchemaValidation.cpp where the validating library isn't there.

#include "base/Exceptions.h"
#include "inspect/SchemaValidation.h"

namespace jlandxml::inspect
{

bool CanValidate()
{
    return false;
}

struct XmlSchema::Parsed
{};

XmlSchema::XmlSchema(const std::wstring& path)
{
    throw CFileException(L"スキーマとの照合ができるように作られていません: " + path);
}

XmlSchema::~XmlSchema() = default;

// NOLINTNEXTLINE(performance-unnecessary-value-param): the one that validates takes the bytes over
SchemaFaults XmlSchema::Validate(std::string) const
{
    return {};
}

} // namespace jlandxml::inspect

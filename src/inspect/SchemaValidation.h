#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jlandxml::inspect
{

/// Where a file doesn't follow a schema. Attributes of one name that no element may have there are one fault.
struct SchemaFault
{
    std::wstring path;    ///< of the element, by its own and its parents' names
    std::wstring reason;  ///< in the words of the validating library
    std::size_t line = 0; ///< of the first
    std::size_t count = 1;
};

struct SchemaFaults
{
    std::vector<SchemaFault> listed;
    std::size_t more = 0; ///< that were only counted: a file that is wrong from end to end would drown the reader
};

/// True if the program was built with the library that validates.
bool CanValidate();

/// Holds the bytes of a file against an XML schema (W3C XML Schema 1.0) and those that it includes from beside it,
/// reading it once through without a tree. Throws CFileException if the schema can't be read, or isn't one.
SchemaFaults ValidateAgainstSchema(std::string bytes, const std::wstring& schemaPath);

} // namespace jlandxml::inspect

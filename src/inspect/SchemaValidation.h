#pragma once

#include "inspect/XmlFault.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jlandxml::inspect
{

/// Where a file doesn't follow a schema. Attributes of one name that no element may have there are one fault.
struct SchemaFaults
{
    std::vector<XmlFault> listed;
    std::size_t more = 0; ///< that were only counted: a file that is wrong from end to end would drown the reader
    std::optional<XmlFault> end; ///< where the parser stopped: behind it nothing was held against the schema
};

/// True if the program was built with the library that validates.
bool CanValidate();

/// An XML schema (W3C XML Schema 1.0) with those that it includes from beside it, read once for all the files that are
/// held against it.
class XmlSchema
{
  public:
    /// Throws CFileException if the schema can't be read, or isn't one.
    explicit XmlSchema(const std::wstring& path);
    ~XmlSchema();
    XmlSchema(const XmlSchema&) = delete;
    XmlSchema& operator=(const XmlSchema&) = delete;

    /// Where the bytes of a file don't follow it. The file is read once through without a tree.
    SchemaFaults Validate(std::string bytes) const;

  private:
    struct Parsed;
    std::unique_ptr<Parsed> parsed_;
};

} // namespace jlandxml::inspect

#pragma once

// What is shared by the sources that use the library that validates; no other source may need it.

#include "base/Text.h"

#include <libxml/xmlerror.h>
#include <string>

namespace jlandxml::inspect
{

inline std::wstring WideFromLibrary(const char* text)
{
    return text == nullptr ? std::wstring() : WideFromUtf8(text);
}

/// A message in one line, a schema's without the namespaces, which are the same everywhere.
inline std::wstring ReasonOf(const xmlError& error)
{
    std::wstring text = WideFromLibrary(error.message);
    const bool isOfSchema = error.domain == XML_FROM_SCHEMASV || error.domain == XML_FROM_SCHEMASP;
    for (std::size_t open = isOfSchema ? text.find(L'{') : std::wstring::npos; open != std::wstring::npos;
         open = text.find(L'{', open))
    {
        const std::size_t close = text.find(L'}', open);
        if (close == std::wstring::npos)
        {
            break;
        }
        text.erase(open, close + 1 - open);
    }
    return std::wstring(Trim(ReplaceAll(text, L"\n", L" ")));
}

/// Frees what the library made, by its own function.
template <auto Free>
struct LibraryFreer
{
    template <class Object>
    void operator()(Object* object) const
    {
        Free(object);
    }
};

} // namespace jlandxml::inspect

// Any document ends up the same whether passages and texts stay apart from the tree's nodes or the parser alone reads
// it: as it came, and after a run has edited it.

#include "base/Exceptions.h"
#include "model/FViewLandXML.h"
#include "model/OutputVersion.h"
#include "run/FinishedDocument.h"
#include "xml/WcXmDocument.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace
{

/// The finished form, or that it would be too deep.
std::string Finished(const jlandxml::WcXmAppDocument& document)
{
    std::string text;
    try
    {
        jlandxml::PrintFinished(document, [&](std::string_view bytes) { text += bytes; });
    }
    catch (const jlandxml::CException&)
    {
        return "too deep";
    }
    return text;
}

/// A document as it came and as a run leaves it; nothing if it isn't well formed.
std::vector<std::string> Finished(const std::uint8_t* data, std::size_t size, bool keepsPassages)
{
    jlandxml::WcXmDocument document;
    document.Create();
    document.appDocument->keepsPassages = keepsPassages;
    jlandxml::ParserBuffer content(size);
    std::copy(data, data + size, content.Data());
    if (!document.appDocument->LoadBytes(std::move(content)))
    {
        return {};
    }
    std::vector<std::string> texts{Finished(*document.appDocument)};
    jlandxml::FViewLandXML model;
    model.ReadElement(jlandxml::WcXmNode(document));
    model.SetOutputVersion(jlandxml::NEWEST_VERSION.number);
    model.WriteElement(jlandxml::WcXmNode(document));
    texts.push_back(Finished(*document.appDocument));
    return texts;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (Finished(data, size, true) != Finished(data, size, false))
    {
        std::abort();
    }
    return 0;
}

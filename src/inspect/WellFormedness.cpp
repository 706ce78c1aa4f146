#include "inspect/WellFormedness.h"

#include "inspect/XmlLibrary.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <iterator>
#include <libxml/parser.h>
#include <memory>
#include <new>
#include <string>

namespace jlandxml::inspect
{

namespace
{

using FormContext = std::unique_ptr<xmlParserCtxt, LibraryFreer<xmlFreeParserCtxt>>;

/// Errors by which the library says that it goes no further, not that the file is wrong.
constexpr int LIMITS[] = {XML_ERR_INTERNAL_ERROR, XML_ERR_NO_MEMORY, XML_ERR_NAME_TOO_LONG};
/// And what it says of things above its limits where they have the number of a fault.
constexpr std::string_view LIMIT_WORDS[] = {" too big found", " too long", "Excessive depth"};

bool IsOfLimits(const xmlError& error)
{
    const std::string_view message = error.message != nullptr ? error.message : "";
    return std::find(std::begin(LIMITS), std::end(LIMITS), error.code) != std::end(LIMITS) ||
           std::any_of(std::begin(LIMIT_WORDS), std::end(LIMIT_WORDS), [&](std::string_view words) {
               return message.substr(0, message.find('\'')).find(words) != std::string_view::npos;
           });
}

/// Any text may name a namespace; that it should be a URI isn't asked of those who read it.
bool IsOfNamespacesName(const xmlError& error)
{
    return error.code == XML_WAR_NS_URI || error.code == XML_WAR_NS_URI_RELATIVE;
}

/// Hands the stretches to the library and keeps the first error. The library compares each attribute of a tag, and each
/// namespace's prefix, with all before it: what no program writes so often ends the reading. It ends as if the file
/// did; what the library then says isn't taken.
class FormReader
{
  public:
    explicit FormReader(std::span<const FileStretch> stretches) : stretches_(stretches) {}

    std::optional<XmlFault> Read()
    {
        xmlSAXHandler events{};
        events.initialized = XML_SAX2_MAGIC;
        events.startElementNs = StartElement;
        events.entityDecl = DeclareEntity;
        events.attributeDecl = DeclareAttribute;
        events.serror = Take;
        const FormContext context(xmlCreateIOParserCtxt(&events, this, Fill, nullptr, this, XML_CHAR_ENCODING_UTF8));
        if (context == nullptr)
        {
            throw std::bad_alloc();
        }
        context_ = context.get();
        // Whatever the file was declared to be, it is UTF-8 by now.
        xmlCtxtUseOptions(context_, XML_PARSE_NONET | XML_PARSE_IGNORE_ENC);
        xmlParseDocument(context_);
        xmlFreeDoc(context_->myDoc);
        context_->myDoc = nullptr;
        if (failure_)
        {
            std::rethrow_exception(failure_);
        }
        return std::move(fault_);
    }

  private:
    static FormReader& Of(void* reader) { return *static_cast<FormReader*>(reader); }

    static int Fill(void* reader, char* room, int size) noexcept
    {
        return static_cast<int>(Of(reader).FillRoom(room, static_cast<std::size_t>(std::max(size, 0))));
    }

    static void StartElement(void* reader, const xmlChar*, const xmlChar*, const xmlChar*, int, const xmlChar**, int,
                             int, const xmlChar**) noexcept
    {
        // Of each two entries.
        constexpr int MOST_NAMESPACES = 100;
        if (Of(reader).context_->nsNr > 2 * MOST_NAMESPACES)
        {
            Of(reader).isStopped_ = true;
        }
    }

    static void DeclareEntity(void* reader, const xmlChar*, int, const xmlChar*, const xmlChar*, xmlChar*) noexcept
    {
        Of(reader).isStopped_ = true;
    }

    static void DeclareAttribute(void* reader, const xmlChar*, const xmlChar*, int, int, const xmlChar*,
                                 xmlEnumerationPtr values) noexcept
    {
        xmlFreeEnumeration(values);
        Of(reader).isStopped_ = true;
    }

    /// No exception may pass through the library.
    static void Take(void* reader, xmlErrorPtr error) noexcept
    {
        try
        {
            Of(reader).TakeError(*error);
        }
        catch (...)
        {
            Of(reader).failure_ = std::current_exception();
        }
    }

    void TakeError(const xmlError& error)
    {
        const bool isFault = error.level == XML_ERR_FATAL || error.domain == XML_FROM_NAMESPACE;
        if (isStopped_ || !isFault || error.level == XML_ERR_WARNING || IsOfNamespacesName(error))
        {
            return;
        }
        if (!IsOfLimits(error))
        {
            fault_ = XmlFault{OpenPath(), ReasonOf(error), static_cast<std::size_t>(std::max(error.line, 0))};
        }
        isStopped_ = true;
    }

    std::wstring OpenPath() const
    {
        std::string path;
        for (int level = 0; level < context_->nameNr; ++level)
        {
            path.append("/").append(reinterpret_cast<const char*>(context_->nameTab[level]));
        }
        return WideFromUtf8(path.empty() ? "/" : path);
    }

    std::size_t FillRoom(char* room, std::size_t size) noexcept
    {
        std::size_t filled = 0;
        while (filled < size && !stretches_.empty())
        {
            const FileStretch& stretch = stretches_.front();
            const std::size_t part = std::min(size - filled, stretch.Length() - done_);
            if (stretch.text.empty())
            {
                std::memset(room + filled, '\n', part);
            }
            else
            {
                std::memcpy(room + filled, stretch.text.data() + done_, part);
            }
            filled += part;
            done_ += part;
            if (done_ == stretch.Length())
            {
                stretches_ = stretches_.subspan(1);
                done_ = 0;
            }
        }
        CountQuotes({room, filled});
        return isStopped_ ? 0 : filled;
    }

    /// Each attribute has two quotes, and all of a tag's lie between two angle brackets.
    void CountQuotes(std::string_view part) noexcept
    {
        constexpr std::ptrdiff_t MOST_QUOTES = 2000;
        const bool isApart = part.find('<') != std::string_view::npos;
        quotes_ = (isApart ? 0 : quotes_) + std::count(part.begin(), part.end(), '"') +
                  std::count(part.begin(), part.end(), '\'');
        isStopped_ = isStopped_ || quotes_ > MOST_QUOTES;
    }

    std::span<const FileStretch> stretches_; ///< that aren't handed over yet
    std::size_t done_ = 0;                   ///< of the first of them
    std::ptrdiff_t quotes_ = 0;              ///< about so many since an angle bracket
    bool isStopped_ = false;
    xmlParserCtxtPtr context_ = nullptr;
    std::optional<XmlFault> fault_;
    std::exception_ptr failure_;
};

} // namespace

bool KnowsWhatIsWellFormed()
{
    return true;
}

std::optional<XmlFault> FindFormFault(std::span<const FileStretch> stretches)
{
    return FormReader(stretches).Read();
}

} // namespace jlandxml::inspect

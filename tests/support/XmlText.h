#pragma once

#include "xml/WcXmDocument.h"
#include "xml/WcXmNode.h"

#include <cstdint>
#include <stdexcept>
#include <string>

namespace jlandxml
{

/// The three bytes that a file in UTF-8 may begin with; finished files do.
inline const std::string BYTE_ORDER_MARK = "\xEF\xBB\xBF";

/// The root of a file that says which version of LandXML it is of.
inline const std::string VERSIONED_ROOT =
    "<LandXML xmlns=\"http://www.landxml.org/schema/LandXML-1.2\" version=\"1.2\">";

/// A document as the parser prints it by itself, without its declaration; `indents` is format_raw or format_indent.
inline std::wstring PrintedByTheParser(const WcXmAppDocument& document, unsigned int indents)
{
    struct : pugi::xml_writer
    {
        void write(const void* data, std::size_t size) override
        {
            text.append(static_cast<const wchar_t*>(data), size / sizeof(wchar_t));
        }
        std::wstring text;
    } writer;
    document.xmlDocument->save(writer, L"\t", indents | pugi::format_no_declaration, pugi::encoding_wchar);
    return writer.text;
}

/// A document made of a line of XML, parsed as the converter parses its work file.
class XmlText
{
  public:
    explicit XmlText(const std::wstring& text)
    {
        document.Create();
        if (!text.empty() &&
            !document.appDocument->xmlDocument->load_buffer(
                text.data(), text.size() * sizeof(wchar_t),
                pugi::parse_default | pugi::parse_declaration | pugi::parse_embed_pcdata, pugi::encoding_wchar))
        {
            throw std::invalid_argument("not well formed");
        }
    }

    /// The cursor on the document element.
    WcXmNode Root() { return WcXmNode(document); }

    /// A cursor on the first child of the document element that has this name.
    WcXmNode Child(const wchar_t* name)
    {
        WcXmNode node = Root();
        if (!node.SelectFirstChild(name))
        {
            throw std::invalid_argument("no such child");
        }
        return node;
    }

    /// The document in one line.
    std::wstring Text() const { return PrintedByTheParser(*document.appDocument, pugi::format_raw); }

    WcXmDocument document;
};

/// An element as its class reads it.
template <class Element>
Element Read(const std::wstring& xml)
{
    XmlText text(xml);
    Element element;
    element.ReadElement(text.Root());
    return element;
}

/// An element read by its class and written back onto itself, in one line.
template <class Element>
std::wstring Written(const std::wstring& xml, std::int32_t outputVersion = 4)
{
    XmlText text(xml);
    Element element;
    element.ReadElement(text.Root());
    element.SetOutputVersion(outputVersion);
    element.WriteElement(text.Root());
    return text.Text();
}

/// What an object's writing says where no element can be added: on a text.
template <class Element>
bool WrittenOntoText(Element element)
{
    XmlText xml(L"<a>text</a>");
    WcXmNode text = xml.Root();
    text.MoveToFirstChild();
    return element.WriteElement(text);
}

/// What an object writes under, or onto, the document element, in one line.
template <class Element>
std::wstring WrittenInto(Element element, const std::wstring& xml)
{
    XmlText text(xml);
    element.WriteElement(text.Root());
    return text.Text();
}

} // namespace jlandxml

#pragma once

#include <memory>
#include <pugixml.hpp>
#include <string>

namespace jlandxml
{

class WcXmSharedTexts;

/// The parser's side of a document: brings files into the tree and out of it, in the encodings that LandXML files come
/// in.
class WcXmAppDocument
{
  public:
    WcXmAppDocument();
    virtual ~WcXmAppDocument() = default;

    /// Replaces the tree by the file's content. A file whose first line names Shift_JIS is read as code page 932; if
    /// that fails, and for every other file, the parser tells UTF-8, UTF-16 and UTF-32 apart by itself. Comments,
    /// processing instructions, the doctype and white space between elements aren't kept. False if the file can't be
    /// opened, isn't well formed or doesn't fit into memory; then the tree is empty or holds what stood before the
    /// fault.
    bool LoadDocument(const std::wstring& path);

    /// Sees to it that the document begins with a declaration whose encoding is UTF-8. False without a parser document.
    bool EnsureDeclaration();

    /// Writes the tree to a file in the encoding that its declaration names: Shift_JIS, UTF-16 in the machine's byte
    /// order, or else UTF-8; without a byte-order mark, indented by tabs. False if the file could not be written, which
    /// is told of UTF-8 and UTF-16 only.
    bool SaveDocument(const std::wstring& path);

    std::unique_ptr<pugi::xml_document> xmlDocument;
    WcXmSharedTexts* sharedTexts = nullptr; ///< what the writers share just now, if anything; not owned
};

/// A LandXML document in memory. The tree that was read is the tree that is written.
class WcXmDocument
{
  public:
    WcXmDocument() = default;
    WcXmDocument(const WcXmDocument&) = delete;
    WcXmDocument& operator=(const WcXmDocument&) = delete;
    virtual ~WcXmDocument() = default;

    /// Starts over with an empty tree. False if there is no memory for it.
    virtual bool Create();

    /// Drops the tree. Every WcXmNode on it is void from then on.
    virtual void Close();

    std::unique_ptr<WcXmAppDocument> appDocument;
};

} // namespace jlandxml

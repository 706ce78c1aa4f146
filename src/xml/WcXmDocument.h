#pragma once

#include "xml/ParserBuffer.h"
#include "xml/ParserMemory.h"
#include "xml/WcXmPassages.h"

#include <memory>
#include <new>
#include <pugixml.hpp>
#include <string>
#include <utility>

namespace jlandxml
{

class WcXmJournal;
class WcXmSharedTexts;

/// The parser's side of a document: brings files into the tree and out of it, in the encodings that LandXML files come
/// in: UTF-8, UTF-16, UTF-32, Latin-1 and Shift_JIS, of which UTF-8, UTF-16 and Shift_JIS are written too. "WcXm" is
/// the prefix of all classes that wrap the XML parser, and "App" that of the halves that hold the parser's own handles.
class WcXmAppDocument
{
  public:
    WcXmAppDocument();
    virtual ~WcXmAppDocument();

    /// Replaces the tree by the file's content. A file whose first line names Shift_JIS is read as code page 932; if
    /// that isn't what it holds, and for every other file, the parser tells UTF-8, UTF-16, UTF-32 and Latin-1 apart by
    /// itself. What is malformed or no character of Unicode becomes U+FFFD. Comments, processing instructions, the
    /// doctype and white space between elements aren't kept. False if the file can't be opened, isn't well formed or
    /// doesn't fit into memory; then the tree is empty or holds what stood before the fault, and a warning says which.
    bool LoadDocument(const std::wstring& path);

    /// The same for the content of a file.
    bool LoadBytes(ParserBuffer content);

    /// Sees to it that the document has a declaration whose encoding is UTF-8; a new one comes first. False without a
    /// parser document. Throws std::bad_alloc if there is no memory for it.
    bool EnsureDeclaration();

    /// Writes the tree to a file in the encoding that its declaration names, if the document begins with one:
    /// Shift_JIS, UTF-16 in the machine's byte order, or else UTF-8; without a byte-order mark, indented by tabs. False
    /// if the file could not be written, which is told of UTF-8 and UTF-16 only.
    bool SaveDocument(const std::wstring& path);

    /// Runs a step that changes the tree and returns what it returns. A step that is broken off, be it by want of
    /// memory that only the parser notices, leaves a tree of which nobody can say what it lacks or has too much: throws
    /// std::bad_alloc then, or what the step threw, and std::bad_alloc at once for each step after that, until a file
    /// is loaded anew. So no shortened tree ever becomes a file.
    template <class Step>
    decltype(auto) Change(Step&& step)
    {
        ThrowUnlessWhole();
        isWhole_ = false;
        const std::size_t refusals = ParserMemoryRefusals();
        auto result = std::forward<Step>(step)();
        isWhole_ = ParserMemoryRefusals() == refusals;
        ThrowUnlessWhole();
        return result;
    }

    /// Makes the passages a part of the tree after all, for who reads or prints it through the parser.
    void ExpandPassages();

    /// Keeps what the tree is now, so that what is changed from here on can be told. Throws std::bad_alloc if there is
    /// no memory for it.
    void KeepJournal();

    std::unique_ptr<pugi::xml_document> xmlDocument;
    std::unique_ptr<WcXmJournal> journal;   ///< null unless it is kept; gone when a file is loaded anew
    std::wstring loadedPath;                ///< of the file that is loaded, for who tells where something stands
    WcXmPassages passages;                  ///< what of the document isn't in the tree
    bool keepsPassages = true;              ///< without, the parser alone reads a file; the finished file is the same
    WcXmSharedTexts* sharedTexts = nullptr; ///< what the writers share just now, if anything; not owned

  private:
    /// How loading went.
    enum class Loaded
    {
        Whole,
        Unread,    ///< the file can't be opened or read
        Malformed, ///< it isn't well formed
        NoMemory
    };

    bool Reset();
    template <class Source>
    Loaded Load(Source&& source);
    void ThrowUnlessWhole() const
    {
        if (!isWhole_)
        {
            throw std::bad_alloc();
        }
    }

    ParserBuffer source_;       ///< the bytes of the passages
    bool isUtf8Mended_ = false; ///< of the file that was loaded
    bool isWhole_ = true;
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

    /// WcXmAppDocument::Change; without a tree the step has nothing to spoil and just runs.
    template <class Step>
    decltype(auto) Change(Step&& step)
    {
        return appDocument != nullptr ? appDocument->Change(std::forward<Step>(step)) : std::forward<Step>(step)();
    }

    std::unique_ptr<WcXmAppDocument> appDocument;
};

} // namespace jlandxml

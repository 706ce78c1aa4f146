#include "cli/ChangesFile.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/Text.h"
#include "xml/WcXmJournal.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cstddef>
#include <string_view>

namespace jlandxml
{

namespace
{

using Record = nlohmann::ordered_json;

/// By the kind of a change.
constexpr std::array<const char*, 6> KIND_WORDS = {"elementAdded",   "elementRemoved",   "elementMoved",
                                                   "attributeAdded", "attributeChanged", "textChanged"};

constexpr std::size_t LONGEST_TEXT = 200; ///< in characters
constexpr std::size_t BLOCK_SIZE = std::size_t{1} << 16;

/// Puts a text in, cut where it is long.
void PutText(Record& record, const std::string& key, std::wstring_view text)
{
    const std::size_t length = CountCharacters(text);
    if (length > LONGEST_TEXT)
    {
        record[key + "Length"] = length;
    }
    record[key] = Utf8FromWide(FirstCharacters(text, LONGEST_TEXT));
}

std::string ChangeLine(const WcXmChange& change)
{
    using Kind = WcXmChange::Kind;
    Record record;
    record["change"] = KIND_WORDS.at(static_cast<std::size_t>(change.kind));
    record["object"] = Utf8FromWide(change.object);
    if (!change.path.empty())
    {
        record["path"] = Utf8FromWide(change.path);
    }
    if (!change.newPath.empty())
    {
        record["newPath"] = Utf8FromWide(change.newPath);
    }
    record["name"] = Utf8FromWide(change.name);
    const bool isValue = change.kind == Kind::AttributeChanged || change.kind == Kind::TextChanged;
    if (isValue || change.kind == Kind::ElementRemoved)
    {
        PutText(record, "old", change.oldText);
    }
    if (isValue || change.kind == Kind::AttributeAdded || change.kind == Kind::ElementAdded)
    {
        PutText(record, "new", change.newText);
    }
    if (change.sameNumbers)
    {
        record["sameNumbers"] = true;
    }
    return record.dump(-1, ' ', false, Record::error_handler_t::replace) + "\n";
}

} // namespace

void WriteChanges(const std::wstring& path, const WcXmJournal& journal)
{
    ReplacementFile target(path);
    std::string block;
    journal.ForEachChange([&](const WcXmChange& change) {
        block += ChangeLine(change);
        if (block.size() >= BLOCK_SIZE)
        {
            target.Write(block);
            block.clear();
        }
    });
    target.Write(block);
    if (!target.Commit())
    {
        throw CFileException(L"書き込めません: " + path);
    }
}

} // namespace jlandxml

#pragma once

#include <string>

namespace jlandxml
{

class WcXmJournal;

/// Writes what a run changed as JSON Lines in UTF-8, one object for each change: `change` (elementAdded,
/// elementRemoved, elementMoved, attributeAdded, attributeChanged, textChanged), `object` (the element by names),
/// `path` and `newPath` (XPath in the work file and in the finished file), `name` (of the element or attribute), `old`
/// and `new` (values, texts, or the whole element as XML), and `sameNumbers` where only the spelling of numbers
/// differs. A long text is cut, and `oldLength` or `newLength` then holds how many characters it has. The file is whole
/// or not there at all. Throws CFileException if it can't be written.
void WriteChanges(const std::wstring& path, const WcXmJournal& journal);

} // namespace jlandxml

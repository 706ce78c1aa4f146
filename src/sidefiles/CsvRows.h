#pragma once

#include "base/Files.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace jlandxml
{

/// One row of a side file: its fields in order, without white space at their ends, as UTF-8. Rows may differ in length.
/// The fields are views into the line that was cut, or into the row where the line had to be mended.
class CsvRow
{
  public:
    CsvRow() = default;
    CsvRow(const CsvRow&) = delete;
    CsvRow& operator=(const CsvRow&) = delete;

    /// Cuts a line at its commas; a comma always separates. False if the line holds nothing.
    bool Cut(std::string_view line);

    std::size_t Size() const { return fields_.size(); }

    /// True if the line wasn't UTF-8 in every byte.
    bool IsMended() const { return isMended_; }

    /// Throws CInvalidArgException for an index past the end.
    std::string_view operator[](std::size_t index) const
    {
        return index < fields_.size() ? fields_[index] : ThrowPastEnd(index);
    }

  private:
    [[noreturn]] static std::string_view ThrowPastEnd(std::size_t index);

    std::string mended_;
    bool isMended_ = false;
    std::vector<std::string_view> fields_;
};

/// The lines of a file, read block by block. A line is good until the next one is taken.
class LineReader
{
  public:
    /// Begins with a file. One that can't be opened has no lines.
    void Open(const std::wstring& path);

    /// Takes the next line without its line feed. False at the end. Throws CFileException if the file can't be read.
    bool Next(std::string_view& line);

    /// Passes over bytes if they come next.
    void Skip(std::string_view bytes);

    const std::wstring& Path() const { return path_; }

    /// Visits all lines to come, and they are still to come afterwards. Throws as Next does.
    template <class Visitor>
    void ForEachAhead(Visitor visit);

  private:
    bool Fill();
    [[noreturn]] void ThrowUnreadable() const;

    std::wstring path_;
    FileHandle file_;
    std::string block_;
    std::size_t begin_ = 0; ///< what of the block is still to come
    std::size_t end_ = 0;
    std::size_t length_ = 0;   ///< of the file
    std::size_t position_ = 0; ///< up to where it has been read
};

/// The rows of a side file in file order, cut one by one while the file is read.
class CsvRows
{
  public:
    /// Begins with a file: UTF-8, with or without a byte-order mark. One that can't be opened has no rows. Throws
    /// CFileException if it opens but can't be read, as all that follows does.
    void Read(const std::wstring& path);

    /// Takes the next row that holds anything. False at the end.
    bool Next(CsvRow& row);

    /// Passes over rows whatever they hold.
    void Skip(int count);

    /// The number of the line (from 1) that the last row stood in; 0 before the first one.
    std::size_t Line() const { return line_; }

    const std::wstring& Path() const { return lines_.Path(); }

    /// How many rows of at least so many fields, two or more, are still to come, for a list that makes room for them at
    /// once. Rows that hold a given text (UTF-8) don't count.
    std::size_t CountRows(std::size_t fields, std::string_view without = "\n");

    /// The same for each text that stands in the first field, byte for byte in UTF-8.
    std::unordered_map<std::string, std::size_t> CountByFirstField(std::size_t fields);

  private:
    /// Visits each line to come that is cut into at least so many fields.
    template <class Visitor>
    void ForEachLine(std::size_t fields, Visitor visit);

    void WarnOfEncoding();

    LineReader lines_;
    std::size_t line_ = 0;
    bool isEncodingTold_ = false;
};

/// The number of a field: UNSET_DOUBLE if it is empty, else what the C library reads at its front, or 0.
double CsvNumber(std::string_view field);

/// The same, and whether all of the field was read.
double CsvNumber(std::string_view field, bool& isWhole);

} // namespace jlandxml

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace jlandxml
{

/// One row of a side file: its fields in order, without white space at their ends. Rows may differ in length.
class CsvRow
{
  public:
    CsvRow() = default;
    CsvRow(const CsvRow&) = delete;
    CsvRow& operator=(const CsvRow&) = delete;

    /// Cuts a line at its commas; a comma always separates. False if the line holds nothing.
    bool Cut(std::string_view line);

    std::size_t Size() const { return fields_.size(); }

    /// Throws CInvalidArgException for an index past the end.
    std::wstring_view operator[](std::size_t index) const;

  private:
    std::wstring text_;
    std::vector<std::wstring_view> fields_;
};

/// The rows of a side file in file order, cut one by one from the file's bytes, which are read once.
class CsvRows
{
  public:
    /// Reads a file: UTF-8, with or without a byte-order mark. One that can't be opened has no rows. Throws
    /// CFileException if it opens but can't be read.
    void Read(const std::wstring& path);

    /// Takes the next row that holds anything. False at the end.
    bool Next(CsvRow& row);

    /// Passes over rows whatever they hold.
    void Skip(int count);

    /// The number of the line (from 1) that the last row stood in; 0 before the first one.
    std::size_t Line() const { return line_; }

    /// How many rows of at least so many fields, two or more, are still to come, for a list that makes room for them at
    /// once. Rows that hold a given text (UTF-8) don't count.
    std::size_t CountRows(std::size_t fields, std::string_view without = "\n") const;

    /// The same for each text that stands in the first field, byte for byte in UTF-8.
    std::unordered_map<std::string_view, std::size_t> CountByFirstField(std::size_t fields) const;

  private:
    /// Takes the line at a position and passes over its end. False at the end of the file.
    bool TakeLine(std::size_t& position, std::string_view& line) const;

    /// Visits each line to come that is cut into at least so many fields.
    template <class Visitor>
    void ForEachLine(std::size_t fields, Visitor visit) const;

    std::string bytes_;
    std::size_t position_ = 0;
    std::size_t line_ = 0;
};

/// The number of a field: UNSET_DOUBLE if it is empty, else what the C library reads at its front, or 0.
double CsvNumber(std::wstring_view field);

} // namespace jlandxml

#pragma once

#include "base/Files.h"
#include "base/Guard.h"
#include "base/Warnings.h"
#include "sidefiles/CsvRows.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace jlandxml
{

/// The base of the loaders of a route's side files. One object serves one file.
class CSVLoaderBase
{
  public:
    CSVLoaderBase() = default;
    CSVLoaderBase(const CSVLoaderBase&) = delete;
    CSVLoaderBase& operator=(const CSVLoaderBase&) = delete;
    virtual ~CSVLoaderBase() = default;

    /// Puts the content of a side file into the model. False, with nothing done, if the file doesn't exist, which is
    /// normal. Throws the loader's own exception for anything that fails on the way.
    virtual bool Load(const std::wstring& path) = 0;

  protected:
    /// Reads the rows and has the loader walk over them.
    template <class Exception, class Walk>
    bool LoadRows(const std::wstring& path, Walk walk)
    {
        if (!PathExists(path))
        {
            return false;
        }
        RunStage<Exception>(RUN_STAGE_TEXTS, [&] {
            ReadRows(path);
            WalkRows(path, walk);
            // The bytes of one file are gone when the next one is read.
            const CsvRows done = std::move(rows);
        });
        return true;
    }

    /// Reads a file's rows; there are none if it can't be opened. Throws CFileException if it opens but can't be read.
    void ReadRows(const std::wstring& path) { rows.Read(path); }

    /// Notes something about the row that was taken last.
    void WarnOfRow(WarningCause cause, const std::wstring& remark = {}) const;

    /// True for a row of fewer columns, which is noted.
    bool IsPassedOver(const CsvRow& row, std::size_t leastColumns) const;

    /// Notes a field that isn't read whole as a number.
    void WarnOfNumber(std::size_t column, std::string_view field) const;

    /// The number of a column of a row; one that isn't read whole is noted, but where a comma has moved the columns,
    /// which has been noted then.
    double NumberOf(const CsvRow& row, std::size_t column, bool isShifted = false) const;

    /// The rows of title in front of the data.
    static constexpr int TITLE_ROWS = 2;

    CsvRows rows;

  private:
    /// Runs the walk. An index past the end of a row leaves it with the file's name and the row's line.
    void WalkRows(const std::wstring& path, const std::function<void()>& walk) const;
};

} // namespace jlandxml

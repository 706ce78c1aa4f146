#include "sidefiles/CSVLoaderBase.h"

#include "base/Text.h"

namespace jlandxml
{

void CSVLoaderBase::WalkRows(const std::wstring& path, const std::function<void()>& walk) const
{
    try
    {
        walk();
    }
    catch (const CInvalidArgException& exception)
    {
        throw CInvalidArgException(ErrorText(exception) + L"（" + path.substr(FolderOf(path).size()) + L" " +
                                   std::to_wstring(rows.Line()) + L"行目）");
    }
}

void CSVLoaderBase::WarnOfRow(WarningCause cause, const std::wstring& remark) const
{
    WarnOf(cause, rows.Path(), [&] {
        WarningPlace place;
        place.row = rows.Line();
        place.remark = remark;
        return place;
    });
}

bool CSVLoaderBase::IsPassedOver(const CsvRow& row, std::size_t leastColumns) const
{
    const bool isShort = row.Size() < leastColumns;
    if (isShort)
    {
        WarnOfRow(WarningCause::ShortRow);
    }
    return isShort;
}

void CSVLoaderBase::WarnOfNumber(std::size_t column, std::string_view field) const
{
    WarnOfRow(WarningCause::NumberNotWhole, std::to_wstring(column + 1) + L"列目「" + WideFromUtf8(field) + L"」");
}

double CSVLoaderBase::NumberOf(const CsvRow& row, std::size_t column, bool isShifted) const
{
    bool isWhole = true;
    const double number = CsvNumber(row[column], isWhole);
    if (!isWhole && !isShifted)
    {
        WarnOfNumber(column, row[column]);
    }
    return number;
}

} // namespace jlandxml

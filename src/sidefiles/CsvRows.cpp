#include "sidefiles/CsvRows.h"

#include "base/Exceptions.h"
#include "base/Files.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "model/UnsetDouble.h"

#include <algorithm>

namespace jlandxml
{

namespace
{
constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";
}

bool CsvRow::Cut(std::string_view line)
{
    fields_.clear();
    // The host writes percentages with a blank in front of their sign.
    text_ = ReplaceAll(Trim(WideFromUtf8(line)), L" %", L"%");
    if (text_.empty())
    {
        return false;
    }
    std::wstring_view rest = text_;
    for (std::size_t comma = rest.find(L','); comma != std::wstring_view::npos; comma = rest.find(L','))
    {
        fields_.push_back(Trim(rest.substr(0, comma)));
        rest.remove_prefix(comma + 1);
    }
    fields_.push_back(Trim(rest));
    return true;
}

std::wstring_view CsvRow::operator[](std::size_t index) const
{
    if (index >= fields_.size())
    {
        throw CInvalidArgException(L"引数が正しくありません: " + std::to_wstring(index + 1) + L"列目");
    }
    return fields_[index];
}

void CsvRows::Read(const std::wstring& path)
{
    bytes_ = ReadWholeFile(path).value_or(std::string());
    position_ = bytes_.starts_with(BYTE_ORDER_MARK) ? BYTE_ORDER_MARK.size() : 0;
    line_ = 0;
}

bool CsvRows::TakeLine(std::size_t& position, std::string_view& line) const
{
    if (position >= bytes_.size())
    {
        return false;
    }
    const std::size_t lineEnd = std::min(bytes_.find('\n', position), bytes_.size());
    line = std::string_view(bytes_).substr(position, lineEnd - position);
    position = lineEnd + 1;
    return true;
}

bool CsvRows::Next(CsvRow& row)
{
    std::string_view line;
    while (TakeLine(position_, line))
    {
        ++line_;
        if (row.Cut(line))
        {
            return true;
        }
    }
    return false;
}

void CsvRows::Skip(int count)
{
    CsvRow row;
    while (count > 0 && Next(row))
    {
        --count;
    }
}

template <class Visitor>
void CsvRows::ForEachLine(std::size_t fields, Visitor visit) const
{
    std::string_view line;
    for (std::size_t position = position_; TakeLine(position, line);)
    {
        // A comma always separates, in decoded text as in bytes.
        if (static_cast<std::size_t>(std::count(line.begin(), line.end(), ',')) + 1 >= fields)
        {
            visit(line);
        }
    }
}

std::size_t CsvRows::CountRows(std::size_t fields, std::string_view without) const
{
    std::size_t count = 0;
    ForEachLine(fields,
                [&](std::string_view line) { count += line.find(without) == std::string_view::npos ? 1U : 0U; });
    return count;
}

std::unordered_map<std::string_view, std::size_t> CsvRows::CountByFirstField(std::size_t fields) const
{
    std::unordered_map<std::string_view, std::size_t> counts;
    ForEachLine(fields, [&](std::string_view line) { ++counts[line.substr(0, line.find(','))]; });
    return counts;
}

double CsvNumber(std::wstring_view field)
{
    return field.empty() ? UNSET_DOUBLE : ParseDouble(field).value;
}

} // namespace jlandxml

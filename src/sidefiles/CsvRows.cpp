#include "sidefiles/CsvRows.h"

#include "base/Exceptions.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "base/Warnings.h"
#include "model/NumberText.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace jlandxml
{

namespace
{

constexpr std::size_t BLOCK_SIZE = std::size_t{1} << 18;

/// What the host writes between a percentage and its sign.
constexpr std::string_view BLANK_AND_PERCENT = " %";

std::string WithoutBlanksBeforePercent(std::string_view text)
{
    std::string result;
    for (std::size_t hit = text.find(BLANK_AND_PERCENT); hit != std::string_view::npos;
         hit = text.find(BLANK_AND_PERCENT))
    {
        result.append(text.substr(0, hit)).append("%");
        text.remove_prefix(hit + BLANK_AND_PERCENT.size());
    }
    return result.append(text);
}

} // namespace

bool CsvRow::Cut(std::string_view line)
{
    fields_.clear();
    isMended_ = !IsWellFormedUtf8(line);
    if (isMended_)
    {
        mended_ = RepairUtf8(line);
        line = mended_;
    }
    line = TrimUtf8(line);
    if (line.empty())
    {
        return false;
    }
    if (line.find(BLANK_AND_PERCENT) != std::string_view::npos)
    {
        mended_ = WithoutBlanksBeforePercent(line);
        line = mended_;
    }
    for (std::size_t comma = line.find(','); comma != std::string_view::npos; comma = line.find(','))
    {
        fields_.push_back(TrimUtf8(line.substr(0, comma)));
        line.remove_prefix(comma + 1);
    }
    fields_.push_back(TrimUtf8(line));
    return true;
}

std::string_view CsvRow::ThrowPastEnd(std::size_t index)
{
    throw CInvalidArgException(L"引数が正しくありません: " + std::to_wstring(index + 1) + L"列目");
}

void LineReader::Open(const std::wstring& path)
{
    path_ = path;
    begin_ = end_ = position_ = 0;
    file_ = OpenForReading(path, length_);
}

bool LineReader::Next(std::string_view& line)
{
    std::size_t searched = 0;
    for (;;)
    {
        const std::string_view rest(block_.data() + begin_, end_ - begin_);
        const std::size_t lineEnd = rest.find('\n', searched);
        if (lineEnd != std::string_view::npos)
        {
            line = rest.substr(0, lineEnd);
            begin_ += lineEnd + 1;
            return true;
        }
        searched = rest.size();
        if (!Fill())
        {
            line = {block_.data() + begin_, searched};
            begin_ = end_;
            return !line.empty();
        }
    }
}

void LineReader::Skip(std::string_view bytes)
{
    while (end_ - begin_ < bytes.size() && Fill())
    {}
    const bool isNext = std::string_view(block_.data() + begin_, end_ - begin_).starts_with(bytes);
    begin_ += isNext ? bytes.size() : 0;
}

/// Reads on behind what is still to come. False at the end of the file.
bool LineReader::Fill()
{
    if (!file_ || position_ == length_)
    {
        return false;
    }
    std::memmove(block_.data(), block_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
    // A line longer than the block gets a longer one.
    block_.resize(std::max(BLOCK_SIZE, 2 * end_));
    const std::size_t wanted = std::min(block_.size() - end_, length_ - position_);
    // Content that ends early is cut by somebody who is just writing the file.
    if (std::fread(block_.data() + end_, 1, wanted, file_.get()) != wanted)
    {
        ThrowUnreadable();
    }
    end_ += wanted;
    position_ += wanted;
    return true;
}

void LineReader::ThrowUnreadable() const
{
    throw CFileException(L"ファイルを読み込めません: " + path_);
}

namespace
{

bool IsShiftJis(const std::wstring& path)
{
    try
    {
        LineReader lines;
        lines.Open(path);
        std::string_view line;
        while (lines.Next(line))
        {
            if (SpeaksAgainstShiftJis(line))
            {
                return false;
            }
        }
        return true;
    }
    catch (const CFileException&)
    {
        return false;
    }
}

} // namespace

template <class Visitor>
void LineReader::ForEachAhead(Visitor visit)
{
    LineReader ahead;
    ahead.path_ = path_;
    ahead.file_ = std::move(file_);
    ahead.block_.assign(block_, begin_, end_ - begin_);
    ahead.end_ = ahead.block_.size();
    ahead.length_ = length_;
    ahead.position_ = position_;
    std::string_view line;
    while (ahead.Next(line))
    {
        visit(line);
    }
    file_ = std::move(ahead.file_);
    if (file_ && !SeekTo(file_.get(), position_))
    {
        ThrowUnreadable();
    }
}

void CsvRows::Read(const std::wstring& path)
{
    lines_.Open(path);
    lines_.Skip(UTF8_BYTE_ORDER_MARK);
    line_ = 0;
    isEncodingTold_ = false;
}

bool CsvRows::Next(CsvRow& row)
{
    std::string_view line;
    while (lines_.Next(line))
    {
        ++line_;
        const bool isRow = row.Cut(line);
        if (row.IsMended() && !isEncodingTold_)
        {
            WarnOfEncoding();
        }
        if (isRow)
        {
            return true;
        }
    }
    return false;
}

/// Tells of the first row that isn't UTF-8; those behind it are most often of the same kind.
void CsvRows::WarnOfEncoding()
{
    isEncodingTold_ = true;
    WarnOf(WarningCause::NotUtf8, Path(), [this] {
        WarningPlace place;
        place.row = line_;
        place.remark = IsShiftJis(Path()) ? SHIFT_JIS_REMARK : L"";
        return place;
    });
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
void CsvRows::ForEachLine(std::size_t fields, Visitor visit)
{
    lines_.ForEachAhead([&](std::string_view line) {
        // A comma always separates, in decoded text as in bytes.
        if (static_cast<std::size_t>(std::count(line.begin(), line.end(), ',')) + 1 >= fields)
        {
            visit(line);
        }
    });
}

std::size_t CsvRows::CountRows(std::size_t fields, std::string_view without)
{
    std::size_t count = 0;
    ForEachLine(fields,
                [&](std::string_view line) { count += line.find(without) == std::string_view::npos ? 1U : 0U; });
    return count;
}

std::unordered_map<std::string, std::size_t> CsvRows::CountByFirstField(std::size_t fields)
{
    std::unordered_map<std::string, std::size_t> counts;
    std::string name;
    ForEachLine(fields, [&](std::string_view line) {
        name = line.substr(0, line.find(','));
        ++counts[name];
    });
    return counts;
}

double CsvNumber(std::string_view field)
{
    bool isWhole = true;
    return CsvNumber(field, isWhole);
}

double CsvNumber(std::string_view field, bool& isWhole)
{
    isWhole = true;
    if (field.empty())
    {
        return UNSET_DOUBLE;
    }
    // Of a numeric text the C library reads all.
    if (IsNumericText(field))
    {
        return ReadNumber(field);
    }
    const std::wstring text = WideFromUtf8(field);
    const ParsedDouble number = ParseDouble(text);
    isWhole = number.length == text.size();
    return number.value;
}

} // namespace jlandxml

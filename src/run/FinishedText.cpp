#include "run/FinishedText.h"

#include <utility>

namespace jlandxml
{

namespace
{

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";
constexpr std::string_view LINE_END = "\r\n";
constexpr std::string_view STANDALONE_DECLARATION_END = " encoding=\"UTF-8\" standalone=\"no\"?>";
constexpr std::string_view DECLARATION_END = "?>";
constexpr std::string_view EMPTY_NAMESPACE = " xmlns=\"\"";
constexpr std::size_t FLUSH_SIZE = std::size_t{1} << 18;

/// Appends `text` with every occurrence of `from` replaced. The search goes by the second character, which is rare
/// where the blank in front of it separates the numbers of a terrain.
void AppendReplaced(std::string& target, std::string_view text, std::string_view from, std::string_view to)
{
    const std::string_view rest = from.substr(1);
    std::size_t position = 0;
    for (std::size_t hit = text.find(rest, 1); hit != std::string_view::npos; hit = text.find(rest, hit + 1))
    {
        if (text[hit - 1] == from.front() && hit > position)
        {
            target.append(text, position, hit - 1 - position).append(to);
            position = hit + rest.size();
        }
    }
    target.append(text, position);
}

} // namespace

FinishedText::FinishedText(Sink sink) : sink_(std::move(sink)), out_(BYTE_ORDER_MARK) {}

void FinishedText::Add(std::string_view bytes)
{
    for (std::size_t lineEnd = bytes.find('\n'); lineEnd != std::string_view::npos; lineEnd = bytes.find('\n'))
    {
        const std::string_view line = bytes.substr(0, lineEnd);
        if (partialLine_.empty())
        {
            AddLine(line);
        }
        else
        {
            partialLine_ += line;
            AddLine(partialLine_);
            partialLine_.clear();
        }
        bytes.remove_prefix(lineEnd + 1);
    }
    partialLine_ += bytes;
}

void FinishedText::End()
{
    if (!partialLine_.empty())
    {
        AddLine(partialLine_);
        partialLine_.clear();
    }
    Flush();
}

void FinishedText::AddLine(std::string_view line)
{
    if (line.ends_with('\r'))
    {
        line.remove_suffix(1);
    }
    if (std::exchange(atFirstLine_, false))
    {
        std::string firstLine;
        AppendReplaced(firstLine, line, STANDALONE_DECLARATION_END, DECLARATION_END);
        AppendReplaced(out_, firstLine, EMPTY_NAMESPACE, {});
    }
    else
    {
        AppendReplaced(out_, line, EMPTY_NAMESPACE, {});
    }
    out_ += LINE_END;
    if (out_.size() >= FLUSH_SIZE)
    {
        Flush();
    }
}

void FinishedText::Flush()
{
    sink_(out_);
    out_.clear();
}

} // namespace jlandxml

#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace jlandxml
{

/// Turns the parser's output into the text of a finished file as it streams by, line by line:
/// - in the first line, ` encoding="UTF-8" standalone="no"?>` becomes `?>`;
/// - in every line, ` xmlns=""` is dropped;
/// - every line ends with carriage return and line feed, and a byte-order mark stands in front of the first.
class FinishedText
{
  public:
    using Sink = std::function<void(std::string_view)>;

    explicit FinishedText(Sink sink);

    /// Takes the next bytes, cut anywhere.
    void Add(std::string_view bytes);

    /// Hands out what is left, with a line end behind the last line.
    void End();

  private:
    void AddLine(std::string_view line);
    void Flush();

    Sink sink_;
    std::string partialLine_;
    std::string out_;
    bool atFirstLine_ = true;
};

} // namespace jlandxml

#pragma once

#include "inspect/Wording.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace jlandxml::inspect
{

/// Gathers a page as UTF-8. What comes from a file goes through Text, which leaves nothing in it that a browser would
/// take for markup, neither between tags nor in a quoted attribute.
class Html
{
  public:
    /// Markup of our own.
    Html& Raw(std::string_view markup);

    /// A text, escaped.
    Html& Text(std::wstring_view text);

    /// A number with so many decimals, without zeros at its end; "0" for what is no number.
    Html& Number(double value, int decimals = 3);

    /// A heading, label or sentence in both of the page's languages: Japanese, and English for the switch. Either may
    /// hold texts of a file.
    Html& Words(std::string_view tag, std::wstring_view japanese, std::wstring_view english);

    /// The same of a text that has both of itself; without the switch where they are the same.
    Html& Words(std::string_view tag, const Detail& text);

    std::size_t Size() const { return page_.size(); }
    std::string Take() { return std::move(page_); }

  private:
    /// Ends an element that was begun with a tag and attributes.
    Html& Close(std::string_view tag);

    std::string page_;
};

} // namespace jlandxml::inspect

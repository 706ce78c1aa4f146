#pragma once

#include <cerrno>
#include <string>
#include <string_view>
#include <vector>

namespace jlandxml
{

/// Something that a run passes over without a message to its user, such as a file that it can't read.
struct Warning
{
    std::wstring text;
    std::wstring detail; ///< a path and the system's reason
};

/// Notes that a file or folder was passed over, and why: an error number of the C library, or 0 if the system gave no
/// reason. Want of memory for the note itself makes it one without a detail.
void WarnOf(std::wstring_view text, const std::wstring& path, int error = 0) noexcept;

/// The warnings since they were taken last, in the order in which they were noted. Each run begins without any.
std::vector<Warning> TakeWarnings() noexcept;

} // namespace jlandxml

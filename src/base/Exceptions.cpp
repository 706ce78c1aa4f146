#include "base/Exceptions.h"

#include "base/Text.h"

#include <algorithm>
#include <array>

namespace jlandxml
{

namespace
{
constexpr std::size_t ERROR_TEXT_SIZE = 1024;
}

CException::CException(std::wstring message) : message_(std::move(message)), narrow_(Utf8FromWide(message_)) {}

bool CException::GetErrorMessage(wchar_t* buffer, std::size_t size) const
{
    if (buffer == nullptr || size == 0)
    {
        return false;
    }
    const std::size_t length = std::min(message_.size(), size - 1);
    std::copy_n(message_.data(), length, buffer);
    buffer[length] = L'\0';
    return true;
}

std::wstring ErrorText(const CException& exception)
{
    std::array<wchar_t, ERROR_TEXT_SIZE> buffer{};
    exception.GetErrorMessage(buffer.data(), buffer.size());
    return buffer.data();
}

std::wstring JoinMessages(const std::wstring& label, const std::wstring& caught)
{
    return label + L", " + caught;
}

} // namespace jlandxml

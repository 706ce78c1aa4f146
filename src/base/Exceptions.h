#pragma once

#include <cstddef>
#include <exception>
#include <string>

namespace jlandxml
{

/// The base of every failure that travels between the stages of a run. It holds one message for the user.
/// Thrown by value, caught by reference.
class CException : public std::exception
{
  public:
    explicit CException(std::wstring message);

    /// Copies the message, cut to the buffer and always terminated. False if the buffer has no room for the terminator.
    virtual bool GetErrorMessage(wchar_t* buffer, std::size_t size) const;

    /// The message as UTF-8.
    const char* what() const noexcept override { return narrow_.c_str(); }

  private:
    std::wstring message_;
    std::string narrow_;
};

/// A file could not be opened, read or written.
class CFileException : public CException
{
  public:
    using CException::CException;
};

/// An argument was outside of what the callee takes, such as an index past the end of an array.
class CInvalidArgException : public CException
{
  public:
    using CException::CException;
};

/// The message of a caught exception as every stage takes it over: through a buffer of 1024 characters.
std::wstring ErrorText(const CException& exception);

/// The label of a stage and the text that it caught, joined by ", ".
std::wstring JoinMessages(const std::wstring& label, const std::wstring& caught);

} // namespace jlandxml

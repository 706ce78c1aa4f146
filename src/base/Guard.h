#pragma once

#include "base/Exceptions.h"

#include <string>
#include <utility>

namespace jlandxml
{

/// What a stage says about a failure below it.
struct StageTexts
{
    /// Label in front of the text of a CFileException. Null: `failure` serves for it too.
    const wchar_t* fileFailure;
    /// Label in front of the text of any other CException.
    const wchar_t* failure;
    /// The whole message for anything that is no CException. Null: such a thing passes through as it is.
    const wchar_t* unknown;
};

/// The texts that the load run, the export run and the side-file loaders share. The "%s" is part of the message.
inline constexpr StageTexts RUN_STAGE_TEXTS{L"File operation failed: %s", L"General exception occurred: %s",
                                            L"Unknown exception occurred while loading the CSV file."};

/// Runs one stage and gives the result of `body`. What it throws leaves as a `Stage` exception: a CException's text, as
/// far as 1024 characters hold it, with the stage's label in front; anything else as the stage's text for the unknown,
/// or as it is if there is none.
template <class Stage, class Body>
decltype(auto) RunStage(const StageTexts& texts, Body&& body)
{
    try
    {
        return std::forward<Body>(body)();
    }
    catch (const CFileException& exception)
    {
        throw Stage(
            JoinMessages(texts.fileFailure != nullptr ? texts.fileFailure : texts.failure, ErrorText(exception)));
    }
    catch (const CException& exception)
    {
        throw Stage(JoinMessages(texts.failure, ErrorText(exception)));
    }
    catch (...)
    {
        if (texts.unknown == nullptr)
        {
            throw;
        }
        throw Stage(texts.unknown);
    }
}

} // namespace jlandxml

#pragma once

namespace jlandxml
{

/// How a run of the command line ended. Of several work folders the highest counts.
enum class ExitStatus
{
    FileWritten = 0,
    Findings =
        1, ///< what the user must complete, or with --check an 誤り in the written file, or with --strict a warning
    WrongUsage = 2, ///< the command line or the settings
    NoFile = 3 ///< a message box was shown, no file was produced, or standard output didn't take what was asked for
};

} // namespace jlandxml

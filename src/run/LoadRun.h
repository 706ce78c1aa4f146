#pragma once

#include "base/Exceptions.h"

#include <string>

namespace jlandxml
{

/// The file that the host writes into a work folder.
inline constexpr const wchar_t* WORK_FILE_NAME = L"Landxml_temp.xml";

/// Its path.
inline std::wstring WorkFileOf(const std::wstring& workFolder)
{
    return workFolder + L"/" + WORK_FILE_NAME;
}

/// The work file could not be taken into the model.
class LandXMLLoadException : public CException
{
  public:
    using CException::CException;
};

/// Reads the work file into the context's document and model, and keeps a copy of the model as it was loaded. A missing
/// or broken file is no failure: the run goes on with an empty model. Throws LandXMLLoadException for anything that
/// fails on the way.
void LoadRun(const std::wstring& path);

} // namespace jlandxml

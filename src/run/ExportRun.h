#pragma once

#include "base/Exceptions.h"
#include "model/OutputVersion.h"

#include <string>
#include <string_view>

namespace jlandxml
{

/// The model could not be written.
class JLandXMLExportException : public CException
{
  public:
    using CException::CException;
};

/// The version that a finished file follows for a version text of the standard; a text that names none that is offered
/// stands for the newest one.
OutputVersion OutputVersionOf(std::wstring_view applicationCriterion);

/// Writes the model into the tree and the tree into the file that the user chose. A model that can't be written gives
/// no file and no message. Throws JLandXMLExportException for anything that fails on the way.
void ExportRun(const std::wstring& path);

} // namespace jlandxml

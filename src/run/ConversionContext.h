#pragma once

#include "model/FViewLandXML.h"
#include "xml/WcXmDocument.h"

#include <string>

namespace jlandxml
{

/// What a conversion works on. One for the process, kept between calls of the module; a new call replaces its content.
struct ConversionContext
{
    WcXmDocument document;    ///< the parsed work file; edited in place, it becomes the finished file
    FViewLandXML model;       ///< what the dialog edits and the export writes
    FViewLandXML loadedModel; ///< the model as it was loaded
    bool fileWritten =
        false; ///< whether the last run has put a finished file in its place; a batch user's exit status rests on it
};

/// The one context, made at first use.
ConversionContext& GetConversionContext();

/// The name of the route whose side files are being read, by which they find their alignment. Empty between routes.
std::wstring& GetCurrentRouteName();

} // namespace jlandxml

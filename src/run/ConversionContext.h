#pragma once

#include "model/FViewLandXML.h"
#include "xml/WcXmDocument.h"

#include <functional>
#include <string>

namespace jlandxml
{

/// What a conversion works on. One for the process, made at first use and kept between calls of the module. A new call
/// replaces the document and reads the model anew; of the call before only the rows of the surface output table stay,
/// and the new ones follow them (see FViewSurfacesList).
struct ConversionContext
{
    WcXmDocument document;     ///< the parsed work file; edited in place, it becomes the finished file
    FViewLandXML model;        ///< what the dialog edits and the export writes
    FViewLandXML loadedModel;  ///< the model as it was loaded, for who wants to compare; no step of a run reads it
    bool keepsJournal = false; ///< whether a run is to keep what its document was, so that its changes can be told
    /// Whether the last run has put a finished file in its place. A batch user's exit status rests on it.
    bool fileWritten = false;
    /// Asked when the tree is finished, before the target is touched; false leaves the target as it is. Without it the
    /// file is always written.
    std::function<bool()> mayWrite;
};

/// The one context, made at first use.
ConversionContext& GetConversionContext();

/// The name of the alignment of the route whose side files are being read. The file of intermediate points sets it, the
/// others find their alignment by it. Empty between routes.
std::wstring& GetCurrentRouteName();

} // namespace jlandxml

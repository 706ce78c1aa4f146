#include "run/LoadRun.h"

#include "base/Guard.h"
#include "base/Warnings.h"
#include "run/ConversionContext.h"

namespace jlandxml
{

namespace
{

void ReadModel(ConversionContext& context, const std::wstring& path)
{
    context.model.Clear();
    if (!context.document.Create())
    {
        WarnOf(WarningCause::NoMemoryForFile, path);
    }
    else
    {
        context.document.appDocument->loadedPath = path;
        const bool isLoaded = context.document.appDocument->LoadDocument(path);
        if (context.keepsJournal)
        {
            context.document.appDocument->KeepJournal();
        }
        if (isLoaded)
        {
            context.model.ReadElement(WcXmNode(context.document));
        }
    }
}

} // namespace

void LoadRun(const std::wstring& path)
{
    RunStage<LandXMLLoadException>(RUN_STAGE_TEXTS, [&] {
        ConversionContext& context = GetConversionContext();
        context.fileWritten = false;
        ForgetWarnings(); // those of the run before
        ReadModel(context, path);
        context.loadedModel = context.model;
        context.model.surfaces.FillOutPutCSS();
    });
}

} // namespace jlandxml

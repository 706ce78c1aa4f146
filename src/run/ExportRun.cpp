#include "run/ExportRun.h"

#include "base/Guard.h"
#include "run/ConversionContext.h"
#include "run/FinishOutputFile.h"

namespace jlandxml
{

OutputVersion OutputVersionOf(std::wstring_view applicationCriterion)
{
    const VersionOfStandard* const chosen = FindVersion(applicationCriterion);
    return chosen != nullptr && chosen->offered ? chosen->number : NEWEST_VERSION.number;
}

void ExportRun(const std::wstring& path)
{
    RunStage<JLandXMLExportException>(RUN_STAGE_TEXTS, [&] {
        ConversionContext& context = GetConversionContext();
        context.model.SetOutputVersion(OutputVersionOf(context.model.project.applicationCriterion));
        context.model.intermediatePoints.Number();
        context.model.widthStakePoints.Number();
        if (context.document.Change([&] { return context.model.WriteElement(WcXmNode(context.document)); }) &&
            (!context.mayWrite || context.mayWrite()))
        {
            context.fileWritten = FinishOutputFile(path, context);
        }
    });
}

} // namespace jlandxml

// Measures what a person waits for at the module's real dialog with 2,000 alignments and 5,000 surfaces in its tree:
// until it is open, beside the time of loading the same file without it; until a selected object is shown; until the
// list of all alignments is dropped down. Medians and the longest, in milliseconds.
//
//   bench_dialog MODULE [ALIGNMENTS]      on a display; the driver looks for windows every ten milliseconds

#include "BenchDocuments.h"
#include "base/Text.h"
#include "dialog/JLandXmlConvertDlgControls.h"
#include "run/LoadRun.h"
#include "support/TemporaryFolder.h"
#include "ui/RealWindows.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>

namespace
{

using namespace jlandxml;

constexpr int ROUNDS = 3;
constexpr std::size_t SELECTIONS = 25;

double Milliseconds(const std::function<void()>& step)
{
    const auto begin = std::chrono::steady_clock::now();
    step();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

void Tell(const char* what, std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    std::printf("%-24s median %7.1f ms   longest %7.1f ms\n", what, times[times.size() / 2], times.back());
}

/// Selects objects from one end of the tree to the other, and drops the list of alignments down for each surface.
void Work(DialogHands& dialog, std::vector<double>& alignments, std::vector<double>& surfaces,
          std::vector<double>& lists)
{
    const std::vector<TreeItem> roots = dialog.TreeChildren(convert_dlg::OBJECT_TREE, nullptr);
    for (const TreeItem root : {roots.front(), roots.back()})
    {
        const std::vector<TreeItem> items = dialog.TreeChildren(convert_dlg::OBJECT_TREE, root);
        for (std::size_t turn = 0; turn < SELECTIONS; ++turn)
        {
            const TreeItem item = items[turn * (items.size() - 1) / (SELECTIONS - 1)];
            (root == roots.back() ? surfaces : alignments).push_back(Milliseconds([&] {
                dialog.ChooseTreeItem(convert_dlg::OBJECT_TREE, item);
            }));
            if (root == roots.back())
            {
                lists.push_back(Milliseconds([] { DropDown(convert_dlg::SURFACE_REFERENCE_LIST); }));
            }
        }
    }
}

int Measure(const std::wstring& module, int alignments)
{
    const auto documents = BenchDocuments();
    const auto document =
        std::find_if(documents.begin(), documents.end(), [](const BenchDocument& one) { return one.name == "dialog"; });
    const TestFolder folder;
    WriteWorkFolder(folder.Path(), *document, alignments > 0 ? alignments : document->size);
    Host host(module);
    std::vector<double> loads;
    std::vector<double> opens;
    std::vector<double> alignmentSelections;
    std::vector<double> surfaceSelections;
    std::vector<double> lists;
    for (int round = 0; round < ROUNDS; ++round)
    {
        loads.push_back(Milliseconds([&] { LoadRun(folder.Name(L"Landxml_temp.xml")); }));
        const auto begin = std::chrono::steady_clock::now();
        host.Call(folder.Name(), 0, [&] {
            const auto dialog = WaitForDialog(KnownDialog::Main);
            opens.push_back(
                std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count());
            Work(*dialog, alignmentSelections, surfaceSelections, lists);
            dialog->PressEscape();
        });
    }
    Tell("loading", loads);
    Tell("opening, with loading", opens);
    Tell("selecting an alignment", alignmentSelections);
    Tell("selecting a surface", surfaceSelections);
    Tell("dropping the list down", lists);
    return 0;
}

} // namespace

int main(int count, char** values)
{
    return count > 1 ? Measure(WideFromUtf8(values[1]), count > 2 ? std::atoi(values[2]) : 0) : 2;
}

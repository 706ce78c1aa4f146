// Measures whole runs (work file in, finished file out) beside what bare pugixml needs to load and save the same file,
// and the inspection of the finished file beside the run that made it, and prints the ratios of time and peak memory.
// Each run has a process of its own, so that memory is counted from zero.
//
//   bench_runs [CASE [SIZE]]      without a case: all of them

#include "BenchDocuments.h"
#include "base/Text.h"
#include "inspect/Checks.h"
#include "inspect/Printing.h"
#include "inspect/ReadLandXml.h"
#include "inspect/Summary.h"
#include "run/ConversionContext.h"
#include "run/ExportRun.h"
#include "run/LoadRun.h"
#include "sidefiles/LoadSideFiles.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

using namespace jlandxml;

constexpr int ROUNDS = 5;

struct Measure
{
    double seconds; ///< of the processor, so that what else runs on the machine counts less
    double megabytes;
};

double Seconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

/// Runs a body in a child process, from start to end.
Measure Run(const std::function<void()>& body)
{
    const pid_t child = ::fork();
    if (child == 0)
    {
        body();
        ::_exit(0);
    }
    rusage usage{};
    int status = 0;
    if (::wait4(child, &status, 0, &usage) != child || status != 0)
    {
        std::fprintf(stderr, "a run failed\n");
        std::exit(1);
    }
    return {Seconds(usage.ru_utime) + Seconds(usage.ru_stime), static_cast<double>(usage.ru_maxrss) / 1024.0};
}

Measure Median(std::array<Measure, ROUNDS> measures)
{
    std::sort(measures.begin(), measures.end(),
              [](const Measure& a, const Measure& b) { return a.seconds < b.seconds; });
    return measures[ROUNDS / 2];
}

void BarePugixml(const std::string& in, const std::string& out)
{
    ::execl(BENCH_BARE, BENCH_BARE, in.c_str(), out.c_str(), nullptr);
    ::_exit(1);
}

void WholeRun(const std::string& in, const std::string& out)
{
    LoadRun(WideFromUtf8(in));
    ExportRun(WideFromUtf8(out));
    if (!GetConversionContext().fileWritten)
    {
        ::_exit(1);
    }
}

/// All that jlandxml-inspect does to a file when it is asked for nothing but the file.
void Inspection(const std::string& finished)
{
    using namespace inspect;
    const LandXmlFile file = ReadLandXmlFile(WideFromUtf8(finished));
    const std::vector<Finding> findings = Inspect(file, EveryCheck());
    if ((SummaryText(file) + FindingsText(findings)).empty())
    {
        ::_exit(1);
    }
}

double Megabytes(const std::string& file)
{
    return static_cast<double>(std::filesystem::file_size(file)) / 1e6;
}

void PrintInspection(const BenchDocument& document, int size, const std::string& finished, const Measure& run)
{
    std::array<Measure, ROUNDS> inspections{};
    for (Measure& inspection : inspections)
    {
        inspection = Run([&] { Inspection(finished); });
    }
    const Measure measure = Median(inspections);
    std::printf("%-16s %9d %8.1f MB  run %7.3f s  inspection %7.3f s %7.1f MB  time x%.2f of the run  memory x%.2f of "
                "the file\n",
                document.name.data(), size, Megabytes(finished), run.seconds, measure.seconds, measure.megabytes,
                measure.seconds / run.seconds, measure.megabytes * 1.048576 / Megabytes(finished));
    std::fflush(stdout);
}

/// Loading side files, by themselves: time and memory for each row.
void BenchSideFiles(const BenchDocument& document, int rows)
{
    const TestFolder folder;
    WriteWorkFolder(folder.Path(), document, rows);
    double bytes = 0.0;
    for (const auto& file : std::filesystem::directory_iterator(folder.Path()))
    {
        bytes += static_cast<double>(file.file_size());
    }
    std::array<Measure, ROUNDS> runs{};
    for (Measure& run : runs)
    {
        run = Run([&] {
            if (std::freopen("/dev/null", "w", stdout) == nullptr)
            {
                ::_exit(1);
            }
            LoadRun((folder.Path() / "Landxml_temp.xml").wstring());
            LoadSideFiles(folder.Path().wstring(), 1);
        });
    }
    const Measure measure = Median(runs);
    std::printf("%-16s %9d %8.1f MB  load %7.3f s %7.1f MB  %.0f ns a row  memory x%.1f of the files\n", "side-files",
                rows, bytes / 1e6, measure.seconds, measure.megabytes, measure.seconds * 1e9 / rows,
                measure.megabytes * 1e6 / bytes);
    std::fflush(stdout);
}

void BenchWholeRun(const BenchDocument& document, int size)
{
    const TestFolder folder;
    const std::string in = (folder.Path() / "Landxml_temp.xml").string();
    WriteWorkFolder(folder.Path(), document, size);
    const std::string bareOut = (folder.Path() / "bare.xml").string();
    const std::string runOut = (folder.Path() / "run.xml").string();
    std::array<Measure, ROUNDS> bare{};
    std::array<Measure, ROUNDS> run{};
    for (int round = 0; round < ROUNDS; ++round)
    {
        bare[static_cast<std::size_t>(round)] = Run([&] { BarePugixml(in, bareOut); });
        run[static_cast<std::size_t>(round)] = Run([&] { WholeRun(in, runOut); });
    }
    const Measure one = Median(bare);
    const Measure other = Median(run);
    std::printf("%-16s %9d %8.1f MB  pugixml %7.3f s %7.1f MB  run %7.3f s %7.1f MB  time x%.2f  memory x%.2f\n",
                document.name.data(), size, Megabytes(in), one.seconds, one.megabytes, other.seconds, other.megabytes,
                other.seconds / one.seconds, other.megabytes / one.megabytes);
    PrintInspection(document, size, runOut, other);
}

} // namespace

int main(int count, char** values)
{
    for (const BenchDocument& document : BenchDocuments())
    {
        if (count > 1 && values[1] != document.name)
        {
            continue;
        }
        const int size = count > 2 ? std::atoi(values[2]) : document.size;
        const auto bench = document.hasSideFiles ? BenchSideFiles : BenchWholeRun;
        bench(document, size / 10);
        bench(document, size);
    }
    return 0;
}

// Measures whole runs (work file in, finished file out) beside what bare pugixml needs to load and save the same file,
// and prints the ratios of time and peak memory. Each run has a process of its own, so that memory is counted from
// zero.
//
//   bench_runs [CASE [SIZE]]      without a case: all of them

#include "base/Text.h"
#include "run/ConversionContext.h"
#include "run/ExportRun.h"
#include "run/LoadRun.h"
#include "sidefiles/LoadSideFiles.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

using namespace jlandxml;

constexpr int ROUNDS = 5;
constexpr int SIDE_FILE_ROWS = 1000000;

struct Measure
{
    double seconds;
    double megabytes;
};

/// Runs a body in a child process, from start to end.
Measure Run(const std::function<void()>& body)
{
    const auto start = std::chrono::steady_clock::now();
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
    return {std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(),
            static_cast<double>(usage.ru_maxrss) / 1024.0};
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

/// A terrain of triangles: what most of a large file's bytes are.
void WriteTerrain(std::ofstream& out, int points)
{
    out << "<Surfaces><Surface name=\"現況地形\" desc=\"ExistingGround\"><Definition surfType=\"TIN\"><Pnts>\n";
    for (int point = 0; point < points; ++point)
    {
        out << "<P id=\"" << point << "\">" << -36000 - point % 1000 << ".125 " << -7000 + point / 1000 << ".25 "
            << 12 + point % 7 << ".375</P>\n";
    }
    out << "</Pnts><Faces>\n";
    for (int face = 0; face + 1000 < points; ++face)
    {
        out << "<F>" << face << ' ' << face + 1 << ' ' << face + 1000 << "</F>\n";
    }
    out << "</Faces></Definition></Surface></Surfaces>\n";
}

/// Alignments of 200 elements each, with design values, and a profile of 10,000 points with a ground line of as many.
void WriteAlignments(std::ofstream& out, int alignments)
{
    out << "<Alignments name=\"bench\">\n";
    for (int alignment = 0; alignment < alignments; ++alignment)
    {
        out << "<Alignment name=\"A" << alignment
            << "\" length=\"10000\" staStart=\"0\" desc=\"主測点間隔 = 20 副測点間隔 = 10 直線部横断勾配 = "
               "2\">\n<CoordGeom>\n";
        for (int element = 0; element < 50; ++element)
        {
            out << "<Line length=\"50\"><Start>-36000.125 -7000.5</Start><End>-36010.125 -7010.5</End></Line>\n"
                   "<Spiral length=\"50\" radiusStart=\"INF\" radiusEnd=\"200\" rot=\"cw\" "
                   "spiType=\"clothoid\"><Start>1.5 2.5</Start><PI>3.5 4.5</PI>"
                   "<End>5.5 6.5</End></Spiral>\n<Curve rot=\"cw\" radius=\"200\"><Start>1.5 2.5</Start><Center>3.5 "
                   "4.5</Center><End>5.5 6.5</End></Curve>\n"
                   "<Spiral length=\"50\" radiusStart=\"200\" radiusEnd=\"INF\" rot=\"cw\" "
                   "spiType=\"clothoid\"><Start>1.5 2.5</Start><PI>3.5 4.5</PI>"
                   "<End>5.5 6.5</End></Spiral>\n";
        }
        out << "</CoordGeom>\n<Profile>\n<ProfAlign name=\"計画\">\n";
        // Long profiles belong to one alignment in ten, so that the file keeps to a size that a machine for tests
        // takes.
        const int points = alignment % 10 == 0 ? 10000 : 10;
        for (int point = 0; point < points; ++point)
        {
            out << "<PVI>" << point << ".5 12.375</PVI>\n";
        }
        out << "</ProfAlign>\n<ProfAlign name=\"ProfSurf_現況\">\n";
        for (int point = 0; point < points; ++point)
        {
            out << "<PVI>" << point << ".5 " << 10 + point % 5 << ".125</PVI>\n";
        }
        out << "</ProfAlign>\n</Profile>\n</Alignment>\n";
    }
    out << "</Alignments>\n";
}

/// Cross sections of ten design and eight ground surfaces each, against 200 surfaces.
void WriteCrossSections(std::ofstream& out, int sections)
{
    out << "<Alignments name=\"bench\">\n<Alignment name=\"A\" length=\"10000\" staStart=\"0\">\n<CrossSects>\n";
    for (int section = 0; section < sections; ++section)
    {
        out << "<CrossSect name=\"No." << section << "\" sta=\"" << section << ".000\">\n";
        for (int ground = 0; ground < 8; ++ground)
        {
            out << "<CrossSectSurf name=\"現況地形" << (section + ground * 23) % 200 << "_" << section
                << "\"><PntList2D>-10.0 1.5 -5.0 1.25 0.0 1.0 5.0 1.25 10.0 1.5</PntList2D></CrossSectSurf>\n";
        }
        for (int design = 0; design < 10; ++design)
        {
            static constexpr const char* NAMES[] = {"Carriageway", "RoadShoulder", "表層", "基層", "SlopeFill"};
            out << "<DesignCrossSectSurf name=\"" << NAMES[design % 5]
                << "\" closedArea=\"true\"><CrossSectPnt code=\"A\">" << design - 5
                << ".5 1.25</CrossSectPnt><CrossSectPnt code=\"B\">2.5 1.125</CrossSectPnt><CrossSectPnt "
                   "code=\"C\">4.5 1.5</CrossSectPnt>"
                << "</DesignCrossSectSurf>\n";
        }
        out << "</CrossSect>\n";
    }
    out << "</CrossSects>\n</Alignment>\n</Alignments>\n<Surfaces>\n";
    for (int surface = 0; surface < 200; ++surface)
    {
        out << "<Surface name=\"現況地形" << surface << "\" desc=\""
            << (surface % 2 == 0 ? "ExistingGround" : "FinishedGrade") << "\"/>\n";
    }
    out << "</Surfaces>\n";
}

/// Side files of so many rows beside a small document.
void WriteSideFileRoute(std::ofstream& out, int /*rows*/)
{
    out << "<Alignments name=\"bench\"><Alignment name=\"A\" length=\"1\" staStart=\"0\" desc=\"主測点間隔 = "
           "20\"/></Alignments>\n";
}

struct BenchCase
{
    const char* name;
    int size;
    void (*write)(std::ofstream& out, int size);
};

constexpr BenchCase CASES[] = {
    {"terrain", 1000000, WriteTerrain},
    {"alignments", 1000, WriteAlignments},
    {"cross-sections", 20000, WriteCrossSections},
};

/// The side files of one route, each with so many rows.
void WriteSideFiles(const std::filesystem::path& folder, int rows)
{
    std::ofstream points(folder / "intermediatePts_temp_1.csv", std::ios::binary);
    std::ofstream stakes(folder / "widthStake_temp_1.csv", std::ios::binary);
    std::ofstream slopes(folder / "superElevation_temp_1.csv", std::ios::binary);
    std::ofstream widening(folder / "widening_temp_1.csv", std::ios::binary);
    points << "線形名,A\n測点名\n";
    stakes << "t\nt\n";
    slopes << "t\nt\n";
    widening << "t\nt\n";
    for (int row = 0; row < rows; ++row)
    {
        points << "No." << row << ',' << row << ".5,-36000.125,-7000.5,12.25,45.125\n";
        stakes << "左幅杭,L" << row << ",9.50," << row << ".5,-36000.125,-7000.5,12.25,9.5,用地境界,open\n";
        slopes << "1," << row / 1000 << '+' << row % 1000 << ".5m,ReverseCrown,,,-2.0 %,,,,2.0 %,\n";
        widening << "Left," << row << ".5,0.25,1\n";
    }
}

/// Loading side files, by themselves: time and memory for each row.
void BenchSideFiles(int rows)
{
    const TestFolder folder;
    {
        std::ofstream out(folder.Path() / "Landxml_temp.xml", std::ios::binary);
        out << "<LandXML>";
        WriteSideFileRoute(out, rows);
        out << "</LandXML>\n";
    }
    WriteSideFiles(folder.Path(), rows);
    double bytes = 0.0;
    for (const auto& file : std::filesystem::directory_iterator(folder.Path()))
    {
        bytes += static_cast<double>(file.file_size());
    }
    std::array<Measure, ROUNDS> runs{};
    for (Measure& run : runs)
    {
        run = Run([&] {
            std::freopen("/dev/null", "w", stdout);
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

void Bench(const BenchCase& bench, int size)
{
    const TestFolder folder;
    const std::string in = (folder.Path() / "Landxml_temp.xml").string();
    {
        std::ofstream out(in, std::ios::binary);
        out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<LandXML version=\"1.2\"><Project name=\"bench\"/>\n";
        bench.write(out, size);
        out << "</LandXML>\n";
    }
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
                bench.name, size, static_cast<double>(std::filesystem::file_size(in)) / 1e6, one.seconds, one.megabytes,
                other.seconds, other.megabytes, other.seconds / one.seconds, other.megabytes / one.megabytes);
    std::fflush(stdout);
}

} // namespace

int main(int count, char** values)
{
    for (const BenchCase& bench : CASES)
    {
        if (count > 1 && std::string(values[1]) != bench.name)
        {
            continue;
        }
        const int size = count > 2 ? std::atoi(values[2]) : bench.size;
        Bench(bench, size / 10);
        Bench(bench, size);
    }
    if (count == 1 || std::string(values[1]) == "side-files")
    {
        const int rows = count > 2 ? std::atoi(values[2]) : SIDE_FILE_ROWS;
        BenchSideFiles(rows / 10);
        BenchSideFiles(rows);
    }
    return 0;
}

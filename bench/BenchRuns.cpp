// Measures whole runs (work file in, finished file out) beside what bare pugixml needs to load and save the same file,
// and prints the ratios of time and peak memory. Each run has a process of its own, so that memory is counted from
// zero.
//
//   bench_runs [CASE [SIZE]]      without a case: all of them

#include "framework/Text.h"
#include "run/ConversionContext.h"
#include "run/ExportRun.h"
#include "run/LoadRun.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <pugixml.hpp>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

using namespace jlandxml;

constexpr int ROUNDS = 5;

struct Measure
{
    double seconds;
    double megabytes;
};

/// Runs a body in a child process.
Measure Run(const std::function<void()>& body)
{
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0)
    {
        std::exit(1);
    }
    const pid_t child = ::fork();
    if (child == 0)
    {
        const auto start = std::chrono::steady_clock::now();
        body();
        const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        const ssize_t written = ::write(pipe[1], &seconds, sizeof seconds);
        ::_exit(written == sizeof seconds ? 0 : 1);
    }
    Measure measure{};
    rusage usage{};
    int status = 0;
    const bool complete = ::read(pipe[0], &measure.seconds, sizeof measure.seconds) == sizeof measure.seconds;
    ::wait4(child, &status, 0, &usage);
    ::close(pipe[0]);
    ::close(pipe[1]);
    if (!complete || status != 0)
    {
        std::fprintf(stderr, "a run failed\n");
        std::exit(1);
    }
    measure.megabytes = static_cast<double>(usage.ru_maxrss) / 1024.0;
    return measure;
}

Measure Median(std::array<Measure, ROUNDS> measures)
{
    std::sort(measures.begin(), measures.end(),
              [](const Measure& a, const Measure& b) { return a.seconds < b.seconds; });
    return measures[ROUNDS / 2];
}

void BarePugixml(const std::string& in, const std::string& out)
{
    pugi::xml_document document;
    if (!document.load_file(in.c_str(), pugi::parse_default | pugi::parse_declaration) ||
        !document.save_file(out.c_str(), L"\t", pugi::format_indent | pugi::format_no_declaration, pugi::encoding_utf8))
    {
        ::_exit(1);
    }
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

struct BenchCase
{
    const char* name;
    int size;
    void (*write)(std::ofstream& out, int size);
};

constexpr BenchCase CASES[] = {
    {"terrain", 1000000, WriteTerrain},
};

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
    return 0;
}

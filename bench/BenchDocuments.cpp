#include "BenchDocuments.h"

#include <fstream>
#include <ostream>

namespace jlandxml
{

namespace
{

/// Design values of an alignment, and of its route, as the host notes them.
constexpr const char* DESC = "構築物情報 = 道路 設計交通量 = 450 主測点間隔 = 20 副測点間隔 = 10 "
                             "直線部横断勾配 = 2";

void BeginAlignment(std::ostream& out, int alignment)
{
    out << "<Alignment name=\"A" << alignment << "\" length=\"10000\" staStart=\"0\" desc=\"" << DESC << "\">\n";
}

/// A terrain of triangles, two to a point: what most of a large file's bytes are.
void WriteTerrain(std::ostream& out, int points)
{
    out << "<Surfaces><Surface name=\"現況地形\" desc=\"ExistingGround\"><Definition surfType=\"TIN\"><Pnts>\n";
    for (int point = 0; point < points; ++point)
    {
        out << "<P id=\"" << point << "\">" << -36000 - point % 1000 << ".125 " << -7000 + point / 1000 << ".25 "
            << 12 + point % 7 << ".375</P>\n";
    }
    out << "</Pnts><Faces>\n";
    for (int corner = 0; corner + 1001 < points; ++corner)
    {
        out << "<F>" << corner << ' ' << corner + 1 << ' ' << corner + 1000 << "</F>\n<F>" << corner + 1 << ' '
            << corner + 1001 << ' ' << corner + 1000 << "</F>\n";
    }
    out << "</Faces></Definition></Surface></Surfaces>\n";
}

/// Alignments of 200 elements each, with design values, and a profile of 10,000 points with a ground line of as many.
void WriteAlignments(std::ostream& out, int alignments)
{
    out << "<Alignments name=\"bench\">\n";
    for (int alignment = 0; alignment < alignments; ++alignment)
    {
        BeginAlignment(out, alignment);
        out << "<CoordGeom>\n";
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
void WriteCrossSections(std::ostream& out, int sections)
{
    out << "<Alignments name=\"bench\">\n<Alignment name=\"A\" length=\"10000\" staStart=\"0\" desc=\"" << DESC
        << "\">\n<CrossSects>\n";
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

/// A tree for the dialog: alignments of ten elements, and two and a half times as many small surfaces.
void WriteDialogTree(std::ostream& out, int alignments)
{
    out << "<Alignments name=\"bench\">\n";
    for (int alignment = 0; alignment < alignments; ++alignment)
    {
        BeginAlignment(out, alignment);
        out << "<CoordGeom>\n";
        for (int element = 0; element < 10; ++element)
        {
            out << "<Line length=\"50\"><Start>-36000.125 -7000.5</Start><End>-36010.125 -7010.5</End></Line>\n";
        }
        out << "</CoordGeom>\n</Alignment>\n";
    }
    out << "</Alignments>\n<Surfaces>\n";
    for (int surface = 0; surface < alignments * 5 / 2; ++surface)
    {
        out << "<Surface name=\"現況地形" << surface
            << "\" desc=\"ExistingGround\"><Definition surfType=\"TIN\"><Pnts>\n";
        for (int point = 0; point < 10; ++point)
        {
            out << "<P id=\"" << point << "\">-36000.125 " << -7000 - point << ".25 12.375</P>\n";
        }
        out << "</Pnts><Faces>\n<F>0 1 2</F>\n</Faces></Definition></Surface>\n";
    }
    out << "</Surfaces>\n";
}

/// Side files of so many rows beside a small document.
void WriteSideFileRoute(std::ostream& out, int /*rows*/)
{
    out << "<Alignments name=\"bench\"><Alignment name=\"A\" length=\"1\" staStart=\"0\" desc=\"" << DESC
        << "\"/></Alignments>\n";
}

/// What a project delivers: terrain and the points of a survey in front of alignments and cross sections.
void WriteMixed(std::ostream& out, int points)
{
    out << "<CgPoints name=\"基準点\">\n";
    for (int point = 0; point < points / 50; ++point)
    {
        out << "<CgPoint name=\"T-" << point << "\">" << -36000 - point % 1000 << ".125 " << -7000 + point / 1000
            << ".25 12.375</CgPoint>\n";
    }
    out << "</CgPoints>\n";
    WriteAlignments(out, points / 2500);
    WriteCrossSections(out, points / 100);
    WriteTerrain(out, points);
}

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

constexpr BenchDocument DOCUMENTS[] = {
    {"terrain", 1000000, WriteTerrain, 0, false},
    {"alignments", 1000, WriteAlignments, 1, false},
    {"cross-sections", 20000, WriteCrossSections, 1, false},
    {"mixed", 500000, WriteMixed, 2, false},
    {"side-files", 1000000, WriteSideFileRoute, 1, true},
    {"dialog", 2000, WriteDialogTree, 1, false},
};

} // namespace

std::span<const BenchDocument> BenchDocuments()
{
    return DOCUMENTS;
}

void WriteWorkFolder(const std::filesystem::path& folder, const BenchDocument& document, int size)
{
    std::ofstream out(folder / "Landxml_temp.xml", std::ios::binary);
    out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<LandXML version=\"1.2\"><Project name=\"bench\"/>\n"
           "<CoordinateSystem desc=\"Japan Geodetic Datum 2011, Plane Rectangular Coordinate System No. 9 (Kanto), "
           "Transverse Mercator, Metre\"/>\n";
    document.write(out, size);
    out << "</LandXML>\n";
    std::ofstream settings(folder / "settings.json", std::ios::binary);
    settings << "{ \"projectName\": \"bench\", \"routes\": [";
    for (int route = 0; route < document.routes; ++route)
    {
        settings << (route > 0 ? ", " : "") << "{ \"roadClassification\": \"第3種第4級\" }";
    }
    settings << "] }\n";
    if (document.hasSideFiles)
    {
        WriteSideFiles(folder, size);
    }
}

} // namespace jlandxml

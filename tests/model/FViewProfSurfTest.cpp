#include "model/FViewProfSurf.h"

#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

TEST(FViewProfSurf, ReadsItsNameAndItsPoints)
{
    const auto surface = Read<FViewProfSurf>(L"<ProfSurf name='現況'><pntlist2d>0 1 5 2</pntlist2d></ProfSurf>");
    EXPECT_EQ(surface.name, L"現況");
    EXPECT_EQ(surface.pntList2D.points, (PiCmList<PiGmPoint>{{0, 1}, {5, 2}}));
}

TEST(FViewProfSurf, IsAppendedWithItsPoints)
{
    FViewProfSurf surface;
    surface.name = L"現況";
    surface.pntList2D.points.emplace_back(0.0, 1.0);
    EXPECT_EQ(WrittenInto(surface, L"<Profile><x/></Profile>"),
              L"<Profile><x/><ProfSurf name=\"現況\"><PntList2D>0. 1.</PntList2D></ProfSurf></Profile>");
    surface.name.clear();
    EXPECT_EQ(WrittenInto(surface, L"<Profile/>"),
              L"<Profile><ProfSurf><PntList2D>0. 1.</PntList2D></ProfSurf></Profile>");
}

TEST(FViewProfSurf, ReadingBeginsAfresh)
{
    auto surface = Read<FViewProfSurf>(L"<ProfSurf name='現況'><PntList2D>0 1</PntList2D></ProfSurf>");
    surface.ReadElement(XmlText(L"<ProfSurf/>").Root());
    EXPECT_EQ(surface.name, L"");
    EXPECT_TRUE(surface.pntList2D.points.empty());
}

TEST(FViewProfSurf, WithoutPointsNothingIsWritten)
{
    FViewProfSurf surface;
    surface.name = L"現況";
    EXPECT_EQ(WrittenInto(surface, L"<Profile/>"), L"<Profile/>");
}

} // namespace
} // namespace jlandxml

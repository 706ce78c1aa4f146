#include "model/FViewStaEquation.h"

#include "support/XmlText.h"

#include <gtest/gtest.h>

namespace jlandxml
{
namespace
{

TEST(FViewStaEquation, ReadsItsThreeStations)
{
    const auto equation = Read<FViewStaEquation>(L"<StaEquation staBack='100.5' staAhead='x' StaInternal='3'/>");
    EXPECT_EQ(equation.staBack, 100.5);
    EXPECT_EQ(equation.staAhead, 0.0);
    EXPECT_EQ(equation.staInternal, UNSET_DOUBLE);
}

TEST(FViewStaEquation, ReadingAndClearingLeaveNothingOfTheFormerElement)
{
    XmlText full(L"<StaEquation staBack='100' staInternal='-200.25' staAhead='300.5'/>");
    XmlText empty(L"<StaEquation/>");
    FViewStaEquation equation;
    equation.ReadElement(full.Root());
    EXPECT_EQ(equation.staBack, 100.0);
    EXPECT_EQ(equation.staInternal, -200.25);
    EXPECT_EQ(equation.staAhead, 300.5);
    FViewStaEquation read = equation;
    read.ReadElement(empty.Root());
    equation.Clear();
    for (const FViewStaEquation& one : {read, equation})
    {
        EXPECT_EQ(one.staBack, UNSET_DOUBLE);
        EXPECT_EQ(one.staInternal, UNSET_DOUBLE);
        EXPECT_EQ(one.staAhead, UNSET_DOUBLE);
    }
}

TEST(FViewStaEquation, IsNeverRewritten)
{
    XmlText xml(L"<StaEquation staBack='100'/>");
    FViewStaEquation equation;
    EXPECT_FALSE(equation.WriteElement(xml.Root()));
    EXPECT_EQ(xml.Text(), L"<StaEquation staBack=\"100\"/>");
}

TEST(FViewStaEquation, TheSortIsAscendingAndStable)
{
    FViewStaEquationArray equations;
    for (const auto& [internal, back] :
         {std::pair(300.0, 1.0), std::pair(100.0, 2.0), std::pair(200.0, 3.0), std::pair(100.0, 4.0)})
    {
        FViewStaEquation& equation = equations.emplace_back();
        equation.staInternal = internal;
        equation.staBack = back;
    }
    SortStaEquations(equations);
    std::vector<double> backs;
    for (const FViewStaEquation& equation : equations)
    {
        backs.push_back(equation.staBack);
    }
    EXPECT_EQ(backs, (std::vector<double>{2.0, 4.0, 3.0, 1.0}));
}

} // namespace
} // namespace jlandxml

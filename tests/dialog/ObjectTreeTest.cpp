#include "dialog/ObjectTree.h"

#include "support/ConvertDlgFixture.h"

namespace jlandxml
{
namespace
{

class ObjectTreeTest : public ConvertDlgTest
{
  protected:
    ObjectTreeTest() { LoadSample(); }
};

TEST_F(ObjectTreeTest, AnAlignmentStandsUnderItsRouteAndNothingElseUnderOne)
{
    Open([&](ScriptedDialog& window) {
        EXPECT_EQ(RouteAbove(window, ItemAt(window, {0, 1})), Data().alignmentsList[0].get());
        EXPECT_EQ(RouteAbove(window, ItemAt(window, {1, 0})), Data().alignmentsList[1].get());
        EXPECT_EQ(RouteAbove(window, ItemAt(window, {0})), nullptr);
        EXPECT_EQ(RouteAbove(window, ItemAt(window, {3, 0})), nullptr);
        EXPECT_EQ(RouteAbove(window, ItemAt(window, {5, 0})), nullptr);
    });
}

TEST_F(ObjectTreeTest, NoItemCarriesNoObject)
{
    Open([&](ScriptedDialog& window) {
        EXPECT_EQ(ObjectOf(window, nullptr), nullptr);
        EXPECT_EQ(ObjectOf(window, ItemAt(window, {0})), Data().alignmentsList[0].get());
        EXPECT_EQ(ObjectOf(window, ItemAt(window, {5, 3})), Data().cgPointsList.widthStakes[1].get());
    });
}

TEST_F(ObjectTreeTest, GroupsOfPointsAreKnownByTheirPlaceInTheData)
{
    const JLandXmlConvertDlgData data;
    EXPECT_EQ(NodeTypeOf(data.cgPointsList.intermediate[1].get(), data), NodeType::IntermediatePoints);
    EXPECT_EQ(NodeTypeOf(data.cgPointsList.widthStakes[0].get(), data), NodeType::WidthStakes);
    EXPECT_EQ(NodeTypeOf(&data.cgPointsList, data), NodeType::None);
    EXPECT_EQ(NodeTypeOf(data.surfacesList[0].get(), data), NodeType::None);
    const DlgDataCgPointsWidthStake elsewhere;
    EXPECT_EQ(NodeTypeOf(&elsewhere, data), NodeType::None);
    EXPECT_EQ(NodeTypeOf(nullptr, data), NodeType::None);
}

} // namespace
} // namespace jlandxml

#include "dialog/JLandXmlConvertDlgData.h"
#include "support/FailingAllocation.h"
#include "support/RunFixture.h"

#include <memory>
#include <new>
#include <typeinfo>

namespace jlandxml
{
namespace
{

constexpr const wchar_t* LONG_TEXT = L"a text that no string object has room for in itself";

/// A model in which every step finds a text that it has to copy.
FViewLandXML ModelOfLongTexts()
{
    FViewLandXML model;
    model.project.name = LONG_TEXT;
    model.coordinateSystem.horizontalDatum = LONG_TEXT;
    FViewAlignments& route = model.alignments.emplace_back();
    route.designGmType = L"道路";
    route.trafficVolume = LONG_TEXT;
    route.alignments.emplace_back().name = LONG_TEXT;
    route.alignments.emplace_back().name = LONG_TEXT;
    FViewSurfaces& set = model.surfaces.emplace_back();
    set.surfaces.emplace_back().name = LONG_TEXT;
    set.surfaces.emplace_back().name = LONG_TEXT;
    model.intermediatePoints.emplace_back().alignmentRefs = LONG_TEXT;
    model.widthStakePoints.emplace_back().alignmentRefs = LONG_TEXT;
    return model;
}

/// Puts into the context a model with as many entries, and with empty texts that have no room for a long one.
void LoadEmptyTexts()
{
    FViewLandXML& model = GetConversionContext().model;
    std::destroy_at(&model);
    std::construct_at(&model);
    model.alignments.emplace_back().alignments.resize(2);
    model.surfaces.emplace_back().surfaces.resize(2);
    model.intermediatePoints.resize(1);
    model.widthStakePoints.resize(1);
}

class DlgDataFailures : public RunTest, public testing::WithParamInterface<void (*)()>
{};

TEST_P(DlgDataFailures, AStepOfFillingIsNamedUnderTheWhole)
{
    Context().model = ModelOfLongTexts();
    const Messages messages = MessagesOfAllFailures<DlgDataSetException>(
        GetParam(), [] {}, [] { const JLandXmlConvertDlgData data; });
    const std::wstring whole = L"LandXMLデータの設定に失敗しました。, ";
    EXPECT_EQ(messages, (Messages{whole + L"プロジェクト情報のデータ設定でエラーが発生しました。, cause",
                                  whole + L"座標参照系のデータ設定でエラーが発生しました。, cause",
                                  whole + L"路線のデータ設定でエラーが発生しました。, cause",
                                  whole + L"路線のデータ設定でエラーが発生しました。, "
                                          L"線形のデータ設定でエラーが発生しました。, cause",
                                  whole + L"サーフェスセットのデータ設定でエラーが発生しました。, cause",
                                  whole + L"サーフェスセットのデータ設定でエラーが発生しました。, "
                                          L"サーフェスのデータ設定でエラーが発生しました。, cause",
                                  whole + L"中間点のデータ設定でエラーが発生しました。, cause",
                                  whole + L"幅杭のデータ設定でエラーが発生しました。, cause"}));
}

TEST_P(DlgDataFailures, AStepOfApplyingIsNamed)
{
    Context().model = ModelOfLongTexts();
    JLandXmlConvertDlgData data;
    data.alignmentsList[0]->roadClassification = LONG_TEXT;
    const auto prepare = [&] {
        LoadEmptyTexts();
        data.surfacesList[0]->surfaces[1]->kind = LONG_TEXT;
        std::wstring().swap(data.surfacesList[0]->surfaces[1]->desc);
    };
    const Messages messages =
        MessagesOfAllFailures<DlgDataApplyException>(GetParam(), prepare, [&] { data.ApplyToModel(); });
    EXPECT_EQ(messages,
              (Messages{L"サーフェスセット情報を更新中にエラーが発生しました。, cause",
                        L"プロジェクト情報を更新中にエラーが発生しました。, cause",
                        L"座標参照系情報を更新中にエラーが発生しました。, cause",
                        L"路線情報を更新中にエラーが発生しました。, cause",
                        L"路線情報を更新中にエラーが発生しました。, 線形情報を更新中にエラーが発生しました。, cause",
                        L"サーフェスセット情報を更新中にエラーが発生しました。, "
                        L"サーフェス情報を更新中にエラーが発生しました。, cause",
                        L"中間点情報を更新中にエラーが発生しました。, cause",
                        L"幅杭情報を更新中にエラーが発生しました。, cause"}));
}

INSTANTIATE_TEST_SUITE_P(OfTheFramework, DlgDataFailures, testing::Values(FailAsFramework, FailAsFile),
                         [](const auto& row) {
                             return std::string(row.param == FailAsFile ? "AsFile" : "AsFramework");
                         });

class OtherDlgDataFailures : public RunTest
{};

TEST_F(OtherDlgDataFailures, HaveOneTextForTheWholeFilling)
{
    Context().model = ModelOfLongTexts();
    const Messages messages = MessagesOfAllFailures<DlgDataSetException>(
        FailOtherwise, [] {}, [] { const JLandXmlConvertDlgData data; });
    EXPECT_EQ(messages, Messages{L"不明なエラーが発生しました。LandXMLデータの設定に失敗しました。"});
}

TEST_F(OtherDlgDataFailures, PassThroughApplyingAsTheyAre)
{
    Context().model = ModelOfLongTexts();
    JLandXmlConvertDlgData data;
    std::size_t failures = 0;
    for (bool failed = true; failed;)
    {
        LoadEmptyTexts();
        try
        {
            const FailingAllocation failing(failures, FailOtherwise);
            data.ApplyToModel();
            failed = false;
        }
        catch (const std::bad_alloc& exception)
        {
            EXPECT_EQ(typeid(exception), typeid(std::bad_alloc));
            ++failures;
        }
    }
    EXPECT_GE(failures, 8U);
}

TEST_F(OtherDlgDataFailures, LeaveDataThatCanBeFilledAndAppliedAgain)
{
    Context().model = ModelOfLongTexts();
    JLandXmlConvertDlgData data;
    const auto failInTheMiddle = [](auto act) {
        const FailingAllocation failing(6, FailAsFramework);
        act();
    };
    EXPECT_THROW(failInTheMiddle([&] { data.SetFromModel(); }), DlgDataSetException);
    data.SetFromModel();
    ASSERT_EQ(data.alignmentsList.size(), 1U);
    EXPECT_EQ(data.alignmentsList[0]->alignments.size(), 2U);

    LoadEmptyTexts();
    EXPECT_THROW(failInTheMiddle([&] { data.ApplyToModel(); }), DlgDataApplyException);
    data.ApplyToModel();
    EXPECT_EQ(Context().model.project.name, LONG_TEXT);
    EXPECT_EQ(Context().model.alignments[0].alignments[1].name, LONG_TEXT);
    EXPECT_EQ(Context().model.widthStakePoints[0].alignmentRefs, LONG_TEXT);
}

} // namespace
} // namespace jlandxml

#include "dialog/JLandXmlConvertDlgData.h"
#include "dialog/NumberInput.h"
#include "support/RowName.h"
#include "support/RunFixture.h"

namespace jlandxml
{
namespace
{

class ValidationTest : public RunTest
{
  protected:
    /// Data without a finding: a road and a river, each with an alignment, and a group of each kind.
    ValidationTest()
    {
        Context().model = FViewLandXML();
        Context().model.alignments.resize(2);
        Context().model.alignments[0].alignments.resize(1);
        Context().model.alignments[1].alignments.resize(1);
        Context().model.intermediatePoints.resize(1);
        Context().model.widthStakePoints.resize(1);
        data.SetFromModel();
        data.projectName = L"n";
        data.horizontalDatum = L"JGD2011";
        data.horizontalCoordinateSystemName = L"9(X,Y)";
        Road().designGmType = L"道路";
        Road().roadClassification = L"第1種第1級";
        Road().trafficVolume = L"100";
        River().designGmType = L"河川";
        River().riverClassification = L"1級";
        River().side = L"右岸";
        for (DlgDataAlignments* const route : {&Road(), &River()})
        {
            route->alignments[0]->mainInterval = L"20";
            route->alignments[0]->normalCrown = L"2";
        }
        data.cgPointsList.intermediate[0]->alignmentRefs = L"R1";
        Stakes().alignmentRefs = L"R1";
        Stakes().desc = L"d";
    }

    DlgDataAlignments& Road() { return *data.alignmentsList[0]; }
    DlgDataAlignments& River() { return *data.alignmentsList[1]; }
    DlgDataAlignment& Alignment() { return *Road().alignments[0]; }
    DlgDataCgPointsWidthStake& Stakes() { return *data.cgPointsList.widthStakes[0]; }

    std::vector<std::wstring> Findings()
    {
        EXPECT_EQ(data.Validate(), data.hasError);
        EXPECT_EQ(data.hasError, !data.errors.empty());
        return data.errors;
    }

    JLandXmlConvertDlgData data;
};

TEST_F(ValidationTest, CompleteDataHaveNoFinding)
{
    EXPECT_EQ(Findings(), std::vector<std::wstring>{});
}

struct FindingCase
{
    const wchar_t* rule;
    void (*change)(JLandXmlConvertDlgData& data);
    std::vector<std::wstring> messages;
};

class Finding : public ValidationTest, public testing::WithParamInterface<FindingCase>
{};

TEST_P(Finding, IsMadeByItself)
{
    GetParam().change(data);
    EXPECT_EQ(Findings(), GetParam().messages);
    EXPECT_EQ(Findings(), GetParam().messages);
}

INSTANTIATE_TEST_SUITE_P(
    Validation, Finding,
    testing::Values(
        FindingCase{L"no project name",
                    [](auto& data) { data.projectName.clear(); },
                    {L"プロジェクト名称が入力されていません。"}},
        FindingCase{L"no horizontal datum",
                    [](auto& data) { data.horizontalDatum.clear(); },
                    {L"測地原子が入力されていません。"}},
        FindingCase{L"no coordinate system",
                    [](auto& data) { data.horizontalCoordinateSystemName.clear(); },
                    {L"水平座標系が入力されていません。"}},
        FindingCase{L"the newest datum in an older version",
                    [](auto& data) {
                        data.horizontalDatum = L"JGD2024";
                        data.applicationCriterion = L"MlitLandXmlVer.1.6";
                    },
                    {L"座標系がJGD2024なので出力バージョンを1.6以下にしないでください。"}},
        FindingCase{L"the newest datum without a version",
                    [](auto& data) { data.horizontalDatum = L"JGD2024"; },
                    {L"座標系がJGD2024なので出力バージョンを1.6以下にしないでください。"}},
        FindingCase{L"the newest datum in the newest version",
                    [](auto& data) {
                        data.horizontalDatum = L"JGD2024";
                        data.applicationCriterion = L"MlitLandXmlVer.1.7";
                    },
                    {}},
        FindingCase{L"no road classification",
                    [](auto& data) { data.alignmentsList[0]->roadClassification.clear(); },
                    {L"道路の規格・等級が入力されていません。"}},
        FindingCase{L"no kind of route",
                    [](auto& data) { data.alignmentsList[0]->designGmType.clear(); },
                    {L"道路の規格・等級が入力されていません。"}},
        FindingCase{L"an unknown kind of route",
                    [](auto& data) { data.alignmentsList[0]->designGmType = L"他"; },
                    {L"河川の規格・等級が入力されていません。", L"左右岸区分が入力されていません。"}},
        FindingCase{L"no traffic volume",
                    [](auto& data) { data.alignmentsList[0]->trafficVolume.clear(); },
                    {L"設計交通量が入力されていません。"}},
        FindingCase{L"a blank behind the traffic volume",
                    [](auto& data) { data.alignmentsList[0]->trafficVolume = L"100 "; },
                    {L"設計交通量は数値を入力してください。"}},
        FindingCase{L"a traffic volume with an exponent",
                    [](auto& data) { data.alignmentsList[0]->trafficVolume = L"1e3"; },
                    {}},
        FindingCase{L"no traffic at all", [](auto& data) { data.alignmentsList[0]->trafficVolume = L"0"; }, {}},
        FindingCase{
            L"the largest traffic volume", [](auto& data) { data.alignmentsList[0]->trafficVolume = L"999999"; }, {}},
        FindingCase{L"too large a traffic volume",
                    [](auto& data) { data.alignmentsList[0]->trafficVolume = L"999999.1"; },
                    {L"設計交通量は0.0000から999999.0000の範囲内で入力してください。"}},
        FindingCase{L"a negative traffic volume",
                    [](auto& data) { data.alignmentsList[0]->trafficVolume = L"-1"; },
                    {L"設計交通量は0.0000から999999.0000の範囲内で入力してください。"}},
        FindingCase{L"no river classification",
                    [](auto& data) { data.alignmentsList[1]->riverClassification.clear(); },
                    {L"河川の規格・等級が入力されていません。"}},
        FindingCase{L"no river side",
                    [](auto& data) { data.alignmentsList[1]->side.clear(); },
                    {L"左右岸区分が入力されていません。"}},
        FindingCase{L"no main interval",
                    [](auto& data) { data.alignmentsList[0]->alignments[0]->mainInterval.clear(); },
                    {L"主測点間隔が入力されていません。"}},
        FindingCase{L"a main interval of zero",
                    [](auto& data) { data.alignmentsList[0]->alignments[0]->mainInterval = L"0"; },
                    {L"主測点間隔は0.0010から9999.9990の範囲内で入力してください。"}},
        FindingCase{L"eleven decimals",
                    [](auto& data) { data.alignmentsList[0]->alignments[0]->mainInterval = L"1.00000000000"; },
                    {L"主測点間隔は小数第10位までの値を入力してください。"}},
        FindingCase{L"a sub interval that is no number",
                    [](auto& data) { data.alignmentsList[0]->alignments[0]->subInterval = L"x"; },
                    {L"副測点間隔は数値を入力してください。"}},
        FindingCase{L"no cross fall",
                    [](auto& data) { data.alignmentsList[0]->alignments[0]->normalCrown.clear(); },
                    {L"直線部横断勾配が入力されていません。"}},
        FindingCase{L"no cross fall beside a slope list",
                    [](auto& data) {
                        data.alignmentsList[1]->alignments[0]->normalCrown.clear();
                        data.alignmentsList[1]->alignments[0]->useSlopeList = 1;
                    },
                    {}},
        FindingCase{L"no cross fall beside a negative flag",
                    [](auto& data) {
                        data.alignmentsList[1]->alignments[0]->normalCrown.clear();
                        data.alignmentsList[1]->alignments[0]->useSlopeList = -1;
                    },
                    {}},
        FindingCase{L"a wrong cross fall beside a slope list",
                    [](auto& data) {
                        data.alignmentsList[1]->alignments[0]->normalCrown = L"10000";
                        data.alignmentsList[1]->alignments[0]->useSlopeList = 1;
                    },
                    {L"直線部横断勾配は0.0010から9999.9990の範囲内で入力してください。"}},
        FindingCase{L"no reference of intermediate points",
                    [](auto& data) { data.cgPointsList.intermediate[0]->alignmentRefs.clear(); },
                    {L"中間点の参照線形が入力されていません。"}},
        FindingCase{L"no reference of width stakes",
                    [](auto& data) { data.cgPointsList.widthStakes[0]->alignmentRefs.clear(); },
                    {L"幅杭の参照線形が入力されていません。"}},
        FindingCase{L"no note of width stakes",
                    [](auto& data) { data.cgPointsList.widthStakes[0]->desc.clear(); },
                    {L"注記が入力されていません。"}}),
    BY_RULE);

TEST_F(ValidationTest, AllFindingsAreMadeTogetherInOrder)
{
    Context().model = FViewLandXML();
    Context().model.alignments.resize(1);
    Context().model.alignments[0].alignments.resize(2);
    Context().model.intermediatePoints.resize(1);
    Context().model.widthStakePoints.resize(1);
    data.SetFromModel();
    EXPECT_EQ(Findings(), (std::vector<std::wstring>{
                              L"プロジェクト名称が入力されていません。", L"測地原子が入力されていません。",
                              L"水平座標系が入力されていません。", L"道路の規格・等級が入力されていません。",
                              L"設計交通量が入力されていません。", L"主測点間隔が入力されていません。",
                              L"直線部横断勾配が入力されていません。", L"主測点間隔が入力されていません。",
                              L"直線部横断勾配が入力されていません。", L"中間点の参照線形が入力されていません。",
                              L"幅杭の参照線形が入力されていません。", L"注記が入力されていません。"}));
}

TEST_F(ValidationTest, AnEmptyProjectNameAndDatumAreTwoFindings)
{
    data.projectName.clear();
    data.horizontalDatum.clear();
    EXPECT_EQ(Findings(), (std::vector<std::wstring>{L"プロジェクト名称が入力されていません。",
                                                     L"測地原子が入力されていません。"}));
}

TEST_F(ValidationTest, AZeroMayBeTypedAndIsOutOfRange)
{
    EXPECT_TRUE(AcceptsInput(MAIN_INTERVAL_RULE, L"0"));
    Alignment().mainInterval = L"0";
    EXPECT_EQ(Findings(), std::vector<std::wstring>{L"主測点間隔は0.0010から9999.9990の範囲内で入力してください。"});
}

TEST_F(ValidationTest, ElevenDecimalsAreTheOnlyFinding)
{
    Alignment().mainInterval = L"20.00000000001";
    EXPECT_EQ(Findings(), std::vector<std::wstring>{L"主測点間隔は小数第10位までの値を入力してください。"});
}

TEST_F(ValidationTest, ARiverWithASlopeListNeedsNoCrossFall)
{
    River().alignments[0]->useSlopeList = 1;
    River().alignments[0]->normalCrown.clear();
    EXPECT_EQ(Findings(), std::vector<std::wstring>{});
}

TEST_F(ValidationTest, AWidthStakeWithoutANoteIsNeverApplied)
{
    Stakes().desc.clear();
    EXPECT_EQ(Findings(), std::vector<std::wstring>{L"注記が入力されていません。"});
}

TEST_F(ValidationTest, EachGroupOfWidthStakesIsCheckedWholeBeforeTheNext)
{
    data.cgPointsList.widthStakes.push_back(std::make_unique<DlgDataCgPointsWidthStake>());
    Stakes().alignmentRefs.clear();
    Stakes().desc.clear();
    EXPECT_EQ(Findings(),
              (std::vector<std::wstring>{L"幅杭の参照線形が入力されていません。", L"注記が入力されていません。",
                                         L"幅杭の参照線形が入力されていません。", L"注記が入力されていません。"}));
}

TEST_F(ValidationTest, SurfacesWithoutAnAlignmentAreNoFinding)
{
    data.surfacesList.push_back(std::make_unique<DlgDataSurfaces>());
    data.surfacesList[0]->surfaces.push_back(std::make_unique<DlgDataSurface>());
    EXPECT_EQ(Findings(), std::vector<std::wstring>{});
}

struct NumberField
{
    std::wstring& (*text)(JLandXmlConvertDlgData& data);
    std::wstring item;
    bool required;
    const wchar_t* tooSmall;
    const wchar_t* least;
    const wchar_t* most;
    const wchar_t* tooLarge;
    const wchar_t* range;
};

class NumberFields : public ValidationTest, public testing::WithParamInterface<NumberField>
{
  protected:
    std::vector<std::wstring> FindingsOf(const std::wstring& text)
    {
        GetParam().text(data) = text;
        return Findings();
    }

    static std::vector<std::wstring> Says(const std::wstring& words) { return {GetParam().item + words}; }
};

TEST_P(NumberFields, AreCheckedOnBothSidesOfTheirBounds)
{
    EXPECT_EQ(FindingsOf(GetParam().least), std::vector<std::wstring>{});
    EXPECT_EQ(FindingsOf(GetParam().most), std::vector<std::wstring>{});
    for (const wchar_t* const text : {GetParam().tooSmall, GetParam().tooLarge, L"-1", L"-inf", L"inf", L"1e400"})
    {
        EXPECT_EQ(FindingsOf(text), Says(GetParam().range));
    }
    // Neither below nor above.
    EXPECT_EQ(FindingsOf(L"nan"), std::vector<std::wstring>{});
}

TEST_P(NumberFields, HoldNothingButANumber)
{
    EXPECT_EQ(FindingsOf(L""), GetParam().required ? Says(L"が入力されていません。") : std::vector<std::wstring>{});
    for (const wchar_t* const text : {L" ", L"x", L"1x", L"1 ", L"1,5", L"1.2.3", L"１", L"--1", L"1e3m", L".", L"-"})
    {
        EXPECT_EQ(FindingsOf(text), Says(L"は数値を入力してください。"));
    }
    for (const wchar_t* const text : {L" 1", L"+1", L"1e3", L"1.", L".5", L"0x1F", L"1E+2"})
    {
        EXPECT_EQ(FindingsOf(text), std::vector<std::wstring>{});
    }
}

TEST_P(NumberFields, HaveUpToTenDecimals)
{
    for (std::size_t decimals = 0; decimals <= 20; ++decimals)
    {
        EXPECT_EQ(FindingsOf(L"12." + std::wstring(decimals, L'3')),
                  decimals <= 10 ? std::vector<std::wstring>{} : Says(L"は小数第10位までの値を入力してください。"));
    }
}

std::string NumberFieldName(const testing::TestParamInfo<NumberField>& row)
{
    constexpr const char* NAMES[] = {"TrafficVolume", "MainInterval", "SubInterval", "NormalCrown"};
    return NAMES[row.index];
}

INSTANTIATE_TEST_SUITE_P(
    Validation, NumberFields,
    testing::Values(
        NumberField{[](auto& data) -> std::wstring& { return data.alignmentsList[0]->trafficVolume; }, L"設計交通量",
                    true, L"-0.0001", L"0", L"999999.0", L"999999.0001",
                    L"は0.0000から999999.0000の範囲内で入力してください。"},
        NumberField{[](auto& data) -> std::wstring& { return data.alignmentsList[0]->alignments[0]->mainInterval; },
                    L"主測点間隔", true, L"0.0009999999", L"0.001", L"9999.999", L"9999.9990001",
                    L"は0.0010から9999.9990の範囲内で入力してください。"},
        NumberField{[](auto& data) -> std::wstring& { return data.alignmentsList[1]->alignments[0]->subInterval; },
                    L"副測点間隔", false, L"0.0009999999", L"0.001", L"9999.999", L"9999.9990001",
                    L"は0.0010から9999.9990の範囲内で入力してください。"},
        NumberField{[](auto& data) -> std::wstring& { return data.alignmentsList[1]->alignments[0]->normalCrown; },
                    L"直線部横断勾配", true, L"0.0009999999", L"0.001", L"9999.999", L"9999.9990001",
                    L"は0.0010から9999.9990の範囲内で入力してください。"}),
    NumberFieldName);

struct Fault
{
    void (*make)(JLandXmlConvertDlgData& data);
    void (*mend)(JLandXmlConvertDlgData& data);
    const wchar_t* message;
};

/// One for each place at which a finding can be made, in the order of the findings.
constexpr Fault FAULTS[] = {
    {[](auto& data) { data.projectName.clear(); }, [](auto& data) { data.projectName = L"n"; },
     L"プロジェクト名称が入力されていません。"},
    {[](auto& data) { data.horizontalCoordinateSystemName.clear(); },
     [](auto& data) { data.horizontalCoordinateSystemName = L"9(X,Y)"; }, L"水平座標系が入力されていません。"},
    {[](auto& data) { data.horizontalDatum = L"JGD2024"; }, [](auto& data) { data.horizontalDatum = L"JGD2011"; },
     L"座標系がJGD2024なので出力バージョンを1.6以下にしないでください。"},
    {[](auto& data) { data.alignmentsList[0]->roadClassification.clear(); },
     [](auto& data) { data.alignmentsList[0]->roadClassification = L"第1種第1級"; },
     L"道路の規格・等級が入力されていません。"},
    {[](auto& data) { data.alignmentsList[0]->trafficVolume = L"-1"; },
     [](auto& data) { data.alignmentsList[0]->trafficVolume = L"1"; },
     L"設計交通量は0.0000から999999.0000の範囲内で入力してください。"},
    {[](auto& data) { data.alignmentsList[0]->alignments[0]->mainInterval = L"m"; },
     [](auto& data) { data.alignmentsList[0]->alignments[0]->mainInterval = L"20"; },
     L"主測点間隔は数値を入力してください。"},
    {[](auto& data) { data.alignmentsList[0]->alignments[0]->subInterval = L"1.00000000000"; },
     [](auto& data) { data.alignmentsList[0]->alignments[0]->subInterval.clear(); },
     L"副測点間隔は小数第10位までの値を入力してください。"},
    {[](auto& data) { data.alignmentsList[0]->alignments[0]->normalCrown.clear(); },
     [](auto& data) { data.alignmentsList[0]->alignments[0]->normalCrown = L"2"; },
     L"直線部横断勾配が入力されていません。"},
    {[](auto& data) { data.alignmentsList[1]->riverClassification.clear(); },
     [](auto& data) { data.alignmentsList[1]->riverClassification = L"1級"; },
     L"河川の規格・等級が入力されていません。"},
    {[](auto& data) { data.alignmentsList[1]->side.clear(); },
     [](auto& data) { data.alignmentsList[1]->side = L"左岸"; }, L"左右岸区分が入力されていません。"},
    {[](auto& data) { data.alignmentsList[1]->alignments[0]->mainInterval.clear(); },
     [](auto& data) { data.alignmentsList[1]->alignments[0]->mainInterval = L"20"; },
     L"主測点間隔が入力されていません。"},
    {[](auto& data) { data.cgPointsList.intermediate[0]->alignmentRefs.clear(); },
     [](auto& data) { data.cgPointsList.intermediate[0]->alignmentRefs = L"R1"; },
     L"中間点の参照線形が入力されていません。"},
    {[](auto& data) { data.cgPointsList.widthStakes[0]->alignmentRefs.clear(); },
     [](auto& data) { data.cgPointsList.widthStakes[0]->alignmentRefs = L"R1"; },
     L"幅杭の参照線形が入力されていません。"},
    {[](auto& data) { data.cgPointsList.widthStakes[0]->desc.clear(); },
     [](auto& data) { data.cgPointsList.widthStakes[0]->desc = L"d"; }, L"注記が入力されていません。"},
};

TEST_F(ValidationTest, AnyFaultsTogetherAreFoundInOrder)
{
    for (unsigned chosen = 0; chosen < 1U << std::size(FAULTS); ++chosen)
    {
        std::vector<std::wstring> expected;
        for (std::size_t index = 0; index < std::size(FAULTS); ++index)
        {
            const Fault& fault = FAULTS[index];
            const bool made = (chosen >> index & 1U) != 0;
            (made ? fault.make : fault.mend)(data);
            if (made)
            {
                expected.emplace_back(fault.message);
            }
        }
        ASSERT_EQ(Findings(), expected);
    }
}

} // namespace
} // namespace jlandxml

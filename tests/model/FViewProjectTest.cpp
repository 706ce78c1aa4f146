#include "model/FViewProject.h"

#include "model/OutputVersion.h"
#include "support/XmlText.h"

#include <gtest/gtest.h>

#include <limits>

namespace jlandxml
{
namespace
{

TEST(FViewProject, ReadsPhaseAndVersionFromTheNamelessFeature)
{
    const auto project = Read<FViewProject>(
        L"<Project name='n'><Feature name='f'><Property label='projectPhase' value='no'/></Feature><Feature>"
        L"<Property label='projectPhase' value='詳細'/><Property label='x' value='y'/>"
        L"<Property label='applicationCriterion' value='MlitLandXmlVer.1.6'/></Feature></Project>");
    EXPECT_EQ(project.projectPhase, L"詳細");
    EXPECT_EQ(project.applicationCriterion, L"MlitLandXmlVer.1.6");
    EXPECT_EQ(project.name, L"");
}

TEST(FViewProject, LabelsInAnotherCaseAreOtherProperties)
{
    const std::wstring others = L"<Property label=\"ApplicationCriterion\" value=\"MlitLandXmlVer.1.5\"/>"
                                L"<Property label=\"projectphase\" value=\"詳細\"/>";
    const auto project = Read<FViewProject>(L"<Project><Feature>" + others + L"</Feature></Project>");
    EXPECT_EQ(project.applicationCriterion, L"");
    EXPECT_EQ(project.projectPhase, L"");
    EXPECT_EQ(Written<FViewProject>(L"<Project><Feature>" + others + L"</Feature></Project>", 3),
              L"<Project><Feature>" + others +
                  L"<Property label=\"applicationCriterion\" value=\"MlitLandXmlVer.1.6\"/></Feature></Project>");
}

TEST(FViewProject, AnEmptyNameAttributeCountsAsNameless)
{
    EXPECT_EQ(Read<FViewProject>(
                  L"<Project><Feature name=''><Property label='projectPhase' value='詳細'/></Feature></Project>")
                  .projectPhase,
              L"詳細");
}

TEST(FViewProject, ALaterNamelessFeatureOverwritesAnEarlierOne)
{
    const auto project =
        Read<FViewProject>(L"<Project><Feature><Property label='projectPhase' value='概略'/></Feature>"
                           L"<Feature><Property label='projectPhase' value='予備'/></Feature></Project>");
    EXPECT_EQ(project.projectPhase, L"予備");
}

TEST(FViewProject, AnEmptyValueOfALaterNamelessFeatureOverwrites)
{
    EXPECT_EQ(Read<FViewProject>(L"<Project><Feature><Property label='projectPhase' value='概略'/></Feature>"
                                 L"<Feature><Property label='projectPhase' value=''/></Feature></Project>")
                  .projectPhase,
              L"");
}

TEST(FViewProject, WithoutAFeatureItIsEmptyAndGetsANewOne)
{
    const auto project = Read<FViewProject>(L"<Project name='n'/>");
    EXPECT_EQ(project.projectPhase, L"");
    EXPECT_EQ(project.applicationCriterion, L"");
    EXPECT_EQ(Written<FViewProject>(L"<Project name='n'/>"),
              L"<Project name=\"n\"><Feature><Property label=\"applicationCriterion\" "
              L"value=\"MlitLandXmlVer.1.7\"/></Feature>"
              L"</Project>");
}

TEST(FViewProject, AnExistingNamelessFeatureIsUpdatedInPlaceAndTheRestStays)
{
    EXPECT_EQ(
        Written<FViewProject>(L"<Project><Feature><Property label='a' value='b'/>"
                              L"<Property label='applicationCriterion' value='MlitLandXmlVer.1.3' x='y'/></Feature><z/>"
                              L"</Project>",
                              VersionNumber(L"1.5")),
        L"<Project><Feature><Property label=\"a\" value=\"b\"/>"
        L"<Property label=\"applicationCriterion\" value=\"MlitLandXmlVer.1.5\" x=\"y\"/></Feature><z/></Project>");
}

using VersionCase = std::pair<OutputVersion, const wchar_t*>;

class ProjectVersion : public testing::TestWithParam<VersionCase>
{};

TEST_P(ProjectVersion, IsWrittenByTheOutputVersionWhateverTheFieldHolds)
{
    FViewProject project;
    project.applicationCriterion = L"MlitLandXmlVer.1.3";
    project.SetOutputVersion(GetParam().first);
    EXPECT_EQ(WrittenInto(project, L"<Project/>"),
              std::wstring(L"<Project><Feature><Property label=\"applicationCriterion\" value=\"") + GetParam().second +
                  L"\"/></Feature></Project>");
}

INSTANTIATE_TEST_SUITE_P(FViewProject, ProjectVersion,
                         testing::Values(VersionCase{0, L"MlitLandXmlVer.1.3"}, VersionCase{1, L"MlitLandXmlVer.1.4"},
                                         VersionCase{2, L"MlitLandXmlVer.1.5"}, VersionCase{3, L"MlitLandXmlVer.1.6"},
                                         VersionCase{4, L"MlitLandXmlVer.1.7"}),
                         [](const auto& one) { return "Number" + std::to_string(one.param.first); });

using UnknownVersion = std::pair<const char*, std::int32_t>;

class ProjectOfNoVersion : public testing::TestWithParam<UnknownVersion>
{};

TEST_P(ProjectOfNoVersion, CanNotBeWrittenAndStaysAsItIs)
{
    FViewProject project;
    project.name = L"n";
    project.SetOutputVersion(GetParam().second);
    XmlText xml(L"<Project/>");
    EXPECT_FALSE(project.WriteElement(xml.Root()));
    EXPECT_EQ(xml.Text(), L"<Project/>");
}

INSTANTIATE_TEST_SUITE_P(FViewProject, ProjectOfNoVersion,
                         testing::Values(UnknownVersion{"Smallest", std::numeric_limits<std::int32_t>::min()},
                                         UnknownVersion{"BelowTheOldest", -1},
                                         UnknownVersion{"AboveTheNewest", NEWEST_VERSION.number + 1},
                                         UnknownVersion{"Largest", std::numeric_limits<std::int32_t>::max()}),
                         [](const auto& one) { return one.param.first; });

TEST(FViewProject, NameAndPhaseAreWrittenWhereGiven)
{
    FViewProject project;
    project.name = L"国道1号";
    project.projectPhase = L"施工";
    EXPECT_EQ(WrittenInto(project, L"<Project desc='d'/>"),
              L"<Project desc=\"d\" name=\"国道1号\"><Feature><Property label=\"projectPhase\" value=\"施工\"/>"
              L"<Property label=\"applicationCriterion\" value=\"MlitLandXmlVer.1.3\"/></Feature></Project>");
    EXPECT_EQ(WrittenInto(FViewProject(), L"<Project name='old'/>"),
              L"<Project name=\"old\"><Feature><Property label=\"applicationCriterion\" "
              L"value=\"MlitLandXmlVer.1.3\"/></Feature>"
              L"</Project>");
}

} // namespace
} // namespace jlandxml

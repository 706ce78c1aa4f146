#include "dialog/DialogFields.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <vector>

namespace jlandxml
{
namespace
{

using namespace convert_dlg;

std::vector<DialogField> AllFields()
{
    std::vector<DialogField> all;
    for (const FieldTable& fields : FIELD_TABLES)
    {
        all.insert(all.end(), fields.begin(), fields.end());
    }
    return all;
}

TEST(DialogFields, EveryEditAndListOfTheLayoutStandsForOneField)
{
    for (const ControlTemplate& control : TEMPLATE.controls)
    {
        const std::vector<DialogField> fields = AllFields();
        const auto count = std::count_if(fields.begin(), fields.end(),
                                         [&](const DialogField& field) { return field.control == control.number; });
        EXPECT_EQ(count, IsEdit(control.kind) || IsList(control.kind) || control.kind == ControlKind::FirstRadio)
            << control.number;
    }
}

TEST(DialogFields, EachFieldHasAControlOfItsKind)
{
    for (const DialogField& field : AllFields())
    {
        const ControlTemplate* const control = FindControl(TEMPLATE, field.control);
        ASSERT_NE(control, nullptr) << field.key;
        EXPECT_EQ(IsEditField(field.kind), IsEdit(control->kind)) << field.key;
        EXPECT_EQ(IsListField(field.kind), IsList(control->kind)) << field.key;
        EXPECT_EQ(IsReadOnlyField(field.kind), control->kind == ControlKind::ReadOnlyEdit) << field.key;
        EXPECT_EQ(field.kind == FieldKind::RouteKind, IsRadio(control->kind)) << field.key;
    }
}

TEST(DialogFields, EachFieldHasWhatItsKindNeeds)
{
    for (const DialogField& field : AllFields())
    {
        EXPECT_EQ(field.flag != nullptr, field.kind == FieldKind::Flag) << field.key;
        EXPECT_NE(field.text != nullptr, field.flag != nullptr) << field.key;
        const bool chosen =
            (IsListField(field.kind) && field.kind != FieldKind::Reference) || field.kind == FieldKind::ReadOnlyEntry;
        EXPECT_EQ(field.vocabulary.has_value(), chosen) << field.key;
        const bool offered =
            *field.defaultDisplay == L'\0' ||
            !FindXml(GetDisplayXmlTables().GetVocabulary(*field.vocabulary), field.defaultDisplay).empty();
        EXPECT_TRUE(offered) << field.key;
        EXPECT_TRUE(field.number == nullptr || IsEditField(field.kind)) << field.key;
    }
}

TEST(DialogFields, KeysAreUniqueInEachTable)
{
    for (const FieldTable& fields : FIELD_TABLES)
    {
        std::set<std::string> keys;
        for (const DialogField& field : fields)
        {
            EXPECT_TRUE(keys.insert(field.key).second) << field.key;
        }
    }
}

TEST(DialogFields, AFieldWithoutAKindOfRouteIsOneOfEveryRoute)
{
    constexpr DialogField ANY{.key = "any", .control = 0, .kind = FieldKind::Entry};
    constexpr DialogField ROAD{.key = "road", .control = 0, .kind = FieldKind::Entry, .routeKind = ROAD_DESIGN};
    for (const std::wstring_view kind : {ROAD_DESIGN, RIVER_DESIGN, L"", L"鉄道"})
    {
        EXPECT_TRUE(IsOfRouteKind(ANY, kind));
        EXPECT_EQ(IsOfRouteKind(ROAD, kind), kind == ROAD_DESIGN);
    }
}

TEST(DialogFields, AreFoundByTheirControl)
{
    EXPECT_EQ(FindField(NORMAL_CROWN_EDIT), &ALIGNMENT_FIELDS[3]);
    EXPECT_EQ(FindField(WIDTH_STAKE_DESC_EDIT), &WIDTH_STAKE_FIELDS[2]);
    EXPECT_EQ(FindField(PROJECT_NAME_EDIT), &PROJECT_FIELDS[0]);
    for (const int other : {OUTPUT_BUTTON, RIVER_RADIO, OBJECT_TREE, ROUTE_GROUP, 0, -1, 9999})
    {
        EXPECT_EQ(FindField(other), nullptr) << other;
    }
}

} // namespace
} // namespace jlandxml

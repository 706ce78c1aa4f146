#pragma once

#include "dialog/JLandXMLErrorDlg.h"
#include "dialog/JLandXmlConvertDlg.h"
#include "dialog/JLandXmlConvertDlgControls.h"
#include "support/RunFixture.h"

#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace jlandxml
{

/// The main dialog over a model, in scripted windows.
class ConvertDlgTest : public RunTest
{
  protected:
    using Lines = std::vector<std::wstring>;
    using User = std::function<void(ScriptedDialog&)>;

    ConvertDlgTest() { Model() = FViewLandXML(); }

    static FViewLandXML& Model() { return Context().model; }

    /// A road with two alignments, a river with one, a route of no type, surface sets and groups of both kinds. What
    /// came with the input and what didn't stand side by side.
    static void LoadSample()
    {
        FViewLandXML& model = Model();
        model.project.name = L"改良工事";
        model.project.projectPhase = L"予備";
        model.project.applicationCriterion = L"MlitLandXmlVer.1.7";
        model.coordinateSystem.horizontalDatum = L"JGD2024";
        model.coordinateSystem.horizontalCoordinateSystemName = L"9(X,Y)";
        model.coordinateSystem.verticalDatum = L"O.P";
        model.alignments.resize(3);
        FViewAlignments& road = model.alignments[0];
        road.name = L"国道";
        road.designGmType = L"道路";
        road.trafficVolume = L"1000";
        road.alignments.resize(2);
        road.alignments[0].name = L"本線";
        road.alignments[0].mainInterval = 20.0;
        road.alignments[0].normalCrown = 2.0;
        road.alignments[0].singleLaneRoad = 1;
        road.alignments[0].useSlopeList = 1;
        road.alignments[0].method = L"クロソイド法";
        road.alignments[1].name = L"支線";
        road.alignments[1].method.clear();
        FViewAlignments& river = model.alignments[1];
        river.designGmType = L"河川";
        river.side = L"左岸";
        river.alignments.resize(1);
        river.alignments[0].name = L"堤防";
        river.alignments[0].subInterval = 5.0;
        model.surfaces.resize(2);
        model.surfaces[0].surfaces.resize(2);
        model.surfaces[0].surfaces[0].name = L"路床";
        model.surfaces[0].surfaces[0].desc = L"SubBase\r\n二行目";
        model.surfaces[0].surfaces[0].alignmentRefs = L"本線";
        model.surfaces[0].surfaces[1].name = L"地形";
        model.intermediatePoints.resize(2);
        model.intermediatePoints[1].alignmentRefs = L"どこにもない線形";
        model.widthStakePoints.resize(2);
        model.widthStakePoints[0].type = L"closed";
        model.widthStakePoints[0].desc = L"用地";
        model.widthStakePoints[1].alignmentRefs = L"支線";
        model.widthStakePoints[1].type = L"half open";
    }

    /// Opens the dialog, lets the user work it, and returns when it has ended. What stands in an error list is kept
    /// in `findings`.
    DialogResult Open(const User& user)
    {
        windows.SetUser([&](ScriptedDialog& window) {
            if (&window.Template() == &JLandXMLErrorDlg::TEMPLATE)
            {
                findings.push_back(window.Entries(JLandXMLErrorDlg::MESSAGE_LIST));
                return;
            }
            user(window);
        });
        JLandXmlConvertDlg opened;
        dialog = &opened;
        const DialogResult result = opened.DoModal();
        dialog = nullptr;
        return result;
    }

    const JLandXmlConvertDlgData& Data() const { return dialog->Data(); }

    /// The item of the tree that stands at a path of places, from the roots on.
    static TreeItem ItemAt(const ScriptedDialog& window, std::initializer_list<std::size_t> path)
    {
        TreeItem item = nullptr;
        for (const std::size_t place : path)
        {
            item = window.TreeChildren(convert_dlg::OBJECT_TREE, item).at(place);
        }
        return item;
    }

    static void Select(ScriptedDialog& window, std::initializer_list<std::size_t> path)
    {
        EXPECT_TRUE(window.ChooseTreeItem(convert_dlg::OBJECT_TREE, ItemAt(window, path)));
    }

    static void Choose(ScriptedDialog& window, int list, const std::wstring& text)
    {
        EXPECT_TRUE(window.ChooseEntry(list, window.FindEntry(list, text))) << list << testing::PrintToString(text);
    }

    /// All of the model that the dialog can change, one line for each object.
    static std::wstring Dump(const FViewLandXML& model)
    {
        std::wostringstream out;
        const auto line = [&](auto... fields) {
            ((out << fields << L'|'), ...);
            out << L'\n';
        };
        line(model.project.name, model.project.projectPhase, model.project.applicationCriterion);
        line(model.coordinateSystem.horizontalDatum, model.coordinateSystem.verticalDatum,
             model.coordinateSystem.horizontalCoordinateSystemName, model.coordinateSystem.differTP);
        for (const FViewAlignments& route : model.alignments)
        {
            line(L"route", route.name, route.designGmType, route.roadClassification, route.riverClassification,
                 route.trafficVolume, route.side);
            for (const FViewAlignment& one : route.alignments)
            {
                line(L"alignment", one.name, one.mainInterval, one.subInterval, one.normalCrown, one.singleLaneRoad,
                     one.useSlopeList, one.method);
            }
        }
        for (const FViewSurfaces& set : model.surfaces)
        {
            line(L"set");
            for (const FViewSurface& surface : set.surfaces)
            {
                line(L"surface", surface.name, surface.desc, surface.alignmentRefs);
            }
        }
        for (const FViewCgPointsIntermediate& group : model.intermediatePoints)
        {
            line(L"intermediate", group.name, group.alignmentRefs);
        }
        for (const FViewCgPointsWidthStake& group : model.widthStakePoints)
        {
            line(L"stakes", group.name, group.alignmentRefs, group.type, group.desc);
        }
        return out.str();
    }

    const JLandXmlConvertDlg* dialog = nullptr;
    std::vector<Lines> findings; ///< the entries of each error list, as shown
};

} // namespace jlandxml

#pragma once

#include "dialog/JLandXmlConvertDlgData.h"
#include "windows/Dialog.h"

#include <string>
#include <vector>

namespace jlandxml
{

/// The window that lists the findings of the checks, all at one time, over the main dialog. It changes nothing.
class JLandXMLErrorDlg : public Dialog
{
  public:
    /// The list box, which orders the findings by their text.
    static constexpr int MESSAGE_LIST = 1062;

    explicit JLandXMLErrorDlg(Dialog& owner);

    static const DialogTemplate TEMPLATE;

    /// What is listed; copied in before the dialog is run.
    std::vector<std::wstring> messages;
    /// What each of the messages is about. Users don't see it.
    std::vector<FindingPlace> places;

    void OnInitDialog() override;
};

} // namespace jlandxml

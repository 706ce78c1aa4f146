#pragma once

namespace jlandxml
{

/// Gives Qt's own words in the module's windows in Japanese, whatever the user's locale and whether Qt's translations
/// are there: the buttons, columns and menus of the save dialog and the menu of an edit. The host's windows keep
/// theirs: for them nothing is translated while no such scope lives.
class JapaneseTexts
{
  public:
    JapaneseTexts();
    JapaneseTexts(const JapaneseTexts&) = delete;
    JapaneseTexts& operator=(const JapaneseTexts&) = delete;
    ~JapaneseTexts();
};

} // namespace jlandxml

#pragma once

#include <string>

#include "info/modEnumResources.h"

namespace tabulon {

/// Shows one tip at a time, at each start and on request.
class DlgTipOfTheDay : public Form, public IEnumResources {
  public:
    explicit DlgTipOfTheDay(Globals& g);

    /// Returns when the dialog has closed. With the tips off it shows an empty one. The form stays loaded.
    void TipOfTheDay(bool& Ok);
    /// Shows the text of that number, "#101" or "101", cut to MaxLength; blanks when there is none.
    void DisplayString(const std::string& ModuleFile, const std::string& StringId, std::int32_t MaxLength);
    /// Makes each line feed a pair of carriage return and line feed.
    std::string FixLFs(const std::string& Text);

    void EnumResourceSink(const ResourceModule& Module, const std::string& ResourceName,
                          const std::string& ResourceType, int& Cancel) override;

    std::string TipFile;
    Integer MaxTipBlock;
    Integer CurrentTip;
    ResourceModule TipModule;
    bool ModuleLoadedHere = false;
    std::string TipStatus;

    Label lblTitle{*this, "lblTitle"};
    Label lblTipText{*this, "lblTipText"};
    PictureButton cmdBack{*this, "cmdBack"};
    PictureButton cmdNext{*this, "cmdNext"};
    PictureButton cmdClose{*this, "cmdClose"};
    Label lblNoMoreTips{*this, "lblNoMoreTips"};
    CheckBox chkShowTipsAtStartup{*this, "chkShowTipsAtStartup"};
    Button cmdFakeClose{*this, "cmdFakeClose"};
    Button cmdFakeNext{*this, "cmdFakeNext"};

  protected:
    void Design() override;
    void Form_Unload() override;

  private:
    void RepositionElements();
    void FindTips();
    void LoadModule(const std::string& ModuleFile, bool& Ok);
    void ShowCurrentTip();
    void cmdNext_Click();
    void cmdBack_Click();
    void cmdClose_Click();
    bool ProcessButtonCode(int KeyCode, int Shift);

    Globals& m_g;
    modEnumResources m_resources;
};

}  // namespace tabulon

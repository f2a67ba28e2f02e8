#pragma once

#include <memory>
#include <string>

#include "board/main_form.h"
#include "info/dlgRTF.h"
#include "info/dlgTipOfTheDay.h"

namespace tabulon {

/// The way to everything that is not play: the game's help, the Player's own, the tip of the day, the web
/// site.
class DlgHelp : public Form {
  public:
    DlgHelp(Globals& g, MainForm& frmMain, modInstallUninstall& packages, DlgRTF& dlgRTF,
            DlgTipOfTheDay& dlgTipOfTheDay);

    /// Returns when the dialog has closed.
    void SetUp(const std::shared_ptr<CGame>& oGame);

    ControlArray<PictureButton, 7> cmdHelp{*this, "cmdHelp"};
    Button cmdFakeClose{*this, "cmdFakeClose"};

    std::shared_ptr<CGame> Game;

  protected:
    void Design() override;

  private:
    void RepositionElements();
    bool FormInitOK();
    void cmdHelp_Click(int Index);
    bool Form_KeyUp(int KeyCode);
    void ShowGameHelp();
    void ShowDefaultHelp();
    void ShowGameHelpFile();
    void ShowTip();
    void OpenPage(const std::string& page);
    void ShowHTMLHelp(const std::string& FileName, bool IsGameHelp);
    void ShowWinHelp(const std::string& FileName);
    std::filesystem::path GameFolder();

    Globals& m_g;
    MainForm& m_frmMain;
    modInstallUninstall& m_packages;
    DlgRTF& m_dlgRTF;
    DlgTipOfTheDay& m_dlgTipOfTheDay;
};

}  // namespace tabulon

#pragma once

#include <functional>
#include <string>

#include "board/main_form.h"
#include "info/frmSplash.h"
#include "library/dlgLoadGame.h"
#include "presentation/frmGameMusic.h"

namespace tabulon {

/// The product's own splash: stays up while the first game is chosen.
class FrmTabulonSplash : public Form {
  public:
    FrmTabulonSplash(Globals& g, MainForm& frmMain, FrmSplash& frmSplash, FrmGameMusic& frmGameMusic,
                     DlgLoadGame& dlgLoadGame);

    /// Lets a game be chosen to the sound of the genre, and shows its title page for three seconds. Leaving
    /// the chooser aborts the start.
    void Display(const std::string& Genre);

    /// What leaving the chooser does.
    std::function<void()> Abort;

    Label lblCopyright{*this, "lblCopyright"};

  protected:
    void Design() override;
    void Form_Load() override;
    void Form_QueryUnload(bool& Cancel) override;

  private:
    bool FormInitOK();

    Globals& m_g;
    MainForm& m_frmMain;
    FrmSplash& m_frmSplash;
    FrmGameMusic& m_frmGameMusic;
    DlgLoadGame& m_dlgLoadGame;
    Array<std::string> m_games;
    Array<std::string> m_gameNames;
    Array<std::string> m_descriptions;
};

}  // namespace tabulon

#pragma once

#include <memory>

#include "content/CGame.h"
#include "packages/modInstallUninstall.h"

namespace tabulon {

/// Shows a help text: rich text or plain.
class DlgRTF : public Form {
  public:
    DlgRTF(Globals& g, modInstallUninstall& packages);

    /// Unpacks the game's help file, shows it until the dialog closes, and deletes it. Without a file nothing
    /// is shown.
    void ShowGameHelp(const std::shared_ptr<CGame>& oGame, bool& Ok);

    RichText rtbUserHelp{*this, "rtbUserHelp"};
    Button cmdClose{*this, "cmdClose"};
    Button cmdDummy{*this, "cmdDummy"};

    std::shared_ptr<CGame> Game;

  protected:
    void Design() override;

  private:
    void RepositionElements();
    void LoadText(const std::filesystem::path& file);
    bool Form_KeyDown(int KeyCode);

    Globals& m_g;
    modInstallUninstall& m_packages;
};

}  // namespace tabulon

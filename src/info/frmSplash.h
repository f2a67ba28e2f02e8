#pragma once

#include <string>

#include "content/CGame.h"
#include "packages/modInstallUninstall.h"

namespace tabulon {

/// The title page of a game: its picture, name, author, recommended ages and resolution.
class FrmSplash : public Form {
  public:
    FrmSplash(Globals& g, modInstallUninstall& packages);

    /// Fills the page and shows it. A picture that cannot be loaded ends the filling, and no page is shown.
    void SetUp(CGame& game);

    Image cTransPictureBox1{*this, "cTransPictureBox1"};
    Image imgUserSplash{*this, "imgUserSplash"};
    Label lblGameName{*this, "lblGameName"};
    Label lblAuthor{*this, "lblAuthor"};
    Label lblAgeRange{*this, "lblAgeRange"};
    Label lblPreferredResolution{*this, "lblPreferredResolution"};

  protected:
    void Design() override;

  private:
    void RepositionObjects();
    void LoadSplash(const std::string& gameDirectory, const std::string& splash);
    void ShowAgeRange(int lower, int upper);
    void ShowResolution(const std::string& resolution);
    std::string ProcAmpersand(std::string Text);

    Globals& m_g;
    modInstallUninstall& m_packages;
    std::string m_splash;
};

}  // namespace tabulon

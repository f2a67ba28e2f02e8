#pragma once

#include <string>
#include <vector>

#include "packages/modInstallUninstall.h"
#include "platform/array.h"
#include "presentation/modRepositioner.h"

namespace tabulon {

/// Lists the packages that are not installed, and installs the one that the user picks.
class DlgInstallGames : public Form {
  public:
    DlgInstallGames(Globals& g, modInstallUninstall& packages);

    /// Games are the installed keys. Result tells whether a package was installed.
    void GetData(const Array<std::string>& Games, bool& Result);

    Label Label1{*this, "Label1"};
    Shape shpAvailableGames{*this, "shpAvailableGames"};
    ListBox lstAvailableGames{*this, "lstAvailableGames"};
    PictureButton cmdOk{*this, "cmdOk"};
    PictureButton cmdCancel{*this, "cmdCancel"};
    Button cmdFakeOk{*this, "cmdFakeOk"};
    Button cmdFakeCancel{*this, "cmdFakeCancel"};

    bool Cancelled = false;
    std::vector<std::string> GameNames;
    std::vector<std::string> GameKeys;

  protected:
    void Design() override;
    void Form_QueryUnload(bool& Cancel) override;
    void Form_Unload() override;

  private:
    void RepositionElements();
    void PopulateAvailableGames(const Array<std::string>& Games);
    bool InstallSelected();
    void cmdOk_Click();
    void cmdCancel_Click();

    Globals& m_g;
    modInstallUninstall& m_packages;
};

}  // namespace tabulon

#pragma once

#include <string>

#include "board/main_form.h"
#include "library/dlgInstallGames.h"
#include "library/game_host.h"
#include "library/modSavedGames.h"
#include "presentation/frmGameMusic.h"

namespace tabulon {

/// The chooser: picks a game, new or saved. At start-up it stands over the splash form, offers new games
/// only, and can install and uninstall. Its fields outlive its unloading: the first saved games of a later
/// choice are looked up in the lists of the choice before.
class DlgLoadGame : public Form {
  public:
    struct Parts {
        FrmGameMusic& Music;
        modInstallUninstall& Packages;
        modSavedGames& Library;
        DlgInstallGames& dlgInstallGames;
        MainForm& frmMain;
        GameHost& Host;
    };

    DlgLoadGame(Globals& g, const Parts& parts);

    /// With a StartUpSplash the dialog is in its start-up mode. Result tells that a game was chosen, which is
    /// then loaded; NewGame that it is to begin anew. Throws ProgramEnd when the program restarts.
    void GetData(Array<std::string>& TheGames, Array<std::string>& TheGameNames,
                 Array<std::string>& TheDescriptions, std::int32_t& Count, const Form* StartUpSplash,
                 bool& IsNewGame, bool& Result);

    Label Label1{*this, "Label1"};
    Shape shpInstalledGames{*this, "shpInstalledGames"};
    ComboBox cmbInstalledGames{*this, "cmbInstalledGames"};
    Label Label2{*this, "Label2"};
    ComboBox cmbSavedGames{*this, "cmbSavedGames"};
    Label lblDescription{*this, "lblDescription"};
    PictureButton cmdNewGame{*this, "cmdNewGame"};
    PictureButton cmdLoadGame{*this, "cmdLoadGame"};
    PictureButton cmdInstallGame{*this, "cmdInstallGame"};
    PictureButton cmdUninstall{*this, "cmdUninstall"};
    PictureButton cmdCancel{*this, "cmdCancel"};
    Image imgBkgdCache{*this, "imgBkgdCache"};

    bool Cancelled = false;
    bool AtStartUp = false;
    bool NewGame = false;
    Array<std::string> Games;
    Array<std::string> GameNames;
    Array<std::string> Descriptions;
    int LastInstalledIndex = 0;

  protected:
    void Design() override;
    void Form_QueryUnload(bool& Cancel) override;

  private:
    void ConnectHandlers();
    void DesignLists();
    void DesignButtons();
    void RepositionElements();
    void StandOver(const Form& splash);
    void StandAlone();
    void OpenChoice();

    void PopulateAvailableGames(Array<std::string>& TheGames, Array<std::string>& TheGameNames,
                                Array<std::string>& TheDescriptions, std::int32_t& Count);
    void AddGame(const Array<std::string>& TheGames, const Array<std::string>& TheGameNames,
                 const Array<std::string>& TheDescriptions, int index);
    void PopulateSavedGames(const std::string& GameKey);
    bool ProcessKeyDown(int KeyCode, int Shift);

    void cmbInstalledGames_Change();
    void DescribeGame();
    void OfferSavedGames();
    void cmbSavedGames_Change();
    void cmbSavedGames_DblClick();
    void cmdNewGame_Click();
    void cmdLoadGame_Click();
    void cmdCancel_Click();
    void cmdInstallGame_Click();
    void cmdUninstall_Click();
    void UninstallSelected();
    [[noreturn]] void Restart();

    Globals& m_g;
    Parts m_parts;
};

}  // namespace tabulon

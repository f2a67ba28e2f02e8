#include "library/dlgLoadGame.h"
#include "presentation/modRepositioner.h"

namespace tabulon {

namespace {

constexpr Colour TextColour{255, 255, 255};

// Pixels from the corner of the splash form.
constexpr int SplashLeft = 115;
constexpr int SplashTop = 300;

}  // namespace

void DlgLoadGame::Design() {
    Caption = m_g.Application.Title;
    Background = Picture::Product("product/background");
    imgBkgdCache.Picture = Background;
    imgBkgdCache.Visible = false;
    DesignLists();
    DesignButtons();
}

void DlgLoadGame::DesignLists() {
    Label1.Caption = "&Installed Games:";
    Label1.ForeColor = TextColour;
    shpInstalledGames.FillColor = FrameColour;
    cmbInstalledGames.Clear();
    cmbInstalledGames.AccessibleName = "Installed games";
    cmbInstalledGames.ToolTipText = "Games available for play on this computer...";
    Label2.Caption = "&Saved Games:";
    Label2.ForeColor = TextColour;
    cmbSavedGames.Clear();
    cmbSavedGames.Enabled = false;
    cmbSavedGames.AccessibleName = "Saved games";
    cmbSavedGames.ToolTipText = "Saved games available for play on this computer...";
    lblDescription.Caption.clear();
    lblDescription.ForeColor = TextColour;
}

void DlgLoadGame::DesignButtons() {
    cmdNewGame.Caption = "Ne&w Game";
    cmdNewGame.ToolTipText = "Start a new game using the one selected in \"Installed Games\"";
    cmdLoadGame.Caption = "&Load Game";
    cmdLoadGame.ToolTipText = "Load the game selected in both of the above fields";
    cmdNewGame.Enabled = cmdLoadGame.Enabled = false;
    cmdInstallGame.Caption = "&Install Game";
    cmdInstallGame.ToolTipText = "Make a game available to play";
    cmdUninstall.Caption = "&Uninstall Game";
    cmdUninstall.ToolTipText = "Make a game unavailable";
    cmdCancel.Picture = Picture::Product("buttons/cancel");
    cmdCancel.AccessibleName = "Cancel";
    cmdCancel.ToolTipText = "Leave the Tabulon Player";
}

void DlgLoadGame::RepositionElements() {
    Procedure(m_g.gErrHandler, "dlgLoadGame:RepositionElements", [&] {
        PositionForm(m_g, *this, 366, 277, 0);
        PositionObjects(m_g, {{&Label1, 10, 17, 148, 31, 13, 11},
                              {&Label2, 40, 60, 118, 31, 13, 11},
                              {&cmbInstalledGames, 170, 20, 181, 28, 12, 10},
                              {&cmbSavedGames, 170, 61, 181, 28, 12, 10},
                              {&lblDescription, 17, 91, 334, 62, 10, 8},
                              {&cmdNewGame, 17, 156, 118, 47, 12, 10},
                              {&cmdLoadGame, 17, 210, 118, 47, 12, 10},
                              {&cmdInstallGame, 140, 156, 158, 47, 12, 10},
                              {&cmdUninstall, 140, 210, 158, 47, 12, 10},
                              {&cmdCancel, 310, 156, 46, 98, 12, 10}});
        PositionShape(m_g, shpInstalledGames, cmbInstalledGames);
    });
}

void DlgLoadGame::StandOver(const Form& splash) {
    Position = StartUpPosition::Manual;
    Left = splash.Left + SplashLeft * m_g.TheScreen.TwipsPerPixelX();
    Top = splash.Top + SplashTop * m_g.TheScreen.TwipsPerPixelY();
    cmdInstallGame.Enabled = cmdUninstall.Enabled = true;
}

void DlgLoadGame::StandAlone() {
    Background = imgBkgdCache.Picture;
    Position = StartUpPosition::CentreScreen;
    cmdInstallGame.Enabled = cmdUninstall.Enabled = false;
}

}  // namespace tabulon

#include "library/dlgLoadGame.h"

#include <algorithm>

#include "platform/text.h"

namespace tabulon {

namespace {

/// The text of a row, empty where there is none.
std::string RowText(const RowList& list, int row) {
    return row < static_cast<int>(list.Rows.size()) ? list.Rows[static_cast<std::size_t>(row)].Text : "";
}

}  // namespace

DlgLoadGame::DlgLoadGame(Globals& g, const Parts& parts)
    : Form(g.TheScreen, "dlgLoadGame"), m_g(g), m_parts(parts) {
    ConnectHandlers();
}

void DlgLoadGame::ConnectHandlers() {
    cmbInstalledGames.Click = [this] { cmbInstalledGames_Change(); };
    cmbInstalledGames.DropDown = [this] {
        cmbInstalledGames.TopIndex = std::max(cmbInstalledGames.ListIndex, 0);
    };
    cmbSavedGames.Click = [this] { cmbSavedGames_Change(); };
    cmbSavedGames.DblClick = [this] { cmbSavedGames_DblClick(); };
    cmbSavedGames.DropDown = [this] { cmbSavedGames.TopIndex = std::max(cmbSavedGames.ListIndex, 0); };
    cmdNewGame.Click = [this] { cmdNewGame_Click(); };
    cmdLoadGame.Click = [this] { cmdLoadGame_Click(); };
    cmdInstallGame.Click = [this] { cmdInstallGame_Click(); };
    cmdUninstall.Click = [this] { cmdUninstall_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    KeyDown = [this](int code, int shift) { return ProcessKeyDown(code, shift); };
}

// Only the close box unloads the dialog while it shows.
void DlgLoadGame::Form_QueryUnload(bool& /*Cancel*/) {
    if (Visible) Cancelled = true;
}

void DlgLoadGame::GetData(Array<std::string>& TheGames, Array<std::string>& TheGameNames,
                          Array<std::string>& TheDescriptions, std::int32_t& Count, const Form* StartUpSplash,
                          bool& IsNewGame, bool& Result) {
    const auto asking = [&] {
        Load();
        RepositionElements();
        AtStartUp = StartUpSplash != nullptr;
        PopulateAvailableGames(TheGames, TheGameNames, TheDescriptions, Count);
        Games = TheGames;
        GameNames = TheGameNames;
        Descriptions = TheDescriptions;
        if (StartUpSplash) {
            StandOver(*StartUpSplash);
        } else {
            StandAlone();
        }
        ShowModal();
        if (!Cancelled) {
            OpenChoice();
            IsNewGame = NewGame;
        }
        Result = !Cancelled;
        Unload();
    };
    Procedure(m_g.gErrHandler, "dlgLoadGame:GetData", asking, [&] {
        Result = false;
        Unload();
    });
}

void DlgLoadGame::OpenChoice() {
    MainForm& frmMain = m_parts.frmMain;
    if (cmbInstalledGames.ListIndex >= 0) {
        const ListRow& row = cmbInstalledGames.SelectedRow();
        frmMain.GameDirectory = Games[row.ItemData];
        frmMain.GameName = row.Text;
    }
    m_parts.Host.LoadGame(frmMain.GameDirectory, frmMain.GameName);
    if (!NewGame && cmbSavedGames.ListIndex >= 0)
        m_parts.Host.LoadSavedGame(cmbSavedGames.SelectedRow().Text);
}

void DlgLoadGame::PopulateAvailableGames(Array<std::string>& TheGames, Array<std::string>& TheGameNames,
                                         Array<std::string>& TheDescriptions, std::int32_t& Count) {
    const auto populating = [&] {
        m_g.TheScreen.SetMousePointer(MousePointer::Hourglass);
        m_parts.Library.GetAvailableGames(TheGames, TheGameNames, TheDescriptions, Count);
        cmbInstalledGames.Clear();
        if (Count == 0) cmbInstalledGames.AddItem("(none)");
        for (int i = 0; i <= TheGameNames.UBound(); ++i) AddGame(TheGames, TheGameNames, TheDescriptions, i);
        if (!cmbInstalledGames.Rows.empty()) cmbInstalledGames.Select(0);
        m_g.TheScreen.SetMousePointer(MousePointer::Default);
    };
    Procedure(m_g.gErrHandler, "dlgLoadGame:PopulateAvailableGames", populating,
              [&] { m_g.TheScreen.SetMousePointer(MousePointer::Default); });
}

// The row that the keys are compared with is as a rule not there yet.
void DlgLoadGame::AddGame(const Array<std::string>& TheGames, const Array<std::string>& TheGameNames,
                          const Array<std::string>& TheDescriptions, int index) {
    const std::string present = RowText(cmbInstalledGames, index);
    for (int other = 0; other <= TheGameNames.UBound(); ++other)
        if (other != index && TheGames[other] == present) return;
    cmbInstalledGames.AddItem(TheGameNames[index], index, TheDescriptions[index]);
}

// Saved games are added to those of the same row that stand there already.
void DlgLoadGame::PopulateSavedGames(const std::string& GameKey) {
    Procedure(m_g.gErrHandler, "dlgLoadGame:PopulateSavedGames", [&] {
        m_g.TheScreen.SetMousePointer(MousePointer::Hourglass);
        const std::vector<std::string> names = m_parts.Library.GetSavedGames(GameKey);
        if (cmbInstalledGames.ListIndex != LastInstalledIndex) cmbSavedGames.Clear();
        int number = 0;
        for (const std::string& name : names) cmbSavedGames.AddItem(name, ++number, name);
        m_g.TheScreen.SetMousePointer(MousePointer::Default);
    });
}

void DlgLoadGame::cmbInstalledGames_Change() {
    Procedure(m_g.gErrHandler, "dlgLoadGame:cmbInstalledGames_Change", [&] {
        if (AtStartUp) {
            cmdNewGame.Enabled = true;
        } else {
            OfferSavedGames();
        }
        LastInstalledIndex = cmbInstalledGames.ListIndex;
        DescribeGame();
    });
}

// What the row's tool tip says, for whom no mouse hovers there.
void DlgLoadGame::DescribeGame() {
    lblDescription.Caption = DoubleAmpersands(cmbInstalledGames.SelectedRow().ToolTipText);
}

void DlgLoadGame::OfferSavedGames() {
    PopulateSavedGames(Games[cmbInstalledGames.SelectedRow().ItemData]);
    cmdNewGame.Enabled = true;
    cmbSavedGames.Enabled = true;
    if (cmbInstalledGames.ListIndex != LastInstalledIndex) {
        cmbSavedGames.ListIndex = -1;
        cmdLoadGame.Enabled = false;
    }
    cmdUninstall.Enabled = true;
}

void DlgLoadGame::cmbSavedGames_Change() {
    Procedure(m_g.gErrHandler, "dlgLoadGame:cmbSavedGames_Change",
              [&] { cmdLoadGame.Enabled = cmbSavedGames.ListIndex != -1; });
}

void DlgLoadGame::cmbSavedGames_DblClick() {
    Procedure(m_g.gErrHandler, "dlgLoadGame:cmbSavedGames_DblClick", [&] {
        cmbSavedGames_Change();
        cmdLoadGame_Click();
    });
}

void DlgLoadGame::cmdNewGame_Click() {
    Procedure(m_g.gErrHandler, "dlgLoadGame:cmdNewGame_Click", [&] {
        Cancelled = false;
        NewGame = true;
        Hide();
    });
}

void DlgLoadGame::cmdLoadGame_Click() {
    Procedure(m_g.gErrHandler, "dlgLoadGame:cmdLoadGame_Click", [&] {
        if (cmbSavedGames.ListIndex < 0) return;
        Cancelled = false;
        NewGame = false;
        Hide();
    });
}

void DlgLoadGame::cmdCancel_Click() {
    Procedure(m_g.gErrHandler, "dlgLoadGame:cmdCancel_Click", [&] {
        Cancelled = true;
        Hide();
    });
}

void DlgLoadGame::cmdInstallGame_Click() {
    Procedure(m_g.gErrHandler, "dlgLoadGame:cmdInstallGame_Click", [&] {
        bool installed = false;
        m_parts.dlgInstallGames.GetData(Games, installed);
        if (!installed) return;
        const BoxAnswer answer = m_g.TheScreen.MsgBox(
            "The game you just installed will not be available until you restart the Player.\r\n"
            "Do you want to restart the Tabulon Player now?",
            BoxIcon::Critical, BoxButtons::YesNo, m_g.Application.Title);
        if (answer == BoxAnswer::Yes) Restart();
    });
}

void DlgLoadGame::cmdUninstall_Click() {
    Procedure(m_g.gErrHandler, "dlgLoadGame:cmdUninstall_Click", [&] {
        if (cmbInstalledGames.ListIndex < 0) return;
        const std::string name = cmbInstalledGames.SelectedRow().Text;
        const BoxAnswer answer =
            m_g.TheScreen.MsgBox("Are you sure you want to permanently remove \"" + name + "\"?",
                                 BoxIcon::Critical, BoxButtons::YesNoCancel, m_g.Application.Title);
        if (answer == BoxAnswer::Yes) UninstallSelected();
    });
}

// A game that must stay restarts the Player too.
void DlgLoadGame::UninstallSelected() {
    const std::string& key = Games[cmbInstalledGames.SelectedRow().ItemData];
    if (key == PermanentGame) {
        m_g.TheScreen.MsgBox("Cannot uninstall this game.", BoxIcon::Information, BoxButtons::Ok,
                             m_g.Application.Title);
    } else {
        m_parts.Packages.UninstallGame(key);
    }
    m_g.TheScreen.MsgBox("The Player must now restart.\r\n", BoxIcon::Critical, BoxButtons::Ok,
                         m_g.Application.Title);
    Restart();
}

void DlgLoadGame::Restart() {
    m_parts.Music.StopGameMusic();
    m_g.Shell.Start(m_g.Application.Executable);
    throw ProgramEnd{};
}

bool DlgLoadGame::ProcessKeyDown(int KeyCode, int Shift) {
    bool acted = true;
    Procedure(m_g.gErrHandler, "dlgLoadGame:ProcessKeyDown", [&] {
        const bool alt = Shift == Key::Alt;
        if (KeyCode == Key::Escape || (alt && KeyCode == Key::C)) {
            cmdCancel_Click();
        } else if (alt && KeyCode == Key::W) {
            cmdNewGame_Click();
        } else if (alt && KeyCode == Key::I) {
            cmdInstallGame_Click();
        } else if (alt && KeyCode == Key::L) {
            cmdLoadGame_Click();
        } else if (alt && KeyCode == Key::U) {
            cmdUninstall_Click();
        } else {
            acted = false;
        }
    });
    return acted;
}

}  // namespace tabulon

#include "library/dlgInstallGames.h"

namespace tabulon {

namespace {

constexpr std::size_t ExtensionLength = 4;

void MakeTwin(Button& twin, const std::string& caption) {
    twin.Caption = caption;
    twin.OutOfSight = true;
    twin.TabStop = false;
}

/// The key alone, where an extension stands behind its closing brace. Fails for a key that cannot have one.
std::string WithoutExtension(const std::string& key) {
    if (key.size() < ExtensionLength) throw Failure(FailureNumber::InvalidCall);
    const std::string cut = key.substr(0, key.size() - ExtensionLength);
    return cut.ends_with('}') ? cut : key;
}

}  // namespace

DlgInstallGames::DlgInstallGames(Globals& g, modInstallUninstall& packages)
    : Form(g.TheScreen, "dlgInstallGames"), m_g(g), m_packages(packages) {
    cmdOk.Click = cmdFakeOk.Click = lstAvailableGames.DblClick = [this] { cmdOk_Click(); };
    cmdCancel.Click = cmdFakeCancel.Click = [this] { cmdCancel_Click(); };
}

void DlgInstallGames::Design() {
    Caption = "Install a Game";
    Label1.Caption = "A&vailable Games";
    Label1.Centred = true;
    Label1.Left = 0;
    shpAvailableGames.FillColor = FrameColour;
    lstAvailableGames.Clear();
    lstAvailableGames.ToolTipText =
        "These are all of the games available on your computer that are not available for play";
    lstAvailableGames.AccessibleName = "Available games";
    cmdOk.Caption = "&Ok";
    cmdOk.Picture = Picture::Product("buttons/ok");
    cmdCancel.Caption = "&Cancel";
    cmdCancel.Picture = Picture::Product("buttons/cancel");
    MakeTwin(cmdFakeOk, cmdOk.Caption);
    MakeTwin(cmdFakeCancel, cmdCancel.Caption);
}

void DlgInstallGames::RepositionElements() {
    Procedure(m_g.gErrHandler, "dlgInstallGames:RepositionElements", [&] {
        PositionForm(m_g, *this, 313, 308, 0);
        PositionObjects(m_g, {{&Label1, 0, 8, 313, 33, 18, 14},
                              {&lstAvailableGames, 18, 48, 281, 164, 14, 12},
                              {&cmdOk, 16, 256, 137, 40, 14, 12},
                              {&cmdCancel, 160, 256, 137, 40, 14, 12}});
        PositionShape(m_g, shpAvailableGames, lstAvailableGames);
    });
}

// Only the close box unloads the dialog while it shows.
void DlgInstallGames::Form_QueryUnload(bool& /*Cancel*/) {
    if (Visible) Cancelled = true;
}

void DlgInstallGames::Form_Unload() {
    GameNames.clear();
    GameKeys.clear();
}

void DlgInstallGames::GetData(const Array<std::string>& Games, bool& Result) {
    const auto asking = [&] {
        Load();
        RepositionElements();
        PopulateAvailableGames(Games);
        ShowModal();
        Result = !Cancelled && InstallSelected();
        Unload();
    };
    Procedure(m_g.gErrHandler, "dlgInstallGames:GetData", asking, [&] {
        Result = false;
        Unload();
    });
}

void DlgInstallGames::PopulateAvailableGames(const Array<std::string>& Games) {
    Procedure(m_g.gErrHandler, "dlgInstallGames:PopulateAvailableGames", [&] {
        std::vector<std::string> installed;
        for (int i = 0; i <= Games.UBound(); ++i) installed.push_back(Games[i]);
        GameNames.clear();
        GameKeys.clear();
        m_packages.InstallableGames(installed, GameNames, GameKeys);
        lstAvailableGames.Clear();
        int row = 0;
        for (const std::string& name : GameNames) lstAvailableGames.AddItem(name, ++row);
    });
}

bool DlgInstallGames::InstallSelected() {
    if (lstAvailableGames.ListIndex < 0) return false;
    const auto game = static_cast<std::size_t>(lstAvailableGames.SelectedRow().ItemData);
    return m_packages.InstallGame(WithoutExtension(GameKeys.at(game - 1)));
}

void DlgInstallGames::cmdOk_Click() {
    Procedure(m_g.gErrHandler, "dlgInstallGames:cmdOk_Click", [&] {
        Cancelled = false;
        Hide();
    });
}

void DlgInstallGames::cmdCancel_Click() {
    Procedure(m_g.gErrHandler, "dlgInstallGames:cmdCancel_Click", [&] {
        Cancelled = true;
        Hide();
    });
}

}  // namespace tabulon

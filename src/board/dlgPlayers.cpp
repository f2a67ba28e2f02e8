#include "board/dlgPlayers.h"

#include <algorithm>

#include "board/piece_pictures.h"
#include "content/required.h"
#include "platform/text.h"
#include "presentation/text_fitting.h"

namespace tabulon {

namespace {

constexpr Colour Black;
constexpr Colour Red{255, 0, 0};

}  // namespace

DlgPlayers::DlgPlayers(Globals& g, FrmGameMusic& music, MainForm& main)
    : Form(g.TheScreen, "dlgPlayers"), m_g(g), m_music(music), m_main(main) {
    ConnectInput();
    ConnectPieces();
}

void DlgPlayers::ConnectInput() {
    txtPlayerName.Change = [this] { txtPlayerName_Change(); };
    cmdAdd.Click = [this] { cmdAdd_Click(); };
    cmdChange.Click = [this] { cmdChange_Click(); };
    cmdRemove.Click = [this] { cmdRemove_Click(); };
    cmdOk.Click = [this] { cmdOk_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    KeyDown = [this](int code, int shift) {
        return ProcessKeyDown(ActiveControl == &txtPlayerName, code, shift);
    };
}

void DlgPlayers::ConnectPieces() {
    cmbPlayingPieceCollections.Click = [this] { cmbPlayingPieceCollections_Click(); };
    UpDown1.UpClick = [this] { UpDown1_UpClick(); };
    UpDown1.DownClick = [this] { UpDown1_DownClick(); };
    chkIsComputerPlayer.Click = [this] { chkIsComputerPlayer_Click(); };
    MouseMove = [this] { lblPlayingPiece.Visible = false; };
    for (int i = 0; i < MaxSeats; ++i)
        lblHolder[i].Click = imgHolder[i].Click = [this, i] { lblHolder_Click(i); };
    for (int i = 0; i <= imgPlayingPiece.UBound(); ++i) {
        imgPlayingPiece[i].Click = [this, i] { imgPlayingPiece_Click(i); };
        imgPlayingPiece[i].MouseMove = [this, i] { imgPlayingPiece_MouseMove(i); };
    }
}

// The list of pictures can be wanted without a game: then the fonts stay as designed.
void DlgPlayers::Form_Load() {
    Procedure(m_g.gErrHandler, "dlgPlayers:Form_Load", [&] {
        RepositionElements();
        if (!Game) return;
        PieceFont = {Game->Font, Game->FontSize.Value()};
        SetFormObjectFonts(m_g, *this, PieceFont.Name, PieceFont.Size);
    });
}

// Only the close box unloads the dialog while it shows.
void DlgPlayers::Form_QueryUnload(bool& /*Cancel*/) {
    if (Visible) Cancelled = true;
}

void DlgPlayers::Form_Unload() {
    Game.reset();
    m_music.StopGameMusic();
}

void DlgPlayers::GetData(const std::shared_ptr<CGame>& oGame, Integer& intPlayers,
                         Array<std::string>& sPlayerNames, Array<std::string>& sPlayerPiecesNames,
                         Array<bool>& bComputerPlayer, bool& Result) {
    Procedure(m_g.gErrHandler, "dlgPlayers:GetData", [&] {
        Game = oGame;
        m_music.PlayGameMusic(Required(Game).MusicGenre, "player_icon", true);
        PlayerCount = 0;
        Selected = -1;
        Load();
        PopulatePlayingPieceCollectionCombo();
        ShowModal();
        Result = !Cancelled;
        if (Result && PlayerCount > 0)
            CopyPlayers(intPlayers, sPlayerNames, sPlayerPiecesNames, bComputerPlayer);
        Unload();
    });
}

void DlgPlayers::CopyPlayers(Integer& intPlayers, Array<std::string>& sPlayerNames,
                             Array<std::string>& sPlayerPiecesNames, Array<bool>& bComputerPlayer) {
    intPlayers = PlayerCount;
    sPlayerNames.ReDim(PlayerCount - 1);
    sPlayerPiecesNames.ReDim(PlayerCount - 1);
    bComputerPlayer.ReDim(PlayerCount - 1);
    for (int i = 0; i < PlayerCount.Value(); ++i) {
        sPlayerNames[i] = Names[i];
        bComputerPlayer[i] = Computer[i];
        sPlayerPiecesNames[i] = imgHolder[i].Tag;
        const Picture picture = PieceByKey(imgHolder[i].Tag);
        m_main.imgCharacter[i].Picture = picture;
        m_main.imgPlayingPiece[i].Picture = picture;
    }
}

void DlgPlayers::lblHolder_Click(int Index) {
    Procedure(m_g.gErrHandler, "dlgPlayers:lblHolder_Click", [&] {
        if (lblHolder[Index].Caption.empty()) return;
        Selected = Index;
        txtPlayerName.SetText(lblHolder[Index].Caption);
        SelectPlayer();
    });
}

void DlgPlayers::SelectPlayer() {
    Procedure(m_g.gErrHandler, "dlgPlayers:SelectPlayer", [&] {
        NameRows();
        if (Selected < 0) {
            cmdRemove.Enabled = false;
            ResetPlayerSelection();
            return;
        }
        ShowSelection();
        const bool collectionChosen = cmbPlayingPieceCollections.ListIndex >= 0;
        lblChoosePieces.Caption = collectionChosen ? "Choose a Character" : "Choose a Collection";
        lblChoosePieces.Visible = true;
    });
}

/// What a row shows by its picture and colour, in words.
void DlgPlayers::NameRows() {
    for (int i = 0; i < MaxSeats; ++i) {
        const std::string& tag = imgHolder[i].Tag;
        std::string& name = lblHolder[i].AccessibleName;
        name = lblHolder[i].Caption;
        if (name.empty()) continue;
        name += ", " + (tag.empty() ? "no playing piece" : PieceTitle(PieceByKey(tag).Number));
        if (Selected == i) name += ", selected";
    }
}

void DlgPlayers::ShowSelection() {
    ResetPlayerSelection();
    lblHolder[Selected].ForeColor = Red;
    cmdRemove.Enabled = true;
    ClearAllPlayingPieceBorders();
    const std::string& tag = imgHolder[Selected].Tag;
    const auto same =
        std::ranges::find_if(imgPlayingPiece, [&](const Image& piece) { return piece.Tag == tag; });
    if (!tag.empty() && same != imgPlayingPiece.end()) same->Border = true;
    chkIsComputerPlayer.Value = Computer[Selected];
}

void DlgPlayers::ResetPlayerSelection() {
    Procedure(m_g.gErrHandler, "dlgPlayers:ResetPlayerSelection", [&] {
        for (Label& holder : lblHolder) holder.ForeColor = Black;
    });
}

void DlgPlayers::txtPlayerName_Change() {
    Procedure(m_g.gErrHandler, "dlgPlayers:txtPlayerName_Change", [&] {
        if (txtPlayerName.Text.empty()) {
            cmdAdd.Enabled = cmdChange.Enabled = false;
            return;
        }
        cmdAdd.Enabled = PlayerCount < MaxSeats;
        std::string text = txtPlayerName.Text;
        if (std::erase_if(text, [](char c) { return c == '\n' || c == '\r'; }) > 0)
            txtPlayerName.SetText(text);
        if (PlayerCount > 0 && Selected > -1) cmdChange.Enabled = true;
    });
}

void DlgPlayers::cmdAdd_Click() {
    Procedure(m_g.gErrHandler, "dlgPlayers:cmdAdd_Click", [&] {
        if (txtPlayerName.Text.empty() || PlayerCount >= MaxSeats) return;
        ++PlayerCount;
        const Integer last = PlayerCount - 1;
        Names.ReDimPreserve(last.Value());
        Computer.ReDimPreserve(last.Value());
        Names[last] = txtPlayerName.Text;
        Computer[last] = false;
        lblHolder[last].Caption = txtPlayerName.Text;
        NameRows();
        txtPlayerName.SetText("");
        ReplaceCaption(PlayerCount);
        cmbPlayingPieceCollections.Enabled = true;
        ClearAllPlayingPieceBorders();
        cmdOk.Enabled = PlayerCount >= 1;
        if (cmdOk.Enabled && !Game->CharacterCategory.empty())
            SelectItemInDropDownList(m_g, cmbPlayingPieceCollections, Game->CharacterCategory);
        AskNextPlayer();
    });
}

void DlgPlayers::AskNextPlayer() {
    if (PlayerCount < MaxSeats) {
        txtPlayerName.SetFocus();
    } else {
        txtPlayerName.Visible = false;
        lblPlayerName.Caption = "Up to six players can play...";
    }
}

// Any other number leaves nothing between the blanks, which then stand side by side.
void DlgPlayers::ReplaceCaption(Integer Number) {
    Procedure(m_g.gErrHandler, "dlgPlayers:ReplaceCaption", [&] {
        constexpr const char* ordinals[] = {"", "Second", "Third", "Fourth", "Fifth", "Sixth"};
        const int number = Number.Value();
        const char* ordinal = number >= 1 && number <= 5 ? ordinals[number] : "";
        lblPlayerName.Caption = ReplaceAll("Enter the % Player's Name:\r\n(or click a name)", "%", ordinal);
    });
}

void DlgPlayers::cmdChange_Click() {
    Procedure(m_g.gErrHandler, "dlgPlayers:cmdChange_Click", [&] {
        if (PlayerCount <= 0 || Selected < 0 || txtPlayerName.Text.empty()) return;
        lblHolder[Selected].Caption = Names[Selected] = txtPlayerName.Text;
        if (PlayerCount <= MaxSeats) {
            txtPlayerName.SetText("");
            txtPlayerName.SetFocus();
        }
        cmdChange.Enabled = cmdRemove.Enabled = false;
        Selected = -1;
        SelectPlayer();
    });
}

void DlgPlayers::cmdRemove_Click() {
    Procedure(m_g.gErrHandler, "dlgPlayers:cmdRemove_Click", [&] {
        if (Selected >= 0) {
            const BoxAnswer answer = m_g.TheScreen.MsgBox("Remove this player?", BoxIcon::None,
                                                          BoxButtons::YesNo, m_g.Application.Title);
            if (answer == BoxAnswer::Yes) RemovePlayer();
        }
        cmdOk.Enabled = PlayerCount >= 1;
    });
}

void DlgPlayers::RemovePlayer() {
    SlidePlayers();
    Selected = -1;
    NameRows();
    PlayerCount -= 1;
    ReplaceCaption(PlayerCount);
    cmdRemove.Enabled = false;
    chkIsComputerPlayer.Value = false;
    txtPlayerName.Visible = true;
    txtPlayerName.SetText("");
    if (PlayerCount <= MaxSeats) txtPlayerName.SetFocus();
}

// Only the rows close up, and a full list has no row below its last one. Names and Computer keep their order,
// so that the last player's entries go and the removed one's stay.
void DlgPlayers::SlidePlayers() {
    Procedure(m_g.gErrHandler, "dlgPlayers:SlidePlayers", [&] {
        const auto copyRow = [this](int to, int from) {
            lblHolder[to].Caption = lblHolder[from].Caption;
            imgHolder[to].Picture = imgHolder[from].Picture;
            imgHolder[to].Tag = imgHolder[from].Tag;
        };
        const auto clearRow = [this](int row) {
            lblHolder[row].Caption.clear();
            imgHolder[row].Picture = {};
            imgHolder[row].Tag.clear();
        };
        if (Selected >= PlayerCount) clearRow(Selected.Value());
        for (int row = Selected.Value(); row < PlayerCount.Value(); ++row) {
            copyRow(row, row + 1);
            clearRow(row + 1);
        }
        if (Selected < PlayerCount) ResetPlayerSelection();
    });
}

void DlgPlayers::chkIsComputerPlayer_Click() {
    Procedure(m_g.gErrHandler, "dlgPlayers:chkIsComputerPlayer_Click", [&] {
        if (Selected < 0) {
            chkIsComputerPlayer.Value = false;
            return;
        }
        Computer[Selected] = chkIsComputerPlayer.Value;
        lblHolder[Selected].ForeColor = Black;
    });
}

void DlgPlayers::AllPlayersAssignedPieces(bool& Result) {
    Procedure(m_g.gErrHandler, "dlgPlayers:AllPlayersAssignedPieces", [&] {
        bool all = true;
        for (int i = 0; i < PlayerCount.Value(); ++i) all = all && !imgHolder[i].Tag.empty();
        Result = all;
    });
}

void DlgPlayers::cmdOk_Click() {
    Procedure(m_g.gErrHandler, "dlgPlayers:cmdOk_Click", [&] {
        bool assigned = false;
        AllPlayersAssignedPieces(assigned);
        if (assigned) {
            Cancelled = false;
            Hide();
        } else {
            m_g.TheScreen.MsgBox("All Players must have Playing Pieces!", BoxIcon::Critical, BoxButtons::Ok,
                                 m_g.Application.Title);
        }
    });
}

void DlgPlayers::cmdCancel_Click() {
    Procedure(m_g.gErrHandler, "dlgPlayers:cmdCancel_Click", [&] {
        Cancelled = true;
        Hide();
    });
}

}  // namespace tabulon

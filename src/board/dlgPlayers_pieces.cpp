#include <algorithm>
#include <utility>

#include "board/dlgPlayers.h"
#include "board/modCharCategories.h"
#include "board/piece_pictures.h"

namespace tabulon {

namespace {

constexpr int PiecesOnPage = 12;

const std::string& SelectedText(const RowList& list) {
    static const std::string none;
    return list.ListIndex < 0 ? none : list.SelectedRow().Text;
}

}  // namespace

void DlgPlayers::PopulatePlayingPieceCollectionCombo() {
    Procedure(m_g.gErrHandler, "dlgPlayers:PopulatePlayingPieceCollectionCombo", [&] {
        std::string last;
        for (int i = 1; i <= PieceCount; ++i) {
            const std::string key = PieceKey(i);
            std::string collection(CollectionOfKey(key));
            if (collection == last) continue;
            cmbPlayingPieceCollections.AddItem(collection);
            last = std::move(collection);
        }
    });
}

void DlgPlayers::cmbPlayingPieceCollections_Click() {
    Procedure(m_g.gErrHandler, "dlgPlayers:cmbPlayingPieceCollections_Click", [&] {
        PopulatePlayingPieceArrays();
        Page = 0;
        DisplayPlayingPieces(0);
        lblChoosePieces.Caption = "Choose a Character";
    });
}

void DlgPlayers::PopulatePlayingPieceArrays() {
    Procedure(m_g.gErrHandler, "dlgPlayers:PopulatePlayingPieceArrays", [&] {
        if (cmbPlayingPieceCollections.ListIndex < 0) return;
        const CharCategory range = CharCatRange(SelectedText(cmbPlayingPieceCollections));
        FirstPiece = range.Low;
        PieceSpan = range.High - range.Low;
        LastPage = PieceSpan.Value() / PiecesOnPage;
        PieceNames.ReDim(PieceSpan);
        for (int i = 0; i <= PieceSpan.Value(); ++i)
            PieceNames[i] = NumberOfKey(PieceKey(FirstPiece.Value() + i));
    });
}

void DlgPlayers::DisplayPlayingPieces(Integer ThePage) {
    Procedure(m_g.gErrHandler, "dlgPlayers:DisplayPlayingPieces", [&] {
        const CharCategory range = CharCatRange(SelectedText(cmbPlayingPieceCollections));
        const int first = (ThePage * PiecesOnPage + range.Low).Value();
        const int last = std::min(first + PiecesOnPage - 1, range.High.Value());
        for (Image& piece : imgPlayingPiece) piece.Visible = false;
        for (int i = first; i <= last; ++i) {
            Image& piece = imgPlayingPiece[i - first];
            piece.Picture = PieceByIndex(i);
            piece.Tag = PieceKey(i);
            piece.AccessibleName = PieceTitle(i);
            piece.Visible = true;
        }
    });
}

void DlgPlayers::UpDown1_DownClick() {
    Procedure(m_g.gErrHandler, "dlgPlayers:UpDown1_DownClick", [&] {
        if (Page < LastPage) TurnPage(1);
        ClearAllPlayingPieceBorders();
        lblPlayingPiece.Visible = false;
    });
}

void DlgPlayers::UpDown1_UpClick() {
    Procedure(m_g.gErrHandler, "dlgPlayers:UpDown1_UpClick", [&] {
        if (Page > 0) TurnPage(-1);
        ClearAllPlayingPieceBorders();
        lblPlayingPiece.Visible = false;
    });
}

void DlgPlayers::TurnPage(Integer by) {
    Page += by;
    DisplayPlayingPieces(Page);
}

void DlgPlayers::imgPlayingPiece_MouseMove(int Index) {
    Procedure(m_g.gErrHandler, "dlgPlayers:imgPlayingPiece_MouseMove", [&] {
        const std::string& tag = imgPlayingPiece[Index].Tag;
        if (tag.empty()) return;
        lblPlayingPiece.Caption = NumberOfKey(tag);
        lblPlayingPiece.Visible = true;
    });
}

void DlgPlayers::imgPlayingPiece_Click(int Index) {
    Procedure(m_g.gErrHandler, "dlgPlayers:imgPlayingPiece_Click", [&] {
        Integer image = Index;
        if (cmbPlayingPieceCollections.ListIndex >= 0)
            image += CharCatRange(SelectedText(cmbPlayingPieceCollections)).Low;
        if (Selected > -1) AssignPiece(Index, image);
    });
}

void DlgPlayers::AssignPiece(int Index, Integer TheImage) {
    ClearAllPlayingPieceBorders();
    imgPlayingPiece[Index].Border = true;
    imgHolder[Selected].Tag = imgPlayingPiece[Index].Tag;
    imgHolder[Selected].Picture = PieceByIndex(TheImage.Value());
    chkIsComputerPlayer.Value = Computer[Selected];
    lblPlayingPiece.Visible = true;
    Selected = -1;
    SelectPlayer();
    cmdRemove.Enabled = cmdChange.Enabled = false;
    ClearAllPlayingPieceBorders();
    if (PlayerCount >= MaxSeats) return;
    txtPlayerName.SetFocus();
    txtPlayerName.SelectAll();
}

void DlgPlayers::ClearAllPlayingPieceBorders() {
    Procedure(m_g.gErrHandler, "dlgPlayers:ClearAllPlayingPieceBorders", [&] {
        for (Image& piece : imgPlayingPiece) piece.Border = false;
    });
}

}  // namespace tabulon

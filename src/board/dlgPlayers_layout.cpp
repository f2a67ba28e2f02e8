#include "board/dlgPlayers.h"
#include "presentation/modRepositioner.h"

namespace tabulon {

namespace {

constexpr int LongestName = 254;
constexpr const char* Ordinals[] = {"First", "Second", "Third", "Fourth", "Fifth", "Sixth"};

// Pixels.
constexpr int ListTop = 152;
constexpr int RowHeight = 42;
constexpr int PiecesLeft = 320;
constexpr int PieceSize = 64;
constexpr int PieceStep = 68;
constexpr int PiecesInRow = 4;

void DesignButton(PictureButton& button, const char* caption, const char* picture, const char* toolTip) {
    button.Caption = caption;
    button.Picture = *picture ? Picture::Product(picture) : Picture();
    button.ToolTipText = toolTip;
    button.Enabled = false;
}

}  // namespace

void DlgPlayers::Design() {
    Caption = "Players";
    DesignInput();
    DesignPieces();
    DesignPlayers();
}

void DlgPlayers::DesignInput() {
    lblPlayerName.Caption = "Enter the First Player's Name:";
    txtPlayerName.Text.clear();
    txtPlayerName.MaxLength = LongestName;
    txtPlayerName.Visible = true;
    txtPlayerName.ToolTipText = "Enter players' names here...";
    txtPlayerName.AccessibleName = "Player's name";
    DesignButton(cmdAdd, "&Add", "buttons/add", "Add a player's name to the list");
    DesignButton(cmdChange, "Chan&ge", "", "Change the selected player's name");
    DesignButton(cmdRemove, "&Remove", "", "Remove the selected player from the list");
    DesignButton(cmdOk, "&Ok", "buttons/ok", "Ready to play?");
    DesignButton(cmdCancel, "&Cancel", "buttons/cancel", "Forget about it!");
    cmdCancel.Enabled = true;
}

void DlgPlayers::DesignPieces() {
    lblChoosePieces.Caption = "Choose a Collection:";
    shpCollections.FillColor = FrameColour;
    cmbPlayingPieceCollections.Clear();
    cmbPlayingPieceCollections.Enabled = false;
    cmbPlayingPieceCollections.ToolTipText = "Choose whichever collection of playing pieces you want";
    cmbPlayingPieceCollections.AccessibleName = "Collection of playing pieces";
    for (Image& piece : imgPlayingPiece) {
        piece.Picture = {};
        piece.Tag.clear();
        piece.Border = piece.Visible = false;
    }
    UpDown1.AccessibleName = "More playing pieces";
    lblPlayingPiece.Centred = true;
    lblPlayingPiece.ForeColor = {};
    lblPlayingPiece.Caption.clear();
    lblPlayingPiece.Visible = false;
}

void DlgPlayers::DesignPlayers() {
    shpPlayers.FillColor = shpPieces.FillColor = TextOnForms;
    for (int i = 0; i < MaxSeats; ++i) {
        imgHolder[i].Picture = {};
        imgHolder[i].Tag.clear();
        imgHolder[i].TabStop = false;  // the row's name does the same
        imgHolder[i].ToolTipText = std::string(Ordinals[i]) + " player's playing piece";
        lblHolder[i].Caption.clear();
        lblHolder[i].UseMnemonic = false;
        lblHolder[i].AccessibleName.clear();
        lblHolder[i].Font.Bold = true;
        lblHolder[i].ForeColor = {};
    }
    lblComputerPlayer.Caption = "Com&puter Player?";
    chkIsComputerPlayer.Value = false;
    chkIsComputerPlayer.ToolTipText = "Play against the computer";
    chkIsComputerPlayer.AccessibleName = "Computer player";
}

void DlgPlayers::RepositionElements() {
    Procedure(m_g.gErrHandler, "dlgPlayers:RepositionElements", [&] {
        PositionForm(m_g, *this, 622, 482, 0);
        PositionObjects(m_g, {{&lblPlayerName, 16, 8, 590, 48, 14, 11},
                              {&txtPlayerName, 16, 60, 296, 36, 12, 10},
                              {&cmdAdd, 322, 58, 88, 40, 12, 10},
                              {&cmdChange, 418, 58, 92, 40, 12, 10},
                              {&cmdRemove, 518, 58, 92, 40, 12, 10},
                              {&lblChoosePieces, 16, 112, 284, 30, 14, 11},
                              {&cmbPlayingPieceCollections, 316, 108, 290, 34, 12, 10},
                              {&UpDown1, 594, ListTop, 18, PieceSize},
                              {&lblPlayingPiece, PiecesLeft, 366, 268, 30, 14, 11},
                              {&chkIsComputerPlayer, 16, 412, 22, 22},
                              {&lblComputerPlayer, 44, 409, 240, 28, 12, 10},
                              {&cmdOk, 352, 424, 118, 46, 14, 12},
                              {&cmdCancel, 480, 424, 130, 46, 14, 12}});
        for (int i = 0; i < MaxSeats; ++i) {
            const int top = ListTop + i * RowHeight;
            PositionObjects(m_g,
                            {{&imgHolder[i], 16, top, 38, 38}, {&lblHolder[i], 62, top, 242, 40, 12, 10}});
        }
        for (int i = 0; i <= imgPlayingPiece.UBound(); ++i) {
            const int left = PiecesLeft + i % PiecesInRow * PieceStep;
            const int top = ListTop + i / PiecesInRow * PieceStep;
            PositionObjects(m_g, {{&imgPlayingPiece[i], left, top, PieceSize, PieceSize}});
        }
        PositionObjects(m_g, {{&shpPlayers, 8, ListTop - 6, 300, MaxSeats * RowHeight + 8},
                              {&shpPieces, 314, ListTop - 6, 276, MaxSeats * RowHeight + 8}});
        PositionShape(m_g, shpCollections, cmbPlayingPieceCollections);
    });
}

}  // namespace tabulon

#pragma once

#include <memory>
#include <string>

#include "board/main_form.h"
#include "content/CGame.h"
#include "presentation/frmGameMusic.h"

namespace tabulon {

/// Asks who plays: up to six names, each with a playing piece, people or computers.
class DlgPlayers : public Form {
  public:
    DlgPlayers(Globals& g, FrmGameMusic& music, MainForm& main);

    /// Result is False after Cancel, and nothing else has changed. Without a name the counts and arrays stay
    /// as they are. The chosen pictures go to the main form.
    void GetData(const std::shared_ptr<CGame>& oGame, Integer& intPlayers, Array<std::string>& sPlayerNames,
                 Array<std::string>& sPlayerPiecesNames, Array<bool>& bComputerPlayer, bool& Result);

    Label lblPlayerName{*this, "lblPlayerName"};
    TextBox txtPlayerName{*this, "txtPlayerName"};
    PictureButton cmdAdd{*this, "cmdAdd"};
    PictureButton cmdChange{*this, "cmdChange"};
    PictureButton cmdRemove{*this, "cmdRemove"};
    Label lblChoosePieces{*this, "lblChoosePieces"};
    Shape shpCollections{*this, "shpCollections"};
    ComboBox cmbPlayingPieceCollections{*this, "cmbPlayingPieceCollections"};
    Shape shpPlayers{*this, "shpPlayers"};  // a light ground for the rows, whose text is black and red
    Shape shpPieces{*this, "shpPieces"};
    ControlArray<Image, MaxSeats> imgHolder{*this, "imgHolder"};
    ControlArray<Label, MaxSeats> lblHolder{*this, "lblHolder"};
    ControlArray<Image, 12> imgPlayingPiece{*this, "imgPlayingPiece"};
    UpDown UpDown1{*this, "UpDown1"};
    Label lblPlayingPiece{*this, "lblPlayingPiece"};
    Label lblComputerPlayer{*this, "lblComputerPlayer"};
    CheckBox chkIsComputerPlayer{*this, "chkIsComputerPlayer"};
    PictureButton cmdOk{*this, "cmdOk"};
    PictureButton cmdCancel{*this, "cmdCancel"};

    std::shared_ptr<CGame> Game;
    Font PieceFont;
    bool Cancelled = false;
    Integer PlayerCount = 0;
    Integer Selected = -1;  // row of the list
    Array<std::string> Names;
    Array<bool> Computer;
    Array<std::string> PieceNames;
    Integer FirstPiece = 0;
    Integer PieceSpan = 0;
    Integer LastPage = 0;
    Integer Page = 0;

  protected:
    void Design() override;
    void Form_Load() override;
    void Form_QueryUnload(bool& Cancel) override;
    void Form_Unload() override;

  private:
    void DesignInput();
    void DesignPieces();
    void DesignPlayers();
    void RepositionElements();
    void ConnectInput();
    void ConnectPieces();

    void CopyPlayers(Integer& intPlayers, Array<std::string>& sPlayerNames,
                     Array<std::string>& sPlayerPiecesNames, Array<bool>& bComputerPlayer);
    void PopulatePlayingPieceCollectionCombo();
    void PopulatePlayingPieceArrays();
    void DisplayPlayingPieces(Integer ThePage);
    void ReplaceCaption(Integer Number);
    void SlidePlayers();
    void SelectPlayer();
    void ShowSelection();
    void NameRows();
    void ResetPlayerSelection();
    void ClearAllPlayingPieceBorders();
    void AllPlayersAssignedPieces(bool& Result);
    bool ProcessKeyDown(bool InTextBox, int KeyCode, int Shift);
    bool AccessKey(int KeyCode);

    void cmbPlayingPieceCollections_Click();
    void UpDown1_DownClick();
    void UpDown1_UpClick();
    void TurnPage(Integer by);
    void imgPlayingPiece_MouseMove(int Index);
    void imgPlayingPiece_Click(int Index);
    void AssignPiece(int Index, Integer TheImage);
    void lblHolder_Click(int Index);
    void txtPlayerName_Change();
    void cmdAdd_Click();
    void AskNextPlayer();
    void cmdChange_Click();
    void cmdRemove_Click();
    void RemovePlayer();
    void chkIsComputerPlayer_Click();
    void cmdOk_Click();
    void cmdCancel_Click();

    Globals& m_g;
    FrmGameMusic& m_music;
    MainForm& m_main;
};

}  // namespace tabulon

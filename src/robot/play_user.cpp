#include "robot/play_user.h"

#include "presentation/text_fitting.h"

namespace tabulon {

void PlayUser::Sit(Program& program) {
    m_program = &program;
    program.frmGameMusic.SoundStarts = [this](const std::string& genre, const std::string& name, bool loop) {
        OnSound(genre, name, loop);
    };
    program.frmGameMusic.SoundStops = [this] { OnSilence(); };
    program.dlgMsgOk.MessageShown = [this](const std::string& text, bool computer) {
        OnMessage(text, computer);
    };
    program.dlgDrawCard.AnswerChosen = [this](int index) {
        OnCard(*m_program->dlgDrawCard.Card, m_program->dlgDrawCard.IsComputer, index);
    };
    program.globals.gErrHandler.ShowDetails = [](const std::string&) {};
    program.globals.gErrHandler.AfterHandlerCalled = [this] { OnError(m_program->globals.gErrHandler); };
}

bool PlayUser::Act(Form& form) {
    Program& program = *m_program;
    if (&form == &program.dlgMsgOk) {
        if (program.dlgMsgOk.AutoClose) return false;
        program.dlgMsgOk.cmdOk.Click();
    } else if (&form == &program.dlgMsgYesNo) {
        const bool yes = AnswerQuestion(program.dlgMsgYesNo.lblMsg.Caption);
        (yes ? program.dlgMsgYesNo.cmdYes : program.dlgMsgYesNo.cmdNo).Click();
    } else if (&form == &program.dlgDrawCard) {
        if (program.dlgDrawCard.IsComputer) return false;
        UseCard();
    } else if (&form == &program.dlgPlayers) {
        UsePlayersDialog();
    } else if (&form == &program.dlgLoadGame) {
        UseChooser();
    } else {
        form.Hide();
    }
    return true;
}

BoxAnswer PlayUser::AnswerBox(const std::string& text, BoxIcon icon, BoxButtons buttons,
                              const std::string& title) {
    OnBox(text, icon, title);
    return buttons == BoxButtons::YesNo || buttons == BoxButtons::YesNoCancel ? BoxAnswer::No : BoxAnswer::Ok;
}

void PlayUser::UseCard() {
    DlgDrawCard& dialog = m_program->dlgDrawCard;
    const int key = AnswerCard(*dialog.Card);
    if (key == Key::Escape) OnCard(*dialog.Card, false, -1);
    dialog.KeyUp(key, 0);
}

void PlayUser::UseChooser() {
    DlgLoadGame& dialog = m_program->dlgLoadGame;
    const std::optional<GameChoice> choice = ChooseGame();
    if (!choice) {
        dialog.cmdCancel.Click();
    } else if (choice->New) {
        dialog.cmdNewGame.Click();
    } else {
        const int rows = static_cast<int>(dialog.cmbSavedGames.Rows.size());
        if (choice->Saved < 0 || choice->Saved >= rows)
            throw Stuck{dialog.Name, "there is no such saved game"};
        dialog.cmbSavedGames.Select(choice->Saved);
        dialog.cmdLoadGame.Click();
    }
}

void PlayUser::UsePlayersDialog() {
    DlgPlayers& dialog = m_program->dlgPlayers;
    const std::optional<std::vector<PlayerEntry>> players = EnterPlayers();
    if (!players) {
        dialog.cmdCancel.Click();
        return;
    }
    if (players->size() > MaxSeats) throw Stuck{dialog.Name, "there is no room for so many players"};
    int row = 0;
    for (const PlayerEntry& player : *players) EnterPlayer(row++, player);
    dialog.cmdOk.Click();
}

void PlayUser::EnterPlayer(int row, const PlayerEntry& player) {
    DlgPlayers& dialog = m_program->dlgPlayers;
    dialog.txtPlayerName.SetText(player.Name);
    dialog.cmdAdd.Click();
    const std::string collection = player.Piece.substr(0, player.Piece.find(')')).substr(1);
    SelectItemInDropDownList(m_program->globals, dialog.cmbPlayingPieceCollections, collection);
    if (player.Computer) {
        dialog.lblHolder[row].Click();
        dialog.chkIsComputerPlayer.Value = true;
        dialog.chkIsComputerPlayer.Click();
    }
    dialog.lblHolder[row].Click();
    for (Image& piece : dialog.imgPlayingPiece) {
        if (piece.Tag == player.Piece) piece.Click();
    }
}

}  // namespace tabulon

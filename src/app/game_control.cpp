#include "app/game_control.h"

#include "board/piece_pictures.h"
#include "content/game_words.h"
#include "content/required.h"
#include "platform/numbers.h"
#include "platform/text.h"
#include "presentation/text_fitting.h"

namespace tabulon {

namespace {

constexpr int SplashMilliseconds = 3000;

}  // namespace

bool GameControl::Ask(const std::string& question) {
    bool yes = false;
    m_parts.dlgMsgYesNo.ShowMessage(Required(m_form.Game), question, 0, yes);
    return yes;
}

void GameControl::cmdNew_Click() {
    Procedure(m_g.gErrHandler, "frmMain:cmdNew_Click", [&] {
        const PlayState& state = m_form.State;
        if (state.GameInProgress) {
            if (Ask("Quit this game and start a new one?")) StartNewGame(true);
        } else if (!state.GameStart || state.GamePlayed) {
            StartNewGame(!Ask("Play again with the same players?"));
        } else {
            StartNewGame(true);
        }
    });
}

void GameControl::cmdLoadGame_Click() {
    Procedure(m_g.gErrHandler, "frmMain:cmdLoadGame_Click", [&] {
        Array<std::string> games, gameNames, descriptions;
        std::int32_t count = 0;
        bool newGame = false;
        bool chosen = false;
        m_parts.dlgLoadGame.GetData(games, gameNames, descriptions, count, nullptr, newGame, chosen);
        if (!chosen) return;
        m_board.LoadGameBoard();
        if (newGame) {
            ShowSplash();
            m_parts.frmSplash.Unload();
            StartNewGame(true);
        } else {
            StartLoadedGame();
        }
    });
}

void GameControl::ShowSplash() {
    m_parts.frmSplash.SetUp(Required(m_form.Game));
    m_g.TheScreen.PumpEvents();
    m_form.EndIfLeft();
    m_g.TheScreen.Sleep(SplashMilliseconds);
}

void GameControl::cmdSaveGame_Click() {
    Procedure(m_g.gErrHandler, "frmMain:cmdSaveGame_Click", [&] {
        if (!Ask("Do you want to save this game?")) return;
        if (m_parts.savedGames.SaveGame(m_form.GameDirectory, m_form.State)) {
            m_form.cmdSaveGame.Enabled = false;
            m_form.FocusTurnButton();
            m_parts.dlgMsgOk.ShowMessage(*m_form.Game, "Game saved!", false, false);
        } else {
            m_parts.dlgMsgOk.ShowMessage(*m_form.Game, "Game save failed!", false, false);
        }
    });
}

void GameControl::LoadGame(const std::string& GameDirectory, const std::string& GameName) {
    Procedure(m_g.gErrHandler, "frmMain:LoadGame", [&] {
        m_form.Game = std::make_shared<CGame>(m_g, m_parts.packages);
        m_form.Game->GameDirectory = GameDirectory;
        m_form.Game->GameName = GameName;
        m_form.Game->Load();
        m_form.State.GoalType = m_form.Game->GoalType;
    });
}

void GameControl::LoadSavedGame(const std::string& SavedGameName) {
    Procedure(m_g.gErrHandler, "frmMain:LoadSavedGame", [&] {
        m_parts.savedGames.LoadGame(m_form.GameDirectory, m_form.State.GoalType, SavedGameName, m_form.State,
                                    m_form);
        m_form.State.SavedGameLoaded = true;
    });
}

void GameControl::ShowPlayingCaption() {
    m_form.lblGameName.Caption = "You're playing \"" + DoubleAmpersands(m_form.GameName) + "\"";
}

void GameControl::StartNewGame(bool AskPlayers) {
    Procedure(m_g.gErrHandler, "frmMain:StartNewGame", [&] {
        bool started = true;
        if (AskPlayers) {
            m_form.lblRound.Caption.clear();
            started = false;
            m_pieces.SetPlayerNames(started);
        }
        m_parts.frmGameMusic.StopGameMusic();
        m_parts.frmGameMusic.PlayGameMusic(Required(m_form.Game).MusicGenre, "begin_game", true);
        if (!started) {
            m_devices.ToggleTurnDeviceButton(false);
            m_form.FocusTurnButton();
            return;
        }
        ClearStateForNewGame();
        if (m_form.State.PlayerCount >= 1) {
            LayOutPlates();
            BeginNewGame();
            m_form.FocusTurnButton();
        }
        ShowPlayingCaption();
    });
}

void GameControl::ClearStateForNewGame() {
    PlayState& state = m_form.State;
    state.LoadedGame = state.CardFinished = state.GameInProgress = state.GameOver = state.GamePlayed = false;
    state.GameStart = true;
}

void GameControl::LayOutPlates() {
    PlayState& state = m_form.State;
    state.ReDimForNewGame();
    for (int i = 0; i < state.PlayerCount.Value(); ++i) {
        state.Position[i] = 1;
        LayOutPlate(i);
    }
}

void GameControl::LayOutPlate(int index) {
    const float pixel = m_g.TheScreen.TwipsPerPixelY();
    Image& character = m_form.imgCharacter[index];
    Label& name = m_form.lblName[index];
    Label& points = m_form.lblPoints[index];
    m_form.imgPlayingPiece[index].Picture = character.Picture;
    if (m_form.State.GoalType == Goal::EndOfBoard) {
        points.Visible = false;
        name.Top = character.Top + 4 * pixel;
        return;
    }
    name.Top = character.Top - (m_g.SmallFonts ? 4 : 9) * pixel;
    points.Top = name.Top + name.Height + 2 * pixel;
    points.Visible = true;
    m_transfers.AddPointsToPlayer(index + 1, 0);
}

void GameControl::BeginNewGame() {
    PlayState& state = m_form.State;
    m_transfers.SelectPlayerPiece(1);
    state.WhoseTurn = 1;
    state.Round = 0;
    m_board.DrawSpaces();
    m_form.timerOverviewSpace.Enabled = true;
    m_pieces.DrawPlayers();
    m_devices.HideDiceImages(0);
    state.GameInProgress = true;
    state.GameOver = false;
    m_devices.ToggleTurnDeviceButton(true);
    m_devices.SetTurnDeviceButtonFocus();
    state.SavedGameLoaded = true;
    m_form.cmdSaveGame.Enabled = false;
}

void GameControl::StartLoadedGame() {
    Procedure(m_g.gErrHandler, "frmMain:StartLoadedGame", [&] {
        m_parts.dlgPlayers.Load();
        ClearStateForLoadedGame();
        m_form.ShowPlates();
        for (int seat = 1; seat <= m_form.State.PlayerCount.Value(); ++seat) FillLoadedPlate(seat);
        BeginLoadedGame();
        ShowPlayingCaption();
        m_parts.dlgPlayers.Unload();
        m_form.FocusTurnButton();
    });
}

// What the save says of these is thrown away: a resumed game never asks before it is left.
void GameControl::ClearStateForLoadedGame() {
    PlayState& state = m_form.State;
    state.CardFinished = state.GameInProgress = state.GameOver = state.GamePlayed = false;
    state.GameStart = state.LoadedGame = true;
    m_form.lblRound.Caption = "Round " + ToText(state.Round);
    m_form.lblRound.Raise();
}

// The labels of a seat line up with the plate of the next one, and seat 6 has none to line up with.
void GameControl::FillLoadedPlate(Integer seat) {
    const PlayState& state = m_form.State;
    const float pixel = m_g.TheScreen.TwipsPerPixelY();
    const Integer plate = seat - 1;
    m_form.imgCharacter[plate].Picture = PieceByKey(state.PieceName[seat]);
    m_form.imgPlayingPiece[plate].Picture = m_form.imgCharacter[plate].Picture;
    Label& name = m_form.lblName[plate];
    name.Caption = state.Name[seat];
    FitLabelText(m_g, name);
    Label& points = m_form.lblPoints[plate];
    if (state.GoalType == Goal::EndOfBoard) {
        points.Visible = false;
        m_form.lblName[seat].Top = m_form.imgCharacter[seat].Top + 4 * pixel;
    } else {
        Label& next = m_form.lblName[seat];
        next.Top = m_form.imgCharacter[seat].Top - 2 * pixel;
        points.Visible = true;
        points.Caption = std::string(ScoreCaption(state.GoalType)) + ToText(state.Points[seat]);
        points.Top = next.Top + next.Height + 2 * pixel;
    }
    FitLabelText(m_g, name);
}

void GameControl::BeginLoadedGame() {
    m_transfers.SelectPlayerPiece(m_form.State.WhoseTurn);
    m_board.DrawSpaces();
    m_form.timerOverviewSpace.Enabled = true;
    m_pieces.DrawPlayersForLoadGame();
    m_devices.HideDiceImages(0);
    m_devices.ToggleTurnDeviceButton(true);
    m_devices.SetTurnDeviceButtonFocus();
}

}  // namespace tabulon

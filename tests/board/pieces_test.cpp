#include "board/pieces.h"

#include <gmock/gmock.h>

#include "platform/numbers.h"
#include "support/play_fixture.h"

namespace tabulon::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PiecesTest : public testing::Test {
  protected:
    PiecesTest() {
        frmMain.Load();
        frmMain.Game = game;
        for (int i = 1; i <= 5; ++i)
            game->Spaces.Add(i, 10 * i, 100 * i, 40, i == 5 ? 50 : 60, 0, "", 0, 0, "");
    }
    void Seat(const Array<Integer>& positions, bool loaded = false) {
        PlayState& state = frmMain.State;
        state.Position = positions;
        state.LoadedGame = loaded;
        state.PlayerCount = positions.UBound() + (loaded ? 0 : 1);
        state.Name = {"", "", "", "", "", "", ""};
        for (int i = 0; i < MaxSeats; ++i) {
            state.Name[loaded ? i + 1 : i] = People(i + 1).back().Name;
            frmMain.imgPlayingPiece[i].Visible = false;
        }
    }
    /// "Ann 100,10" for each piece that shows, "-" for the others up to the last one.
    std::vector<std::string> Shown() {
        std::vector<std::string> shown;
        for (Image& piece : frmMain.imgPlayingPiece) {
            shown.push_back(
                piece.Visible ? piece.ToolTipText + " " + ToText(piece.Left) + "," + ToText(piece.Top) : "-");
        }
        while (!shown.empty() && shown.back() == "-") shown.pop_back();
        return shown;
    }
    template <class Act>
    bool SetNames(Act&& act) {
        machine.User.Acts.push_back([act](Form&) { act(); });
        bool result = true;
        pieces.SetPlayerNames(result);
        return result;
    }
    void AddPlayer(int row, const char* name) {
        dlgPlayers.txtPlayerName.SetText(name);
        dlgPlayers.cmdAdd.Click();
        dlgPlayers.cmbPlayingPieceCollections.Select(0);
        dlgPlayers.lblHolder[row].Click();
        dlgPlayers.imgPlayingPiece[row].Click();
    }
    void Enter() {
        AddPlayer(0, "Ann");
        AddPlayer(1, "Ben");
        dlgPlayers.cmdOk.Click();
    }

    TestMachine machine;
    modInstallUninstall packages{machine.g};
    FrmGameMusic music{machine.g, packages};
    MainForm frmMain{machine.g};
    DlgPlayers dlgPlayers{machine.g, music, frmMain};
    std::shared_ptr<CGame> game = std::make_shared<CGame>(machine.g, packages);
    Pieces pieces{machine.g, frmMain, dlgPlayers};
};

struct Standing {
    const char* Name;
    std::vector<int> Positions;  // of seats 1, 2 …
    std::vector<std::string> Pieces;
};

TEST_F(PiecesTest, StandAlikeInNewAndResumedGames) {
    const Standing rows[] = {
        {"One", {3}, {"Ann 300,30"}},
        {"TwoAndOne", {2, 4, 2}, {"Ann 200,20", "Ben 400,40", "Cid 230,20"}},
        {"SixOnOne",
         {1, 1, 1, 1, 1, 1},
         {"Ann 100,10", "Ben 110,10", "Cid 120,10", "Dot 130,10", "Eve 140,10", "Fay 150,10"}},
        {"ThirdsOfAPixel", {5, 5, 5}, {"Ann 500,50", "Ben 516.6667,50", "Cid 533.3333,50"}},
    };
    for (const Standing& row : rows) {
        for (const bool loaded : {false, true}) {
            SCOPED_TRACE(row.Name + std::string(loaded ? " resumed" : " new"));
            Array<Integer> positions;
            const int seats = static_cast<int>(row.Positions.size());
            positions.ReDim(loaded ? seats : seats - 1);
            for (int i = 0; i < seats; ++i)
                positions[loaded ? i + 1 : i] = row.Positions[static_cast<std::size_t>(i)];
            Seat(positions, loaded);
            pieces.Draw();
            EXPECT_EQ(Shown(), row.Pieces);
        }
    }
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(PiecesTest, WhoIsOnNoSpaceStaysHiddenInANewGame) {
    game->Spaces.Add(0, 7, 7, 7, 7, 0, "", 0, 0, "");
    Seat({6, 0, -2, 3});
    pieces.Draw();
    EXPECT_THAT(Shown(), ElementsAre("-", "-", "-", "Dot 300,30"));
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(PiecesTest, WhoIsOnNoSpaceStopsTheOthersInAResumedGame) {
    Seat({0, 1, 6, 3}, true);
    pieces.Draw();
    EXPECT_THAT(Shown(), ElementsAre("Ann 100,10"));
    EXPECT_THAT(machine.Errors, ElementsAre("frmMain:DrawPlayersForLoadGame 91"));
}

TEST_F(PiecesTest, TheEmptySlotTakesRoomOnASpaceOfItsNumber) {
    game->Spaces.Item(2).Width = 90;
    Seat({2, 2, 2}, true);
    pieces.Draw();
    EXPECT_THAT(Shown(), ElementsAre("Ann 200,20", "Ben 230,20"));
}

TEST_F(PiecesTest, PlatesShowTheNewPlayers) {
    const struct {
        int GoalType;
        const char *Caption, *ToolTip;
    } rows[] = {{2, "Points: 0", "Second player's points"},
                {0, "Points: 0", "Ben's points"},
                {1, "Money: 0", "Ben's money"}};
    for (const auto& row : rows) {
        frmMain.State.GoalType = row.GoalType;
        frmMain.State.Points = {4, 5, 6, 7};
        EXPECT_TRUE(SetNames([this] { Enter(); }));
        EXPECT_EQ(InWords(frmMain.State.Points), "0 0 0");
        EXPECT_EQ(InWords(frmMain.State.Name), "Ann Ben");
        EXPECT_THAT(Values(frmMain.State.PieceName), ElementsAre("(Aliens) 1", "(Aliens) 2"));
        EXPECT_EQ(frmMain.lblName[1].Caption, "Ben");
        EXPECT_EQ(frmMain.lblPoints[1].Caption, row.Caption);
        EXPECT_EQ(frmMain.lblPoints[1].ToolTipText, row.ToolTip);
        EXPECT_EQ(frmMain.imgPlayingPiece[1].ToolTipText, "Ben");
        EXPECT_EQ(frmMain.imgCharacter[1].ToolTipText, "Ben's playing piece");
        EXPECT_EQ(frmMain.imgCharacter[2].ToolTipText, "Third player's playing piece");
        EXPECT_EQ(frmMain.imgPlayingPiece[1].Picture, Picture::Piece(2));
    }
}

TEST_F(PiecesTest, CancelLeavesTheNamesAndTakesPiecesAndFlags) {
    PlayState& state = frmMain.State;
    state.Name = {"Old", "Older"};
    state.PieceName = {"(Aliens) 7", "(Aliens) 8"};
    state.IsComputer = {true, true};
    state.PlayerCount = 2;
    state.Points = {1, 2, 3};
    frmMain.cmdSaveGame.Enabled = true;
    EXPECT_FALSE(SetNames([this] { dlgPlayers.cmdCancel.Click(); }));
    EXPECT_THAT(Values(state.Name), ElementsAre("Old", "Older"));
    EXPECT_THAT(Values(state.PieceName), ElementsAre(""));
    EXPECT_THAT(Values(state.IsComputer), ElementsAre(false));
    EXPECT_THAT(Values(state.Points), ElementsAre(1, 2, 3));
    EXPECT_EQ(state.PlayerCount, 2);
    for (const PictureButton* button : {&frmMain.cmdSaveGame, &frmMain.cmdRoll, &frmMain.cmdSpin})
        EXPECT_FALSE(button->Enabled) << button->Name;
    EXPECT_TRUE(frmMain.cmdPass.Enabled);
}

}  // namespace
}  // namespace tabulon::test

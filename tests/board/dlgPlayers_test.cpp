#include "board/dlgPlayers.h"

#include <gmock/gmock.h>

#include "support/play_fixture.h"

namespace tabulon::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DlgPlayersTest : public testing::Test {
  protected:
    DlgPlayersTest() {
        game->Font = "Comic Neue";
        game->FontSize = 12;
        music.SoundStops = [this] { ++stops; };
    }

    /// Opens the dialog, does with it what `act` does, cancels it if it is still there, and takes its
    /// results.
    template <class Act>
    void Ask(Act&& act) {
        machine.User.Acts.push_back([this, act](Form&) {
            act();
            if (dialog.Visible) dialog.cmdCancel.Click();
        });
        dialog.GetData(game, players, names, pieces, computers, result);
    }
    void Add(const std::string& name) {
        dialog.txtPlayerName.SetText(name);
        dialog.cmdAdd.Click();
    }
    void AddAll(std::initializer_list<const char*> all) {
        for (const char* name : all) Add(name);
    }
    void ChooseCollection(int row) { dialog.cmbPlayingPieceCollections.Select(row); }
    void GivePiece(int row, int picture) {
        dialog.lblHolder[row].Click();
        dialog.imgPlayingPiece[picture].Click();
    }
    void ToggleComputer(int row) {
        dialog.lblHolder[row].Click();
        dialog.chkIsComputerPlayer.Value = !dialog.chkIsComputerPlayer.Value;
        dialog.chkIsComputerPlayer.Click();
    }
    void Remove(int row) {
        machine.User.Answers.push_back(BoxAnswer::Yes);
        dialog.lblHolder[row].Click();
        dialog.cmdRemove.Click();
    }
    void PressInInput(int key, int shift) {
        dialog.ActiveControl = &dialog.txtPlayerName;
        dialog.KeyDown(key, shift);
    }
    /// The names that the rows show: "Ann, Ben".
    std::string Rows() {
        std::string rows;
        for (Label& holder : dialog.lblHolder)
            if (!holder.Caption.empty()) rows += (rows.empty() ? "" : ", ") + holder.Caption;
        return rows;
    }

    TestMachine machine;
    modInstallUninstall packages{machine.g};
    FrmGameMusic music{machine.g, packages};
    MainForm frmMain{machine.g};
    DlgPlayers dialog{machine.g, music, frmMain};
    std::shared_ptr<CGame> game = std::make_shared<CGame>(machine.g, packages);
    int stops = 0;

    Integer players = 99;
    Array<std::string> names{"old"};
    Array<std::string> pieces{"old"};
    Array<bool> computers{true};
    bool result = false;
};

TEST_F(DlgPlayersTest, HandsOverNamesPiecesAndPictures) {
    Ask([this] {
        AddAll({"Ann", "Ben"});
        ChooseCollection(1);
        GivePiece(1, 11);
        ChooseCollection(3);
        GivePiece(0, 0);
        ToggleComputer(1);
        dialog.cmdOk.Click();
    });
    EXPECT_TRUE(result);
    EXPECT_EQ(players, 2);
    EXPECT_THAT(Values(names), ElementsAre("Ann", "Ben"));
    EXPECT_THAT(Values(pieces), ElementsAre("(Professions) 1", "(Animals) 12"));
    EXPECT_THAT(Values(computers), ElementsAre(false, true));
    EXPECT_EQ(frmMain.imgCharacter[0].Picture, Picture::Piece(37));
    EXPECT_EQ(frmMain.imgPlayingPiece[1].Picture, Picture::Piece(24));
    EXPECT_FALSE(dialog.Loaded);
    EXPECT_EQ(stops, 1);
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(DlgPlayersTest, WhoLeavesItChangesNothing) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"button", [this] { dialog.cmdCancel.Click(); }},
        {"Alt and C", [this] { dialog.KeyDown(Key::C, Key::Alt); }},
        {"close box", [this] { dialog.Unload(); }},
    };
    for (const auto& [name, leave] : ways) {
        SCOPED_TRACE(name);
        stops = 0;
        Ask([&, &leave = leave] {
            Add("Ann");
            ChooseCollection(0);
            GivePiece(0, 0);
            leave();
        });
        EXPECT_FALSE(result);
        EXPECT_EQ(players, 99);
        EXPECT_THAT(Values(names), ElementsAre("old"));
        EXPECT_EQ(frmMain.imgCharacter[0].Picture, Picture());
        EXPECT_EQ(stops, 1);
    }
}

TEST_F(DlgPlayersTest, PromptsForTheNextName) {
    const char* numbers[] = {"First", "Second", "Third", "Fourth", "Fifth", "Sixth"};
    Ask([&] {
        for (const std::string number : numbers) {
            EXPECT_EQ(dialog.lblPlayerName.Caption, "Enter the " + number + " Player's Name:" +
                                                        (number == "First" ? "" : "\r\n(or click a name)"));
            Add(number);
        }
        EXPECT_EQ(dialog.lblPlayerName.Caption, "Up to six players can play...");
        EXPECT_FALSE(dialog.txtPlayerName.Visible);
    });
}

struct Removal {
    const char* Name;
    int Players, Row;
    const char *Shown, *Returned, *Flags;  // the second player is a computer
};

TEST_F(DlgPlayersTest, TakesNoSeventhName) {
    Ask([this] {
        AddAll({"Ann", "Ben", "Cid", "Dot", "Eve", "Fay"});
        EXPECT_FALSE(dialog.cmdAdd.Enabled);
        dialog.lblHolder[2].Click();
        EXPECT_FALSE(dialog.cmdAdd.Enabled);
        EXPECT_TRUE(dialog.cmdChange.Enabled);
        PressInInput(Key::Enter, 0);
        PressInInput(Key::A, Key::Alt);
        EXPECT_EQ(dialog.PlayerCount, 6);
        EXPECT_EQ(Rows(), "Ann, Ben, Cid, Dot, Eve, Fay");
        Remove(5);
        Add("Gil");
        EXPECT_EQ(dialog.PlayerCount, 6);
    });
    EXPECT_THAT(machine.Errors, ElementsAre("dlgPlayers:SlidePlayers 9"));
}

TEST_F(DlgPlayersTest, RemovingClosesUpTheRowsAlone) {
    const Removal rows[] = {
        {"FirstOfThree", 3, 0, "B, C", "A B", "0 1"},
        {"LastOfThree", 3, 2, "A, B", "A B", "0 1"},
        {"MiddleOfFive", 5, 2, "A, B, D, E", "A B C D", "0 1 0 0"},
        {"FirstOfTwo", 2, 0, "B", "A", "0"},
    };
    for (const Removal& row : rows) {
        SCOPED_TRACE(row.Name);
        Ask([&] {
            ChooseCollection(0);
            for (int i = 0; i < row.Players; ++i) {
                Add(std::string(1, static_cast<char>('A' + i)));
                GivePiece(i, i);
            }
            ToggleComputer(1);
            Remove(row.Row);
            EXPECT_EQ(Rows(), row.Shown);
            EXPECT_EQ(dialog.lblHolder[0].AccessibleName[0], row.Shown[0]);
            EXPECT_EQ(dialog.lblHolder[row.Players - 1].AccessibleName, "");
            EXPECT_FALSE(dialog.cmdRemove.Enabled);
            dialog.cmdOk.Click();
        });
        EXPECT_EQ(InWords(names), row.Returned);
        EXPECT_EQ(InWords(computers), row.Flags);
        for (int i = 0; i <= pieces.UBound(); ++i)
            EXPECT_EQ(pieces[i], "(Aliens) " + std::to_string(row.Shown[3 * i] - 'A' + 1));
        EXPECT_THAT(machine.Errors, IsEmpty());
    }
}

TEST_F(DlgPlayersTest, RemovingOneOfSixReportsAndAsksForASixthAgain) {
    Ask([this] {
        AddAll({"A", "B", "C", "D", "E", "F"});
        Remove(0);
        EXPECT_EQ(Rows(), "B, C, D, E, F");
        EXPECT_TRUE(dialog.txtPlayerName.Visible);
        EXPECT_EQ(dialog.lblPlayerName.Caption, "Enter the Sixth Player's Name:\r\n(or click a name)");
    });
    EXPECT_THAT(machine.Errors, ElementsAre("dlgPlayers:SlidePlayers 9"));
}

TEST_F(DlgPlayersTest, RemovingTheLastNameLeavesADoubleBlankAndNothingToPlay) {
    machine.User.Answers.push_back(BoxAnswer::No);
    Ask([this] {
        Add("Ann");
        dialog.imgHolder[0].Click();
        dialog.cmdRemove.Click();
        EXPECT_EQ(Rows(), "Ann");
        Remove(0);
        EXPECT_EQ(dialog.lblPlayerName.Caption, "Enter the  Player's Name:\r\n(or click a name)");
        EXPECT_FALSE(dialog.cmdOk.Enabled);
    });
    EXPECT_EQ(machine.User.Boxes.at(0).Text, "Remove this player?");
    EXPECT_EQ(machine.User.Boxes.at(0).Title, "Tab Player");
}

TEST_F(DlgPlayersTest, OkWaitsUntilEveryPlayerHasAPiece) {
    Ask([this] {
        AddAll({"Ann", "Ben"});
        ChooseCollection(2);
        GivePiece(0, 3);
        dialog.cmdOk.Click();
        EXPECT_TRUE(dialog.Visible);
        GivePiece(1, 3);
        dialog.cmdOk.Click();
    });
    EXPECT_THAT(machine.User.BoxTexts(), ElementsAre("All Players must have Playing Pieces!"));
    EXPECT_EQ(machine.User.Boxes.at(0).Icon, BoxIcon::Critical);
    EXPECT_THAT(Values(pieces), ElementsAre("(Objects) 4", "(Objects) 4"));
}

TEST_F(DlgPlayersTest, OpensTheGamesOwnCollectionAfterTheFirstName) {
    game->CharacterCategory = "Animals";
    Ask([this] {
        EXPECT_FALSE(dialog.cmbPlayingPieceCollections.Enabled);
        Add("Ann");
        EXPECT_TRUE(dialog.cmbPlayingPieceCollections.Enabled);
        EXPECT_EQ(dialog.cmbPlayingPieceCollections.SelectedRow().Text, "Animals");
        EXPECT_EQ(dialog.imgPlayingPiece[0].Tag, "(Animals) 1");
        EXPECT_EQ(dialog.lblChoosePieces.Caption, "Choose a Character");
    });
}

TEST_F(DlgPlayersTest, OffersEachCollectionOnASinglePage) {
    Ask([this] {
        std::vector<std::string> collections;
        for (const ListRow& row : dialog.cmbPlayingPieceCollections.Rows) collections.push_back(row.Text);
        EXPECT_THAT(collections, ElementsAre("Aliens", "Animals", "Objects", "Professions"));
        ChooseCollection(3);
        dialog.UpDown1.DownClick();
        EXPECT_EQ(dialog.Page, 0);
        EXPECT_EQ(dialog.imgPlayingPiece[11].Tag, "(Professions) 12");
        EXPECT_TRUE(dialog.imgPlayingPiece[11].Visible);
    });
}

TEST_F(DlgPlayersTest, APieceWithoutAPlayerChangesNothing) {
    Ask([this] {
        Add("Ann");
        ChooseCollection(0);
        dialog.imgPlayingPiece[4].Click();
        EXPECT_EQ(dialog.imgHolder[0].Tag, "");
        dialog.chkIsComputerPlayer.Value = true;
        dialog.chkIsComputerPlayer.Click();
        EXPECT_FALSE(dialog.chkIsComputerPlayer.Value);
        EXPECT_FALSE(dialog.Computer[0]);
    });
}

TEST_F(DlgPlayersTest, SelectingShowsThePlayersPieceAndFlag) {
    Ask([this] {
        AddAll({"Ann", "Ben"});
        ChooseCollection(0);
        GivePiece(0, 6);
        ToggleComputer(0);
        dialog.lblHolder[1].Click();
        EXPECT_FALSE(dialog.chkIsComputerPlayer.Value);
        dialog.lblHolder[0].Click();
        EXPECT_TRUE(dialog.chkIsComputerPlayer.Value);
        EXPECT_TRUE(dialog.imgPlayingPiece[6].Border);
        EXPECT_EQ(dialog.lblHolder[0].AccessibleName, "Ann, Robot, selected");
        EXPECT_EQ(dialog.lblHolder[1].AccessibleName, "Ben, no playing piece");
        EXPECT_EQ(dialog.lblHolder[0].ForeColor, (Colour{255, 0, 0}));
        EXPECT_EQ(dialog.lblHolder[1].ForeColor, Colour());
        EXPECT_EQ(dialog.txtPlayerName.Text, "Ann");
        dialog.lblHolder[5].Click();
        EXPECT_EQ(dialog.Selected, 0);
    });
}

TEST_F(DlgPlayersTest, ChangesTheNameOfTheSelectedPlayer) {
    Ask([this] {
        AddAll({"Ann", "Ben"});
        dialog.txtPlayerName.SetText("Cid");
        EXPECT_FALSE(dialog.cmdChange.Enabled);
        dialog.lblHolder[0].Click();
        EXPECT_TRUE(dialog.cmdChange.Enabled);
        dialog.txtPlayerName.SetText("Ada");
        dialog.cmdChange.Click();
        EXPECT_EQ(Rows(), "Ada, Ben");
        EXPECT_EQ(dialog.Selected, -1);
        EXPECT_FALSE(dialog.cmdAdd.Enabled);
    });
    EXPECT_THAT(Values(dialog.Names), ElementsAre("Ada", "Ben"));
}

TEST_F(DlgPlayersTest, LineBreaksVanishFromANameAndLeaveNothingToAddAlone) {
    Ask([this] {
        dialog.txtPlayerName.SetText("An\r\nn\n");
        EXPECT_EQ(dialog.txtPlayerName.Text, "Ann");
        EXPECT_TRUE(dialog.cmdAdd.Enabled);
        dialog.txtPlayerName.SetText("\r\n\n");
        EXPECT_EQ(dialog.txtPlayerName.Text, "");
        EXPECT_FALSE(dialog.cmdAdd.Enabled);
    });
}

TEST_F(DlgPlayersTest, KeysWorkWhereverTheFocusIsAndOnDisabledButtons) {
    machine.User.Answers.push_back(BoxAnswer::Yes);
    Ask([this] {
        dialog.txtPlayerName.SetText("Ann");
        PressInInput(Key::Enter, 0);
        dialog.txtPlayerName.SetText("Ben");
        dialog.ActiveControl = &dialog.cmdOk;
        EXPECT_FALSE(dialog.KeyDown(Key::Enter, 0));
        EXPECT_FALSE(dialog.KeyDown(Key::A, Key::Alt | Key::Shift));
        EXPECT_TRUE(dialog.KeyDown(Key::A, Key::Alt));
        EXPECT_EQ(Rows(), "Ann, Ben");
        dialog.lblHolder[0].Click();
        dialog.txtPlayerName.SetText("Ada");
        dialog.KeyDown(Key::G, Key::Alt);
        EXPECT_EQ(Rows(), "Ada, Ben");
        dialog.lblHolder[1].Click();
        dialog.KeyDown(Key::R, Key::Alt);
        EXPECT_EQ(Rows(), "Ada");
        ChooseCollection(0);
        GivePiece(0, 0);
        dialog.KeyDown(Key::O, Key::Alt);
    });
    EXPECT_TRUE(result);
    EXPECT_THAT(Values(names), ElementsAre("Ada"));
}

TEST_F(DlgPlayersTest, EveryOpeningBeginsAnew) {
    Ask([this] {
        AddAll({"Ann", "Ben"});
        ChooseCollection(1);
        GivePiece(0, 0);
        dialog.lblHolder[0].Click();
    });
    Ask([this] {
        EXPECT_EQ(Rows(), "");
        EXPECT_EQ(dialog.imgHolder[0].Tag, "");
        EXPECT_EQ(dialog.lblHolder[0].ForeColor, Colour());
        EXPECT_EQ(dialog.cmbPlayingPieceCollections.Rows.size(), 4u);
        EXPECT_FALSE(dialog.imgPlayingPiece[0].Visible || dialog.cmdRemove.Enabled || dialog.cmdOk.Enabled);
    });
}

TEST_F(DlgPlayersTest, LoadsWithoutAGameForItsPictures) {
    dialog.Load();
    dialog.Unload();
    dialog.Unload();
    EXPECT_EQ(stops, 1);
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(DlgPlayersTest, ShowsTheNumberOfThePieceUnderTheMouse) {
    Ask([this] {
        dialog.imgPlayingPiece[2].MouseMove();
        EXPECT_FALSE(dialog.lblPlayingPiece.Visible) << "no collection is open";
        ChooseCollection(2);
        dialog.imgPlayingPiece[2].MouseMove();
        EXPECT_TRUE(dialog.lblPlayingPiece.Visible);
        EXPECT_EQ(dialog.lblPlayingPiece.Caption, "3");
        dialog.MouseMove();
        EXPECT_FALSE(dialog.lblPlayingPiece.Visible);
    });
}

}  // namespace
}  // namespace tabulon::test

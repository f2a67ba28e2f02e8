#include "board/board_view.h"

#include <gmock/gmock.h>

#include "support/play_fixture.h"

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Colour Red{255, 0, 0};

class BoardViewTest : public testing::Test {
  protected:
    explicit BoardViewTest(int pixelsPerInch = 96) : machine(pixelsPerInch) {
        frmMain.Load();
        frmMain.RepositionElements();
        frmMain.Game = game;
        frmMain.GameDirectory = "key";
        game->BoardImage = "board.bmp";
    }
    void WriteBoard(const std::string& bytes) {
        test::WriteZip(machine.AppDir() / "key.gam", {{"Board.BMP", bytes}});
    }
    /// A board of 600 by 400 pixels that shows a picture half that size, so that the factors are 2. Spaces of
    /// the picture are 30 wide in a row.
    void LoadHalfSizedBoard(int spaces = 10) {
        frmMain.picMainBoard.Move(0, 0, 600 * 15, 400 * 15);
        for (int i = 1; i <= spaces; ++i) game->Spaces.Add(i, 5 * i, 30 * (i - 1), 20, 30, 0, "", 0, 0, "");
        WriteBoard(test::Bitmap(300, 200));
        view.LoadGameBoard();
    }
    void Seat(int whoseTurn, bool loaded, const Array<Integer>& positions) {
        frmMain.State.WhoseTurn = whoseTurn;
        frmMain.State.LoadedGame = loaded;
        frmMain.State.Position = positions;
    }
    static std::vector<float> PlaceOf(const Control& control) {
        return {control.Left, control.Top, control.Width, control.Height};
    }
    std::vector<std::int32_t> Rectangle(int position) {
        const CSpace& space = game->Spaces.Item(position);
        return {space.Left, space.Top, space.Width, space.Height};
    }

    test::TestMachine machine;
    modInstallUninstall packages{machine.g};
    MainForm frmMain{machine.g};
    std::shared_ptr<CGame> game = std::make_shared<CGame>(machine.g, packages);
    BoardView view{machine.g, frmMain, packages};
};

class BoardAtDensityTest : public BoardViewTest, public testing::WithParamInterface<int> {
  protected:
    BoardAtDensityTest() : BoardViewTest(GetParam()) {}
};

TEST_P(BoardAtDensityTest, StretchesPictureAndSpacesToTheBoard) {
    game->Spaces.Add(1, 50, 100, 20, 30, 0, "", 0, 0, "");
    WriteBoard(test::Bitmap(300, 200));
    view.LoadGameBoard();
    EXPECT_FLOAT_EQ(view.XFactor, 617.0f / 300);
    EXPECT_FLOAT_EQ(view.YFactor, 424.0f / 200);
    EXPECT_THAT(Rectangle(1), ElementsAre(206, 106, 62, 42));
    ASSERT_TRUE(frmMain.picMainBoard.Picture.File);
    for (const Picture& picture : {frmMain.picHolder.Picture, frmMain.imgOverview.Picture})
        EXPECT_EQ(picture, frmMain.picMainBoard.Picture);
    EXPECT_THAT(machine.Errors, IsEmpty());
    view.LoadGameBoard();
    EXPECT_THAT(Rectangle(1), ElementsAre(424, 225, 128, 89)) << "a second load scales once more";
}

INSTANTIATE_TEST_SUITE_P(Densities, BoardAtDensityTest, testing::Values(96, 120),
                         [](const auto& row) { return "Dpi" + std::to_string(row.param); });

TEST_F(BoardViewTest, ScalesAnewFromTheFilesOwnPlaces) {
    LoadHalfSizedBoard();
    EXPECT_FALSE(view.Rescale()) << "the same size";
    const auto before = Rectangle(2);
    for (const auto& [width, height, rectangle] :
         {std::tuple{100, 100, std::vector{10, 5, 10, 10}}, {600, 400, before}}) {
        frmMain.picMainBoard.Move(0, 0, static_cast<float>(width) * 15, static_cast<float>(height) * 15);
        EXPECT_TRUE(view.Rescale());
        EXPECT_EQ(Rectangle(2), rectangle);
    }
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(BoardViewTest, AMissingOrBrokenPictureKeepsFactorsAndSpaces) {
    LoadHalfSizedBoard();
    const Picture before = frmMain.picMainBoard.Picture;
    for (const std::string& bytes : {std::string("not a picture"), test::Bitmap(0, 10), std::string()}) {
        machine.Errors.clear();
        WriteBoard(bytes);
        view.LoadGameBoard();
        EXPECT_THAT(machine.Errors, ElementsAre("frmMain:LoadGameBoard 481"));
    }
    machine.Errors.clear();
    game->BoardImage = "other.bmp";
    view.LoadGameBoard();
    EXPECT_THAT(machine.Errors, ElementsAre("frmMain:LoadGameBoard 53"));
    EXPECT_TRUE(view.XFactor == 2 && view.YFactor == 2);
    EXPECT_THAT(Rectangle(2), ElementsAre(60, 20, 60, 40));
    EXPECT_EQ(frmMain.picMainBoard.Picture, before);
}

TEST_F(BoardViewTest, PlacesABoxOverEachPlayersSpace) {
    LoadHalfSizedBoard();
    frmMain.tpbSpace[3].Move(1, 2, 3, 4);
    view.HideSpaces();
    frmMain.imgPlayingPiece[0].Visible = true;
    Seat(1, false, {3, 1, 3, 11});
    view.DrawSpaces();
    EXPECT_THAT(PlaceOf(frmMain.tpbSpace[0]), ElementsAre(120, 30, 60, 40));
    EXPECT_THAT(PlaceOf(frmMain.tpbSpace[1]), ElementsAre(0, 10, 60, 40));
    EXPECT_THAT(PlaceOf(frmMain.tpbSpace[2]), ElementsAre(120, 30, 60, 40));
    EXPECT_THAT(PlaceOf(frmMain.tpbSpace[3]), ElementsAre(1, 2, 3, 4));
    EXPECT_TRUE(frmMain.tpbSpace[2].Visible);
    EXPECT_FALSE(frmMain.tpbSpace[3].Visible);
    EXPECT_FALSE(frmMain.imgPlayingPiece[0].Visible);
    view.HideSpaces();
    EXPECT_FALSE(frmMain.tpbSpace[2].Visible);
}

TEST_F(BoardViewTest, TheMarkerStandsOnTheCornerInTheOverview) {
    LoadHalfSizedBoard();
    frmMain.imgOverview.Left = 3;
    frmMain.imgOverview.Top = 2;
    Seat(2, false, {1, 6});
    view.DrawSpaces();
    // The space stands at 150, 30 of a picture of 300 by 200, which shows 136 by 128 pixels large.
    EXPECT_FLOAT_EQ(frmMain.shpSpaceOverview.Left, 150 * 136.0f / 300 + 3);
    EXPECT_FLOAT_EQ(frmMain.shpSpaceOverview.Top, 30 * 128.0f / 200 + 2);
    EXPECT_EQ(frmMain.shpSpaceOverview.Width, 17);
    EXPECT_TRUE(frmMain.shpSpaceOverview.Visible);
    EXPECT_GT(frmMain.shpSpaceOverview.ZOrder, frmMain.imgOverview.ZOrder);
}

TEST_F(BoardViewTest, TheMarkerTakesThePlaceInTheListAndNotTheNumber) {
    LoadHalfSizedBoard();
    game->Spaces.Item(2).Sequence = 9;
    game->Spaces.Item(9).Sequence = 2;
    Seat(1, true, {0, 2});
    view.DrawSpaces();
    EXPECT_FLOAT_EQ(frmMain.shpSpaceOverview.Left, 30 * 136.0f / 300);
    EXPECT_EQ(frmMain.tpbSpace[1].Left, 480);
}

TEST_F(BoardViewTest, CountsTheRoundForSeatOne) {
    LoadHalfSizedBoard();
    for (const bool resumed : {false, true}) {
        for (const int seat : {1, 2}) {
            frmMain.State.Round = 7;
            Seat(seat, resumed, {1, 1, 1});
            view.DrawSpaces();
            EXPECT_EQ(frmMain.State.Round, seat == 1 ? 8 : 7) << resumed;
            EXPECT_EQ(frmMain.lblRound.Caption, seat == 1 ? "Round 8" : "Round 7");
        }
    }
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(BoardViewTest, AFailureCountsNoRound) {
    struct Row {
        int Round;
        Array<Integer> Positions;
        const char* Error;
    };
    LoadHalfSizedBoard();
    const Row rows[] = {{7, {0}, "frmMain:DrawSpaces 9"},
                        {7, {11}, "frmMain:DrawSpaces 9"},
                        {7, {}, "frmMain:DrawSpaces 9"},
                        {32767, {1}, "frmMain:DrawSpaces 6"}};
    for (const Row& row : rows) {
        machine.Errors.clear();
        frmMain.lblRound.Caption = "before";
        frmMain.State.Round = row.Round;
        Seat(1, false, row.Positions);
        view.DrawSpaces();
        EXPECT_THAT(machine.Errors, ElementsAre(row.Error));
        EXPECT_EQ(frmMain.State.Round.Value(), row.Round);
        EXPECT_EQ(frmMain.lblRound.Caption, "before");
    }
}

TEST_F(BoardViewTest, ASeventhSlotOnASpaceHasNoBox) {
    LoadHalfSizedBoard();
    frmMain.imgPlayingPiece[2].Visible = true;
    frmMain.shpSpaceOverview.Visible = false;
    Seat(1, true, {0, 1, 1, 1, 1, 1, 5});
    view.DrawSpaces();
    EXPECT_THAT(machine.Errors, ElementsAre("frmMain:DrawSpaces 9"));
    EXPECT_EQ(frmMain.State.Round, 0);
    EXPECT_FALSE(frmMain.shpSpaceOverview.Visible);
    EXPECT_FALSE(frmMain.imgPlayingPiece[2].Visible);
    machine.Errors.clear();
    Seat(1, true, {0, 1, 1, 1, 1, 1, 11});
    view.DrawSpaces();
    EXPECT_THAT(machine.Errors, IsEmpty());
}

TEST_F(BoardViewTest, WithoutAPictureOnlyTheMarkerFails) {
    game->Spaces.Add(1, 0, 0, 10, 10, 0, "", 0, 0, "");
    Seat(1, false, {1});
    view.DrawSpaces();
    EXPECT_THAT(machine.Errors, ElementsAre("frmMain:SetOverviewSpace 11"));
    EXPECT_EQ(frmMain.lblRound.Caption, "Round 1");
}

TEST_F(BoardViewTest, TheMarkerGoesThroughItsColours) {
    Colour& marker = frmMain.shpSpaceOverview.FillColor;
    EXPECT_EQ(marker, (Colour{0, 0, 255}));
    const Colour cycle[] = {{8, 46, 84},   {143, 95, 154}, {255, 0, 0}, {255, 128, 0},
                            {255, 255, 0}, {0, 255, 0},    {0, 0, 255}, {8, 46, 84}};
    for (const Colour& next : cycle) {
        view.timerOverviewSpace_Timer();
        EXPECT_EQ(marker, next);
    }
    for (const Colour other : {Colour{0, 0, 0}, Colour{255, 0, 1}, Colour{8, 46, 85}}) {
        marker = other;
        view.timerOverviewSpace_Timer();
        EXPECT_EQ(marker, other);
    }
}

}  // namespace
}  // namespace tabulon

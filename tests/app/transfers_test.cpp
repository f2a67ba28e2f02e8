#include "app/transfers.h"

#include <gmock/gmock.h>

#include "content/game_words.h"
#include "support/play_fixture.h"

namespace tabulon::test {
namespace {

constexpr Colour Green{150, 255, 150};
constexpr Colour White{255, 255, 255};
constexpr Colour Red{255, 0, 0};

// Where a payment may fail.
constexpr const char* Adding = "error frmMain:AddPointsToPlayer 6";
constexpr const char* Transfer = "error frmMain:TransferPoints 6";

struct Payment {
    const char* Name;
    int Type;
    std::vector<int> Before;  // of seats 1, 2 …
    int Seat, Amount;
    const char* After;   // of slots 0, 1, 2 …
    const char* Plates;  // G for the current player's, W for another's, R for one who is bankrupt by it
    const char* Failing = "";
};

std::string Plates(PlayTable& table, int seats) {
    std::string plates;
    for (int seat = 1; seat <= seats; ++seat) {
        const Colour colour = table.Form().lblName[seat - 1].ForeColor;
        EXPECT_EQ(table.Form().lblPoints[seat - 1].ForeColor, colour);
        EXPECT_EQ(table.State().Done[seat], colour == Red);
        plates += colour == Green ? 'G' : colour == Red ? 'R' : colour == White ? 'W' : '?';
    }
    return plates;
}

const Payment Payments[] = {
    {"Lose", atLosePoints, {9, 9}, 2, 5, "0 9 4", "WG"},
    {"LoseBelowNothing", atLosePoints, {9, 3}, 2, 5, "0 9 -2", "WG"},
    {"LoseOverflows", atLosePoints, {9, -32767}, 2, 2, "0 9 -32767", "WG", Adding},
    {"LoseTheLeastNumber", atLosePoints, {9, 3}, 2, -32768, "0 9 3", "WG", Transfer},
    {"Gain", atGainPoints, {9, 9}, 1, 5, "0 14 9", "GW"},
    {"GainNegative", atGainPoints, {9, 9}, 1, -20, "0 -11 9", "GW"},
    {"PayEach", atPayEachPlayer, {11, 0, 1}, 1, 5, "0 1 5 6", "WWW"},
    {"PayExactlyIsBankrupt", atPayEachPlayer, {10, 0, 1}, 1, 5, "0 0 5 6", "RWW"},
    {"PayWhatIsLeftOverIsLost", atPayEachPlayer, {0, 5, 0}, 2, 5, "0 2 0 2", "WRW"},
    {"PayOnePointForTwo", atPayEachPlayer, {1, 0, 0}, 1, 5, "0 0 0 0", "RWW"},
    {"PayNothingToPayWith", atPayEachPlayer, {0, 3, 3}, 1, 5, "0 0 3 3", "GWW"},
    {"PayBelowNothing", atPayEachPlayer, {-4, 3, 3}, 1, 5, "0 -4 3 3", "GWW"},
    {"PayNegativeAmountIsTaken", atPayEachPlayer, {-3, 3, 3}, 1, -5, "0 7 -2 -2", "WWW"},
    {"PayAlone", atPayEachPlayer, {5}, 1, 9, "0 5", "W"},
    {"PayAloneWithNothing", atPayEachPlayer, {0}, 1, 9, "0 0", "G"},
    {"PaySumOverflows", atPayEachPlayer, {5, 5, 5}, 1, 20000, "0 5 5 5", "GWW", Transfer},
    {"PayDifferenceOverflows", atPayEachPlayer, {-20, 5, 5}, 1, 16380, "0 -20 5 5", "GWW", Transfer},
    {"PayAReceiverOverflows", atPayEachPlayer, {100, 32767, 5}, 1, 5, "0 90 32767 10", "WWW", Adding},
    {"CollectAllCanPay", atCollectFromEach, {7, 6, 9}, 1, 5, "0 17 1 4", "GWW"},
    {"CollectExactlyIsBankrupt", atCollectFromEach, {7, 6, 5}, 1, 5, "0 17 1 0", "GWR"},
    {"CollectLessThanAll", atCollectFromEach, {3, 7, 6}, 2, 5, "0 0 15 1", "RGW"},
    {"CollectNothingIsBankruptToo", atCollectFromEach, {7, 0, 9}, 1, 5, "0 12 0 4", "GRW"},
    {"CollectDebtIsHandedOver", atCollectFromEach, {7, -4, 9}, 1, 5, "0 8 0 4", "GRW"},
    {"CollectReceiverOverflows", atCollectFromEach, {32760, 20, 6}, 1, 10, "0 32766 10 0", "GWR", Adding},
    {"CollectDifferenceOverflows", atCollectFromEach, {7, -32760, 9}, 1, 10, "0 7 -32760 9", "GWW", Transfer},
    {"OtherTypeBelow", atGoToStart, {9, 9}, 1, 5, "0 9 9", "GW"},
    {"OtherTypeAbove", atLoseTurns, {9, 9}, 1, 5, "0 9 9", "GW"},
};

TEST(TransfersTest, ChangePointsAndPlates) {
    for (const Payment& row : Payments) {
        SCOPED_TRACE(row.Name);
        const int seats = static_cast<int>(row.Before.size());
        PlayTable table({.Seats = seats});
        Transfers transfers(table.G(), table.Form());
        for (int seat = 1; seat <= seats; ++seat)
            table.State().Points[seat] = row.Before[static_cast<std::size_t>(seat) - 1];
        transfers.SelectPlayerPiece(row.Seat);
        transfers.TransferPoints(row.Seat, row.Amount, row.Type);
        EXPECT_EQ(InWords(table.State().Points), row.After);
        EXPECT_EQ(Plates(table, seats), row.Plates);
        EXPECT_EQ(table.User.Story(), row.Failing);
    }
}

TEST(TransfersTest, ABankruptsPlateKeepsTheFormerAmount) {
    PlayTable table;
    Transfers transfers(table.G(), table.Form());
    transfers.AddPointsToPlayer(1, 10);
    transfers.TransferPoints(1, 5, atPayEachPlayer);
    EXPECT_EQ(table.Form().lblPoints[0].Caption, "Points: 10");
    EXPECT_EQ(table.Form().lblPoints[1].Caption, "Points: 5");
    EXPECT_EQ(table.State().Points[1], 0);
    transfers.TransferPoints(2, 5, atCollectFromEach);
    EXPECT_EQ(table.Form().lblPoints[0].Caption, "Points: 0");
}

TEST(TransfersTest, TheCaptionFollowsTheGoal) {
    const std::pair<int, const char*> rows[] = {
        {Goal::Points, "Points: -3"}, {Goal::Money, "Money: -3"}, {Goal::EndOfBoard, "Points: -3"}};
    for (const auto& [goal, caption] : rows) {
        PlayTable table({.GoalType = goal});
        Transfers(table.G(), table.Form()).AddPointsToPlayer(2, -3);
        EXPECT_EQ(table.Form().lblPoints[1].Caption, caption);
        EXPECT_EQ(table.Form().lblPoints[1].Visible, goal != Goal::EndOfBoard);
    }
}

TEST(TransfersTest, TheEndOfATurnPaintsAllSixPlatesAfresh) {
    PlayTable table;
    table.SetSpace(4, atPayEachPlayer, 5);
    table.State().Points[1] = 5;
    table.Form().lblName[5].ForeColor = Red;
    table.Turn(3);
    EXPECT_TRUE(table.State().Done[1]);
    EXPECT_EQ(table.Form().lblName[0].ForeColor, White);
    EXPECT_EQ(table.Form().lblPoints[1].ForeColor, Green);
    EXPECT_EQ(table.Form().lblName[5].ForeColor, White);
}

}  // namespace
}  // namespace tabulon::test

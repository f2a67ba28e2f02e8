#include "app/transfers.h"

#include <gmock/gmock.h>

#include "app/action_types.h"
#include "support/play_fixture.h"

namespace tabulon {
namespace {

using test::PlayTable;
using test::Values;

constexpr Colour Green{150, 255, 150};
constexpr Colour White{255, 255, 255};
constexpr Colour Red{255, 0, 0};

using Ints = std::vector<int>;

struct Payment {
    const char* Name;
    Ints Before;  // of seats 1, 2 …
    int Seat;
    int Type;
    int Amount;
    Ints After;
    Ints Bankrupt;  // seats
    std::vector<Colour> Colours;
    std::vector<std::string> Errors;
};

class PaymentTest : public testing::TestWithParam<Payment> {};

TEST_P(PaymentTest, ChangesPointsAndPlates) {
    const Payment& row = GetParam();
    const int seats = static_cast<int>(row.Before.size());
    PlayTable table({.Seats = seats});
    Transfers transfers(table.G(), table.Form());
    for (int seat = 1; seat <= seats; ++seat)
        table.State().Points[seat] = row.Before[static_cast<std::size_t>(seat) - 1];
    transfers.SelectPlayerPiece(row.Seat);
    transfers.TransferPoints(row.Seat, row.Amount, row.Type);
    Ints points = Values(table.State().Points);
    points.erase(points.begin());
    EXPECT_EQ(points, row.After);
    Ints bankrupt;
    std::vector<Colour> colours;
    for (int seat = 1; seat <= seats; ++seat) {
        if (table.State().Done[seat]) bankrupt.push_back(seat);
        colours.push_back(table.Form().lblName[seat - 1].ForeColor);
        EXPECT_EQ(table.Form().lblPoints[seat - 1].ForeColor, colours.back());
    }
    EXPECT_EQ(bankrupt, row.Bankrupt);
    EXPECT_EQ(colours, row.Colours);
    EXPECT_EQ(table.User.Events, row.Errors);
}

INSTANTIATE_TEST_SUITE_P(
    One, PaymentTest,
    testing::Values(Payment{"Lose", {9, 9}, 2, atLosePoints, 5, {9, 4}, {}, {White, Green}, {}},
                    Payment{"LoseBelowNothing", {9, 3}, 2, atLosePoints, 5, {9, -2}, {}, {White, Green}, {}},
                    Payment{"LoseOverflows",
                            {9, -32767},
                            2,
                            atLosePoints,
                            2,
                            {9, -32767},
                            {},
                            {White, Green},
                            {"error frmMain:AddPointsToPlayer 6"}},
                    Payment{"LoseTheLeastNumber",
                            {9, 3},
                            2,
                            atLosePoints,
                            -32768,
                            {9, 3},
                            {},
                            {White, Green},
                            {"error frmMain:TransferPoints 6"}},
                    Payment{"Gain", {9, 9}, 1, atGainPoints, 5, {14, 9}, {}, {Green, White}, {}},
                    Payment{"GainNegative", {9, 9}, 1, atGainPoints, -20, {-11, 9}, {}, {Green, White}, {}},
                    Payment{"OtherTypeBelow", {9, 9}, 1, atGoToStart, 5, {9, 9}, {}, {Green, White}, {}},
                    Payment{"OtherTypeAbove", {9, 9}, 1, atLoseTurns, 5, {9, 9}, {}, {Green, White}, {}}),
    [](const auto& row) { return row.param.Name; });

INSTANTIATE_TEST_SUITE_P(
    PayEach, PaymentTest,
    testing::Values(
        Payment{"Pays", {11, 0, 1}, 1, atPayEachPlayer, 5, {1, 5, 6}, {}, {White, White, White}, {}},
        Payment{
            "ExactlyIsBankrupt", {10, 0, 1}, 1, atPayEachPlayer, 5, {0, 5, 6}, {1}, {Red, White, White}, {}},
        Payment{"WhatIsLeftOverIsLost",
                {0, 5, 0},
                2,
                atPayEachPlayer,
                5,
                {2, 0, 2},
                {2},
                {White, Red, White},
                {}},
        Payment{"OnePointForTwo", {1, 0, 0}, 1, atPayEachPlayer, 5, {0, 0, 0}, {1}, {Red, White, White}, {}},
        Payment{
            "NothingToPayWith", {0, 3, 3}, 1, atPayEachPlayer, 5, {0, 3, 3}, {}, {Green, White, White}, {}},
        Payment{"BelowNothing", {-4, 3, 3}, 1, atPayEachPlayer, 5, {-4, 3, 3}, {}, {Green, White, White}, {}},
        Payment{"NegativeAmountIsTaken",
                {-3, 3, 3},
                1,
                atPayEachPlayer,
                -5,
                {7, -2, -2},
                {},
                {White, White, White},
                {}},
        Payment{"Alone", {5}, 1, atPayEachPlayer, 9, {5}, {}, {White}, {}},
        Payment{"AloneWithNothing", {0}, 1, atPayEachPlayer, 9, {0}, {}, {Green}, {}},
        Payment{"SumOverflows",
                {5, 5, 5},
                1,
                atPayEachPlayer,
                20000,
                {5, 5, 5},
                {},
                {Green, White, White},
                {"error frmMain:TransferPoints 6"}},
        Payment{"DifferenceOverflows",
                {-20, 5, 5},
                1,
                atPayEachPlayer,
                16380,
                {-20, 5, 5},
                {},
                {Green, White, White},
                {"error frmMain:TransferPoints 6"}},
        Payment{"AReceiverOverflows",
                {100, 32767, 5},
                1,
                atPayEachPlayer,
                5,
                {90, 32767, 10},
                {},
                {White, White, White},
                {"error frmMain:AddPointsToPlayer 6"}}),
    [](const auto& row) { return row.param.Name; });

INSTANTIATE_TEST_SUITE_P(
    Collect, PaymentTest,
    testing::Values(
        Payment{"AllCanPay", {7, 6, 9}, 1, atCollectFromEach, 5, {17, 1, 4}, {}, {Green, White, White}, {}},
        Payment{"ExactlyIsBankrupt",
                {7, 6, 5},
                1,
                atCollectFromEach,
                5,
                {17, 1, 0},
                {3},
                {Green, White, Red},
                {}},
        Payment{"LessThanAll", {3, 7, 6}, 2, atCollectFromEach, 5, {0, 15, 1}, {1}, {Red, Green, White}, {}},
        Payment{"NothingIsBankruptToo",
                {7, 0, 9},
                1,
                atCollectFromEach,
                5,
                {12, 0, 4},
                {2},
                {Green, Red, White},
                {}},
        Payment{
            "DebtIsHandedOver", {7, -4, 9}, 1, atCollectFromEach, 5, {8, 0, 4}, {2}, {Green, Red, White}, {}},
        Payment{"ReceiverOverflows",
                {32760, 20, 6},
                1,
                atCollectFromEach,
                10,
                {32766, 10, 0},
                {3},
                {Green, White, Red},
                {"error frmMain:AddPointsToPlayer 6"}},
        Payment{"DifferenceOverflows",
                {7, -32760, 9},
                1,
                atCollectFromEach,
                10,
                {7, -32760, 9},
                {},
                {Green, White, White},
                {"error frmMain:TransferPoints 6"}}),
    [](const auto& row) { return row.param.Name; });

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
}  // namespace tabulon

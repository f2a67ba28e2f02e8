#include "gamepack/check.h"

#include <algorithm>
#include <cmath>

#include "gamepack/check_parts.h"
#include "platform/failure.h"
#include "platform/numbers.h"

namespace tabulon::gamepack {

namespace {

constexpr int DrawCard = 0, MoveForward = 1, MoveBack = 2, GoToSpace = 3, LosePoints = 5, GainPoints = 6,
              PayEachPlayer = 7, CollectFromEach = 8, LoseTurns = 9, ExtraTurns = 10, RollDouble = 11,
              RollNumber = 12;
constexpr double AsRolled = -1;
constexpr int HighestDie = 6;

/// The operand as the Player counts with it; 0 after a report.
int Operand(const Order& order, Findings& findings) {
    try {
        return ToInteger(order.Data1).Value();
    } catch (const Failure&) {
        findings.Error(order.Place, "the first operand is beyond 32767. Choose a smaller number.");
        return 0;
    }
}

void CheckMove(const Game& game, const Order& order, int amount, Findings& findings) {
    const bool rolled = order.Data1 == AsRolled && (order.Action == MoveForward || order.OfCard);
    if (!rolled && (amount < 0 || amount > game.Spaces))
        findings.Warning(order.Place,
                         "the move leaves the board of " + std::to_string(game.Spaces) +
                             " spaces. Choose a smaller number" +
                             (order.Action == MoveForward ? ", or -1 for the number rolled." : "."));
}

void CheckTarget(const Game& game, const Order& order, int target, Findings& findings) {
    if (target < 1 || target > game.Spaces)
        findings.Warning(order.Place, "there is no space " + std::to_string(target) +
                                          " to go to. Choose 1 to " + std::to_string(game.Spaces) + ".");
}

void CheckDraw(const Game& game, const Order& order, int deck, Findings& findings) {
    if (!order.OfCard && std::ranges::find(game.Decks, deck) == game.Decks.end())
        findings.Error(order.Place, "there are no cards in deck " + std::to_string(deck) +
                                        ". Add the deck and its cards, or name another one.");
}

void CheckDouble(const Game& game, const Order& order, Findings& findings) {
    if (game.Settings.Number("Dice Used") < 2 || game.Settings.Number("Turn Device") == 2)
        findings.Warning(order.Place,
                         "the player never moves again: there is no double with fewer than two dice.");
}

void CheckTotal(const Game& game, const Order& order, int total, Findings& findings) {
    if (order.OfCard)
        return findings.Warning(order.Place, "a card cannot order a number to roll. Choose another action.");
    const int dice = game.Settings.Number("Dice Used");
    const bool slots = game.Settings.Number("Turn Device") == 1;
    const auto highest = std::int64_t{dice} * (slots ? game.Settings.Number("Max Slot Value") : HighestDie);
    if (total > 0 && (total < dice || total > highest))
        findings.Warning(order.Place, "the player never moves again: " + std::to_string(total) +
                                          " cannot be rolled. Choose " + std::to_string(dice) + " to " +
                                          std::to_string(highest) + ".");
}

void CheckOrder(const Game& game, const Order& order, Findings& findings) {
    if (order.Action < DrawCard || order.Action > RollNumber) return;
    const int operand = Operand(order, findings);
    switch (order.Action) {
        case DrawCard:
            return CheckDraw(game, order, operand, findings);
        case MoveForward:
        case MoveBack:
            return CheckMove(game, order, operand, findings);
        case GoToSpace:
            return CheckTarget(game, order, operand, findings);
        case LosePoints:
        case GainPoints:
        case PayEachPlayer:
        case CollectFromEach:
        case LoseTurns:
        case ExtraTurns:
            if (operand < 0) findings.Warning(order.Place, "the first operand is negative. Write how many.");
            return;
        case RollDouble:
            return CheckDouble(game, order, findings);
        case RollNumber:
            return CheckTotal(game, order, operand, findings);
        default:
            return;
    }
}

bool GivesPoints(const Order& order) { return order.Action >= GainPoints && order.Action <= CollectFromEach; }

}  // namespace

void CheckOrders(const Game& game, Findings& findings) {
    for (const Order& order : game.Orders) CheckOrder(game, order, findings);
    if (game.Settings.Number("Goal Type") != 2 && game.Settings.Number("Finish Condition") > 0 &&
        std::ranges::none_of(game.Orders, GivesPoints))
        findings.Warning(game.Settings.Place("Goal Type"),
                         "the game never ends: nothing on the board or in the cards gives points.");
}

Findings CheckGame(const PackageFiles& files) {
    Findings findings;
    Game game{files, {}, 0, {}, {}, 0};
    CheckSettings(game, findings);
    CheckSpaces(game, findings);
    CheckDecks(game, findings);
    CheckOrders(game, findings);
    return findings;
}

}  // namespace tabulon::gamepack

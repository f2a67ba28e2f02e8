#include "gamepack/check.h"

#include <algorithm>
#include <cmath>

#include "content/game_words.h"
#include "gamepack/check_parts.h"
#include "platform/failure.h"
#include "platform/numbers.h"
#include "platform/text.h"

namespace tabulon::gamepack {

namespace {

/// The operand as the Player counts with it; 0 after a report.
int Operand(const Order& order, Findings& findings) {
    try {
        return ToInteger(order.Data1).Value();
    } catch (const Failure&) {
        findings.Error(order.Place, "the first operand is beyond 32767. Choose a smaller number.");
        return 0;
    }
}

std::int64_t HighestRoll(const Game& game) {
    const bool slots = game.Settings.Number("Turn Device") == Device::Slots;
    return std::int64_t{game.Settings.Number("Dice Used")} *
           (slots ? game.Settings.Number("Max Slot Value") : HighestFace);
}

/// Only a roll stops at the end of the board, and only a card's move at its start.
void CheckEndOfRace(const Game& game, const Order& order, std::int64_t furthest, Findings& findings) {
    if (!game.IsRace() || game.Settings.Number("Loop Board") != 0 || order.OfCard) return;
    if (order.Action == atMoveForward && order.Space + furthest >= game.Spaces)
        findings.Warning(order.Place,
                         "the move goes to the last space, where only a roll ends the game, or round to the "
                         "start. Choose a smaller number.");
    if (order.Action == atMoveBack && order.Space - furthest < 1)
        findings.Warning(order.Place, "the move goes round to the end. Choose a smaller number.");
}

void CheckMove(const Game& game, const Order& order, int amount, Findings& findings) {
    const bool rolled = order.Data1 == AsManyAsRolled && (order.Action == atMoveForward || order.OfCard);
    CheckEndOfRace(game, order, rolled ? HighestRoll(game) : amount, findings);
    if (!rolled && (amount < 0 || amount > game.Spaces))
        findings.Warning(order.Place,
                         "the move leaves the board of " + std::to_string(game.Spaces) +
                             " spaces. Choose a smaller number" +
                             (order.Action == atMoveForward ? ", or -1 for the number rolled." : "."));
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
    if (game.Settings.Number("Dice Used") < 2 || game.Settings.Number("Turn Device") == Device::None)
        findings.Warning(order.Place,
                         "the player never moves again: there is no double with fewer than two dice.");
}

void CheckTotal(const Game& game, const Order& order, int total, Findings& findings) {
    if (order.OfCard)
        return findings.Warning(order.Place, "a card cannot order a number to roll. Choose another action.");
    const int dice = game.Settings.Number("Dice Used");
    const std::int64_t highest = HighestRoll(game);
    if (total > 0 && (total < dice || total > highest))
        findings.Warning(order.Place, "the player never moves again: " + std::to_string(total) +
                                          " cannot be rolled. Choose " + std::to_string(dice) + " to " +
                                          std::to_string(highest) + ".");
}

void CheckAmount(const Game& game, const Order& order, int amount, Findings& findings) {
    if (amount < 0) findings.Warning(order.Place, "the first operand is negative. Write how many.");
    if (game.IsRace() && order.Action <= atCollectFromEach)
        findings.Warning(order.Place, "nobody sees it: a race shows no points. Choose another action.");
    if (order.OfCard && order.Action == atExtraTurns)
        findings.Warning(order.Place,
                         "in a new game the turns go to the player before the one who draws the card. Choose "
                         "another action.");
}

void CheckOrder(const Game& game, const Order& order, Findings& findings) {
    if (order.Action < atDrawCard || order.Action > atRollNumber) return;
    const int operand = Operand(order, findings);
    switch (order.Action) {
        case atDrawCard:
            return CheckDraw(game, order, operand, findings);
        case atMoveForward:
        case atMoveBack:
            return CheckMove(game, order, operand, findings);
        case atGoToSpace:
            return CheckTarget(game, order, operand, findings);
        case atLosePoints:
        case atGainPoints:
        case atPayEachPlayer:
        case atCollectFromEach:
        case atLoseTurns:
        case atExtraTurns:
            return CheckAmount(game, order, operand, findings);
        case atRollDouble:
            return CheckDouble(game, order, findings);
        case atRollNumber:
            return CheckTotal(game, order, operand, findings);
        default:
            return;
    }
}

bool GivesPoints(const Order& order) {
    return order.Action >= atGainPoints && order.Action <= atCollectFromEach;
}

/// A file that nothing names is never unpacked.
void CheckUse(const Game& game, Findings& findings) {
    std::vector<std::string> used = {"spaces.xml", "decks.xml"};
    for (const char* setting : {"Board Image", "Splash", "Help File"})
        used.push_back(game.Settings.Text(setting));
    for (const int deck : game.Decks) used.push_back("cards" + std::to_string(deck) + ".xml");
    for (const PackedFile& file : game.Files.Files)
        if (!IsSettingsFile(file) &&
            std::ranges::none_of(used, [&](const std::string& name) { return EqualNoCase(name, file.Name); }))
            findings.Warning(file.Name, "nothing in the game uses this file. Leave it out.");
}

}  // namespace

void CheckOrders(const Game& game, Findings& findings) {
    for (const Order& order : game.Orders) CheckOrder(game, order, findings);
    if (!game.IsRace() && game.Settings.Number("Finish Condition") > 0 &&
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
    CheckUse(game, findings);
    return findings;
}

}  // namespace tabulon::gamepack

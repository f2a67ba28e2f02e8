#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/integer.h"

namespace tabulon::playtest {

inline constexpr int ActionCount = 13;

/// "atDrawCard" and so on, by action code.
extern const std::array<const char*, ActionCount> ActionNames;
/// "draw a card" and so on.
extern const std::array<const char*, ActionCount> ActionsInWords;

/// Something that went wrong, and the first game in which it did.
struct Trouble {
    std::int64_t Count = 0;
    std::int64_t FirstGame = 0;
    std::string Words;
};

/// What is counted while games are played. Figures of several runs add up to the same whatever their order.
class Figures {
  public:
    Figures();

    void CountGame(std::int64_t turns, bool finished);
    void CountWin(int seat);
    void CountLanding(Integer space) { ++m_landings[static_cast<std::uint16_t>(space.Value())]; }
    void CountAction(Integer code) { ++m_actions[static_cast<std::size_t>(code.Value())]; }
    void CountCard(Integer deck, Integer card) { ++m_cards[{deck.Value(), card.Value()}]; }
    void CountFailure(const std::string& procedure, std::int64_t game, const std::string& words);
    void CountLoop(const std::string& words, std::int64_t game);
    void Add(const Figures& other);

    std::int64_t Games() const { return m_games; }
    std::int64_t Finished() const { return m_finished; }
    std::int64_t Turns() const { return m_turns; }
    std::int64_t Wins(int seat) const;
    std::int64_t Landings(int space) const { return m_landings[static_cast<std::uint16_t>(space)]; }
    /// The numbers that pieces landed on.
    std::vector<int> Landed() const;
    std::int64_t Actions(int code) const { return m_actions[static_cast<std::size_t>(code)]; }
    std::int64_t Cards(int deck, int card) const;
    /// By procedure.
    const std::map<std::string, Trouble>& Failures() const { return m_failures; }
    /// Games that could not go on, by reason.
    const std::map<std::string, Trouble>& Loops() const { return m_loops; }

    /// How many games had how many turns.
    const std::map<std::int64_t, std::int64_t>& Lengths() const { return m_lengths; }
    double MeanLength() const;
    double MedianLength() const;
    /// The shortest length that at least this share of all games does not exceed.
    std::int64_t LengthBelow(double share) const;

  private:
    static void Count(std::map<std::string, Trouble>& troubles, const std::string& key, const Trouble& more);

    std::int64_t m_games = 0;
    std::int64_t m_finished = 0;
    std::int64_t m_turns = 0;
    std::map<std::int64_t, std::int64_t> m_lengths;
    std::map<int, std::int64_t> m_wins;
    std::vector<std::int64_t> m_landings;  // by the 16 bits of the space's number
    std::array<std::int64_t, ActionCount> m_actions{};
    std::map<std::pair<int, int>, std::int64_t> m_cards;
    std::map<std::string, Trouble> m_failures;
    std::map<std::string, Trouble> m_loops;
};

}  // namespace tabulon::playtest

#include "playtest/figures.h"

#include <algorithm>
#include <cmath>

namespace tabulon::playtest {

namespace {

constexpr std::size_t NumbersOf16Bits = 65536;

template <class Key>
void AddCounts(std::map<Key, std::int64_t>& sum, const std::map<Key, std::int64_t>& more) {
    for (const auto& [key, count] : more) sum[key] += count;
}

template <class Numbers>
void AddEach(Numbers& sum, const Numbers& more) {
    std::ranges::transform(sum, more, sum.begin(), std::plus<>());
}

template <class Key>
std::int64_t CountOf(const std::map<Key, std::int64_t>& counts, const Key& key) {
    const auto found = counts.find(key);
    return found == counts.end() ? 0 : found->second;
}

}  // namespace

const std::array<const char*, ActionCount> ActionNames = {
    "atDrawCard",   "atMoveForward", "atMoveBack",      "atGoToSpace",       "atGoToStart",
    "atLosePoints", "atGainPoints",  "atPayEachPlayer", "atCollectFromEach", "atLoseTurns",
    "atExtraTurns", "atRollDouble",  "atRollNumber"};

const std::array<const char*, ActionCount> ActionsInWords = {
    "draw a card",     "move forward",      "move back",        "go to a space",     "go to the start",
    "lose points",     "gain points",       "pay each player",  "collect from each", "lose turns",
    "get extra turns", "wait for a double", "wait for a number"};

Figures::Figures() : m_landings(NumbersOf16Bits) {}

void Figures::CountGame(std::int64_t turns, bool finished) {
    ++m_games;
    m_finished += finished;
    m_turns += turns;
    ++m_lengths[turns];
}

void Figures::CountWin(int seat) { ++m_wins[seat]; }

void Figures::CountFailure(const std::string& procedure, std::int64_t game, const std::string& words) {
    Count(m_failures, procedure, {1, game, words});
}

void Figures::CountLoop(const std::string& words, std::int64_t game) {
    Count(m_loops, words, {1, game, words});
}

void Figures::Count(std::map<std::string, Trouble>& troubles, const std::string& key, const Trouble& more) {
    const auto [at, isNew] = troubles.try_emplace(key, more);
    if (isNew) return;
    Trouble& known = at->second;
    known.Count += more.Count;
    if (more.FirstGame >= known.FirstGame) return;
    known.FirstGame = more.FirstGame;
    known.Words = more.Words;
}

void Figures::Add(const Figures& other) {
    m_games += other.m_games;
    m_finished += other.m_finished;
    m_turns += other.m_turns;
    AddCounts(m_lengths, other.m_lengths);
    AddCounts(m_wins, other.m_wins);
    AddCounts(m_cards, other.m_cards);
    AddEach(m_landings, other.m_landings);
    AddEach(m_actions, other.m_actions);
    for (const auto& [procedure, trouble] : other.m_failures) Count(m_failures, procedure, trouble);
    for (const auto& [words, trouble] : other.m_loops) Count(m_loops, words, trouble);
}

std::int64_t Figures::Wins(int seat) const { return CountOf(m_wins, seat); }

std::int64_t Figures::Cards(int deck, int card) const { return CountOf(m_cards, {deck, card}); }

std::vector<int> Figures::Landed() const {
    std::vector<int> numbers;
    for (int number = -32768; number < 32768; ++number)
        if (Landings(number) > 0) numbers.push_back(number);
    return numbers;
}

double Figures::MeanLength() const {
    return m_games == 0 ? 0 : static_cast<double>(m_turns) / static_cast<double>(m_games);
}

double Figures::MedianLength() const {
    const double half = static_cast<double>(m_games) / 2;
    const std::int64_t below = LengthBelow(0.5);
    // An even number of games has two in the middle.
    const bool even = m_games % 2 == 0;
    const double justAbove = (half + 1) / static_cast<double>(std::max<std::int64_t>(m_games, 1));
    const std::int64_t above = even ? LengthBelow(justAbove) : below;
    return static_cast<double>(below + above) / 2;
}

std::int64_t Figures::LengthBelow(double share) const {
    const auto rank = static_cast<std::int64_t>(std::ceil(share * static_cast<double>(m_games) - 1e-9));
    std::int64_t seen = 0;
    for (const auto& [length, count] : m_lengths) {
        seen += count;
        if (seen >= rank) return length;
    }
    return 0;
}

}  // namespace tabulon::playtest

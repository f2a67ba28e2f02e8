#include <set>

#include "content/CCards.h"
#include "content/CDecks.h"
#include "content/game_words.h"
#include "gamepack/check_parts.h"
#include "gamepack/deck_questions.h"
#include "gamepack/row_reader.h"
#include "platform/text.h"

namespace tabulon::gamepack {

namespace {

constexpr std::size_t LongestText = 254;
constexpr std::size_t LongestName = 32;
constexpr std::size_t LongestPath = 128;

/// The cards of one deck.
struct Deck {
    int Number = 0;
    std::set<int> Seen;
    DeckQuestions Questions;
    int Cards = 0;
};

std::string Numbered(const std::string& what, int number) { return what + " " + std::to_string(number); }

void CheckSide(RowReader& row, const std::string& side, Game& game, Findings& findings) {
    const int action = row.Whole(side + "ActionType");
    const double data1 = static_cast<double>(row.Single(side + "Data1"));
    row.Whole(side + "Data2");
    if (!row.Good()) return;
    if (action < 0 || action > atRollNumber)
        findings.Warning(row.Place(), "there is no action " + std::to_string(action) +
                                          " for a card. Choose 1 to 11, or 0 for none.");
    game.Orders.push_back({row.Place(), action, data1, 0, true});
}

void CheckNumber(int number, Deck& deck, const std::string& place, Findings& findings) {
    if (!deck.Seen.insert(number).second)
        findings.Warning(place, "the dealing may never end: there are several cards " +
                                    std::to_string(number) + ". Number them 1, 2, 3 and so on.");
}

DeckQuestions::Question ReadQuestion(RowReader& row) {
    DeckQuestions::Question question{row.Text("Message", LongestText), {}, row.Whole("CorrectAnswer")};
    for (std::size_t i = 0; i < question.Answers.size(); ++i)
        question.Answers[i] = row.Text("Answer" + std::to_string(i + 1), LongestText);
    return question;
}

void CheckAnswer(const DeckQuestions::Question& question, const std::string& message,
                 const std::string& place, Findings& findings) {
    const int right = question.Right;
    if (right < 0 || right > 3)
        return findings.Warning(place, "no answer is right. \"CorrectAnswer\" is 0 to 3, and 0 is Answer1.");
    if (right > 0 && IsBlank(question.Answers[static_cast<std::size_t>(right)]))
        findings.Warning(place, "the right answer is blank. Mend \"CorrectAnswer\", where 0 is Answer1.");
    if (right > 0 && IsBlank(message))
        findings.Warning(place,
                         "a computer player that answers right waits without end. Give the card a "
                         "\"CorrectMessage\".");
}

void CheckTries(const Game& game, const std::string& place, Findings& findings) {
    if (game.Settings.Number("Tries") < 1)
        findings.Warning(place,
                         "a computer player that answers wrong waits without end. Let \"Tries\" in "
                         "the settings be 1 or more.");
}

void CheckCard(RowReader& row, Deck& deck, Game& game, Findings& findings) {
    const int deckId = row.Whole("DeckID");
    if (row.Good() && deckId != deck.Number)
        return findings.Warning(row.Place(), "the card belongs to " + Numbered("deck", deckId) +
                                                 " and is passed over. Move it, or mend \"DeckID\".");
    const int number = row.Whole("Index");
    const DeckQuestions::Question question = ReadQuestion(row);
    const std::string message = row.Text("CorrectMessage", LongestText);
    row.Text("IncorrectMessage", LongestText);
    CheckSide(row, "Correct", game, findings);
    CheckSide(row, "Incorrect", game, findings);
    if (!row.Good()) return;
    CheckAnswer(question, message, row.Place(), findings);
    CheckTries(game, row.Place(), findings);
    deck.Questions.Add(question, row.Place(), findings);
    ++deck.Cards;
    CheckNumber(number, deck, row.Place(), findings);
}

void CheckGaps(const Deck& deck, const std::string& file, Findings& findings) {
    for (int number = 1; number <= deck.Cards; ++number)
        if (!deck.Seen.contains(number))
            return findings.Warning(file, "drawing a card may fail: there is no " + Numbered("card", number) +
                                              " among " + std::to_string(deck.Cards) +
                                              ". Number the cards 1, 2, 3 and so on.");
}

void CheckCards(int number, const std::string& place, Game& game, Findings& findings) {
    const std::string name = "cards" + std::to_string(number) + ".xml";
    const PackedFile* file = game.Files.Find(name);
    if (!file) return findings.Error(place, "there is no " + name + ". Add the deck's cards.");
    if (!EqualNoCase(file->Name, name))
        return findings.Error(place,
                              "the Player would take \"" + file->Name + "\" for " + name + ". Rename it.");
    Deck deck{number, {}, {}, 0};
    ReadRows(*file, CCards::Columns(), findings,
             [&](RowReader& row) { CheckCard(row, deck, game, findings); });
    CheckGaps(deck, file->Name, findings);
    deck.Questions.CheckBalance(file->Name, findings);
    if (deck.Cards == 0)
        return findings.Error(file->Name, "no card can be read from it. Add cards to the deck.");
    game.Decks.push_back(number);
    game.Cards += static_cast<std::size_t>(deck.Cards);
}

void CheckDeck(RowReader& row, std::set<int>& seen, Game& game, Findings& findings) {
    const float number = row.Single("Index");
    const int index = row.Whole("Index");
    row.Text("Name", LongestName);
    row.Text("Bitmap", LongestPath);
    row.Text("BitmapPath", LongestPath);
    if (!row.Good()) return;
    if (number != static_cast<float>(index))
        findings.Error(row.Place(),
                       "the deck's number is not whole, so its cards are not found. Write 1, 2, 3.");
    else if (!seen.insert(index).second)
        findings.Warning(row.Place(), "there are several decks " + std::to_string(index) +
                                          ", and cards come from the last one. Number them 1, 2, 3.");
    else
        CheckCards(index, row.Place(), game, findings);
}

}  // namespace

void CheckDecks(Game& game, Findings& findings) {
    const PackedFile* file = game.Files.Find("decks.xml");
    if (!file) return;
    std::set<int> seen;
    std::size_t rows = 0;
    ReadRows(*file, CDecks::Columns(), findings, [&](RowReader& row) {
        if (++rows <= limits::Decks) CheckDeck(row, seen, game, findings);
    });
    if (rows > limits::Decks)
        findings.Error(file->Name, "there are more than " + std::to_string(limits::Decks) +
                                       " decks, so none is loaded. Join some.");
    if (game.Cards > limits::Cards)
        findings.Error(file->Name, "its decks have more than " + std::to_string(limits::Cards) +
                                       " cards together, so loading ends there. Leave some out.");
}

}  // namespace tabulon::gamepack

#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "content/collection.h"
#include "content/content_files.h"
#include "diagnostics/globals.h"
#include "platform/integer.h"

namespace tabulon {

/// A question with up to four answers, and what a right and a wrong one do.
struct CCard {
    Integer Index;
    Integer DeckID;
    std::string message;
    Integer CorrectActionType;
    Integer CorrectData1;
    Integer CorrectData2;
    Integer CorrectData3;
    Integer IncorrectActionType;
    std::string CorrectMessage;
    std::string IncorrectMessage;
    Integer IncorrectData1;
    std::int32_t IncorrectData2 = 0;
    std::int32_t IncorrectData3 = 0;
    Integer CorrectAnswer;  // 0 is Answer1
    std::string Answer1;
    std::string Answer2;
    std::string Answer3;
    std::string Answer4;
    Integer RandomSequence;
    bool Used = false;  // dealt since the deck was last made whole
};

/// The cards of one deck, dealt at random without repetition.
class CCards : private Collection<CCard> {
  public:
    explicit CCards(Globals& g) : m_g(g) {}

    /// The game's key, and a folder that is carried along.
    std::string GameDirectory;
    std::string PlayerPath;

    /// Adds the deck's rows of the unpacked cards<DeckID>.xml. False when there is no such file or after a
    /// failure; cards added before it stay.
    bool Load(Integer DeckID);
    /// The two singles are rounded half to even; fails with Overflow beyond 16 bits.
    CCard& Add(Integer Index, Integer DeckID, std::string Message, Integer CorrectActionType,
               std::string CorrectMessage, float CorrectData1, Integer CorrectData2,
               Integer IncorrectActionType, std::string IncorrectMessage, float IncorrectData1,
               Integer IncorrectData2, Integer CorrectAnswer, std::string Answer1, std::string Answer2,
               std::string Answer3, std::string Answer4, const std::string& Key);
    /// One above the highest number; 1 for an empty deck.
    Integer NextIndex() const;
    /// The first card with that number; null when there is none.
    CCard* ItemByIndex(Integer Index) const;
    static std::span<const ColumnDefinition> Columns();
    RecordsetDefinition DefineEmptyRS() const;
    /// Removes the first card with that number.
    void RemoveByIndex(Integer Index);

    void SameMessageForAllCards(const std::string& Message);
    /// These three change the first card with that number. The message becomes the question's text.
    void SetCorrectAction(float Index, Integer ActionType, const std::string& Message, float Data1,
                          Integer Data2);
    void SetIncorrectAction(float Index, Integer ActionType, const std::string& Message, float Data1,
                            Integer Data2);
    void SetAnswers(float Index, Integer CorrectAnswer, const std::string& Answer1,
                    const std::string& Answer2, const std::string& Answer3, const std::string& Answer4);

    /// A card that is not Used; it stays so until the caller marks it. When all are, all become unused first.
    /// Null after a failure, as when the numbers are not 1 to Count().
    CCard* NextUnusedCard();

    using Collection::begin;
    using Collection::Count;
    using Collection::end;
    using Collection::Item;
    using Collection::Remove;

  private:
    bool LoadFile(Integer DeckID);
    void AddRow(Integer DeckID, const PersistedRecordset::Row& row);
    /// Gives the cards a random order of 1 to Count().
    void AssignRandomSequences();
    Integer DrawNumber() { return m_g.Random.Draw(Count(), 1); }
    bool AllUsed() const;
    CCard* FindCard(float Index) const;

    Globals& m_g;
};

}  // namespace tabulon

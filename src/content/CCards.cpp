#include "content/CCards.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <tuple>
#include <vector>

#include "content/required.h"
#include "platform/files.h"
#include "platform/numbers.h"

namespace tabulon {

namespace {

constexpr ColumnDefinition ContentColumns[] = {
    {"DeckID", AdoType::Integer, 4},
    {"Index", AdoType::Single, 4},
    {"Message", AdoType::VarChar, 254},
    {"CorrectActionType", AdoType::Integer, 4},
    {"CorrectMessage", AdoType::VarChar, 254},
    {"CorrectData1", AdoType::Single, 4},
    {"CorrectData2", AdoType::Integer, 4},
    {"IncorrectActionType", AdoType::Integer, 4},
    {"IncorrectMessage", AdoType::VarChar, 254},
    {"IncorrectData1", AdoType::Single, 4},
    {"IncorrectData2", AdoType::Integer, 4},
    {"CorrectAnswer", AdoType::Integer, 4},
    {"Answer1", AdoType::VarChar, 254},
    {"Answer2", AdoType::VarChar, 254},
    {"Answer3", AdoType::VarChar, 254},
    {"Answer4", AdoType::VarChar, 254},
};

Integer Rounded(float value) { return ToInteger(static_cast<double>(value)); }

}  // namespace

bool CCards::Load(Integer DeckID) {
    bool Result = false;
    Procedure(m_g.gErrHandler, "CCards:Load", [&] { Result = LoadFile(DeckID); });
    return Result;
}

bool CCards::LoadFile(Integer DeckID) {
    if (GameDirectory.empty()) {
        ShowGameDirectoryMissing(m_g);
        return false;
    }
    const std::filesystem::path file = FindFile(m_g.AppDir, "cards" + ToText(DeckID) + ".xml");
    if (file.empty()) return false;
    const PersistedRecordset cards = OpenRecordset(file);
    for (const PersistedRecordset::Row& row : cards.Rows())
        if (row.ToInteger("DeckID") == DeckID) AddRow(DeckID, row);
    AssignRandomSequences();
    return true;
}

void CCards::AddRow(Integer DeckID, const PersistedRecordset::Row& row) {
    // Braces keep the order of reading, which is the fastest in a file's own order.
    std::tuple cells{row.ToInteger("Index"),
                     DeckID,
                     row.Text("Message"),
                     row.ToInteger("CorrectActionType"),
                     row.Text("CorrectMessage"),
                     row.ToSingle("CorrectData1"),
                     row.ToInteger("CorrectData2"),
                     row.ToInteger("IncorrectActionType"),
                     row.Text("IncorrectMessage"),
                     row.ToSingle("IncorrectData1"),
                     row.ToInteger("IncorrectData2"),
                     row.ToInteger("CorrectAnswer"),
                     row.Text("Answer1"),
                     row.Text("Answer2"),
                     row.Text("Answer3"),
                     row.Text("Answer4")};
    std::apply([this](auto&... cell) { Add(std::move(cell)..., ""); }, cells);
}

CCard& CCards::Add(Integer Index, Integer DeckID, std::string Message, Integer CorrectActionType,
                   std::string CorrectMessage, float CorrectData1, Integer CorrectData2,
                   Integer IncorrectActionType, std::string IncorrectMessage, float IncorrectData1,
                   Integer IncorrectData2, Integer CorrectAnswer, std::string Answer1, std::string Answer2,
                   std::string Answer3, std::string Answer4, const std::string& Key) {
    auto card = std::make_unique<CCard>();
    card->Index = Index;
    card->DeckID = DeckID;
    card->message = std::move(Message);
    card->CorrectActionType = CorrectActionType;
    card->CorrectMessage = std::move(CorrectMessage);
    card->CorrectData1 = Rounded(CorrectData1);
    card->CorrectData2 = CorrectData2;
    card->IncorrectActionType = IncorrectActionType;
    card->IncorrectMessage = std::move(IncorrectMessage);
    card->IncorrectData1 = Rounded(IncorrectData1);
    card->IncorrectData2 = IncorrectData2.Value();
    card->CorrectAnswer = CorrectAnswer;
    card->Answer1 = std::move(Answer1);
    card->Answer2 = std::move(Answer2);
    card->Answer3 = std::move(Answer3);
    card->Answer4 = std::move(Answer4);
    return Collection::Add(std::move(card), Key);
}

Integer CCards::NextIndex() const {
    if (Count() == 0) return 1;
    Integer highest = Item(1).Index;
    for (const CCard& card : *this) highest = std::max(highest, card.Index);
    return highest + 1;
}

CCard* CCards::ItemByIndex(Integer Index) const {
    for (CCard& card : *this)
        if (card.Index == Index) return &card;
    return nullptr;
}

std::span<const ColumnDefinition> CCards::Columns() { return ContentColumns; }

RecordsetDefinition CCards::DefineEmptyRS() const {
    RecordsetDefinition Result;
    Procedure(m_g.gErrHandler, "CCards:DefineEmptyRS", [&] { Result.Columns = Columns(); });
    return Result;
}

void CCards::RemoveByIndex(Integer Index) {
    Procedure(m_g.gErrHandler, "CCards:RemoveByIndex", [&] {
        for (int position = 1; position <= Count(); ++position)
            if (Item(position).Index == Index) return Remove(position);
    });
}

void CCards::SameMessageForAllCards(const std::string& Message) {
    for (CCard& card : *this) card.message = Message;
}

void CCards::SetCorrectAction(float Index, Integer ActionType, const std::string& Message, float Data1,
                              Integer Data2) {
    CCard* card = FindCard(Index);
    if (!card) return;
    card->CorrectActionType = ActionType;
    card->message = Message;
    card->CorrectData1 = Rounded(Data1);
    card->CorrectData2 = Data2;
}

void CCards::SetIncorrectAction(float Index, Integer ActionType, const std::string& Message, float Data1,
                                Integer Data2) {
    CCard* card = FindCard(Index);
    if (!card) return;
    card->IncorrectActionType = ActionType;
    card->message = Message;
    card->IncorrectData1 = Rounded(Data1);
    card->IncorrectData2 = Data2.Value();
}

void CCards::SetAnswers(float Index, Integer CorrectAnswer, const std::string& Answer1,
                        const std::string& Answer2, const std::string& Answer3, const std::string& Answer4) {
    CCard* card = FindCard(Index);
    if (!card) return;
    card->CorrectAnswer = CorrectAnswer;
    card->Answer1 = Answer1;
    card->Answer2 = Answer2;
    card->Answer3 = Answer3;
    card->Answer4 = Answer4;
}

CCard* CCards::NextUnusedCard() {
    CCard* Result = nullptr;
    Procedure(m_g.gErrHandler, "CCards:NextUnusedCard", [&] {
        if (AllUsed())
            for (CCard& card : *this) card.Used = false;
        m_g.Random.Randomize();
        Integer number = DrawNumber();
        while (Required(ItemByIndex(number)).Used) number = DrawNumber();
        Result = ItemByIndex(number);
    });
    return Result;
}

void CCards::AssignRandomSequences() {
    Procedure(m_g.gErrHandler, "CCards:RandomSequenceInUse", [&] {
        m_g.Random.Randomize();
        std::vector<bool> inUse(static_cast<std::size_t>(Count()) + 1);
        const auto mark = [&](const CCard& card, bool used) {
            const auto number = static_cast<std::size_t>(card.RandomSequence.Value());
            if (number < inUse.size()) inUse[number] = used;
        };
        for (const CCard& card : *this) mark(card, true);
        for (CCard& card : *this) {
            Integer number = DrawNumber();
            while (inUse[static_cast<std::size_t>(number.Value())]) number = DrawNumber();
            mark(card, false);
            card.RandomSequence = number;
            mark(card, true);
        }
    });
}

bool CCards::AllUsed() const {
    for (const CCard& card : *this)
        if (!card.Used) return false;
    return true;
}

CCard* CCards::FindCard(float Index) const {
    for (CCard& card : *this)
        if (static_cast<float>(card.Index.Value()) == Index) return &card;
    return nullptr;
}

}  // namespace tabulon

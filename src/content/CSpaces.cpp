#include "content/CSpaces.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <tuple>

#include "platform/failure.h"
#include "platform/files.h"
#include "platform/numbers.h"

namespace tabulon {

namespace {

constexpr ColumnDefinition ContentColumns[] = {
    {"Sequence", AdoType::Single, 4},   {"Top", AdoType::Integer, 4},   {"Left", AdoType::Integer, 4},
    {"Height", AdoType::Integer, 4},    {"Width", AdoType::Integer, 4}, {"ActionType", AdoType::Integer, 4},
    {"Message", AdoType::VarChar, 254}, {"Data1", AdoType::Single, 4},  {"Data2", AdoType::Integer, 4},
};

std::int32_t Factored(float factor, std::int32_t value) {
    return ToLong(static_cast<double>(factor) * static_cast<double>(value));
}

}  // namespace

bool CSpaces::Load() {
    bool Result = false;
    const auto failed = [&] {
        Result = false;
        m_packages.CleanupGameDir();
    };
    Procedure(
        m_g.gErrHandler, "CSpaces:LoadSpaces",
        [&] {
            Result = LoadFile();
            m_packages.CleanupGameDir();
        },
        failed);
    return Result;
}

bool CSpaces::LoadFile() {
    if (GameDirectory.empty()) {
        ShowGameDirectoryMissing(m_g);
        return false;
    }
    m_packages.ExtractFile(m_g.AppDir / (GameDirectory + ".gam"), m_g.AppDir, "spaces.xml", false);
    const std::filesystem::path file = FindFile(m_g.AppDir, "spaces.xml");
    if (file.empty()) return false;
    const PersistedRecordset spaces = OpenRecordset(file);
    for (const PersistedRecordset::Row& row : spaces.Rows()) AddRow(row);
    return true;
}

void CSpaces::AddRow(const PersistedRecordset::Row& row) {
    // Braces keep the order of reading, which is the fastest in a file's own order.
    std::tuple cells{row.ToInteger("Sequence"), row.ToLong("Top"),     row.ToLong("Left"),
                     row.ToLong("Height"),      row.ToLong("Width"),   row.ToInteger("ActionType"),
                     row.Text("Message"),       row.ToSingle("Data1"), row.ToInteger("Data2")};
    std::apply([this](auto&... cell) { Add(std::move(cell)..., ""); }, cells);
}

CSpace& CSpaces::Add(Integer Sequence, std::int32_t Top, std::int32_t Left, std::int32_t Height,
                     std::int32_t Width, Integer ActionType, std::string Message, float Data1, Integer Data2,
                     const std::string& Key) {
    auto space = std::make_unique<CSpace>();
    space->Sequence = Sequence;
    space->Top = Top;
    space->Left = Left;
    space->Height = Height;
    space->Width = Width;
    space->ActionType = ActionType;
    if (Message != " ") space->message = std::move(Message);
    m_byNumber.clear();
    space->Data1 = Data1;
    space->Data2 = Data2;
    return Collection::Add(std::move(space), Key);
}

void CSpaces::SetAction(Integer Sequence, Integer ActionType, const std::string& Message, float Data1,
                        Integer Data2) {
    for (CSpace& space : *this) {
        if (space.Sequence != Sequence) continue;
        space.ActionType = ActionType;
        space.message = Message;
        space.Data1 = Data1;
        space.Data2 = Data2;
    }
}

Integer CSpaces::NextSequence() const {
    if (Count() == 0) return 1;
    Integer highest = Item(1).Sequence;
    for (const CSpace& space : *this) highest = std::max(highest, space.Sequence);
    return highest + 1;
}

const CSpace* CSpaces::Walk(Integer Sequence) const {
    if (m_byNumber.empty()) NumberSpaces();
    for (int position = Count(); position > 0; --position)
        if (Item(position).Sequence == Sequence) return &Item(position);
    return nullptr;
}

void CSpaces::NumberSpaces() const {
    m_byNumber.assign(static_cast<std::size_t>(Count()) + 1, nullptr);
    for (const CSpace& space : *this) {
        const auto number = static_cast<std::size_t>(space.Sequence.Value());
        if (number < m_byNumber.size()) m_byNumber[number] = &space;
    }
}

std::span<const ColumnDefinition> CSpaces::Columns() { return ContentColumns; }

RecordsetDefinition CSpaces::DefineEmptyRS() const {
    RecordsetDefinition Result;
    Procedure(m_g.gErrHandler, "CSpaces:DefineEmptyRS", [&] { Result.Columns = Columns(); });
    return Result;
}

void CSpaces::RemoveBySequence(Integer /*Sequence*/) {
    Procedure(m_g.gErrHandler, "CSpaces:RemoveBySequence", [&] {
        if (Count() > 0) throw Failure(FailureNumber::NotSupported);
    });
}

void CSpaces::FactorSpaces(float XFactor, float YFactor) {
    for (CSpace& space : *this) {
        space.Unfactored = {space.Left, space.Top, space.Width, space.Height};
        space.Left = Factored(XFactor, space.Left);
        space.Top = Factored(YFactor, space.Top);
        space.Width = Factored(XFactor, space.Width);
        space.Height = Factored(YFactor, space.Height);
    }
}

void CSpaces::RefactorSpaces(float XFactor, float YFactor) {
    for (CSpace& space : *this) {
        const auto [left, top, width, height] = space.Unfactored;
        space.Left = left;
        space.Top = top;
        space.Width = width;
        space.Height = height;
    }
    FactorSpaces(XFactor, YFactor);
}

}  // namespace tabulon

#pragma once

#include <map>
#include <string>
#include <vector>

#include "packages/archive_writer.h"
#include "platform/temporary_directory.h"
#include "support/play_fixture.h"

namespace tabulon::test {

/// Names the cases of a table by their Name.
struct CaseName {
    template <class Case>
    std::string operator()(const testing::TestParamInfo<Case>& row) const {
        return row.param.Name;
    }
};

/// A row of spaces.xml that is more than a place.
struct SpaceRow {
    int Number = 0;
    int Action = NoAction;
    double Data1 = 0;
    int Data2 = 0;
    const char* Message = "";
};

/// A card of deck 1. The right answer is A.
struct CardRow {
    int Action = 0;
    double Data1 = 0;
    int Data2 = 0;
    int WrongAction = 0;
    double WrongData1 = 0;
    const char* RightMessage = "";
    int WrongData2 = 0;
};

/// A game small enough to be reckoned by hand: by default ten spaces in a row that do nothing, one die, and
/// points as its aim.
struct TinyGame {
    std::map<std::string, std::string> Settings = {};
    std::vector<SpaceRow> Rows = {};
    std::vector<CardRow> Cards = {};
    int Spaces = 10;

    /// Makes the package, and returns its name.
    std::string WriteTo(const TemporaryDirectory& folder) const {
        const std::string key = "{00000000-0000-4000-8000-000000000001}";
        std::vector<PackedFile> files = {
            {key + ".dat", SettingsText()}, {"board.bmp", Bitmap(600, 400)}, {"spaces.xml", SpacesXml()}};
        if (!Cards.empty()) {
            files.push_back(
                {"decks.xml", Xml({"Index", "Name", "Bitmap", "BitmapPath"}, {{"1", "Deck", "", ""}})});
            files.push_back({"cards1.xml", CardsXml()});
        }
        WriteArchive(folder / (key + ".gam"), files);
        return key + ".gam";
    }

  private:
    using Texts = std::vector<std::string>;

    std::string SettingsText() const {
        std::map<std::string, std::string> lines = {{"Game Name", "Tiny"}, {"Board Image", "board.bmp"},
                                                    {"Goal Type", "0"},    {"Finish Condition", "1000"},
                                                    {"Loop Board", "0"},   {"Turn Device", "0"},
                                                    {"Dice Used", "1"},    {"Max Slot Value", "6"},
                                                    {"Tries", "1"},        {"Music Genre", "kids"},
                                                    {"Font", "Sans"},      {"Font Size", "12"}};
        for (const auto& [name, value] : Settings) lines[name] = value;
        std::string text;
        for (const auto& [name, value] : lines) text += name + "=" + value + "\r\n";
        return text;
    }

    std::string SpacesXml() const {
        std::vector<SpaceRow> rows;
        for (int number = 1; number <= Spaces; ++number) rows.push_back({number});
        for (const SpaceRow& row : Rows) rows[static_cast<std::size_t>(row.Number) - 1] = row;
        std::vector<Texts> cells;
        for (const SpaceRow& row : rows)
            cells.push_back({std::to_string(row.Number), "100", std::to_string(60 * (row.Number - 1)), "50",
                             "60", std::to_string(row.Action), row.Message, std::to_string(row.Data1),
                             std::to_string(row.Data2)});
        return Xml({"Sequence", "Top", "Left", "Height", "Width", "ActionType", "Message", "Data1", "Data2"},
                   cells);
    }

    std::string CardsXml() const {
        std::vector<Texts> cells;
        for (const CardRow& card : Cards)
            cells.push_back({"1", std::to_string(cells.size() + 1), "What?", std::to_string(card.Action),
                             card.RightMessage, std::to_string(card.Data1), std::to_string(card.Data2),
                             std::to_string(card.WrongAction), "", std::to_string(card.WrongData1),
                             std::to_string(card.WrongData2), "0", "a", "b", "c", "d"});
        return Xml({"DeckID", "Index", "Message", "CorrectActionType", "CorrectMessage", "CorrectData1",
                    "CorrectData2", "IncorrectActionType", "IncorrectMessage", "IncorrectData1",
                    "IncorrectData2", "CorrectAnswer", "Answer1", "Answer2", "Answer3", "Answer4"},
                   cells);
    }

    static std::string Xml(const Texts& columns, const std::vector<Texts>& rows) {
        std::string xml =
            "<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882' "
            "xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882' "
            "xmlns:rs='urn:schemas-microsoft-com:rowset' "
            "xmlns:z='#RowsetSchema'><s:Schema id='RowsetSchema'><s:ElementType name='row'>";
        for (const std::string& column : columns)
            xml += "<s:AttributeType name='" + column + "'><s:datatype dt:type='string'/></s:AttributeType>";
        xml += "</s:ElementType></s:Schema><rs:data>";
        for (const Texts& row : rows) {
            xml += "<z:row";
            for (std::size_t i = 0; i < columns.size(); ++i) xml += " " + columns[i] + "='" + row[i] + "'";
            xml += "/>";
        }
        return xml + "</rs:data></xml>";
    }
};

}  // namespace tabulon::test

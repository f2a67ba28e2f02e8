#include <archive.h>
#include <archive_entry.h>
#include <benchmark/benchmark.h>
#include <pugixml.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "content/CGame.h"
#include "packages/archive.h"
#include "packages/archive_writer.h"
#include "packages/utf8_locale.h"
#include "platform/seeded_random.h"
#include "playtest/workplace.h"

// A package of 500 spaces and 20 decks of 200 cards: how long the program takes to open it, and how long its
// two libraries take to do no more than read the same file.

namespace {

using namespace tabulon;
using namespace tabulon::playtest;

constexpr int SpaceCount = 500;
constexpr int DeckCount = 20;
constexpr int CardCount = 200;
constexpr const char* Key = "{00000000-0000-4000-8000-000000000500}";

struct ColumnText {
    const char* Name;
    const char* Type;
};

using Row = std::vector<std::string>;

std::string Table(const std::vector<ColumnText>& columns, const std::vector<Row>& rows) {
    std::string xml =
        "<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882' xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-"
        "00AA00C14882' xmlns:rs='urn:schemas-microsoft-com:rowset' xmlns:z='#RowsetSchema'>\r\n"
        "<s:Schema id='RowsetSchema'><s:ElementType name='row' content='eltOnly'>\r\n";
    for (const auto& [name, type] : columns)
        xml += std::string("<s:AttributeType name='") + name + "'><s:datatype dt:type='" + type +
               "'/></s:AttributeType>\r\n";
    xml += "<s:extends type='rs:rowbase'/></s:ElementType></s:Schema>\r\n<rs:data><rs:insert>\r\n";
    for (const Row& row : rows) {
        xml += "<z:row";
        for (std::size_t i = 0; i < columns.size(); ++i)
            xml += std::string(" ") + columns[i].Name + "='" + row[i] + "'";
        xml += "/>\r\n";
    }
    return xml + "</rs:insert></rs:data></xml>\r\n";
}

std::string SpacesXml() {
    std::vector<Row> rows;
    for (int i = 1; i <= SpaceCount; ++i)
        rows.push_back({std::to_string(i), std::to_string(i % 20 * 30), std::to_string(i / 20 * 30), "30",
                        "30", "6", "The wind turns the page number " + std::to_string(i) + " for you.", "1.5",
                        "0"});
    return Table({{"Sequence", "r4"},
                  {"Top", "int"},
                  {"Left", "int"},
                  {"Height", "int"},
                  {"Width", "int"},
                  {"ActionType", "int"},
                  {"Message", "string"},
                  {"Data1", "r4"},
                  {"Data2", "int"}},
                 rows);
}

std::string DecksXml() {
    std::vector<Row> rows;
    for (int i = 1; i <= DeckCount; ++i)
        rows.push_back({std::to_string(i), "Deck " + std::to_string(i), "deck.bmp", ""});
    return Table({{"Index", "r4"}, {"Name", "string"}, {"Bitmap", "string"}, {"BitmapPath", "string"}}, rows);
}

std::string CardsXml(int deck) {
    std::vector<Row> rows;
    for (int i = 1; i <= CardCount; ++i) {
        const std::string number = std::to_string(i);
        rows.push_back({std::to_string(deck), number,
                        "How many lamps burn on the " + number + "th pier when the tide is out?", "6",
                        "Right, and the keeper thanks you for the count.", "2", "0", "5",
                        "No, the keeper shakes his head at you.", "1", "0", "1", "One", number, "Ninety",
                        "Nobody knows"});
    }
    return Table({{"DeckID", "int"},
                  {"Index", "r4"},
                  {"Message", "string"},
                  {"CorrectActionType", "int"},
                  {"CorrectMessage", "string"},
                  {"CorrectData1", "r4"},
                  {"CorrectData2", "int"},
                  {"IncorrectActionType", "int"},
                  {"IncorrectMessage", "string"},
                  {"IncorrectData1", "r4"},
                  {"IncorrectData2", "int"},
                  {"CorrectAnswer", "int"},
                  {"Answer1", "string"},
                  {"Answer2", "string"},
                  {"Answer3", "string"},
                  {"Answer4", "string"}},
                 rows);
}

std::vector<PackedFile> PackageContent() {
    std::vector<PackedFile> files = {
        {std::string(Key) + ".dat", "Game Name=The Long Pier\r\nGoal Type=0\r\nFinish Condition=50\r\n"},
        {"spaces.xml", SpacesXml()},
        {"decks.xml", DecksXml()}};
    for (int deck = 1; deck <= DeckCount; ++deck)
        files.push_back({"cards" + std::to_string(deck) + ".xml", CardsXml(deck)});
    return files;
}

/// A folder with the package, installed as the program does it.
class Nobody final : public HeadlessUser {
  public:
    bool Act(Form&) override { return false; }
    BoxAnswer AnswerBox(const std::string&, BoxIcon, BoxButtons, const std::string&) override {
        return BoxAnswer::Ok;
    }
};

class Desk {
  public:
    Desk() {
        g.AppDir = m_folder.Path();
        WriteArchive(Package(), PackageContent());
        std::vector<std::string> names, keys;
        packages.InstallableGames({}, names, keys);
        packages.InstallGame(Key);
    }

    std::filesystem::path Package() const { return m_folder.Path() / (std::string(Key) + ".gam"); }

  private:
    TemporaryFolder m_folder;
    Nobody m_user;
    HeadlessScreen m_screen{m_user};
    SystemClock m_clock;
    SeededRandom m_random{1};
    NoShell m_shell;
    SilentOggPlayer m_player;
    SettingsStore m_store{":memory:"};

  public:
    Globals g{{m_screen, m_clock, m_random, m_shell, m_player, m_store, {}, m_folder.Path()}};
    modInstallUninstall packages{g};
};

void Open(benchmark::State& state) {
    Desk desk;
    for (auto _ : state) {
        CGame game(desk.g, desk.packages);
        game.GameDirectory = Key;
        game.GameName = "The Long Pier";
        game.Load();
        if (game.Spaces.Count() != SpaceCount || game.Decks.Count() != DeckCount)
            throw std::logic_error("the package did not open");
    }
}
BENCHMARK(Open)->Unit(benchmark::kMillisecond);

std::string ReadEntry(archive* reader, archive_entry* entry) {
    std::string bytes(static_cast<std::size_t>(archive_entry_size(entry)), '\0');
    const la_ssize_t read = archive_read_data(reader, bytes.data(), bytes.size());
    if (read != static_cast<la_ssize_t>(bytes.size())) throw std::logic_error("the entry cannot be read");
    return bytes;
}

struct PlainSpace {
    int Sequence, Top, Left, Height, Width, ActionType, Data2;
    float Data1;
    std::string Message;
};

struct PlainCard {
    int Deck, Index, RightAction, RightData2, WrongAction, WrongData2, Right;
    float RightData1, WrongData1;
    std::string Message, RightMessage, WrongMessage, Answers[4];
};

struct PlainGame {
    std::vector<PlainSpace> Spaces;
    std::vector<std::string> Decks;
    std::vector<PlainCard> Cards;
};

PlainSpace ToSpace(pugi::xml_node row) {
    const auto number = [&](const char* name) { return row.attribute(name).as_int(); };
    return {number("Sequence"),
            number("Top"),
            number("Left"),
            number("Height"),
            number("Width"),
            number("ActionType"),
            number("Data2"),
            row.attribute("Data1").as_float(),
            row.attribute("Message").value()};
}

PlainCard ToCard(pugi::xml_node row) {
    const auto number = [&](const char* name) { return row.attribute(name).as_int(); };
    const auto text = [&](const char* name) { return row.attribute(name).value(); };
    return {number("DeckID"),
            number("Index"),
            number("CorrectActionType"),
            number("CorrectData2"),
            number("IncorrectActionType"),
            number("IncorrectData2"),
            number("CorrectAnswer"),
            row.attribute("CorrectData1").as_float(),
            row.attribute("IncorrectData1").as_float(),
            text("Message"),
            text("CorrectMessage"),
            text("IncorrectMessage"),
            {text("Answer1"), text("Answer2"), text("Answer3"), text("Answer4")}};
}

void ReadRows(PlainGame& game, const std::string& name, const std::string& bytes) {
    pugi::xml_document document;
    if (!document.load_buffer(bytes.data(), bytes.size())) throw std::logic_error("no XML");
    for (const pugi::xml_node row : document.child("xml").child("rs:data").child("rs:insert")) {
        if (name == "spaces.xml") {
            game.Spaces.push_back(ToSpace(row));
        } else if (name == "decks.xml") {
            game.Decks.emplace_back(row.attribute("Name").value());
        } else {
            game.Cards.push_back(ToCard(row));
        }
    }
}

PlainGame ReadPlainly(const std::filesystem::path& package) {
    archive* reader = archive_read_new();
    archive_read_support_format_zip_seekable(reader);
    archive_read_add_passphrase(reader, PackagePassword);
    if (archive_read_open_filename(reader, package.c_str(), 65536) != ARCHIVE_OK)
        throw std::logic_error("the archive cannot be opened");
    PlainGame game;
    archive_entry* entry = nullptr;
    while (archive_read_next_header(reader, &entry) == ARCHIVE_OK) {
        const std::string name = archive_entry_pathname(entry);
        if (name.ends_with(".xml")) ReadRows(game, name, ReadEntry(reader, entry));
    }
    archive_read_free(reader);
    return game;
}

void PlainReader(benchmark::State& state) {
    const Desk desk;
    const Utf8Locale locale;
    for (auto _ : state) {
        const PlainGame game = ReadPlainly(desk.Package());
        if (game.Spaces.size() != SpaceCount || game.Cards.size() != DeckCount * CardCount)
            throw std::logic_error("rows are missing");
    }
}
BENCHMARK(PlainReader)->Unit(benchmark::kMillisecond);

}  // namespace

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "content/CSpaces.h"
#include "content/game_words.h"
#include "gamepack/check_parts.h"
#include "gamepack/row_reader.h"
#include "headless/picture_size.h"
#include "platform/failure.h"

namespace tabulon::gamepack {

namespace {

constexpr std::size_t LongestText = 254;
constexpr int NoAction = -1;

struct Rectangle {
    std::int32_t Left;
    std::int32_t Top;
    std::int32_t Width;
    std::int32_t Height;
};

/// The numbers of the spaces in the order of the file.
struct Track {
    std::optional<PictureSize> Board;
    std::set<int> Seen;
    std::vector<Rectangle> Places;
    std::map<std::string, int> Sentences;  // and the space that says each first
    int Last = 0;
    std::string LastPlace;
};

std::optional<PictureSize> BoardSize(const Game& game) {
    const std::string name = game.Settings.Text("Board Image");
    const PackedFile* picture = name.empty() ? nullptr : game.Files.Find(name);
    if (!picture) return std::nullopt;
    try {
        return SizeOfPicture(picture->Bytes);
    } catch (const Failure&) {
        return std::nullopt;
    }
}

void CheckRectangle(const Rectangle& space, const PictureSize& board, const std::string& place,
                    Findings& findings) {
    const auto right = std::int64_t{space.Left} + space.Width;
    const auto bottom = std::int64_t{space.Top} + space.Height;
    if (space.Left < 0 || space.Top < 0 || right > board.Width || bottom > board.Height)
        findings.Warning(place, "the space leaves the board picture, which is " +
                                    std::to_string(board.Width) + " x " + std::to_string(board.Height) +
                                    " pixels. Move it inside.");
    if (space.Width < 1 || space.Height < 1)
        findings.Warning(place, "the space has no size. Give it a width and a height.");
}

bool Overlap(const Rectangle& a, const Rectangle& b) {
    const auto meet = [](std::int64_t from, std::int64_t size, std::int64_t other, std::int64_t otherSize) {
        return from < other + otherSize && other < from + size;
    };
    return meet(a.Left, a.Width, b.Left, b.Width) && meet(a.Top, a.Height, b.Top, b.Height);
}

void CheckOverlap(const Rectangle& space, Track& track, const std::string& place, Findings& findings) {
    const auto other =
        std::ranges::find_if(track.Places, [&](const Rectangle& each) { return Overlap(space, each); });
    if (other != track.Places.end())
        findings.Warning(place, "the space overlaps space " +
                                    std::to_string(other - track.Places.begin() + 1) + ". Move one of them.");
    track.Places.push_back(space);
}

/// Those of several words: "Oh!" may come as often as it likes.
std::vector<std::string> Sentences(std::string_view message) {
    std::vector<std::string> sentences;
    while (!message.empty()) {
        const std::size_t end = std::min(message.find_first_of(".!?"), message.size() - 1) + 1;
        const std::size_t start = std::min(message.find_first_not_of(' '), end);
        const std::string_view sentence = message.substr(start, end - start);
        if (sentence.find(' ') != sentence.npos) sentences.emplace_back(sentence);
        message.remove_prefix(end);
    }
    return sentences;
}

/// A race is a story, which goes from space to space; a ring comes by the same ones again and again.
void CheckStory(const std::string& message, int space, Track& track, const std::string& place,
                Findings& findings) {
    for (const std::string& sentence : Sentences(message)) {
        const auto [said, isNew] = track.Sentences.emplace(sentence, space);
        if (!isNew && said->second != space)
            return findings.Warning(place, "space " + std::to_string(said->second) + " says too: \"" +
                                               sentence + "\" Find other words.");
    }
}

void CheckNumber(int sequence, int row, Track& track, const std::string& place, Findings& findings) {
    if (!track.Seen.insert(sequence).second)
        findings.Warning(place, "there are several spaces " + std::to_string(sequence) +
                                    ", and only the last one acts. Number them 1, 2, 3 and so on.");
    else if (sequence != row)
        findings.Warning(place, "space " + std::to_string(sequence) + " stands where space " +
                                    std::to_string(row) +
                                    " belongs. Number them 1, 2, 3 and so on, in order.");
}

void CheckSpace(RowReader& row, Game& game, Track& track, Findings& findings) {
    const int sequence = row.Whole("Sequence");
    const Rectangle place{row.Long("Left"), row.Long("Top"), row.Long("Width"), row.Long("Height")};
    const int action = row.Whole("ActionType");
    const std::string message = row.Text("Message", LongestText);
    const double data1 = static_cast<double>(row.Single("Data1"));
    row.Whole("Data2");
    if (!row.Good()) return;
    ++game.Spaces;
    CheckNumber(sequence, game.Spaces, track, row.Place(), findings);
    if (track.Board) CheckRectangle(place, *track.Board, row.Place(), findings);
    CheckOverlap(place, track, row.Place(), findings);
    if (game.IsRace()) CheckStory(message, game.Spaces, track, row.Place(), findings);
    if (action < NoAction || action > atRollNumber)
        findings.Warning(row.Place(), "there is no action " + std::to_string(action) +
                                          ". Choose 0 to 12, or -1 for a space that does nothing.");
    game.Orders.push_back({row.Place(), action, data1, sequence, false});
    track.Last = sequence;
    track.LastPlace = row.Place();
}

void CheckEnd(const Game& game, const Track& track, Findings& findings) {
    const bool race = game.IsRace();
    if (!race && game.Spaces == 1)
        findings.Warning(track.LastPlace,
                         "the first move never ends: a board for points needs two spaces or more.");
    if (race && game.Settings.Number("Loop Board") == 0 && track.Last > game.Spaces)
        findings.Warning(track.LastPlace,
                         "the move to the last space never ends: its number, " + std::to_string(track.Last) +
                             ", is above the number of spaces, " + std::to_string(game.Spaces) +
                             ". Number the spaces 1, 2, 3 and so on.");
}

}  // namespace

void CheckSpaces(Game& game, Findings& findings) {
    const PackedFile* file = game.Files.Find("spaces.xml");
    if (!file) {
        findings.Error("spaces.xml",
                       "there is no such file, so the game is never listed. Add the board's spaces.");
        return;
    }
    Track track{BoardSize(game), {}, {}, {}, 0, file->Name};
    ReadRows(*file, CSpaces::Columns(), findings,
             [&](RowReader& row) { CheckSpace(row, game, track, findings); });
    if (game.Spaces == 0)
        findings.Error(file->Name, "no space can be read from it. A board needs two or more.");
    CheckEnd(game, track, findings);
}

}  // namespace tabulon::gamepack

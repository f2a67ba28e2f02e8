#include "playtest/workplace.h"

#include <unistd.h>

#include "playtest/unusable.h"

namespace tabulon::playtest {

namespace fs = std::filesystem;

namespace {

constexpr int SmallFontsDensity = 96;
constexpr int LargeFontsDensity = 120;

HeadlessScreen::Size ScreenSize(bool smallFonts) {
    return {1024, 768, smallFonts ? SmallFontsDensity : LargeFontsDensity};
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
    std::string name = (fs::temp_directory_path() / "tabulon-XXXXXX").string();
    if (!mkdtemp(name.data())) throw Unusable(name + ": no temporary folder can be made");
    m_path = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

Workplace::Workplace(const Settings& settings, PlayUser& user, Random& random)
    : m_screen(user, ScreenSize(settings.SmallFonts)), m_clock(m_screen, settings.Start) {
    std::error_code failure;
    fs::copy_file(settings.Package, m_folder.Path() / settings.Package.filename(), failure);
    if (failure) throw Unusable(settings.Package.string() + ": " + failure.message());
    m_program = std::make_unique<Program>(
        Machine{m_screen, m_clock, random, m_shell, m_player, m_store, {}, m_folder.Path()});
    m_program->globals.gErrHandler.ShowDetails = [](const std::string&) {};
    Install(settings.Package.stem().string());
    user.Sit(*m_program);
    // The board shows at the size of its picture, so that board pixels are the picture's.
    m_screen.PictureLoaded = [this](const FilePicture& picture) {
        PictureBox& board = m_program->frmMain.picMainBoard;
        board.Width = static_cast<float>(picture.Width) * m_screen.TwipsPerPixelX();
        board.Height = static_cast<float>(picture.Height) * m_screen.TwipsPerPixelY();
    };
}

void Workplace::Install(const std::string& key) {
    m_program->globals.AppDir = m_folder.Path();
    std::vector<std::string> names;
    std::vector<std::string> keys;
    m_program->packages.InstallableGames({}, names, keys);
    if (keys.empty()) throw Unusable(key + ".gam: this is no game that can be installed");
    m_program->packages.InstallGame(keys.front());
    Array<std::string> games, gameNames, descriptions;
    std::int32_t count = 0;
    games.ReDim(0);
    m_program->savedGames.GetAvailableGames(games, gameNames, descriptions, count);
    if (gameNames.UBound() < 0 || gameNames[0].empty())
        throw Unusable(key + ".gam: the package does not open, has no spaces.xml or no " + key +
                       ".dat, or its game has no name");
}

}  // namespace tabulon::playtest

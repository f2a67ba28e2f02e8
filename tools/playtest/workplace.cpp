#include "playtest/workplace.h"

#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <unistd.h>

#include "platform/directories.h"
#include "platform/files.h"
#include "playtest/unusable.h"

namespace tabulon::playtest {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view NameBeginning = "tabulon-playtest-";
constexpr int SmallFontsDensity = 96;
constexpr int LargeFontsDensity = 120;

HeadlessScreen::Size ScreenSize(bool smallFonts) {
    return {1024, 768, smallFonts ? SmallFontsDensity : LargeFontsDensity};
}

void CopyPackage(const fs::path& package, const fs::path& folder) {
    std::error_code failure;
    if (fs::is_directory(package, failure)) throw Unusable(package.string() + ": this is a folder");
    fs::copy_file(package, folder / package.filename(), failure);
    if (failure) throw Unusable(package.string() + ": " + failure.message());
}

int OpenFolder(const fs::path& folder) {
    return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

/// The Player that the tool was installed with, whose default pictures a game may want.
ApplicationInfo InstalledPlayer() {
    ApplicationInfo application;
    application.ShareDir = ShareDirectory(ExecutablePath());
    return application;
}

}  // namespace

void RemoveAbandonedFolders() {
    std::error_code trouble;
    const fs::path parent = fs::temp_directory_path(trouble);
    for (fs::directory_iterator entry(parent, trouble), end; !trouble && entry != end;
         entry.increment(trouble)) {
        if (!entry->path().filename().string().starts_with(NameBeginning)) continue;
        const int folder = OpenFolder(entry->path());
        std::error_code ignored;
        if (flock(folder, LOCK_EX | LOCK_NB) == 0) fs::remove_all(entry->path(), ignored);
        close(folder);
    }
}

TemporaryFolder::TemporaryFolder() {
    while (!Make()) continue;  // one that is not locked yet may be taken for abandoned
}

bool TemporaryFolder::Make() {
    std::error_code trouble;
    std::string name = (fs::temp_directory_path(trouble) / (std::string(NameBeginning) + "XXXXXX")).string();
    if (trouble || !mkdtemp(name.data()))
        throw Unusable("no temporary folder can be made; TMPDIR names where");
    m_path = name;
    m_lock = OpenFolder(m_path);
    flock(m_lock, LOCK_EX);
    if (fs::exists(m_path, trouble)) return true;
    close(m_lock);
    return false;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
    close(m_lock);
}

Workplace::Workplace(const Settings& settings, PlayUser& user, Random& random)
    : m_screen(user, ScreenSize(settings.SmallFonts)), m_clock(m_screen, settings.Start) {
    CopyPackage(settings.Package, m_folder.Path());
    m_program = std::make_unique<Program>(
        Machine{m_screen, m_clock, random, m_shell, m_player, m_store, InstalledPlayer(), m_folder.Path()});
    m_program->globals.gErrHandler.ShowDetails = [](const std::string&) {};
    Install(settings.Package);
    user.Sit(*m_program);
    // The board shows at the size of its picture, so that board pixels are the picture's.
    m_screen.PictureLoaded = [this](const FilePicture& picture) {
        PictureBox& board = m_program->frmMain.picMainBoard;
        board.Width = static_cast<float>(picture.Width) * m_screen.TwipsPerPixelX();
        board.Height = static_cast<float>(picture.Height) * m_screen.TwipsPerPixelY();
    };
}

void Workplace::Install(const fs::path& package) {
    const auto refuse = [&package](const std::string& why) { throw Unusable(package.string() + ": " + why); };
    const std::string key = package.stem().string();
    const fs::path& folder = m_folder.Path();
    m_program->globals.AppDir = folder;
    const auto holds = [&](const std::string& name) {
        return m_program->packages.ExtractFile(folder / (key + ".gam"), folder, name, true);
    };
    if (!holds("")) refuse("this is no package, or there is nothing in it");
    if (!holds(key + ".dat")) refuse("there is no " + key + ".dat in it");
    if (!holds("spaces.xml")) refuse("there is no spaces.xml in it");
    std::vector<std::string> names;
    std::vector<std::string> keys;
    m_program->packages.InstallableGames({}, names, keys);
    if (keys.empty()) refuse("a package of this name is never offered");
    if (FindFile(folder, key + ".dat").empty()) refuse(key + ".dat in it cannot be read");
    m_program->packages.InstallGame(keys.front());
    Array<std::string> games, gameNames, descriptions;
    std::int32_t count = 0;
    games.ReDim(0);
    m_program->savedGames.GetAvailableGames(games, gameNames, descriptions, count);
    if (gameNames.UBound() < 0 || gameNames[0].empty()) refuse("its game has no name");
}

}  // namespace tabulon::playtest

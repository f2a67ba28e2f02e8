#include "packages/modInstallUninstall.h"

#include <algorithm>
#include <optional>

#include "packages/settings_lines.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

namespace tabulon {

namespace {

namespace fs = std::filesystem;

constexpr const char* UnpackedKinds[] = {"*.dat", "*.xml", "*.txt", "*.chm",
                                         "*.hlp", "*.jpg", "*.bmp", "*.gif"};
constexpr const char* KeptKinds[] = {".gam", ".snd", ".db", ".log"};
/// Of its own, since a clean-up takes every .xml of the data directory.
constexpr char LogFolder[] = "logs";
constexpr std::size_t ExtensionLength = 4;

std::string GameKeyPath(const std::string& name) { return std::string(GamesKey) + "\\" + name; }

std::vector<std::string> LinesOf(const fs::path& file) {
    const fs::path found = FindFile(file.parent_path(), file.filename().string());
    if (found.empty()) throw Failure(FailureNumber::FileNotFound);
    return Lines(ToUtf8(ReadFile(found, limits::SettingsBytes)));
}

void WriteEntry(const fs::path& folder, const std::string& name, const std::string& bytes) {
    if (IsKeptName(name))
        throw Failure(FailureNumber::PermissionDenied, "\"" + name + "\" may not be unpacked");
    WriteFile(folder / name, bytes);
}

bool IsNeverListed(const std::string& base) {
    return base == "defobjs" || base.empty() || base == HiddenGame;
}

std::string XmlText(std::string text) {
    text = ReplaceAll(ReplaceAll(text, "&", "&amp;"), "<", "&lt;");
    std::erase_if(text, [](char c) { return static_cast<unsigned char>(c) < ' '; });
    return text;
}

}  // namespace

bool IsKeptName(const std::string& name) {
    if (EqualNoCase(name, ErrorLog)) return true;
    std::string extension = fs::path(name).extension().string();
    extension.resize(extension.find('-') == extension.npos ? extension.size() : extension.find('-'));
    return std::ranges::any_of(KeptKinds, [&](const char* kind) { return EqualNoCase(extension, kind); });
}

bool modInstallUninstall::ExtractFile(const fs::path& GamFile, const fs::path& DestDir,
                                      const std::string& FileName, bool CheckOnly) {
    bool Result = true;
    Procedure(m_g.gErrHandler, "modInstallUninstall:ExtractFile", [&] {
        try {
            Archive& archive = Opened(FindFile(GamFile.parent_path(), GamFile.filename().string()));
            const std::optional<std::size_t> entry = archive.FindFirst(FileName);
            if (CheckOnly)
                Result = entry.has_value();
            else if (entry)
                WriteEntry(DestDir, archive.Names()[*entry], archive.Read(*entry));
        } catch (const std::exception& failure) {
            Result = false;
            SaveXmlLog(GamFile, FileName, failure.what());
            throw;
        }
    });
    return Result;
}

Archive& modInstallUninstall::Opened(const fs::path& GamFile) {
    if (!m_archive || !m_archive->IsCurrent(GamFile)) m_archive = std::make_unique<Archive>(GamFile);
    return *m_archive;
}

bool modInstallUninstall::InstallGame(const std::string& Name) {
    bool Result = false;
    Procedure(m_g.gErrHandler, "modInstallUninstall:InstallGame", [&] {
        // This names a file beside the data directory, so nothing comes of it: the settings file is there
        // from the list that the user chose from.
        ExtractFile(m_g.AppDir.string() + ".gam", m_g.AppDir, Name + ".dat", false);
        InstallGameSettings(Name);
        CleanupGameFiles();
        Result = true;
    });
    return Result;
}

bool modInstallUninstall::InstallGameSettings(const std::string& Name) {
    bool Result = false;
    Procedure(m_g.gErrHandler, "modInstallUninstall:InstallGameSettings", [&] {
        for (const auto& [setting, value] : EffectiveSettings(LinesOf(m_g.AppDir / (Name + ".dat"))))
            m_g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, GameKeyPath(Name),
                                             std::string(setting->ValueName), value, setting->ValueType);
        Result = true;
    });
    return Result;
}

void modInstallUninstall::InstallableGames(const std::vector<std::string>& Games,
                                           std::vector<std::string>& Names, std::vector<std::string>& Keys) {
    Procedure(m_g.gErrHandler, "modInstallUninstall:InstallableGames", [&] {
        for (const fs::path& file : FilesMatching(m_g.AppDir, "*.gam")) {
            const std::string name = TrimNull(file.filename().string());
            const std::string base = name.substr(0, name.size() - ExtensionLength);
            if (!IsNeverListed(base) && !AlreadyInstalled(Games, base)) AppendGame(base, Names, Keys);
        }
    });
}

void modInstallUninstall::AppendGame(const std::string& Base, std::vector<std::string>& Names,
                                     std::vector<std::string>& Keys) {
    ExtractFile(m_g.AppDir / (Base + ".gam"), m_g.AppDir, Base + ".dat", false);
    Keys.push_back(Base);
    Names.push_back(ExtractGameNameFromFile(m_g.AppDir / (Base + ".dat")));
}

bool modInstallUninstall::AlreadyInstalled(const std::vector<std::string>& Games, const std::string& Name) {
    return std::ranges::find(Games, Name) != Games.end();
}

std::string modInstallUninstall::ExtractGameNameFromFile(const fs::path& DatFile) {
    constexpr std::string_view beginning = "Game Name=";
    std::string Result;
    Procedure(m_g.gErrHandler, "modInstallUninstall:ExtractGameNameFromFile", [&] {
        const std::vector<std::string> lines = LinesOf(DatFile);
        const auto found =
            std::ranges::find_if(lines, [&](const std::string& line) { return line.starts_with(beginning); });
        if (found != lines.end()) Result = found->substr(beginning.size());
    });
    return Result;
}

bool modInstallUninstall::UninstallGame(const std::string& GameKey) {
    bool Result = false;
    Procedure(m_g.gErrHandler, "modInstallUninstall:UninstallGame", [&] {
        const std::string key = GameKeyPath(GameKey);
        const std::string savedGames = key + "\\Saved Games";
        std::vector<std::string> names;
        std::int32_t count = 0;
        m_g.Registry.RegistryEnumerateSubKeys(HKEY_LOCAL_MACHINE, savedGames, names, count);
        for (const std::string& name : names)
            m_g.Registry.RegistryDeleteKey(HKEY_LOCAL_MACHINE, savedGames + "\\" + name);
        m_g.Registry.RegistryDeleteKey(HKEY_LOCAL_MACHINE, savedGames);
        m_g.Registry.RegistryDeleteKey(HKEY_LOCAL_MACHINE, key);
        Result = true;
    });
    return Result;
}

void modInstallUninstall::CleanupGameDir() {
    Procedure(m_g.gErrHandler, "modInstallUninstall:CleanupGameDir", [&] {
        if (m_archive) m_archive->StopAhead();  // a load has ended: nobody takes the entries that come next
        for (const char* kind : UnpackedKinds) DeleteMatching(m_g.AppDir, kind, ErrorLog);
    });
}

void modInstallUninstall::CleanupGameFiles() {
    Procedure(m_g.gErrHandler, "modInstallUninstall:CleanupGameFiles",
              [&] { DeleteMatching(m_g.AppDir, "{*}.dat"); });
}

std::string modInstallUninstall::TrimNull(const std::string& Text) {
    m_g.gErrHandler.Push("modInstallUninstall:TrimNull");
    if (Text.find('\0') != Text.npos) return TrimAtNul(Text);
    m_g.gErrHandler.Pop();
    return Text;
}

void modInstallUninstall::SaveXmlLog(const fs::path& GamFile, const std::string& FileName, const char* Why) {
    const std::string log = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<log>\n  <archive>" +
                            XmlText(GamFile.filename().string()) + "</archive>\n  <asked>" +
                            XmlText(FileName) + "</asked>\n  <failure>" + XmlText(Why) +
                            "</failure>\n</log>\n";
    const fs::path folder = m_g.AppDir / LogFolder;
    std::error_code ignored;
    fs::create_directory(folder, ignored);
    try {
        WriteFile(folder / "log.xml", log);
    } catch (const Failure&) {
        // The failure that brought us here is the one to report.
    }
}

}  // namespace tabulon

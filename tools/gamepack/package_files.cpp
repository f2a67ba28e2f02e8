#include "gamepack/package_files.h"

#include <algorithm>
#include <tuple>

#include "packages/archive.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

namespace tabulon::gamepack {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view KeyForm = "{00000000-0000-0000-0000-000000000000}";

[[noreturn]] void Refuse(const std::string& why) { throw Failure(FailureNumber::FileIoError, why); }

std::string Lowered(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text;
}

/// Without case, so that "cards1.xml" comes before "Cards1.xml.old": the Player takes the first one that
/// fits.
auto OrderOf(const PackedFile& file) {
    return std::tuple(!IsSettingsFile(file), Lowered(file.Name), file.Name);
}

PackedFile ReadEntry(const fs::path& path) {
    const std::string name = path.filename().string();
    if (!IsBareFileName(name)) Refuse("\"" + name + "\" cannot be a name in a package. Rename the file.");
    if (!FileExists(path))
        Refuse("\"" + name + "\" is no file, and a package holds nothing else. Move it out of the folder.");
    if (fs::file_size(path) > limits::EntryBytes)
        Refuse("\"" + name + "\" is larger than the 64 MB that a file in a package may have.");
    return {name, ReadFile(path, limits::EntryBytes)};
}

void CheckSizes(const std::vector<PackedFile>& files) {
    std::uint64_t whole = 0;
    for (const PackedFile& file : files) whole += file.Bytes.size();
    if (whole > limits::ArchiveBytes) Refuse("The files have more than the 512 MB that a package may hold.");
}

void CheckNames(const std::vector<PackedFile>& files) {
    if (files.size() > limits::ArchiveEntries) Refuse("There are too many files for a package.");
    for (std::size_t i = 1; i < files.size(); ++i)
        if (EqualNoCase(files[i - 1].Name, files[i].Name))
            Refuse("\"" + files[i - 1].Name + "\" and \"" + files[i].Name +
                   "\" differ in case only, which is one name to the Player. Rename one of them.");
}

}  // namespace

const PackedFile* PackageFiles::Find(std::string_view name) const {
    const auto found = std::ranges::find_if(Files, [&](const PackedFile& file) {
        return EqualNoCase(std::string_view(file.Name).substr(0, name.size()), name);
    });
    return found == Files.end() ? nullptr : &*found;
}

PackageFiles ReadFolder(const fs::path& folder) {
    if (!fs::is_directory(folder)) Refuse("There is no folder " + folder.string() + ".");
    PackageFiles files;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (!entry.path().filename().string().starts_with('.'))
            files.Files.push_back(ReadEntry(entry.path()));
    std::ranges::sort(files.Files, {}, OrderOf);
    CheckNames(files.Files);
    CheckSizes(files.Files);
    return files;
}

PackageFiles ReadPackage(const fs::path& file) {
    if (!FileExists(file)) Refuse("There is no such file.");
    Archive archive(file);
    if (archive.Names().empty()) Refuse("It is no package: no file in it can be read.");
    PackageFiles files{file.stem().string(), {}};
    for (std::size_t i = 0; i < archive.Names().size(); ++i)
        files.Files.push_back({archive.Names()[i], archive.Read(i)});
    return files;
}

bool IsSettingsFile(const PackedFile& file) {
    return EqualNoCase(std::filesystem::path(file.Name).extension().string(), ".dat");
}

bool IsGameKey(std::string_view key) {
    return std::ranges::equal(key, KeyForm, [](char c, char form) {
        const bool digit = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
        return form == '0' ? digit : c == form;
    });
}

}  // namespace tabulon::gamepack

#include "gamepack/commands.h"

#include <algorithm>
#include <filesystem>
#include <iomanip>

#include "gamepack/check.h"
#include "gamepack/package_files.h"
#include "platform/text.h"

namespace tabulon::gamepack {

namespace {

namespace fs = std::filesystem;

constexpr int Done = 0, Unusable = 1, WrongArguments = 2;

constexpr const char* Help =
    "tabulon-gamepack makes and examines packages of the Tabulon Player.\n"
    "\n"
    "  tabulon-gamepack pack FOLDER FILE.gam    pack the files of FOLDER; hidden files are left out\n"
    "  tabulon-gamepack list FILE.gam           show what is in a package\n"
    "  tabulon-gamepack check FOLDER|FILE.gam   look for what would go wrong in play\n"
    "  tabulon-gamepack --help | --version\n"
    "\n"
    "Sound archives (.snd) are packed and listed in the same way.\n"
    "Exit status: 0 done, 1 a file or game cannot be used (check: has errors), 2 wrong arguments.\n";

bool IsGamePackage(const fs::path& file) {
    return EqualNoCase(file.extension().string(), ".gam") && IsGameKey(file.stem().string());
}

int Refuse(std::ostream& err, const std::string& place, const std::string& why) {
    err << "tabulon-gamepack: " << place << ": " << why << "\n";
    return Unusable;
}

int Pack(const fs::path& folder, const fs::path& file, std::ostream& err) {
    const PackageFiles files = ReadFolder(folder);
    if (files.Files.empty()) return Refuse(err, folder.string(), "There is nothing to pack.");
    if (IsGamePackage(file) && std::ranges::none_of(files.Files, IsSettingsFile))
        return Refuse(err, folder.string(),
                      "A game needs its settings. Add a file \"" + file.stem().string() + ".dat\".");
    WriteArchive(file, files.Files);
    return Done;
}

int List(const fs::path& file, std::ostream& out) {
    for (const PackedFile& packed : ReadPackage(file).Files)
        out << std::setw(10) << packed.Bytes.size() << "  " << packed.Name << "\n";
    return Done;
}

int Check(const fs::path& target, std::ostream& out) {
    const Findings findings = CheckGame(fs::is_directory(target) ? ReadFolder(target) : ReadPackage(target));
    for (const std::string& line : findings.Lines()) out << line << "\n";
    out << target.string() << ": " << findings.Summary() << "\n";
    return findings.HasErrors() ? Unusable : Done;
}

int RunCommand(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    const std::string command = arguments.empty() ? "" : arguments[0];
    const std::size_t operands = arguments.empty() ? 0 : arguments.size() - 1;
    if (command == "pack" && operands == 2) return Pack(arguments[1], arguments[2], err);
    if (command == "list" && operands == 1) return List(arguments[1], out);
    if (command == "check" && operands == 1) return Check(arguments[1], out);
    if (command == "--help" && operands == 0) return (out << Help, Done);
    if (command == "--version" && operands == 0)
        return (out << "tabulon-gamepack " TABULON_VERSION "\n", Done);
    err << Help;
    return WrongArguments;
}

}  // namespace

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    try {
        return RunCommand(arguments, out, err);
    } catch (const std::exception& failure) {
        return Refuse(err, arguments.back(), failure.what());
    }
}

}  // namespace tabulon::gamepack

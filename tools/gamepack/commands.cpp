#include "gamepack/commands.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <functional>
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

using Operands = std::vector<std::string>;

void AddCommand(CLI::App& app, const char* name, int operands,
                const std::function<void(const Operands&)>& run) {
    CLI::App* command = app.add_subcommand(name);
    const CLI::Option* given = command->add_option("operands")->expected(operands)->required();
    command->callback([given, run] { run(given->results()); });
}

}  // namespace

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    int status = Done;
    CLI::App app;
    app.require_subcommand(1);
    app.set_help_flag("--help");
    app.set_version_flag("--version", "tabulon-gamepack " TABULON_VERSION);
    app.formatter_fn([](const CLI::App*, const std::string&, CLI::AppFormatMode) { return Help; });
    AddCommand(app, "pack", 2, [&](const Operands& given) { status = Pack(given[0], given[1], err); });
    AddCommand(app, "list", 1, [&](const Operands& given) { status = List(given[0], out); });
    AddCommand(app, "check", 1, [&](const Operands& given) { status = Check(given[0], out); });
    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        return status;
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0 && arguments.size() == 1) return app.exit(error, out, err);
        err << Help;
        return WrongArguments;
    } catch (const std::exception& failure) {
        return Refuse(err, arguments.back(), failure.what());
    }
}

}  // namespace tabulon::gamepack

#include "info/HTMLHelp.h"

#include "platform/files.h"
#include "platform/text.h"

namespace tabulon {

void HTMLHelp::HHDisplayIndex() {
    try {
        Open();
    } catch (const Failure& failure) {
        ShowMessage("Error " + std::to_string(failure.Number()) + ": " + failure.Description());
    }
}

void HTMLHelp::Open() {
    if (!EqualNoCase(std::filesystem::path(CHMFile).extension().string(), ".chm")) {
        ShowMessage(CHMFile + " is not a valid HTML Help file.");
        return;
    }
    if (!EnsureFileExists(CHMFile)) return;
    const std::filesystem::path viewer = m_g.Application.Executable.parent_path() / "tabulon-help";
    if (!FileExists(viewer)) {
        ShowMessage("The help viewer is not installed.\r\nPlease install the " + m_g.Application.ProductName +
                    " again.");
        return;
    }
    m_g.Shell.StartCompanion(viewer, {Find(CHMFile).string()});
}

bool HTMLHelp::EnsureFileExists(const std::string& File) {
    if (!Find(File).empty()) return true;
    ShowMessage("The file " + File +
                " does not exist.\r\nPlease make sure the correct path and file name have been specified.");
    return false;
}

std::filesystem::path HTMLHelp::Find(const std::string& File) const {
    const std::filesystem::path path(File);
    return FindFile(path.has_parent_path() ? path.parent_path() : m_g.Application.ShareDir,
                    path.filename().string());
}

void HTMLHelp::ShowMessage(const std::string& text) {
    m_g.TheScreen.MsgBox(text, BoxIcon::Exclamation, BoxButtons::Ok, "HTML Help Class");
}

}  // namespace tabulon

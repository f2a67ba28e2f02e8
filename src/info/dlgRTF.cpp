#include "info/dlgRTF.h"

#include "info/rich_text.h"
#include "platform/files.h"
#include "platform/text.h"
#include "presentation/modRepositioner.h"
#include "presentation/text_fitting.h"

namespace tabulon {

namespace {

/// A file that goes with the object. The log of failures stays, whatever a game calls its help.
class UnpackedFile {
  public:
    UnpackedFile(std::filesystem::path folder, std::string name)
        : m_folder(std::move(folder)), m_name(std::move(name)) {}
    ~UnpackedFile() {
        std::error_code ignored;
        if (!EqualNoCase(m_name, ErrorLog)) std::filesystem::remove(FindFile(m_folder, m_name), ignored);
    }
    UnpackedFile(const UnpackedFile&) = delete;
    UnpackedFile& operator=(const UnpackedFile&) = delete;

  private:
    std::filesystem::path m_folder;
    std::string m_name;
};

}  // namespace

DlgRTF::DlgRTF(Globals& g, modInstallUninstall& packages)
    : Form(g.TheScreen, "dlgRTF"), m_g(g), m_packages(packages) {
    cmdDummy.OutOfSight = true;
    rtbUserHelp.Click = [this] { cmdDummy.SetFocus(); };
    cmdClose.Click = cmdDummy.Click = [this] { Hide(); };
    KeyDown = [this](int code, int) { return Form_KeyDown(code); };
}

void DlgRTF::Design() {
    Caption = "Game Help";
    rtbUserHelp.Content.clear();
    rtbUserHelp.Paragraphs.clear();
    rtbUserHelp.AccessibleName = "Help text";
    cmdClose.Caption = "&Close";
}

void DlgRTF::RepositionElements() {
    Procedure(m_g.gErrHandler, "dlgRTF:RepositionElements", [&] {
        PositionForm(m_g, *this, 380, 308, 0);
        PositionObjects(m_g, {{&rtbUserHelp, 8, 8, 364, 246, 11, 9}, {&cmdClose, 135, 262, 110, 38, 12, 10}});
    });
}

void DlgRTF::ShowGameHelp(const std::shared_ptr<CGame>& oGame, bool& Ok) {
    Procedure(m_g.gErrHandler, "dlgRTF:ShowGameHelp", [&] {
        Load();
        RepositionElements();
        Game = oGame;
        Ok = true;
        SetFormObjectFonts(m_g, *this, Game->Font, Game->FontSize);
        m_packages.ExtractFile(m_g.AppDir / (Game->GameDirectory + ".gam"), m_g.AppDir, Game->HelpFile,
                               false);
        const UnpackedFile unpacked(m_g.AppDir, Game->HelpFile);
        LoadText(FindFile(m_g.AppDir, Game->HelpFile));
        cmdDummy.SetFocus();
        ShowModal();
        Game.reset();
        Unload();
    });
}

void DlgRTF::LoadText(const std::filesystem::path& file) {
    if (file.empty()) throw Failure(FailureNumber::FileNotFound);
    const std::string bytes = ReadFile(file, limits::HelpTextBytes);
    if (IsRichText(bytes))
        rtbUserHelp.Paragraphs = ReadRichText(bytes);
    else
        rtbUserHelp.Content = ToUtf8(bytes);
}

bool DlgRTF::Form_KeyDown(int KeyCode) {
    const bool closes =
        KeyCode == Key::Escape || KeyCode == Key::Enter || KeyCode == Key::Space || KeyCode == Key::C;
    if (closes) Hide();
    return closes;
}

}  // namespace tabulon

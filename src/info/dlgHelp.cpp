#include "info/dlgHelp.h"

#include "content/required.h"
#include "diagnostics/product_settings.h"
#include "info/HTMLHelp.h"
#include "platform/files.h"
#include "platform/modBrowser.h"
#include "platform/text.h"
#include "presentation/modRepositioner.h"
#include "presentation/text_fitting.h"

namespace tabulon {

namespace {

enum Entry { GameHelp, Review, PlayerHelp, Tip, Updates, OwnGames, Close };

/// Not the access keys of all captions.
struct EntryKey {
    int KeyCode;
    Entry Index;
};

constexpr EntryKey EntryKeys[] = {{Key::Escape, Close}, {Key::C, Close},      {Key::G, GameHelp},
                                  {Key::R, Review},     {Key::P, PlayerHelp}, {Key::I, Tip},
                                  {Key::U, Updates},    {Key::T, OwnGames}};

constexpr const char* Captions[] = {
    "&Game Help",         "Submit a &review of this Game", "Player &Help", "T&ip of the Day",
    "Check for &Updates", "&Want to make your own games?", "&Close"};

constexpr const char* Pictures[] = {"buttons/book",   "buttons/review", "buttons/help",  "buttons/tip",
                                    "buttons/update", "buttons/make",   "buttons/cancel"};

constexpr char DefaultHelp[] = "DEFAULT";
constexpr char UnreadFolder[] = "unread";
constexpr std::size_t ExtensionLength = 3;

bool HasExtension(std::string_view file, std::string_view extension) {
    return file.size() >= ExtensionLength &&
           EqualNoCase(file.substr(file.size() - ExtensionLength), extension);
}

}  // namespace

DlgHelp::DlgHelp(Globals& g, MainForm& frmMain, modInstallUninstall& packages, DlgRTF& dlgRTF,
                 DlgTipOfTheDay& dlgTipOfTheDay)
    : Form(g.TheScreen, "dlgHelp"),
      m_g(g),
      m_frmMain(frmMain),
      m_packages(packages),
      m_dlgRTF(dlgRTF),
      m_dlgTipOfTheDay(dlgTipOfTheDay) {
    for (int i = GameHelp; i <= Close; ++i) cmdHelp[i].Click = [this, i] { cmdHelp_Click(i); };
    cmdFakeClose.OutOfSight = true;
    cmdFakeClose.TabStop = false;
    cmdFakeClose.Click = [this] { cmdHelp_Click(Close); };
    // An access key has acted by the time that it goes up.
    KeyUp = [this](int code, int shift) { return shift != Key::Alt && Form_KeyUp(code); };
}

void DlgHelp::Design() {
    Caption = "Help";
    for (int i = GameHelp; i <= Close; ++i) {
        cmdHelp[i].Caption = Captions[i];
        cmdHelp[i].Picture = Picture::Product(Pictures[i]);
        cmdHelp[i].Enabled = true;
    }
    cmdFakeClose.Caption = Captions[Close];
}

void DlgHelp::RepositionElements() {
    Procedure(m_g.gErrHandler, "dlgHelp:RepositionElements", [&] {
        PositionForm(m_g, *this, 615, 381, 0);
        for (int i = GameHelp; i < Close; ++i)
            PositionObjects(m_g, {{&cmdHelp[i], 20 + i / 3 * 295, 20 + i % 3 * 84, 280, 72, 12, 10}});
        PositionObjects(m_g, {{&cmdHelp[Close], 167, 286, 281, 72, 12, 10}});
    });
}

void DlgHelp::SetUp(const std::shared_ptr<CGame>& oGame) {
    Procedure(m_g.gErrHandler, "dlgHelp:SetUp", [&] {
        Game = oGame;
        Load();
        if (FormInitOK()) {
            ShowModal();
        } else {
            Unload();
        }
    });
}

bool DlgHelp::FormInitOK() {
    bool Result = false;
    Procedure(m_g.gErrHandler, "dlgHelp:FormInitOK", [&] {
        const CGame& game = Required(Game);
        RepositionElements();
        SetFormObjectFonts(m_g, *this, game.Font, game.FontSize);
        if (game.HelpFile.empty()) cmdHelp[GameHelp].Enabled = false;
        Result = true;
    });
    return Result;
}

bool DlgHelp::Form_KeyUp(int KeyCode) {
    bool acted = false;
    Procedure(m_g.gErrHandler, "dlgHelp:Form_KeyUp", [&] {
        for (const EntryKey& key : EntryKeys) {
            if (key.KeyCode != KeyCode || (key.Index == GameHelp && !cmdHelp[GameHelp].Enabled)) continue;
            acted = true;
            cmdHelp_Click(key.Index);
        }
    });
    return acted;
}

void DlgHelp::cmdHelp_Click(int Index) {
    Procedure(m_g.gErrHandler, "dlgHelp:cmdHelp_Click", [&] {
        switch (Index) {
            case GameHelp:
                ShowGameHelp();
                break;
            case Review:
                OpenPage("/scripts/review01.php?gid=" + m_frmMain.GameDirectory);
                break;
            case PlayerHelp:
                ShowHTMLHelp("TabPlayer.chm", false);
                break;
            case Tip:
                ShowTip();
                break;
            case Updates:
                OpenPage("/download.php");
                break;
            case OwnGames:
                OpenPage("/index.html");
                break;
            case Close:
                Unload();
                break;
            default:
                break;
        }
    });
}

void DlgHelp::ShowGameHelp() {
    Hide();
    const std::string& file = Required(Game).HelpFile;
    if (file == DefaultHelp || file.empty() || file == " ")
        ShowDefaultHelp();
    else
        ShowGameHelpFile();
    ShowModal();
}

void DlgHelp::ShowDefaultHelp() {
    m_packages.ExtractFile(m_g.Application.ShareDir / "defobjs.gam", m_g.AppDir, "*.txt", false);
    Game->HelpFile = "DEFAULT.TXT";
    bool ok = false;
    m_dlgRTF.ShowGameHelp(Game, ok);
    Game->HelpFile = DefaultHelp;
}

void DlgHelp::ShowGameHelpFile() {
    const std::string& file = Game->HelpFile;
    bool ok = false;
    if (HasExtension(file, "RTF") || HasExtension(file, "TXT")) m_dlgRTF.ShowGameHelp(Game, ok);
    if (HasExtension(file, "CHM")) ShowHTMLHelp(file, true);
    if (HasExtension(file, "HLP")) ShowWinHelp(file);
}

// Who asks for a tip wants tips again.
void DlgHelp::ShowTip() {
    Hide();
    m_g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, ProductKey, "Player Tip Status", std::string("On"),
                                     REG_SZ);
    bool ok = false;
    m_dlgTipOfTheDay.TipOfTheDay(ok);
    ShowModal();
}

void DlgHelp::OpenPage(const std::string& page) {
    OpenInBrowser(m_g.Shell, m_g.gErrHandler, ProductSetting(m_g, "WebSite", m_g.Application.WebSite) + page);
}

// The game's file is unpacked for the Player's own help too. Nobody reads it then, so it goes again at once;
// and it never lies beside the program, whose files it could replace.
void DlgHelp::ShowHTMLHelp(const std::string& FileName, bool IsGameHelp) {
    Procedure(m_g.gErrHandler, "dlgHelp:ShowHTMLHelp", [&] {
        const CGame& game = Required(Game);
        const std::filesystem::path folder = IsGameHelp ? GameFolder() : m_g.AppDir / UnreadFolder;
        std::error_code ignored;
        std::filesystem::create_directory(folder, ignored);
        if (!game.HelpFile.empty())
            m_packages.ExtractFile(m_g.AppDir / (game.GameDirectory + ".gam"), folder, game.HelpFile, false);
        if (!IsGameHelp) std::filesystem::remove_all(folder, ignored);
        HTMLHelp help(m_g);
        help.CHMFile = ((IsGameHelp ? folder : m_g.Application.ShareDir) / FileName).string();
        help.HHDisplayIndex();
    });
}

void DlgHelp::ShowWinHelp(const std::string& FileName) {
    Procedure(m_g.gErrHandler, "dlgHelp:ShowWinHelp", [&] {
        m_g.TheScreen.MsgBox(
            "The help of this game, " + FileName +
                ", is in an older format that cannot be shown on this computer.\r\n\r\nThe Player's "
                "own help explains how to play any game.",
            BoxIcon::Information, BoxButtons::Ok, m_g.Application.Title);
    });
}

std::filesystem::path DlgHelp::GameFolder() {
    const std::string& key = Required(Game).GameDirectory;
    if (!IsBareFileName(key)) throw Failure(FailureNumber::PathNotFound);
    const std::filesystem::path folder = m_g.AppDir / key;
    std::error_code trouble;
    std::filesystem::create_directory(folder, trouble);
    if (trouble) throw Failure(FailureNumber::PermissionDenied);
    return folder;
}

}  // namespace tabulon

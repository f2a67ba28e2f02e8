#include "info/dlgTipOfTheDay.h"

#include "platform/numbers.h"
#include "platform/text.h"
#include "presentation/modRepositioner.h"

namespace tabulon {

namespace {

constexpr int IdOffset = 100;
constexpr std::int32_t LongestTip = 255;

}  // namespace

DlgTipOfTheDay::DlgTipOfTheDay(Globals& g) : Form(g.TheScreen, "dlgTipOfTheDay"), m_g(g), m_resources(g) {
    cmdFakeClose.OutOfSight = cmdFakeNext.OutOfSight = true;
    cmdFakeClose.TabStop = cmdFakeNext.TabStop = false;
    cmdBack.Click = [this] { cmdBack_Click(); };
    cmdNext.Click = cmdFakeNext.Click = [this] { cmdNext_Click(); };
    cmdClose.Click = cmdFakeClose.Click = [this] { cmdClose_Click(); };
    KeyDown = [this](int code, int shift) { return ProcessButtonCode(code, shift); };
}

void DlgTipOfTheDay::Design() {
    Caption = "Tip of the Day";
    lblTitle.Caption = "Tabulon Player Tip of the Day";
    Background = Picture::Product("product/tip");
    lblTitle.Font.Bold = true;
    lblTipText.ForeColor = TextOnPaper;
    lblTipText.Caption.clear();
    cmdBack.Caption = "&Back";
    cmdBack.ToolTipText = "The tip before this one";
    cmdNext.Caption = cmdFakeNext.Caption = "&Next";
    cmdNext.ToolTipText = "One more tip";
    cmdClose.Caption = cmdFakeClose.Caption = "&Close";
    cmdClose.ToolTipText = "Go and play";
    lblNoMoreTips.Caption = "&No More Tips";
    chkShowTipsAtStartup.Value = false;
    chkShowTipsAtStartup.AccessibleName = "No more tips";
    chkShowTipsAtStartup.ToolTipText = "Start without tips from now on";
}

void DlgTipOfTheDay::RepositionElements() {
    Procedure(m_g.gErrHandler, "dlgTipOfTheDay:RepositionElements", [&] {
        PositionForm(m_g, *this, 594, 438, 0);
        PositionObjects(m_g, {{&lblTitle, 32, 24, 530, 40, 18, 14},
                              {&lblTipText, 36, 88, 404, 222, 16, 13},
                              {&chkShowTipsAtStartup, 32, 336, 24, 24},
                              {&lblNoMoreTips, 62, 336, 300, 26, 12, 10},
                              {&cmdBack, 132, 378, 140, 44, 14, 12},
                              {&cmdNext, 280, 378, 140, 44, 14, 12},
                              {&cmdClose, 428, 378, 140, 44, 14, 12}});
    });
}

void DlgTipOfTheDay::TipOfTheDay(bool& Ok) {
    Procedure(m_g.gErrHandler, "dlgTipOfTheDay:TipOfTheDay", [&] {
        Ok = true;
        Load();
        Hide();
        RepositionElements();
        TipStatus =
            ToText(m_g.Registry.RegistryGetKeyValue(HKEY_LOCAL_MACHINE, ProductKey, "Player Tip Status"));
        if (TipStatus.empty() || TipStatus == "On") FindTips();
        // Whatever the status: with tips on, each start passes over one of them.
        cmdNext_Click();
        ShowModal();
        Hide();
    });
}

void DlgTipOfTheDay::FindTips() {
    TipFile = (m_g.Application.ShareDir / "tips.txt").string();
    m_resources.EnumerateResources(*this, TipFile);
    CurrentTip =
        ToInteger(m_g.Registry.RegistryGetKeyValue(HKEY_LOCAL_MACHINE, ProductKey, "Last Player Tip"));
    cmdNext_Click();
}

void DlgTipOfTheDay::EnumResourceSink(const ResourceModule& /*Module*/, const std::string& ResourceName,
                                      const std::string& ResourceType, int& /*Cancel*/) {
    Procedure(m_g.gErrHandler, "dlgTipOfTheDay:IEnumResources_EnumResourceSink", [&] {
        const std::string_view type = ResourceTypeName(ToLong(std::string_view(ResourceType).substr(1)));
        if (type != "String-table entry" || ResourceName.empty()) return;
        MaxTipBlock = std::max(MaxTipBlock, ToInteger(std::string_view(ResourceName).substr(1)));
    });
}

void DlgTipOfTheDay::DisplayString(const std::string& ModuleFile, const std::string& StringId,
                                   std::int32_t MaxLength) {
    Procedure(m_g.gErrHandler, "dlgTipOfTheDay:DisplayString", [&] {
        const auto length = static_cast<std::size_t>(std::max(MaxLength, 0));
        std::string buffer(length, ' ');
        bool loaded = false;
        LoadModule(ModuleFile, loaded);
        if (loaded) {
            const std::string_view id = StringId;
            const std::int32_t number = ToLong(id.substr(id.starts_with('#') ? 1 : 0));
            const std::string text = LoadResourceString(TipModule, number);
            if (!text.empty()) buffer = FixLFs(tabulon::Left(text, length));
        }
        lblTipText.Caption = ReplaceAll(buffer, "\\n", "\r\n");
    });
}

void DlgTipOfTheDay::LoadModule(const std::string& ModuleFile, bool& Ok) {
    Procedure(m_g.gErrHandler, "dlgTipOfTheDay:LoadModule", [&] {
        ModuleLoadedHere = false;
        if (!TipModule || TipModule->File != ModuleFile) {
            TipModule = LoadResourceModule(ModuleFile);
            ModuleLoadedHere = TipModule != nullptr;
        }
        Ok = TipModule != nullptr;
    });
}

std::string DlgTipOfTheDay::FixLFs(const std::string& Text) {
    std::string Result = Text;
    Procedure(m_g.gErrHandler, "dlgTipOfTheDay:FixLFs", [&] {
        for (std::size_t i = Result.find('\n'); i != Result.npos; i = Result.find('\n', i + 1))
            if (i == 0 || Result[i - 1] != '\r') Result.replace(i, 1, "\r\n");
    });
    return Result;
}

void DlgTipOfTheDay::ShowCurrentTip() { DisplayString(TipFile, ToText(CurrentTip + IdOffset), LongestTip); }

void DlgTipOfTheDay::cmdNext_Click() {
    Procedure(m_g.gErrHandler, "dlgTipOfTheDay:cmdNext_Click", [&] {
        CurrentTip += 1;
        if (CurrentTip > MaxTipBlock - IdOffset) CurrentTip = 1;
        ShowCurrentTip();
    });
}

void DlgTipOfTheDay::cmdBack_Click() {
    Procedure(m_g.gErrHandler, "dlgTipOfTheDay:cmdBack_Click", [&] {
        CurrentTip = CurrentTip == 1 ? MaxTipBlock - IdOffset : CurrentTip - 1;
        ShowCurrentTip();
    });
}

void DlgTipOfTheDay::cmdClose_Click() {
    Procedure(m_g.gErrHandler, "dlgTipOfTheDay:cmdClose_Click", [&] {
        const std::string status = chkShowTipsAtStartup.Value ? "Off" : "On";
        m_g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, ProductKey, "Player Tip Status", status, REG_SZ);
        m_g.Registry.RegistrySetKeyValue(HKEY_LOCAL_MACHINE, ProductKey, "Last Player Tip",
                                         std::int32_t{CurrentTip.Value()}, REG_DWORD);
        m_g.TheScreen.FlushKeys();
        Hide();
    });
}

bool DlgTipOfTheDay::ProcessButtonCode(int KeyCode, int /*Shift*/) {
    bool acted = true;
    Procedure(m_g.gErrHandler, "dlgTipOfTheDay:ProcessButtonCode", [&] {
        switch (KeyCode) {
            case Key::M:
                chkShowTipsAtStartup.Value = !chkShowTipsAtStartup.Value;
                break;
            case Key::B:
                cmdBack_Click();
                break;
            case Key::N:
                cmdNext_Click();
                break;
            case Key::C:
            case Key::Escape:
                cmdClose_Click();
                break;
            default:
                acted = false;
        }
    });
    return acted;
}

void DlgTipOfTheDay::Form_Unload() {
    Procedure(m_g.gErrHandler, "dlgTipOfTheDay:Form_Unload", [&] { TipModule.reset(); });
}

}  // namespace tabulon

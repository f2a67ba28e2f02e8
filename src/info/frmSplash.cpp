#include "info/frmSplash.h"

#include "platform/files.h"
#include "platform/numbers.h"
#include "platform/text.h"
#include "presentation/modRepositioner.h"
#include "presentation/text_fitting.h"

namespace tabulon {

FrmSplash::FrmSplash(Globals& g, modInstallUninstall& packages)
    : Form(g.TheScreen, "frmSplash"), m_g(g), m_packages(packages) {
    Frame = WindowFrame::None;
}

void FrmSplash::Design() {
    Caption = m_g.Application.Title;
    const float x = m_g.TheScreen.TwipsPerPixelX();
    const float y = m_g.TheScreen.TwipsPerPixelY();
    Width = 800 * x;
    Height = 600 * y;
    cTransPictureBox1.Picture = Picture::Product("product/game-splash");
    cTransPictureBox1.Move(0, 0, 800 * x, 600 * y);
    imgUserSplash.Picture = Picture::Product("product/splash-default");
    imgUserSplash.Move(180 * x, 150 * y, 440 * x, 275 * y);
    lblGameName.Move(56 * x, 34 * y, 688 * x, 110 * y);
    lblAuthor.Move(24 * x, 436 * y, 752 * x, 46 * y);
    lblAgeRange.Move(24 * x, 490 * y, 752 * x, 30 * y);
    lblPreferredResolution.Move(24 * x, 524 * y, 752 * x, 30 * y);
    lblGameName.Font.Size = 60;
    lblAuthor.Font.Size = 30;
    lblAgeRange.Font.Size = lblPreferredResolution.Font.Size = 18;
    for (Label* label : {&lblGameName, &lblAuthor, &lblAgeRange, &lblPreferredResolution}) {
        label->Centred = true;
        label->Visible = true;
    }
}

void FrmSplash::RepositionObjects() {
    Procedure(m_g.gErrHandler, "frmSplash:RepositionObjects", [&] {
        if (m_g.SmallFonts) return;
        lblGameName.Font.Size = 48;
        lblAuthor.Font.Size = 24;
        lblAgeRange.Font.Size = lblPreferredResolution.Font.Size = 14;
    });
}

void FrmSplash::SetUp(CGame& game) {
    Procedure(m_g.gErrHandler, "frmSplash:SetUp", [&] {
        Load();
        RepositionObjects();
        if (!game.Splash.empty()) LoadSplash(game.GameDirectory, game.Splash);
        lblGameName.Caption = ProcAmpersand(game.GameName);
        lblAuthor.Caption = game.Author;
        ShowAgeRange(ToLong(game.LowerAgeRange()), ToLong(game.UpperAgeRange()));
        ShowResolution(game.PreferredResolution);
        SetFormObjectFonts(m_g, *this, game.Font, game.FontSize);
        for (const char* pattern : {"*.bmp", "*.jpg", "*.gif"}) DeleteMatching(m_g.AppDir, pattern);
        Show();
    });
}

void FrmSplash::LoadSplash(const std::string& gameDirectory, const std::string& splash) {
    m_splash = splash;
    const bool byDefault = splash == "DEFAULT";
    const std::string file = byDefault ? "DEFAULT.BMP" : splash;
    if (byDefault) {
        m_packages.ExtractFile(m_g.Application.ShareDir / "defobjs.gam", m_g.AppDir, "default.bmp", false);
    } else {
        m_packages.ExtractFile(m_g.AppDir / (gameDirectory + ".gam"), m_g.AppDir, splash, false);
    }
    imgUserSplash.Picture = m_g.TheScreen.LoadPicture(FindFile(m_g.AppDir, file));
}

void FrmSplash::ShowAgeRange(int lower, int upper) {
    lblAgeRange.Visible = lower >= 1;
    if (lower < 1) return;
    lblAgeRange.Caption = "Recommended for ages " + ToText(lower);
    lblAgeRange.Caption += upper < 1 ? " and up." : " to " + ToText(upper) + ".";
}

void FrmSplash::ShowResolution(const std::string& resolution) {
    lblPreferredResolution.Visible = !resolution.empty();
    if (!resolution.empty())
        lblPreferredResolution.Caption = "Best viewed with " + resolution + " resolution.";
}

// However many ampersands stood in a row, the label shows one.
std::string FrmSplash::ProcAmpersand(std::string Text) {
    Procedure(m_g.gErrHandler, "frmSplash:ProcAmpersand", [&] {
        while (Text.find("&&") != std::string::npos) Text = ReplaceAll(Text, "&&", "&");
        Text = DoubleAmpersands(Text);
    });
    return Text;
}

}  // namespace tabulon

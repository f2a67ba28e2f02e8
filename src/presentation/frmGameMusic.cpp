#include "presentation/frmGameMusic.h"

namespace tabulon {

namespace {

constexpr int SettleMilliseconds = 50;

}  // namespace

FrmGameMusic::FrmGameMusic(Globals& g, modInstallUninstall& packages)
    : Form(g.TheScreen, "frmGameMusic"), m_g(g), m_files(g, packages) {}

void FrmGameMusic::PlayGameMusic(const std::string& genre, const std::string& file, bool loopIt) {
    Procedure(m_g.gErrHandler, "frmGameMusic:PlayGameMusic", [&] {
        if (!m_g.SoundOn) return;
        Genre = genre == "random" ? RandomGenre() : genre;
        File = file;
        LoopIt = loopIt;
        if (SoundStarts) SoundStarts(Genre, File, LoopIt);
        if (Genre.empty()) return;
        m_files.GetOggFile(Genre, File);
        if (m_g.Player.Status() == "playing") m_g.Player.Stop();
        m_g.Player.SetLoop(LoopIt);
        m_g.Player.Play(m_files.PathOf(File));
    });
}

void FrmGameMusic::StopGameMusic() {
    Procedure(m_g.gErrHandler, "frmGameMusic:StopGameMusic", [&] {
        if (SoundStops) SoundStops();
        m_g.TheScreen.Sleep(SettleMilliseconds);
        m_g.Player.Stop();
        m_files.CleanUpOggFiles();
    });
}

std::string FrmGameMusic::RandomGenre() {
    std::string genre;
    Procedure(m_g.gErrHandler, "frmGameMusic:RandomGenre", [&] {
        m_g.Random.Randomize();
        // Five of the six genres: "latin" plays only in games that ask for it.
        constexpr const char* genres[] = {"jazz", "kids", "orchestral", "rock", "techno"};
        genre = genres[m_g.Random.Draw(5, 0)];
    });
    return genre;
}

void FrmGameMusic::Form_QueryUnload(bool& /*Cancel*/) {
    Procedure(m_g.gErrHandler, "frmGameMusic:Form_QueryUnload", [&] { m_g.Player.Stop(); });
}

}  // namespace tabulon

#pragma once

#include <functional>
#include <string>

#include "presentation/modGameMusic.h"

namespace tabulon {

/// All sound of the program: one stream at a time, named by a genre and an event.
class FrmGameMusic : public Form {
  public:
    FrmGameMusic(Globals& g, modInstallUninstall& packages);

    /// "playing" while a sound runs.
    std::string Status() const { return m_g.Player.Status(); }
    /// With sound off it does nothing. The genre "random" is drawn afresh for each sound; an empty one is
    /// silent.
    void PlayGameMusic(const std::string& Genre, const std::string& File, bool LoopIt);
    /// Waits 50 milliseconds for the player to settle, stops it and removes the unpacked sounds.
    void StopGameMusic();

    std::string Genre;
    std::string File;
    bool LoopIt = false;

    /// For those who follow the course of a game.
    std::function<void(const std::string& Genre, const std::string& File, bool LoopIt)> SoundStarts;
    std::function<void()> SoundStops;

  protected:
    void Form_QueryUnload(bool& Cancel) override;

  private:
    std::string RandomGenre();

    Globals& m_g;
    modGameMusic m_files;
};

}  // namespace tabulon

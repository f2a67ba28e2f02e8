#pragma once

#include <filesystem>
#include <string>

namespace tabulon {

/// Plays one Ogg Vorbis stream at a time.
class OggPlayer {
  public:
    virtual ~OggPlayer() = default;

    /// "playing" while a stream sounds; any other text means that the player is idle.
    virtual std::string Status() const = 0;
    /// Ends the playing at once.
    virtual void Stop() = 0;
    /// The next stream repeats without end.
    virtual void SetLoop(bool loop) = 0;
    /// Starts a file and returns at once; what cannot be played is passed over.
    virtual void Play(const std::filesystem::path& file) = 0;
};

/// Makes no sound: a looped stream "plays" until it is stopped or replaced, another has ended at once.
class SilentOggPlayer final : public OggPlayer {
  public:
    std::string Status() const override { return m_playing ? "playing" : ""; }
    void Stop() override { m_playing = false; }
    void SetLoop(bool loop) override { m_loop = loop; }
    void Play(const std::filesystem::path&) override { m_playing = m_loop; }

  private:
    bool m_loop = false;
    bool m_playing = false;
};

}  // namespace tabulon

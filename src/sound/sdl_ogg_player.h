#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

#include "platform/ogg_player.h"

struct _Mix_Music;

namespace tabulon {

/// Plays through SDL. The device is opened beside the program, at the first sound; a sound waits for it and
/// counts as playing meanwhile. Where there is no device, and for a file that cannot be played, it stays
/// silent and idle. One for a process, which SDL's own state is for.
class SdlOggPlayer final : public OggPlayer {
  public:
    SdlOggPlayer() = default;
    ~SdlOggPlayer() override;
    SdlOggPlayer(const SdlOggPlayer&) = delete;
    SdlOggPlayer& operator=(const SdlOggPlayer&) = delete;

    std::string Status() const override;
    void Stop() override;
    void SetLoop(bool loop) override { m_loop = loop; }
    /// The file is read before this returns, and may go or change while it plays.
    void Play(const std::filesystem::path& file) override;

  private:
    struct MusicCloser {
        void operator()(_Mix_Music* music) const;
    };

    void OpenDevice();
    /// The rest needs m_mutex.
    void Start();
    void End();
    bool Sounds() const;
    static void CountFrames(void* player, std::uint8_t* samples, int size);

    bool m_loop = false;
    std::thread m_opening;
    mutable std::mutex m_mutex;
    bool m_opened = false;  // the attempt is over
    bool m_hasDevice = false;
    bool m_waits = false;    // for the device
    bool m_repeats = false;  // the sound that waits or plays
    std::string m_bytes;     // of it
    std::unique_ptr<_Mix_Music, MusicCloser> m_music;
    std::atomic<std::int64_t> m_frames{0};  // since it began
};

}  // namespace tabulon

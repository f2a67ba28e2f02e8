#define SDL_MAIN_HANDLED
#include "sound/sdl_ogg_player.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include "platform/failure.h"
#include "platform/files.h"
#include "sound/ogg_check.h"

namespace tabulon {

namespace {

constexpr int FramesPerSecond = 44100;
constexpr int Channels = 2;
constexpr int BytesPerFrame = Channels * 2;
/// A sound begins with the next buffer: this is 12 milliseconds.
constexpr int BufferFrames = 512;

/// Empty for what cannot be played.
std::string ReadSound(const std::filesystem::path& file) {
    try {
        const std::filesystem::path found = FindFile(file.parent_path(), file.filename().string());
        std::string bytes = found.empty() ? std::string() : ReadFile(found, limits::SoundBytes);
        return IsPlayable(bytes) ? bytes : std::string();
    } catch (const Failure&) {
        return {};
    }
}

bool OpenMixer() {
    SDL_SetMainReady();
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_APP_NAME, "Tabulon Player");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_ROLE, "game");
    return SDL_InitSubSystem(SDL_INIT_AUDIO) == 0 &&
           Mix_OpenAudioDevice(FramesPerSecond, AUDIO_S16SYS, Channels, BufferFrames, nullptr, 0) == 0;
}

}  // namespace

void SdlOggPlayer::MusicCloser::operator()(_Mix_Music* music) const { Mix_FreeMusic(music); }

SdlOggPlayer::~SdlOggPlayer() {
    Stop();
    if (!m_opening.joinable()) return;
    m_opening.join();
    if (m_hasDevice) {
        Mix_SetPostMix(nullptr, nullptr);
        Mix_CloseAudio();
    }
    Mix_Quit();
    SDL_Quit();
}

std::string SdlOggPlayer::Status() const {
    const std::lock_guard lock(m_mutex);
    return m_waits || Sounds() ? "playing" : "";
}

void SdlOggPlayer::Stop() {
    const std::lock_guard lock(m_mutex);
    End();
}

void SdlOggPlayer::Play(const std::filesystem::path& file) {
    std::string bytes = ReadSound(file);
    const std::lock_guard lock(m_mutex);
    End();
    if (bytes.empty() || (m_opened && !m_hasDevice)) return;
    m_bytes = std::move(bytes);
    m_repeats = m_loop;
    if (m_hasDevice) return Start();
    m_waits = true;
    if (!m_opening.joinable()) m_opening = std::thread([this] { OpenDevice(); });
}

void SdlOggPlayer::OpenDevice() {
    const bool opened = OpenMixer();
    const std::lock_guard lock(m_mutex);
    m_opened = true;
    m_hasDevice = opened;
    if (opened) Mix_SetPostMix(CountFrames, this);
    if (opened && m_waits) Start();
    m_waits = false;
    SDL_TLSCleanup();  // which SDL does for its own threads only
}

void SdlOggPlayer::Start() {
    m_frames = 0;
    m_music.reset(Mix_LoadMUSType_RW(SDL_RWFromConstMem(m_bytes.data(), static_cast<int>(m_bytes.size())),
                                     MUS_OGG, SDL_TRUE));
    if (m_music) Mix_PlayMusic(m_music.get(), m_repeats ? -1 : 1);
}

void SdlOggPlayer::End() {
    m_waits = false;
    m_music.reset();
}

/// A stream may claim to be shorter than it is, and dialogs wait for the end of some.
bool SdlOggPlayer::Sounds() const {
    const bool tooLong = !m_repeats && m_frames > std::int64_t{limits::SoundSeconds} * FramesPerSecond;
    return m_music && Mix_PlayingMusic() != 0 && !tooLong;
}

void SdlOggPlayer::CountFrames(void* player, std::uint8_t* /*samples*/, int size) {
    static_cast<SdlOggPlayer*>(player)->m_frames += size / BytesPerFrame;
}

}  // namespace tabulon

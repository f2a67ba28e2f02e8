#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>

#include "sound/tone.h"

namespace tabulon::test {

/// What came out of a device, from its opening on.
class Recording {
  public:
    explicit Recording(Samples samples) : m_samples(std::move(samples)) {}

    std::size_t Size() const { return m_samples.size(); }
    bool IsSilentFrom(std::size_t at) const {
        return std::all_of(m_samples.begin() + static_cast<std::ptrdiff_t>(std::min(at, Size())),
                           m_samples.end(), [](std::int16_t sample) { return sample == 0; });
    }
    /// How often the whole sound was heard, to the last bit of each sample.
    std::size_t Count(const Samples& sound) const {
        std::size_t count = 0;
        for (auto at = Find(m_samples.begin(), sound); at != m_samples.end(); at = Find(at, sound)) {
            at += static_cast<std::ptrdiff_t>(sound.size());
            ++count;
        }
        return count;
    }
    /// The sound once, and silence around it.
    bool IsOnly(const Samples& sound) const {
        const auto at = Find(m_samples.begin(), sound);
        return at != m_samples.end() && at == FirstSound() &&
               IsSilentFrom(static_cast<std::size_t>(at - m_samples.begin()) + sound.size());
    }
    /// The sound again and again with nothing between, the last time maybe cut off.
    bool AreTurnsOf(const Samples& sound) const {
        std::size_t next = 0;
        auto at = FirstSound();
        while (at != m_samples.end() && *at == sound[next]) {
            ++at;
            next = (next + 1) % sound.size();
        }
        return IsSilentFrom(static_cast<std::size_t>(at - m_samples.begin()));
    }

  private:
    using At = Samples::const_iterator;
    At Find(At from, const Samples& sound) const {
        return std::search(from, m_samples.end(), sound.begin(), sound.end());
    }
    At FirstSound() const {
        return std::find_if(m_samples.begin(), m_samples.end(), [](std::int16_t s) { return s != 0; });
    }

    Samples m_samples;
};

/// A sound device that writes down what it is given, some ten times as fast as a real one.
class Listener {
  public:
    static constexpr std::size_t BufferSamples = 1024;
    /// What may have been heard before it stands in the file.
    static constexpr std::size_t Unwritten = 8 * BufferSamples;

    explicit Listener(const std::filesystem::path& folder) : m_file(folder / "heard.raw") {
        Set("SDL_AUDIODRIVER", "disk");
        Set("SDL_DISKAUDIODELAY", "1");
        Set("SDL_DISKAUDIOFILE", m_file.c_str());
    }

    /// Before the first sound: no device opens.
    void TakeDeviceAway() { Set("SDL_DISKAUDIOFILE", (m_file / "nowhere").c_str()); }

    Recording Heard() const {
        std::ifstream file(m_file, std::ios::binary | std::ios::ate);
        Samples samples(file ? static_cast<std::size_t>(file.tellg()) / 2 : 0);
        file.seekg(0);
        file.read(reinterpret_cast<char*>(samples.data()), static_cast<std::streamsize>(samples.size() * 2));
        return Recording(std::move(samples));
    }
    void WaitUntil(const std::function<bool()>& condition) const {
        while (!condition()) std::this_thread::yield();
    }
    /// Until the device was given so much since it opened.
    void WaitFor(std::size_t samples) const {
        WaitUntil([&] { return Written() >= samples * 2; });
    }
    void WaitForMore() const { WaitFor(Written() / 2 + 8 * BufferSamples); }
    bool HasOpened() const { return std::filesystem::exists(m_file); }

  private:
    static void Set(const char* name, const char* value) { setenv(name, value, 1); }
    std::uintmax_t Written() const {
        std::error_code missing;
        const std::uintmax_t size = std::filesystem::file_size(m_file, missing);
        return missing ? 0 : size;
    }

    std::filesystem::path m_file;
};

}  // namespace tabulon::test

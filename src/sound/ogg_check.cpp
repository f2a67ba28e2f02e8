#include "sound/ogg_check.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <vorbis/vorbisfile.h>

#include "platform/text.h"

namespace tabulon {

namespace {

constexpr long LowestRate = 8000;
constexpr long HighestRate = 96000;
constexpr int MostChannels = 2;
/// A stream that is repeated must give this much at each turn.
constexpr int ShortestPartOfSecond = 20;

/// A file in memory, as the library reads it.
struct Source {
    std::string_view Bytes;
    std::size_t At = 0;

    static std::size_t Read(void* target, std::size_t size, std::size_t count, void* source) {
        Source& self = *static_cast<Source*>(source);
        const std::size_t taken = std::min(size * count, self.Bytes.size() - self.At);
        std::memcpy(target, self.Bytes.data() + self.At, taken);
        self.At += taken;
        return size == 0 ? 0 : taken / size;
    }
    static int Seek(void* source, ogg_int64_t offset, int whence) {
        Source& self = *static_cast<Source*>(source);
        const auto size = static_cast<ogg_int64_t>(self.Bytes.size());
        const ogg_int64_t from = whence == SEEK_SET   ? 0
                                 : whence == SEEK_CUR ? static_cast<ogg_int64_t>(self.At)
                                                      : size;
        if (offset < -from || offset > size - from) return -1;
        self.At = static_cast<std::size_t>(from + offset);
        return 0;
    }
    static long Tell(void* source) { return static_cast<long>(static_cast<Source*>(source)->At); }
};

class Stream {
  public:
    explicit Stream(std::string_view bytes) : m_source{bytes} {
        const ov_callbacks memory = {Source::Read, Source::Seek, nullptr, Source::Tell};
        m_open = ov_open_callbacks(&m_source, &m_file, nullptr, 0, memory) == 0;
    }
    ~Stream() {
        if (m_open) ov_clear(&m_file);
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    bool IsUsual() {
        const vorbis_info* info = m_open ? ov_info(&m_file, -1) : nullptr;
        if (!info || info->channels < 1 || info->channels > MostChannels) return false;
        if (info->rate < LowestRate || info->rate > HighestRate) return false;
        const ogg_int64_t length = ov_pcm_total(&m_file, -1);
        return length > 0 && length <= static_cast<ogg_int64_t>(limits::SoundSeconds) * info->rate;
    }
    /// The mixer's own marks, at which it would go back.
    bool HasLoopMarks() {
        const vorbis_comment* comments = ov_comment(&m_file, -1);
        return std::any_of(
            comments->user_comments, comments->user_comments + comments->comments,
            [](const char* comment) { return EqualNoCase(std::string_view(comment).substr(0, 4), "loop"); });
    }
    /// Whether the stream decodes to as much as it must at least give.
    bool IsLongEnough() {
        const long least = ov_info(&m_file, -1)->rate / ShortestPartOfSecond;
        std::array<char, 4096> samples{};
        for (ogg_int64_t last = 0; last < least; last = ov_pcm_tell(&m_file)) {
            int section = 0;
            const long read =
                ov_read(&m_file, samples.data(), static_cast<int>(samples.size()), 0, 2, 1, &section);
            if (read <= 0) return false;
        }
        return true;
    }

  private:
    Source m_source;
    OggVorbis_File m_file{};
    bool m_open = false;
};

/// Streams one after another would take long to open, and each may have its own rate.
bool IsOneStream(std::string_view ogg) {
    constexpr std::string_view page = "OggS";
    constexpr std::size_t flags = 5;
    constexpr unsigned beginning = 2;
    int streams = 0;
    for (std::size_t at = ogg.find(page); at < ogg.size() && streams < 2; at = ogg.find(page, at + 1))
        if (at + flags < ogg.size() && (static_cast<unsigned char>(ogg[at + flags]) & beginning) != 0)
            ++streams;
    return ogg.starts_with(page) && streams == 1;
}

}  // namespace

bool IsPlayable(std::string_view ogg) {
    if (ogg.size() > limits::SoundBytes || !IsOneStream(ogg)) return false;
    Stream stream(ogg);
    return stream.IsUsual() && !stream.HasLoopMarks() && stream.IsLongEnough();
}

}  // namespace tabulon

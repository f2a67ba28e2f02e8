#include "sound/tone.h"

#include <array>
#include <cmath>
#include <cstring>
#include <numbers>
#include <numeric>
#include <stdexcept>
#include <vorbis/vorbisenc.h>
#include <vorbis/vorbisfile.h>

namespace tabulon::test {

namespace {

constexpr int Serial = 1;
constexpr int BlockFrames = 1024;
constexpr std::size_t RateInHeader = 12;

class Encoder {
  public:
    explicit Encoder(const Tone& tone) : m_tone(tone) {
        vorbis_info_init(&m_info);
        vorbis_comment_init(&m_comment);
        if (vorbis_encode_init_vbr(&m_info, tone.Channels, tone.Rate, 0.3f) != 0)
            throw std::logic_error("no such tone");
        if (tone.Comment) vorbis_comment_add(&m_comment, tone.Comment);
        vorbis_analysis_init(&m_state, &m_info);
        vorbis_block_init(&m_state, &m_block);
        ogg_stream_init(&m_stream, Serial);
    }
    ~Encoder() {
        ogg_stream_clear(&m_stream);
        vorbis_block_clear(&m_block);
        vorbis_dsp_clear(&m_state);
        vorbis_comment_clear(&m_comment);
        vorbis_info_clear(&m_info);
    }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;

    std::string Encode() {
        WriteHeaders();
        const int frames = static_cast<int>(m_tone.Seconds * m_tone.Rate);
        for (int at = 0; at < frames; at += BlockFrames) AddFrames(at, std::min(BlockFrames, frames - at));
        vorbis_analysis_wrote(&m_state, 0);
        WritePackets();
        return std::move(m_ogg);
    }

  private:
    void WriteHeaders() {
        std::array<ogg_packet, 3> headers{};
        vorbis_analysis_headerout(&m_state, &m_comment, &headers[0], &headers[1], &headers[2]);
        if (m_tone.StatedRate != 0)
            std::memcpy(headers[0].packet + RateInHeader, &m_tone.StatedRate, sizeof m_tone.StatedRate);
        for (ogg_packet& header : headers) ogg_stream_packetin(&m_stream, &header);
        ogg_page page{};
        while (ogg_stream_flush(&m_stream, &page) != 0) Append(page);
        if (m_tone.Seconds == 0) WriteEmptyEnd();
    }

    void WriteEmptyEnd() {
        ogg_packet end{};
        end.e_o_s = 1;
        end.packetno = 3;
        end.granulepos = m_tone.StatedLength;
        ogg_stream_packetin(&m_stream, &end);
        ogg_page page{};
        while (ogg_stream_flush(&m_stream, &page) != 0) Append(page);
    }

    void AddFrames(int at, int count) {
        float** channels = vorbis_analysis_buffer(&m_state, count);
        for (int i = 0; i < count; ++i) {
            const double turn = m_tone.Hertz * (at + i) / m_tone.Rate;
            const auto value = static_cast<float>(0.5 * std::cos(2 * std::numbers::pi * turn));
            for (int channel = 0; channel < m_tone.Channels; ++channel) channels[channel][i] = value;
        }
        vorbis_analysis_wrote(&m_state, count);
        WritePackets();
    }

    void WritePackets() {
        ogg_packet packet{};
        while (vorbis_analysis_blockout(&m_state, &m_block) == 1) {
            vorbis_analysis(&m_block, nullptr);
            vorbis_bitrate_addblock(&m_block);
            while (vorbis_bitrate_flushpacket(&m_state, &packet) != 0) WritePacket(packet);
        }
    }

    void WritePacket(ogg_packet& packet) {
        if (packet.e_o_s && m_tone.StatedLength != 0) packet.granulepos = m_tone.StatedLength;
        ogg_stream_packetin(&m_stream, &packet);
        ogg_page page{};
        while (ogg_stream_pageout(&m_stream, &page) != 0) Append(page);
    }

    void Append(const ogg_page& page) {
        m_ogg.append(reinterpret_cast<const char*>(page.header), static_cast<std::size_t>(page.header_len));
        m_ogg.append(reinterpret_cast<const char*>(page.body), static_cast<std::size_t>(page.body_len));
    }

    const Tone& m_tone;
    vorbis_info m_info{};
    vorbis_comment m_comment{};
    vorbis_dsp_state m_state{};
    vorbis_block m_block{};
    ogg_stream_state m_stream{};
    std::string m_ogg;
};

}  // namespace

std::string Encode(const Tone& tone) { return Encoder(tone).Encode(); }

std::string Damage(std::string ogg, std::size_t at) {
    constexpr std::size_t fixedHeader = 27;
    ogg[at] = static_cast<char>(~ogg[at]);
    auto* bytes = reinterpret_cast<unsigned char*>(ogg.data());
    for (std::size_t page = 0; page + fixedHeader < ogg.size();) {
        const std::size_t header = fixedHeader + bytes[page + fixedHeader - 1];
        if (page + header > ogg.size()) break;
        const std::size_t body = std::accumulate(bytes + page + fixedHeader, bytes + page + header, 0UL);
        if (page + header + body > ogg.size()) break;
        ogg_page whole{bytes + page, static_cast<long>(header), bytes + page + header,
                       static_cast<long>(body)};
        ogg_page_checksum_set(&whole);
        page += header + body;
    }
    return ogg;
}

Samples Decode(const std::string& ogg) {
    OggVorbis_File file{};
    const ov_callbacks nothing{[](void*, std::size_t, std::size_t, void*) { return std::size_t{0}; }, nullptr,
                               nullptr, nullptr};
    if (ov_open_callbacks(&file, &file, ogg.data(), static_cast<long>(ogg.size()), nothing) != 0)
        throw std::logic_error("no sound");
    Samples samples;
    std::array<char, 4096> block{};
    int section = 0;
    long size = 0;
    while ((size = ov_read(&file, block.data(), block.size(), 0, 2, 1, &section)) > 0) {
        samples.resize(samples.size() + static_cast<std::size_t>(size) / 2);
        std::memcpy(&*samples.end() - size / 2, block.data(), static_cast<std::size_t>(size));
    }
    ov_clear(&file);
    return samples;
}

}  // namespace tabulon::test

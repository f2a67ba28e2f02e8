#include "packages/read_ahead.h"

namespace tabulon {

ReadAhead::ReadAhead(std::size_t first, std::size_t end, const Unpacker& unpacker) {
    for (std::size_t entry = first; entry < end; ++entry)
        m_entries.emplace_back(
            [unpacker, entry](const std::stop_token& stop) { return unpacker(entry, stop); });
    m_thread = std::jthread([this](const std::stop_token& stop) {
        for (auto& entry : m_entries) {
            m_room.acquire();
            if (stop.stop_requested()) return;
            entry(stop);
        }
    });
}

ReadAhead::~ReadAhead() {
    m_thread.request_stop();
    m_room.release();
}

std::string ReadAhead::Take() {
    m_room.release();
    return m_entries[m_taken++].get_future().get();
}

}  // namespace tabulon

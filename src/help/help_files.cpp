#include "help/help_files.h"

#include <algorithm>
#include <cstdint>

#include "help/limits.h"
#include "platform/failure.h"

namespace tabulon {

namespace {

constexpr std::string_view StreamHead = "tabulon-help 1\n";
constexpr std::size_t NumberBytes = 4;

std::string KeyOf(std::string_view name) {
    name.remove_prefix(std::min(name.find_first_not_of('/'), name.size()));
    std::string key(name);
    for (char& c : key)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return key;
}

void AppendText(std::string& stream, std::string_view text) {
    const auto size = static_cast<std::uint32_t>(text.size());
    for (std::size_t i = 0; i < NumberBytes; ++i) stream += static_cast<char>(size >> 8 * i & 0xFF);
    stream += text;
}

std::string_view TakeText(std::string_view& stream) {
    if (stream.size() < NumberBytes) throw Failure(FailureNumber::FileIoError);
    std::size_t size = 0;
    for (std::size_t i = 0; i < NumberBytes; ++i)
        size |= std::size_t{static_cast<unsigned char>(stream[i])} << 8 * i;
    stream.remove_prefix(NumberBytes);
    if (stream.size() < size) throw Failure(FailureNumber::FileIoError);
    const std::string_view text = stream.substr(0, size);
    stream.remove_prefix(size);
    return text;
}

}  // namespace

void HelpFiles::Add(std::string_view name, std::string bytes) {
    const std::size_t size = bytes.size();
    if (name.size() > help_limits::NameBytes || size > help_limits::FileBytes ||
        m_files.size() >= help_limits::Files || m_totalBytes + size > help_limits::TotalBytes)
        throw Failure(FailureNumber::InternalError);
    if (m_files.try_emplace(KeyOf(name), std::move(bytes)).second) m_totalBytes += size;
}

const std::string* HelpFiles::Find(std::string_view name) const {
    const auto found = m_files.find(KeyOf(name));
    return found == m_files.end() ? nullptr : &found->second;
}

std::string ToStream(const HelpFiles& files) {
    std::string stream(StreamHead);
    for (const auto& [name, bytes] : files.All()) {
        AppendText(stream, name);
        AppendText(stream, bytes);
    }
    AppendText(stream, "");  // no file lacks a name, so this is the end
    return stream;
}

HelpFiles FromStream(std::string_view stream) {
    if (!stream.starts_with(StreamHead)) throw Failure(FailureNumber::FileIoError);
    stream.remove_prefix(StreamHead.size());
    HelpFiles files;
    for (std::string_view name = TakeText(stream); !name.empty(); name = TakeText(stream))
        files.Add(name, std::string(TakeText(stream)));
    return files;
}

}  // namespace tabulon

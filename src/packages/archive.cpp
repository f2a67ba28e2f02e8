#include "packages/archive.h"

#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <system_error>
#include <utility>

#include "packages/utf8_locale.h"
#include "platform/failure.h"
#include "platform/files.h"
#include "platform/text.h"

namespace tabulon {

namespace {

constexpr std::size_t BlockSize = 64 * 1024;

/// Empty for what is no plain file under a bare name.
std::string BareName(archive_entry* entry) {
    const char* name = archive_entry_pathname(entry);
    if (!name || archive_entry_filetype(entry) != AE_IFREG) return {};
    std::string text = ToUtf8(name);
    return IsBareFileName(text) ? text : std::string();
}

bool BeginsWith(std::string_view name, std::string_view beginning) {
    return EqualNoCase(name.substr(0, beginning.size()), beginning);
}

/// The end is open, so each part between stars may be taken at its first place.
bool BeginsLike(std::string_view name, std::string_view pattern) {
    for (bool anywhere = false;; anywhere = true) {
        const std::size_t star = pattern.find('*');
        const std::string_view part = pattern.substr(0, star);
        while (anywhere && !name.empty() && !BeginsWith(name, part)) name.remove_prefix(1);
        if (!BeginsWith(name, part)) return false;
        if (star == pattern.npos) return true;
        name.remove_prefix(part.size());
        pattern.remove_prefix(star + 1);
    }
}

}  // namespace

void Archive::Closer::operator()(archive* reader) const { archive_read_free(reader); }

Archive::Archive(std::filesystem::path file) : m_file(std::move(file)), m_version(VersionOf(m_file)) {
    ListEntries();
}

Archive::Version Archive::VersionOf(const std::filesystem::path& file) {
    std::error_code missing;
    return {std::filesystem::file_size(file, missing), std::filesystem::last_write_time(file, missing)};
}

bool Archive::IsCurrent(const std::filesystem::path& file) const {
    return file == m_file && VersionOf(file) == m_version;
}

std::optional<std::size_t> Archive::FindFirst(std::string_view pattern) const {
    const auto found =
        std::ranges::find_if(m_names, [&](const std::string& name) { return BeginsLike(name, pattern); });
    if (found == m_names.end()) return std::nullopt;
    return static_cast<std::size_t>(found - m_names.begin());
}

std::string Archive::Read(std::size_t entry) {
    const bool inOrder = entry > 0 && entry == m_expected;
    if (!inOrder) StopAhead();
    if (inOrder && !m_ahead) StartAhead(entry);
    m_expected = entry + 1;
    return m_ahead ? m_ahead->Take() : Unpack(entry, {});
}

void Archive::StartAhead(std::size_t entry) {
    const auto unpacker = [this](std::size_t next, const std::stop_token& stop) {
        return Unpack(next, stop);
    };
    try {
        m_ahead = std::make_unique<ReadAhead>(entry, m_names.size(), unpacker);
    } catch (const std::system_error&) {
        // Without a thread each entry is unpacked when it is asked for.
    }
}

std::string Archive::Unpack(std::size_t entry, const std::stop_token& stop) {
    GoTo(entry);
    return ReadData(m_names[entry], stop);
}

bool Archive::Open() {
    if (m_file.empty()) return false;  // the library would read the standard input
    m_reader.reset(archive_read_new());
    m_next = 0;
    m_headers = 0;
    archive_read_support_format_zip_seekable(m_reader.get());
    archive_read_add_passphrase(m_reader.get(), PackagePassword);
    return archive_read_open_filename(m_reader.get(), m_file.c_str(), BlockSize) == ARCHIVE_OK;
}

void Archive::ListEntries() {
    if (!Open()) return;
    std::uint64_t total = 0;
    for (std::string name = NextName(); !name.empty(); name = NextName()) {
        total += m_size;
        if (total > limits::ArchiveBytes) Fail(name, "the archive holds too much");
        m_names.push_back(std::move(name));
    }
    m_reader.reset();
}

std::string Archive::NextName() {
    const Utf8Locale locale;
    archive_entry* entry = nullptr;
    for (int status = ARCHIVE_OK; status != ARCHIVE_EOF && status != ARCHIVE_FATAL;) {
        if (++m_headers > limits::ArchiveEntries) Fail("", "the archive has too many entries");
        status = archive_read_next_header(m_reader.get(), &entry);
        std::string name = status >= ARCHIVE_WARN && status != ARCHIVE_EOF ? BareName(entry) : std::string();
        if (name.empty()) continue;
        m_size = static_cast<std::uint64_t>(std::max<std::int64_t>(archive_entry_size(entry), 0));
        ++m_next;
        return name;
    }
    return {};
}

void Archive::GoTo(std::size_t entry) {
    if ((!m_reader || m_next > entry) && !Open()) Fail(m_names[entry], "the archive cannot be opened");
    while (m_next <= entry) {
        const std::string& expected = m_names[m_next];
        if (NextName() != expected) Fail(m_names[entry], "the archive has changed");
    }
}

std::string Archive::ReadData(const std::string& name, const std::stop_token& stop) {
    if (m_size > limits::EntryBytes) Fail(name, "it is too large");
    std::string data;
    data.reserve(m_size);
    const void* block = nullptr;
    std::size_t size = 0;
    la_int64_t offset = 0;
    int status = ARCHIVE_OK;
    while ((status = archive_read_data_block(m_reader.get(), &block, &size, &offset)) == ARCHIVE_OK) {
        if (stop.stop_requested()) Fail(name, "it is no longer asked for");
        if (size > m_size - data.size()) Fail(name, "it is larger than the archive says");
        data.append(static_cast<const char*>(block), size);
    }
    if (status != ARCHIVE_EOF) {
        const char* why = archive_error_string(m_reader.get());
        Fail(name, why ? why : "it is damaged");
    }
    if (data.size() != m_size) Fail(name, "it is smaller than the archive says");
    return data;
}

void Archive::Fail(const std::string& name, const std::string& why) {
    m_reader.reset();
    throw Failure(FailureNumber::FileIoError,
                  "\"" + name + "\" in " + m_file.filename().string() + " cannot be unpacked: " + why);
}

}  // namespace tabulon

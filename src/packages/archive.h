#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "packages/read_ahead.h"

struct archive;

namespace tabulon {

/// What is beyond a limit fails. Far above any real game, and small enough that no file can hang or exhaust
/// the machine.
namespace limits {
inline constexpr std::size_t ArchiveEntries = 4096;
/// One entry, unpacked.
inline constexpr std::uint64_t EntryBytes = 64ULL << 20;
/// All entries of an archive, unpacked.
inline constexpr std::uint64_t ArchiveBytes = 512ULL << 20;
}  // namespace limits

/// The password of all packages and sound archives.
inline constexpr const char* PackagePassword =
    "6B0E2D7F1C9A48A3B5D20F7E81C46A93E07D5CB2A1F34D6E9C8B1037F5A2E41D"
    "D6708B39C2E74F16A9D53BC1087E46F2A35C9D07E1B84C62D39AF0C7E5B1462";

/// A ZIP archive for reading: entries with WinZip AES or the older ZIP encryption under the PackagePassword,
/// or with none. Entries are those with a bare file name; folders and hostile names are passed over.
class Archive {
  public:
    /// A file that is missing or is no archive has no entries. Fails when the archive breaks a limit.
    explicit Archive(std::filesystem::path file);
    Archive(const Archive&) = delete;
    Archive& operator=(const Archive&) = delete;

    /// Whether this is still what stands at the path.
    bool IsCurrent(const std::filesystem::path& file) const;

    /// In the order of the file, in UTF-8.
    const std::vector<std::string>& Names() const { return m_names; }
    /// The first entry whose name begins like the pattern, in which "*" stands for any text. ASCII case does
    /// not count.
    std::optional<std::size_t> FindFirst(std::string_view pattern) const;
    /// The whole content of an entry. Fails with FileIoError when it cannot be had to its last byte (another
    /// password, damage) or is larger than it may be. Who reads one entry after the other has the next ones
    /// unpacked meanwhile, by a thread beside the caller's, until StopAhead.
    std::string Read(std::size_t entry);
    void StopAhead() { m_ahead.reset(); }

  private:
    struct Closer {
        void operator()(archive* reader) const;
    };
    /// Tells one state of a file from another.
    struct Version {
        std::uint64_t Size = 0;
        std::filesystem::file_time_type Written;
        bool operator==(const Version&) const = default;
    };

    static Version VersionOf(const std::filesystem::path& file);

    bool Open();
    void ListEntries();
    /// Goes on to the next entry with a bare file name; empty at the end.
    std::string NextName();
    void GoTo(std::size_t entry);
    void StartAhead(std::size_t entry);
    std::string Unpack(std::size_t entry, const std::stop_token& stop);
    std::string ReadData(const std::string& name, const std::stop_token& stop);
    [[noreturn]] void Fail(const std::string& name, const std::string& why);

    std::filesystem::path m_file;
    Version m_version;
    std::vector<std::string> m_names;
    std::size_t m_expected = 0;  // the entry after the one that was read last

    // In the hands of who unpacks.
    std::unique_ptr<archive, Closer> m_reader;
    std::size_t m_headers = 0;  // read since the opening
    std::size_t m_next = 0;     // the entry that NextName gives next
    std::uint64_t m_size = 0;   // of the entry that NextName gave, as the archive says

    std::unique_ptr<ReadAhead> m_ahead;  // from m_expected on; the last member, because its end is waited for
};

}  // namespace tabulon

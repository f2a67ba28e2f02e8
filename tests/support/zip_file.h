#pragma once

#include <archive.h>
#include <archive_entry.h>
#include <filesystem>
#include <map>
#include <string>

namespace tabulon::test {

/// Writes a ZIP archive without encryption: entry name, content.
inline void WriteZip(const std::filesystem::path& file, const std::map<std::string, std::string>& entries) {
    archive* zip = archive_write_new();
    archive_write_set_format_zip(zip);
    archive_write_open_filename(zip, file.c_str());
    for (const auto& [name, content] : entries) {
        archive_entry* entry = archive_entry_new();
        archive_entry_set_pathname(entry, name.c_str());
        archive_entry_set_size(entry, static_cast<la_int64_t>(content.size()));
        archive_entry_set_filetype(entry, AE_IFREG);
        archive_entry_set_perm(entry, 0644);
        archive_write_header(zip, entry);
        archive_write_data(zip, content.data(), content.size());
        archive_entry_free(entry);
    }
    archive_write_close(zip);
    archive_write_free(zip);
}

}  // namespace tabulon::test

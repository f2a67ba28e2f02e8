#pragma once

#include <archive.h>
#include <archive_entry.h>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "packages/archive.h"
#include "packages/archive_writer.h"
#include "packages/utf8_locale.h"
#include "platform/files.h"

namespace tabulon::test {

/// An archive as some program might make it: other encryptions, passwords and names than ours.
struct ZipMaker {
    std::string Options;  // of libarchive, "zip:compression=store"
    std::string Password = PackagePassword;

    void Write(const std::filesystem::path& file, std::span<const PackedFile> files) const {
        const Utf8Locale locale;
        archive* zip = archive_write_new();
        archive_write_set_format_zip(zip);
        archive_write_set_options(zip, Options.c_str());
        archive_write_set_passphrase(zip, Password.c_str());
        archive_write_open_filename(zip, file.c_str());
        for (const PackedFile& packed : files) Add(zip, packed);
        archive_write_close(zip);
        archive_write_free(zip);
    }

  private:
    static void Add(archive* zip, const PackedFile& file) {
        archive_entry* entry = archive_entry_new();
        archive_entry_set_pathname(entry, file.Name.c_str());
        archive_entry_set_size(entry, static_cast<la_int64_t>(file.Bytes.size()));
        archive_entry_set_filetype(entry, AE_IFREG);
        archive_entry_set_perm(entry, 0644);
        archive_write_header(zip, entry);
        archive_write_data(zip, file.Bytes.data(), file.Bytes.size());
        archive_entry_free(entry);
    }
};

/// Puts bytes at a place behind each signature ("PK\1\2" and so on) in the file.
inline void PatchHeaders(const std::filesystem::path& file, std::string_view signature, std::size_t place,
                         std::string_view bytes) {
    std::string all = ReadFile(file, 1U << 30);
    for (std::size_t at = all.find(signature); at != all.npos; at = all.find(signature, at + 1))
        all.replace(at + place, bytes.size(), bytes);
    WriteFile(file, all);
}

}  // namespace tabulon::test

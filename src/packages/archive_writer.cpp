#include "packages/archive_writer.h"

#include <archive.h>
#include <archive_entry.h>
#include <memory>
#include <new>

#include "packages/archive.h"
#include "packages/utf8_locale.h"
#include "platform/failure.h"
#include "platform/files.h"

namespace tabulon {

namespace {

/// One date for all entries, the earliest that ZIP knows in every time zone, so that a package does not tell
/// when it was made.
constexpr std::time_t EntryDate = 315705600;  // 1980-01-03
constexpr unsigned EntryMode = 0644;

struct WriterCloser {
    void operator()(archive* writer) const { archive_write_free(writer); }
};
struct EntryCloser {
    void operator()(archive_entry* entry) const { archive_entry_free(entry); }
};
using Writer = std::unique_ptr<archive, WriterCloser>;

la_ssize_t Append(archive* /*writer*/, void* target, const void* bytes, std::size_t size) {
    try {
        static_cast<std::string*>(target)->append(static_cast<const char*>(bytes), size);
    } catch (const std::bad_alloc&) {
        return -1;  // no exception may pass through the library
    }
    return static_cast<la_ssize_t>(size);
}

void Check(const Writer& writer, bool done) {
    if (done) return;
    const char* why = archive_error_string(writer.get());
    throw Failure(FailureNumber::FileIoError,
                  std::string("The archive cannot be made: ") + (why ? why : "?"));
}

void Configure(const Writer& writer, std::string& target) {
    Check(writer, archive_write_set_format_zip(writer.get()) == ARCHIVE_OK);
    constexpr const char* options = "zip:compression=deflate,zip:encryption=aes128,zip:hdrcharset=UTF-8";
    Check(writer, archive_write_set_options(writer.get(), options) == ARCHIVE_OK);
    Check(writer, archive_write_set_passphrase(writer.get(), PackagePassword) == ARCHIVE_OK);
    archive_write_set_bytes_in_last_block(writer.get(), 1);
    Check(writer, archive_write_open(writer.get(), &target, nullptr, Append, nullptr) == ARCHIVE_OK);
}

/// A sound is compressed in itself, and is unpacked while somebody waits to hear it.
int ChooseCompression(const Writer& writer, std::string_view name) {
    return name.ends_with(".ogg") ? archive_write_zip_set_compression_store(writer.get())
                                  : archive_write_zip_set_compression_deflate(writer.get());
}

void AddFile(const Writer& writer, const PackedFile& file) {
    const std::unique_ptr<archive_entry, EntryCloser> entry(archive_entry_new());
    archive_entry_set_pathname(entry.get(), file.Name.c_str());
    archive_entry_set_size(entry.get(), static_cast<la_int64_t>(file.Bytes.size()));
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), EntryMode);
    archive_entry_set_mtime(entry.get(), EntryDate, 0);
    Check(writer, ChooseCompression(writer, file.Name) == ARCHIVE_OK);
    Check(writer, archive_write_header(writer.get(), entry.get()) == ARCHIVE_OK);
    const la_ssize_t written = archive_write_data(writer.get(), file.Bytes.data(), file.Bytes.size());
    Check(writer, written == static_cast<la_ssize_t>(file.Bytes.size()));
}

}  // namespace

void WriteArchive(const std::filesystem::path& file, std::span<const PackedFile> files) {
    const Utf8Locale locale;
    std::string bytes;
    const Writer writer(archive_write_new());
    Configure(writer, bytes);
    for (const PackedFile& packed : files) AddFile(writer, packed);
    Check(writer, archive_write_close(writer.get()) == ARCHIVE_OK);
    WriteFile(file, bytes);
}

}  // namespace tabulon

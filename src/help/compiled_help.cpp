#include "help/compiled_help.h"

#include <chm_lib.h>
#include <cstring>
#include <memory>
#include <sys/resource.h>
#include <system_error>

#include "help/limits.h"
#include "platform/failure.h"
#include "platform/files.h"

namespace tabulon {

namespace {

constexpr char System[] = "/#SYSTEM";

struct Closer {
    void operator()(chmFile* archive) const { chm_close(archive); }
};
using Archive = std::unique_ptr<chmFile, Closer>;

/// What a walk through the archive has found. No exception may pass through the library.
struct Unpacked {
    HelpFiles Files;
    std::size_t Entries = 0;
    std::exception_ptr Trouble;
};

std::string BytesOf(chmFile* archive, chmUnitInfo& entry) {
    if (entry.length > help_limits::FileBytes) throw Failure(FailureNumber::InternalError);
    std::string bytes(static_cast<std::size_t>(entry.length), '\0');
    const LONGINT64 read =
        chm_retrieve_object(archive, &entry, reinterpret_cast<unsigned char*>(bytes.data()), 0,
                            static_cast<LONGINT64>(bytes.size()));
    if (read != static_cast<LONGINT64>(bytes.size())) throw Failure(FailureNumber::FileIoError);
    return bytes;
}

void Take(chmFile* archive, chmUnitInfo& entry, HelpFiles& files) {
    entry.path[CHM_MAX_PATHLEN] = '\0';
    if (!files.Find(entry.path)) files.Add(entry.path, BytesOf(archive, entry));
}

int TakeEntry(chmFile* archive, chmUnitInfo* entry, void* context) {
    auto& unpacked = *static_cast<Unpacked*>(context);
    try {
        // The directory of a hostile file may be a ring.
        if (++unpacked.Entries > help_limits::Files) throw Failure(FailureNumber::InternalError);
        Take(archive, *entry, unpacked.Files);
        return CHM_ENUMERATOR_CONTINUE;
    } catch (...) {
        unpacked.Trouble = std::current_exception();
        return CHM_ENUMERATOR_FAILURE;
    }
}

Archive Opened(const std::filesystem::path& file) {
    std::error_code trouble;
    const auto size = std::filesystem::file_size(file, trouble);
    if (trouble || !FileExists(file)) throw Failure(FailureNumber::FileNotFound);
    if (size > help_limits::ArchiveBytes) throw Failure(FailureNumber::InternalError);
    Archive archive(chm_open(file.c_str()));
    if (!archive) throw Failure(FailureNumber::FileIoError);
    return archive;
}

void Bound(__rlimit_resource resource, rlim_t most) {
    rlimit limit{};
    if (getrlimit(resource, &limit) != 0) return;
    limit.rlim_cur = limit.rlim_max = std::min(limit.rlim_max, most);
    setrlimit(resource, &limit);
}

}  // namespace

HelpFiles UnpackCompiledHelp(const std::filesystem::path& file) {
    const Archive archive = Opened(file);
    Unpacked unpacked;
    chm_enumerate(archive.get(), CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES, TakeEntry, &unpacked);
    if (unpacked.Trouble) std::rethrow_exception(unpacked.Trouble);
    chmUnitInfo system{};
    if (chm_resolve_object(archive.get(), System, &system) == CHM_RESOLVE_SUCCESS)
        Take(archive.get(), system, unpacked.Files);
    return std::move(unpacked.Files);
}

void BoundUnpackingProcess(unsigned seconds) {
#ifndef __SANITIZE_ADDRESS__  // whose shadow needs an address space without bounds
    Bound(RLIMIT_AS, help_limits::UnpackingMemory);
#endif
    Bound(RLIMIT_CPU, seconds);
    Bound(RLIMIT_FSIZE, 0);
    Bound(RLIMIT_CORE, 0);
}

}  // namespace tabulon

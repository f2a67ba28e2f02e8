#include "platform/files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "platform/failure.h"
#include "platform/text.h"

namespace tabulon {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t LongestName = 255;

bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

bool IsDevice(std::string_view name) {
    std::string_view stem = name.substr(0, name.find('.'));
    stem = stem.substr(0, stem.find_last_not_of(' ') + 1);
    if (stem.size() == 4 && stem[3] >= '1' && stem[3] <= '9')
        return EqualNoCase(stem.substr(0, 3), "COM") || EqualNoCase(stem.substr(0, 3), "LPT");
    constexpr std::array<std::string_view, 6> devices = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    return std::any_of(devices.begin(), devices.end(),
                       [&](std::string_view device) { return EqualNoCase(stem, device); });
}

bool Matches(std::string_view name, std::string_view pattern) {
    const std::size_t star = pattern.find('*');
    if (star == pattern.npos) return EqualNoCase(name, pattern);
    const std::string_view head = pattern.substr(0, star);
    const std::string_view tail = pattern.substr(star + 1);
    return name.size() >= head.size() + tail.size() && EqualNoCase(name.substr(0, head.size()), head) &&
           EqualNoCase(name.substr(name.size() - tail.size()), tail);
}

std::string_view NameOf(const fs::directory_entry& entry) {
    const std::string_view path = entry.path().native();
    return path.substr(path.rfind('/') + 1);
}

template <class Wanted>
std::vector<fs::path> Listed(const fs::path& dir, Wanted&& wanted) {
    std::vector<fs::path> found;
    std::error_code trouble;
    for (fs::directory_iterator entry(dir, trouble), end; !trouble && entry != end; entry.increment(trouble))
        if (wanted(*entry)) found.push_back(entry->path());
    return found;
}

[[noreturn]] void FailWith(int error) {
    switch (error) {
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            throw Failure(FailureNumber::DiskFull);
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ELOOP:
        case ETXTBSY:
            throw Failure(FailureNumber::PermissionDenied);
        case ENOENT:
        case ENOTDIR:
            throw Failure(FailureNumber::PathNotFound);
        default:
            throw Failure(FailureNumber::FileIoError);
    }
}

/// An open file, closed at the end.
class Descriptor {
  public:
    explicit Descriptor(int descriptor) : m_descriptor(descriptor) {}
    ~Descriptor() {
        if (m_descriptor >= 0) close(m_descriptor);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool IsOpen() const { return m_descriptor >= 0; }

    /// Fails for what is no regular file: a pipe or a device could keep the program waiting for ever.
    std::size_t RegularSize() const {
        struct stat state {};
        if (fstat(m_descriptor, &state) != 0 || !S_ISREG(state.st_mode))
            throw Failure(FailureNumber::FileIoError);
        return static_cast<std::size_t>(state.st_size);
    }
    void MustBeRegular() const { RegularSize(); }

    /// How many bytes came; 0 at the end of the file.
    std::size_t Read(char* buffer, std::size_t size) const {
        ssize_t got = 0;
        do got = read(m_descriptor, buffer, size);
        while (got < 0 && errno == EINTR);
        if (got < 0) throw Failure(FailureNumber::FileIoError);
        return static_cast<std::size_t>(got);
    }

    void Write(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t done = write(m_descriptor, bytes.data(), bytes.size());
            if (done < 0 && errno != EINTR) FailWith(errno);
            bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(done, 0)));
        }
    }

    /// Some file systems tell only here that the bytes found no place.
    void Close() {
        const int closed = close(m_descriptor);
        m_descriptor = -1;
        if (closed != 0 && errno != EINTR) FailWith(errno);
    }

  private:
    int m_descriptor;
};

/// A new file beside another; it is deleted unless it takes the other's place.
class TemporaryFile {
  public:
    explicit TemporaryFile(const fs::path& target) : m_file(Opened(target)) {}
    ~TemporaryFile() {
        if (!m_path.empty()) unlink(m_path.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    void Write(std::string_view bytes) { m_file.Write(bytes); }

    void Become(const fs::path& target) {
        m_file.Close();
        if (rename(m_path.c_str(), target.c_str()) != 0) FailWith(errno);
        m_path.clear();
    }

  private:
    int Opened(const fs::path& target) {
        const std::string stem = ".new-" + std::to_string(getpid()) + "-";
        for (int n = 0;; ++n) {
            const fs::path path = target.parent_path() / (stem + std::to_string(n));
            const int opened = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (opened < 0 && errno == EEXIST) continue;
            if (opened < 0) FailWith(errno);
            m_path = path;
            return opened;
        }
    }

    fs::path m_path;
    Descriptor m_file;
};

}  // namespace

bool IsBareFileName(std::string_view name) {
    if (name.empty() || name.size() > LongestName || name == "." || name == "..") return false;
    if (name.find_first_of("/\\:") != name.npos) return false;
    return std::none_of(name.begin(), name.end(), IsControl) && !IsDevice(name);
}

fs::path FindFile(const fs::path& dir, std::string_view name) {
    if (!IsBareFileName(name)) return {};
    if (const fs::path exact = dir / name; FileExists(exact)) return exact;
    const auto alike = Listed(dir, [&](const fs::directory_entry& entry) {
        return EqualNoCase(NameOf(entry), name) && FileExists(entry.path());
    });
    return alike.empty() ? fs::path() : alike.front();
}

std::vector<fs::path> FilesMatching(const fs::path& dir, std::string_view pattern) {
    return Listed(dir, [&](const fs::directory_entry& entry) {
        std::error_code trouble;
        return Matches(NameOf(entry), pattern) && !entry.is_symlink(trouble) &&
               entry.is_regular_file(trouble);
    });
}

void DeleteMatching(const fs::path& dir, std::string_view pattern, std::string_view kept) {
    bool refused = false;
    for (const fs::path& file : FilesMatching(dir, pattern)) {
        if (EqualNoCase(file.filename().native(), kept)) continue;
        std::error_code trouble;
        fs::remove(file, trouble);
        refused |= static_cast<bool>(trouble);
    }
    if (refused) throw Failure(FailureNumber::PermissionDenied);
}

bool FileExists(const fs::path& path) {
    std::error_code trouble;
    return fs::is_regular_file(path, trouble);
}

std::string ReadFile(const fs::path& path, std::size_t limit) {
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.IsOpen() && errno == ENOENT) throw Failure(FailureNumber::FileNotFound);
    if (!file.IsOpen()) FailWith(errno);
    // The size is a hint: the file may grow meanwhile, and the room for one byte more tells its end.
    std::string bytes(std::min(file.RegularSize(), limit) + 1, '\0');
    std::size_t length = 0;
    while (const std::size_t got = file.Read(bytes.data() + length, bytes.size() - length)) {
        length += got;
        if (length > limit) throw Failure(FailureNumber::InternalError, "File too large");
        if (length == bytes.size()) bytes.resize(2 * length);
    }
    bytes.resize(length);
    return bytes;
}

void WriteFile(const fs::path& path, std::string_view bytes) {
    TemporaryFile file(path);
    file.Write(bytes);
    file.Become(path);
}

void AppendToFile(const fs::path& path, std::string_view bytes) {
    Descriptor file(
        open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0666));
    if (!file.IsOpen()) FailWith(errno);
    file.MustBeRegular();
    file.Write(bytes);
    file.Close();
}

}  // namespace tabulon

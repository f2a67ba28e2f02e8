#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/wait.h>
#include <unistd.h>

#include "gamepack/check_parts.h"
#include "help/unpacking.h"
#include "info/rich_text.h"
#include "platform/failure.h"

namespace tabulon::gamepack {

namespace {

/// Unpacks as the help viewer does: in a process of its own, which has bounds and may die.
UnpackingEnd TryUnpacking(const std::string& bytes) {
    const std::unique_ptr<FILE, int (*)(FILE*)> file(std::tmpfile(), std::fclose);
    if (!file || std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size() ||
        std::fflush(file.get()) != 0)
        throw Failure(FailureNumber::FileIoError, "No temporary file can be written.");
    const std::filesystem::path path = "/proc/self/fd/" + std::to_string(fileno(file.get()));
    const pid_t child = fork();
    if (child == 0) {
        dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
        _exit(static_cast<int>(UnpackToOutput(path)));
    }
    int status = 0;
    const bool ended = waitpid(child, &status, 0) == child && WIFEXITED(status);
    return ended ? static_cast<UnpackingEnd>(WEXITSTATUS(status)) : UnpackingEnd::Damaged;
}

}  // namespace

void CheckHelpText(const PackedFile& file, Findings& findings) {
    if (file.Bytes.size() > limits::HelpTextBytes)
        return findings.Error(file.Name, "it is larger than 4 MB, so it is not shown. Shorten it.");
    try {
        if (IsRichText(file.Bytes)) ReadRichText(file.Bytes);
    } catch (const Failure&) {
        findings.Error(
            file.Name,
            "it is rich text that the Player cannot read. Save it again, as plain text if need be.");
    }
}

void CheckCompiledHelp(const PackedFile& file, Findings& findings) {
    const UnpackingEnd end = TryUnpacking(file.Bytes);
    if (end == UnpackingEnd::TooLarge)
        findings.Error(file.Name,
                       "it holds more than the help viewer takes. See the limits of the package format.");
    else if (end != UnpackingEnd::Done)
        findings.Error(file.Name, "the help viewer cannot unpack it. Compile it again.");
}

}  // namespace tabulon::gamepack

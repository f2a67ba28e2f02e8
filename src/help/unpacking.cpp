#include "help/unpacking.h"

#include <exception>
#include <string_view>
#include <unistd.h>

#include "help/compiled_help.h"
#include "platform/failure.h"

namespace tabulon {

namespace {

bool WriteOut(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(STDOUT_FILENO, bytes.data(), bytes.size());
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

UnpackingEnd EndOf(const Failure& failure) {
    switch (static_cast<FailureNumber>(failure.Number())) {
        case FailureNumber::FileNotFound:
            return UnpackingEnd::NotThere;
        case FailureNumber::InternalError:
            return UnpackingEnd::TooLarge;
        default:
            return UnpackingEnd::Damaged;
    }
}

}  // namespace

UnpackingEnd UnpackToOutput(const std::filesystem::path& file, unsigned seconds) {
    BoundUnpackingProcess(seconds);
    try {
        return WriteOut(ToStream(UnpackCompiledHelp(file))) ? UnpackingEnd::Done : UnpackingEnd::Damaged;
    } catch (const Failure& failure) {
        return EndOf(failure);
    } catch (const std::exception&) {
        return UnpackingEnd::TooLarge;  // the memory has come to its end
    }
}

std::string MessageFor(UnpackingEnd end, const std::filesystem::path& file) {
    const std::string name = "The help file " + file.string();
    switch (end) {
        case UnpackingEnd::NotThere:
            return name + " is not there.";
        case UnpackingEnd::TooLarge:
            return name + " is too large to be shown.";
        default:
            return name + " is damaged, or it is no help file. It cannot be shown.";
    }
}

}  // namespace tabulon

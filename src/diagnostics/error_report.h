#pragma once

#include <filesystem>
#include <string>

#include "platform/application_info.h"

namespace tabulon {

/// The text of one error report, as it goes to the log file.
struct ErrorReport {
    const ApplicationInfo& Application;
    const std::filesystem::path& DataDirectory;
    std::string CurrentTime = {};
    std::string AppName = {};
    std::string ErrorString = {};
    int ErrorNumber = 0;
    int ErrorLine = 0;
    std::string ErrorProc = {};
    std::string StackText = {};  // its lines end in CR LF
    std::string CurrentOperation = {};

    /// All lines end in CR LF.
    std::string Text(bool expanded) const;
};

/// The facts of the installation that a record of a table carries: lines but for the last end in CR LF.
std::string AdditionalInfo(const ApplicationInfo& application, const std::filesystem::path& dataDirectory);

}  // namespace tabulon

#pragma once

#include <filesystem>
#include <string>

namespace tabulon {

/// What was given when the program was built.
std::string BuiltInWebSite();
std::string BuiltInMailServer();
std::string BuiltInSupportAddress();

/// What the program knows of itself.
struct ApplicationInfo {
    std::string Title = "Tab Player";
    std::string CompanyName = "Corvane Software";
    std::string ProductName = "Tabulon Player";
    int Major = 1;
    int Minor = 0;
    int Revision = 0;
    /// The folder of the program's own data files (pictures, default objects, tips).
    std::filesystem::path ShareDir;
    /// The program's own file; empty when nothing can be started again.
    std::filesystem::path Executable;
    /// The maker's web site, without a slash at its end.
    std::string WebSite = BuiltInWebSite();
    /// Where error logs are mailed to.
    std::string MailServer = BuiltInMailServer();
    std::string SupportAddress = BuiltInSupportAddress();
};

}  // namespace tabulon

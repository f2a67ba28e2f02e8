#include "diagnostics/error_report.h"

#include "platform/modWinVer.h"

namespace tabulon {

namespace {

std::string Line(const std::string& text) { return text + "\r\n"; }

std::string CurrentDirectory() {
    std::error_code ignored;
    return std::filesystem::current_path(ignored).string();
}

std::string CommonFacts(const ApplicationInfo& application, const std::filesystem::path& dataDirectory) {
    return Line("Current Directory: " + CurrentDirectory()) + Line("App Title: " + application.Title) +
           Line("App CompanyName: " + application.CompanyName) +
           Line("App Major: " + std::to_string(application.Major)) +
           Line("App Minor: " + std::to_string(application.Minor)) +
           Line("App Revision: " + std::to_string(application.Revision)) +
           Line("App Path: " + application.Executable.parent_path().string()) +
           Line("Data Path: " + dataDirectory.string()) + "App ProductName: " + application.ProductName;
}

}  // namespace

std::string ErrorReport::Text(bool expanded) const {
    std::string text = Line(AppName + " Application Error Information") + Line(std::string(36, '=')) +
                       Line("Current Time   : " + CurrentTime) + Line("Error String   : " + ErrorString) +
                       Line("Error Number   : " + std::to_string(ErrorNumber)) +
                       Line("Error Line     : " + std::to_string(ErrorLine)) +
                       Line("Error Procedure: " + ErrorProc) + Line("") + Line("Procedure Stack") +
                       Line(std::string(15, '-')) + Line(StackText);
    if (!CurrentOperation.empty()) text += Line("Current Operation: " + CurrentOperation);
    if (!expanded) return text;
    return text + Line("") + Line("Additional Information") + Line(std::string(22, '-')) +
           Line(CommonFacts(Application, DataDirectory)) + Line("Win Version: " + WinVer());
}

std::string AdditionalInfo(const ApplicationInfo& application, const std::filesystem::path& dataDirectory) {
    return CommonFacts(application, dataDirectory);
}

}  // namespace tabulon

#pragma once

#include <gmock/gmock.h>

#include "platform/files.h"
#include "support/test_machine.h"

namespace tabulon::test {

/// Three procedures, one inside the other, the innermost of which fails.
class ErrorHandlerTest : public testing::Test {
  protected:
    ErrorHandlerTest() {
        handler.ShowDetails = [this](const std::string& text) { details.push_back(text); };
    }

    void FailInside(const Failure& failure) {
        Procedure(handler, "modOne:Outer", [&] {
            Procedure(handler, "modTwo:Middle", [&] {
                Procedure(handler, "modThree:Inner", [&] { throw failure; });
                ++carriedOn;
            });
            ++carriedOn;
        });
    }
    void FailInside(FailureNumber number = FailureNumber::DivisionByZero) { FailInside(Failure(number)); }

    std::string LogText(const char* file = "ERRORS.TXT") const {
        const std::filesystem::path path = machine.AppDir() / file;
        return std::filesystem::exists(path) ? ReadFile(path, 1 << 20) : "";
    }
    /// The lines of the log, each of which must end in CR LF.
    std::vector<std::string> LogLines(const char* file = "ERRORS.TXT") const {
        std::string text = LogText(file);
        std::vector<std::string> lines;
        for (std::size_t end = text.find("\r\n"); end != std::string::npos; end = text.find("\r\n")) {
            lines.push_back(text.substr(0, end));
            text.erase(0, end + 2);
        }
        EXPECT_EQ(text, "") << "the last line has no end";
        for (const std::string& line : lines)
            EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos) << line;
        return lines;
    }
    /// Makes every write into the data directory fail.
    void LoseDataDirectory() {
        machine.g.AppDir = machine.Folder / "file";
        AppendToFile(machine.g.AppDir, "in the way");
    }

    TestMachine machine;
    clsErrHandler& handler = machine.g.gErrHandler;
    std::vector<std::string> details;
    int carriedOn = 0;
};

}  // namespace tabulon::test

#include "diagnostics/error_handler_fixture.h"
#include "platform/text.h"

namespace tabulon::test {
namespace {

using namespace testing;

using Lines = std::vector<std::string>;

class ErrorReportTest : public ErrorHandlerTest {
  protected:
    Lines FirstLines(const std::string& error, const std::string& number,
                     const std::string& procedure) const {
        return {"Tab Player Application Error Information",
                "====================================",
                "Current Time   : 01/05/26 14:30:00",
                "Error String   : " + error,
                "Error Number   : " + number,
                "Error Line     : 0",
                "Error Procedure: " + procedure,
                "",
                "Procedure Stack",
                "---------------"};
    }
    Lines LastLines() const {
        return {"",
                "Additional Information",
                "----------------------",
                "Current Directory: " + std::filesystem::current_path().string(),
                "App Title: Tab Player",
                "App CompanyName: Corvane Software",
                "App Major: 1",
                "App Minor: 0",
                "App Revision: 0",
                "App Path: /opt/tabulon/bin",
                "Data Path: " + machine.AppDir().string(),
                "App ProductName: Tabulon Player",
                "Win Version: "};
    }
    static Lines Joined(std::initializer_list<Lines> parts) {
        Lines all;
        for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
        return all;
    }
    const Lines stack{"01  modOne:Outer", "02    modTwo:Middle", "03      modThree:Inner", ""};
    const Lines first = FirstLines("Division by zero", "11", "modThree:Inner");
};

TEST_F(ErrorReportTest, TellsAFailureThreeLevelsDeep) {
    FailInside();
    EXPECT_THAT(LogLines(), ElementsAreArray(Joined({first, stack, LastLines()})));
    EXPECT_EQ(carriedOn, 2) << "the callers carry on";
    EXPECT_EQ(handler.StackTop, 0);
    EXPECT_THAT(details,
                ElementsAre("Module:  modThree:Inner\r\nError:     (11) Division by zero\r\nLine:      0"));
}

TEST_F(ErrorReportTest, TheNextOneFollowsDirectlyWithItsOwnTimeAndName) {
    FailInside();
    machine.TheScreen.Sleep(61000);
    handler.AppName = "Other";
    FailInside();
    Lines second = first;
    second[0] = "Other Application Error Information";
    second[2] = "Current Time   : 01/05/26 14:31:01";
    EXPECT_THAT(LogLines(),
                ElementsAreArray(Joined({first, stack, LastLines(), second, stack, LastLines()})));
}

TEST_F(ErrorReportTest, NamesTheOperationWhenThereIsOne) {
    handler.CurrentOperation = "saving";
    FailInside();
    EXPECT_THAT(LogLines(),
                ElementsAreArray(Joined({first, stack, {"Current Operation: saving"}, LastLines()})));
    EXPECT_THAT(details,
                ElementsAre("Module:  modThree:Inner\r\nError:     (11) Division by zero\r\nLine:      "
                            "0\r\nCurrent Operation: saving"));
}

TEST_F(ErrorReportTest, EndsAfterTheStackWithoutTheExpandedSection) {
    handler.IncludeExpandedInfo = false;
    FailInside();
    EXPECT_THAT(LogLines(), ElementsAreArray(Joined({first, stack})));
    handler.ClearLog();
    handler.CurrentOperation = "saving";
    FailInside();
    EXPECT_THAT(LogLines(), ElementsAreArray(Joined({first, stack, {"Current Operation: saving"}})));
}

TEST_F(ErrorReportTest, HasAnEmptyLineForAnEmptyStack) {
    handler.IncludeExpandedInfo = false;
    handler.HandleError(Failure(FailureNumber::Overflow));
    EXPECT_THAT(LogLines(), ElementsAreArray(Joined({FirstLines("Overflow", "6", ""), {""}})));
}

TEST_F(ErrorReportTest, CutsTheDescriptionInTheLogAlone) {
    const std::string umlauts(300, '\xE4');
    FailInside(Failure(FailureNumber::CustomError, ToUtf8("<" + umlauts)));
    EXPECT_EQ(LogLines()[3], "Error String   : " + ToUtf8("<" + umlauts.substr(0, 254)));
    EXPECT_EQ(LogLines()[4], "Error Number   : -2147220504");
    EXPECT_THAT(details.front(), HasSubstr(ToUtf8(umlauts)));
}

TEST_F(ErrorReportTest, GoesToAnotherFile) {
    handler.SetDestination(std::string("OTHER.TXT"));
    FailInside();
    EXPECT_EQ(LogLines("OTHER.TXT").size(), 27u);
    EXPECT_EQ(LogText(), "");
    EXPECT_EQ(std::get<std::string>(handler.Destination()), (machine.AppDir() / "OTHER.TXT").string());
}

TEST_F(ErrorReportTest, IsLostWithoutADataDirectoryAndTheDialogComes) {
    LoseDataDirectory();
    FailInside();
    EXPECT_EQ(details.size(), 1u);
    EXPECT_THAT(machine.User.Boxes, IsEmpty());
    EXPECT_EQ(carriedOn, 2);
    EXPECT_TRUE(handler.ClearLog());
}

TEST_F(ErrorReportTest, WithoutAListenerForDetailsASystemBoxShowsThem) {
    handler.ShowDetails = nullptr;
    FailInside();
    ASSERT_EQ(machine.User.Boxes.size(), 1u);
    EXPECT_EQ(machine.User.Boxes[0].Text,
              "Module:  modThree:Inner\r\nError:     (11) Division by zero\r\nLine:      0");
    EXPECT_EQ(machine.User.Boxes[0].Title, "Tab Player");
}

TEST_F(ErrorReportTest, CanBeMadeInSilence) {
    handler.DisplayMsgOnError = false;
    FailInside();
    EXPECT_THAT(details, IsEmpty());
    EXPECT_THAT(LogLines(), Contains("Error Number   : 11"));
    EXPECT_THAT(machine.Errors, ElementsAre("modThree:Inner 11"));
}

TEST_F(ErrorReportTest, AListenerHearsTheFailureBeforeAndAfter) {
    std::vector<std::string> heard;
    machine.TheScreen.SetMousePointer(MousePointer::Hourglass);
    handler.BeforeHandlerCalled = [&](bool& cancel) {
        EXPECT_FALSE(cancel);
        EXPECT_EQ(machine.TheScreen.Pointer(), MousePointer::Default);
        heard.push_back("before " + handler.ErrorProc + " " + std::to_string(handler.ErrorNumber) + " " +
                        handler.ErrorString + " " + LogText());
    };
    handler.ShowDetails = [&](const std::string&) { heard.push_back(LogText().empty() ? "lost" : "shown"); };
    handler.AfterHandlerCalled = [&] { heard.emplace_back("after"); };
    FailInside();
    EXPECT_THAT(heard, ElementsAre("before modThree:Inner 11 Division by zero ", "shown", "after"));
}

TEST_F(ErrorReportTest, AListenerCanCancelAllOfIt) {
    handler.BeforeHandlerCalled = [](bool& cancel) { cancel = true; };
    FailInside();
    EXPECT_EQ(LogText(), "");
    EXPECT_THAT(details, IsEmpty());
    EXPECT_THAT(machine.Errors, IsEmpty());
    EXPECT_EQ(handler.ErrorNumber, 11);
    EXPECT_EQ(carriedOn, 2);
}

// What fails while the failure is shown belongs to the caller of the procedure that failed, whose name is
// still on top of the stack.
TEST_F(ErrorReportTest, AFailureOfTheDialogTravelsOn) {
    handler.ShowDetails = [this](const std::string& text) {
        details.push_back(text);
        if (details.size() == 1) throw Failure(FailureNumber::InvalidCall);
    };
    FailInside();
    EXPECT_THAT(machine.Errors, ElementsAre("modThree:Inner 5"));
    EXPECT_EQ(carriedOn, 1);
    EXPECT_EQ(handler.StackTop, 1);
}

}  // namespace
}  // namespace tabulon::test

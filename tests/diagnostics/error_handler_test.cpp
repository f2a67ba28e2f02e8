#include "diagnostics/error_handler_fixture.h"
#include "platform/failure_of.h"

namespace tabulon::test {
namespace {

using namespace testing;

class ProcStackTest : public ErrorHandlerTest {
  protected:
    ProcStackTest() {
        for (int depth = 0; depth <= 120; ++depth) names.push_back("mod:Level" + std::to_string(depth));
    }
    /// Calls itself down to a depth.
    void Descend(int depth, int deepest) {
        Procedure(handler, names[static_cast<std::size_t>(depth)], [&] {
            if (depth < deepest) Descend(depth + 1, deepest);
            reached.push_back(depth);
        });
    }
    std::vector<std::string> names;
    std::vector<int> reached;
};

TEST_F(ProcStackTest, HoldsAHundredProcedures) {
    Descend(1, 100);
    EXPECT_THAT(machine.Errors, IsEmpty());
    EXPECT_THAT(reached, SizeIs(100));
    EXPECT_EQ(handler.StackTop, 0);
}

// The push that fails has counted itself, so one name too many stays when all have returned.
TEST_F(ProcStackTest, TheNextPushFailsIntoItsCaller) {
    handler.IncludeExpandedInfo = false;
    Descend(1, 101);
    EXPECT_THAT(machine.Errors, ElementsAre(" 9"));
    EXPECT_THAT(reached, SizeIs(99)) << "neither level 101 nor the rest of level 100";
    const std::vector<std::string> lines = LogLines();
    ASSERT_EQ(lines.size(), 10u + 100 + 1);
    EXPECT_EQ(lines[6], "Error Procedure: ");
    EXPECT_EQ(lines[10], "01  mod:Level1");
    EXPECT_EQ(lines[108], "99" + std::string(198, ' ') + "mod:Level99");
    EXPECT_EQ(lines[109], "100" + std::string(200, ' ') + "mod:Level100");
    EXPECT_EQ(handler.StackTop, 1);
}

TEST_F(ProcStackTest, ASurplusPopDoesNothing) {
    handler.Pop();
    handler.Pop();
    EXPECT_EQ(handler.StackTop, 0);
    FailInside();
    EXPECT_EQ(LogLines()[10], "01  modOne:Outer");
}

TEST_F(ProcStackTest, TheCounterOverflowsLikeAnyOther) {
    handler.StackTop = 32767;
    EXPECT_EQ(FailureOf([&] { handler.Push("mod:One"); }), 6);
}

TEST_F(ProcStackTest, ANewBoundEmptiesTheNamesAndKeepsTheDepth) {
    handler.IncludeExpandedInfo = false;
    Procedure(handler, "mod:One", [&] {
        Procedure(handler, "mod:Two", [&] {
            handler.SetMaxProcStackItems(5);
            EXPECT_EQ(handler.StackTop, 2);
            Procedure(handler, "mod:Three", [&] { throw Failure(FailureNumber::Overflow); });
            throw Failure(FailureNumber::InvalidCall);
        });
    });
    EXPECT_THAT(machine.Errors, ElementsAre("mod:Three 6", " 5"));
    EXPECT_EQ(LogLines()[10], "03      mod:Three");
    EXPECT_EQ(handler.StackTop, 0);
    EXPECT_EQ(handler.MaxProcStackItems(), 5);
    machine.Errors.clear();
    Descend(1, 5);
    EXPECT_THAT(machine.Errors, IsEmpty());
    Descend(1, 6);
    EXPECT_THAT(machine.Errors, ElementsAre(" 9"));
}

class DestinationTest : public ErrorHandlerTest {
  protected:
    DestinationTest() { handler.SetDestination(table); }

    const std::shared_ptr<Recordset> table = std::make_shared<Recordset>(std::vector<std::string>{
        "ErrorDate", "ErrorString", "ErrorNumber", "ErrorLine", "ErrorProc", "CallStack", "AdditionalInfo"});
};

TEST_F(DestinationTest, ARecordsetGetsARecord) {
    handler.CurrentOperation = "saving";
    FailInside(Failure(FailureNumber::CustomError, std::string(300, 'x')));
    EXPECT_EQ(LogText(), "");
    ASSERT_EQ(table->RecordCount(), 1);
    table->MoveFirst();
    EXPECT_EQ(table->Field("ErrorDate"), "01/05/26 14:30:00");
    EXPECT_EQ(table->Field("ErrorString"), std::string(255, 'x'));
    EXPECT_EQ(table->Field("ErrorNumber"), "-2147220504");
    EXPECT_EQ(table->Field("ErrorLine"), "0");
    EXPECT_EQ(table->Field("ErrorProc"), "modThree:Inner");
    const std::string callStack =
        "01  modOne:Outer\r\n02    modTwo:Middle\r\n03      modThree:Inner\r\n\r\nCurrent Operation: saving";
    EXPECT_EQ(table->Field("CallStack"), callStack);
    EXPECT_EQ(
        table->Field("AdditionalInfo"),
        callStack + "Current Directory: " + std::filesystem::current_path().string() +
            "\r\nApp Title: Tab Player\r\nApp CompanyName: Corvane Software\r\nApp Major: 1\r\nApp Minor: "
            "0\r\nApp Revision: 0\r\nApp Path: /opt/tabulon/bin\r\nData Path: " +
            machine.AppDir().string() + "\r\nApp ProductName: Tabulon Player");
    EXPECT_THAT(details, SizeIs(1));
}

TEST_F(DestinationTest, ARecordMayGoWithoutTheExpandedPart) {
    handler.IncludeExpandedInfo = false;
    FailInside();
    EXPECT_EQ(table->Field("CallStack"),
              "01  modOne:Outer\r\n02    modTwo:Middle\r\n03      modThree:Inner\r\n");
    EXPECT_EQ(table->Field("AdditionalInfo"), "");
}

TEST_F(DestinationTest, ARecordThatCannotBeWrittenIsLost) {
    handler.SetDestination(std::make_shared<Recordset>(std::vector<std::string>{"ErrorDate"}));
    FailInside();
    EXPECT_THAT(details, SizeIs(1));
    EXPECT_THAT(machine.User.Boxes, IsEmpty());
    EXPECT_EQ(carriedOn, 2);
}

TEST_F(DestinationTest, AnEmptyRecordsetIsComplainedOf) {
    handler.SetDestination(std::shared_ptr<Recordset>());
    FailInside();
    ASSERT_THAT(machine.User.Boxes, SizeIs(1));
    EXPECT_EQ(
        machine.User.Boxes[0].Text,
        "Error handler cannot write to the [] errors table because the Destination recordset variable has "
        "not been initialized.");
    EXPECT_EQ(machine.User.Boxes[0].Title, "Tab Player");
    EXPECT_THAT(details, SizeIs(1));
    EXPECT_TRUE(handler.ClearLog());
}

TEST_F(DestinationTest, OtherKindsAreRefusedByTheirNumbers) {
    using Value = clsErrHandler::DestinationValue;
    const std::pair<Value, const char*> rows[] = {{Value(std::monostate()), "0"},
                                                  {Value(Integer(5)), "2"},
                                                  {Value(std::int32_t{5}), "3"},
                                                  {Value(5.0f), "4"},
                                                  {Value(5.0), "5"},
                                                  {Value(clsErrHandler::OtherObject()), "9"},
                                                  {Value(true), "11"}};
    for (const auto& [value, number] : rows) {
        Procedure(handler, "p", [&, &kind = value] { handler.SetDestination(kind); });
        EXPECT_EQ(handler.ErrorNumber, -2147220504);
        EXPECT_EQ(handler.ErrorString, std::string("Invalid object type: ") + number);
        EXPECT_EQ(std::get<std::shared_ptr<Recordset>>(handler.Destination()), table);
    }
}

TEST_F(DestinationTest, ClearLogRemovesEveryRecord) {
    for (int i = 0; i < 3; ++i) FailInside();
    EXPECT_EQ(table->RecordCount(), 3);
    EXPECT_TRUE(handler.ClearLog());
    EXPECT_EQ(table->RecordCount(), 0);
    EXPECT_TRUE(handler.ClearLog());
}

TEST_F(DestinationTest, ClearLogRemovesTheFile) {
    handler.SetDestination(std::string("ERRORS.TXT"));
    EXPECT_TRUE(handler.ClearLog()) << "also without one";
    FailInside();
    EXPECT_TRUE(handler.ClearLog());
    EXPECT_FALSE(std::filesystem::exists(machine.AppDir() / "ERRORS.TXT"));
}

class TraceTest : public ErrorHandlerTest {
  protected:
    void Run(const char* name) {
        Procedure(handler, name, [] {});
    }
};

TEST_F(TraceTest, HasALineForEachPush) {
    AppendToFile(machine.AppDir() / "trace.log", "of a former run");
    Run("mod:Before");
    handler.SetTraceExecution(false);
    EXPECT_EQ(LogText("trace.log"), "of a former run");
    handler.SetTraceExecution(true);
    Run("mod:One");
    FailInside();
    handler.SetTraceExecution(false);
    Run("mod:Off");
    EXPECT_EQ(LogText("trace.log"), "mod:One\r\nmodOne:Outer\r\nmodTwo:Middle\r\nmodThree:Inner\r\n");
    handler.SetTraceExecution(true);
    Run("mod:Again");
    EXPECT_EQ(LogText("trace.log"), "mod:Again\r\n");
}

TEST_F(TraceTest, ComplainsOfAFileThatCannotBeOpened) {
    LoseDataDirectory();
    handler.SetTraceExecution(true);
    ASSERT_THAT(machine.User.Boxes, SizeIs(1));
    EXPECT_THAT(machine.User.Boxes[0].Text, MatchesRegex("Error: [0-9]+\\. .+"));
    EXPECT_EQ(machine.User.Boxes[0].Title, "TraceExecution");
    EXPECT_TRUE(handler.TraceExecution());
    Run("mod:One");
    EXPECT_THAT(machine.Errors, IsEmpty());
}

}  // namespace
}  // namespace tabulon::test

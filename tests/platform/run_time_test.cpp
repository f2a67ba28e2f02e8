#include <functional>
#include <gmock/gmock.h>
#include <limits>
#include <utility>

#include "platform/array.h"
#include "platform/failure_of.h"
#include "platform/integer.h"
#include "platform/numbers.h"
#include "platform/procedure.h"
#include "platform/seeded_random.h"
#include "platform/stack_log.h"

namespace tabulon::test {
namespace {

TEST(NumbersTest, HalvesGoToTheEvenNeighbour) {
    const std::pair<double, int> rows[] = {{0.5, 0},   {1.5, 2},   {2.5, 2},  {3.5, 4},  {-0.5, 0},
                                           {-1.5, -2}, {-2.5, -2}, {2.49, 2}, {2.51, 3}, {-2.51, -3}};
    for (const auto& [value, rounded] : rows) EXPECT_EQ(ToLong(value), rounded) << value;
    EXPECT_EQ(ToLong(2147483646.5), 2147483646);
}

TEST(NumbersTest, WhatIsBeyondTheTypeOverflows) {
    constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
    constexpr double Infinite = std::numeric_limits<double>::infinity();
    for (const double value : {2147483647.5, -2147483649.0, 1e300, NotANumber, Infinite, -Infinite})
        EXPECT_EQ(FailureOf([&] { ToLong(value); }), 6) << value;
    EXPECT_EQ(ToLong(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(ToInteger(32767.4), Integer(32767));
    EXPECT_EQ(FailureOf([] { ToInteger(32767.5); }), 6);
    EXPECT_EQ(FailureOf([] { ToInteger("-32769"); }), 6);
    EXPECT_EQ(FailureOf([] { ToSingle("1e39"); }), 6);
}

TEST(NumbersTest, ReadsATextOrFails) {
    const std::pair<const char*, double> rows[] = {
        {"12", 12},   {" \t-1.5\r\n", -1.5}, {"+3", 3},  {".5", 0.5}, {"5.", 5},
        {"1e2", 100}, {"1E-2", .01},         {"007", 7}, {"-0", 0}};
    for (const auto& [text, value] : rows) EXPECT_EQ(ToDouble(text), value) << text;
    for (const char* text : {"", " ", "INF", "nan", "12 apples", "1 2", "0x10", "1,5", "--1", "+-1", "1e",
                             "e5", ".", "-", "&H10"})
        EXPECT_EQ(FailureOf([&] { ToDouble(text); }), 13) << text;
    EXPECT_EQ(FailureOf([] { ToDouble("1e999"); }), 6);
}

TEST(NumbersTest, SinglesAreShortest) {
    EXPECT_EQ(ToText(1.0f), "1");
    EXPECT_EQ(ToText(0.1f), "0.1");
    EXPECT_EQ(ToText(-1.5f), "-1.5");
    EXPECT_EQ(ToText(std::numeric_limits<std::int32_t>::min()), "-2147483648");
}

TEST(IntegerTest, OverflowFailsAndChangesNothing) {
    Integer most = 32767;
    Integer least = -32768;
    EXPECT_EQ(FailureOf([&] { ++most; }), 6);
    EXPECT_EQ(FailureOf([&] { least -= 1; }), 6);
    EXPECT_EQ(FailureOf([&] { (void)-least; }), 6);
    EXPECT_EQ(FailureOf([&] { (void)(least * least); }), 6);
    EXPECT_EQ(most, Integer(32767));
    EXPECT_EQ(least, Integer(-32768));
    EXPECT_EQ(Integer(-181) * Integer(181), Integer(-32761));
}

TEST(ArrayTest, OnlyIndicesWithinTheBoundsAreGood) {
    Array<bool> flags;
    EXPECT_EQ(flags.UBound(), -1);
    EXPECT_EQ(FailureOf([&] { flags[0] = true; }), 9);
    flags.ReDim(2);
    flags[2] = true;
    for (const int index : {-1, 3, std::numeric_limits<int>::min()})
        EXPECT_EQ(FailureOf([&] { flags[index] = true; }), 9);
    flags.ReDimPreserve(3);
    EXPECT_TRUE(flags[2]);
    EXPECT_FALSE(flags[3]);
    EXPECT_EQ(FailureOf([&] { flags.ReDim(-1); }), 9);
    EXPECT_EQ(flags.UBound(), 3);
    flags.ReDim(2);
    EXPECT_FALSE(flags[2]);
}

class FixedDraw : public Random {
  public:
    explicit FixedDraw(float value) : m_value(value) {}
    float Rnd() override { return m_value; }
    void Randomize() override {}

  private:
    float m_value;
};

TEST(RandomTest, TheGreatestDrawStaysInTheRange) {
    FixedDraw greatest(1 - 0x1p-24f);
    for (const int range : {1, 4, 6, 1000, 32767}) EXPECT_EQ(greatest.Draw(range, 1), range);
    EXPECT_EQ(FixedDraw(0).Draw(6, 1), 1);
    EXPECT_EQ(FixedDraw(0.5f).Draw(3, -2), -1);
}

TEST(RandomTest, AGeneratorIsUniformAndFollowsItsSeed) {
    SeededRandom one(1);
    SeededRandom same(1);
    SeededRandom other(2);
    constexpr int Draws = 60000;
    int counts[6] = {};
    int differences = 0;
    for (int n = 0; n < Draws; ++n) {
        const float value = one.Rnd();
        ASSERT_TRUE(value >= 0 && value < 1);
        ASSERT_EQ(value, same.Rnd());
        differences += value != other.Rnd();
        ++counts[static_cast<int>(value * 6)];
    }
    for (const int count : counts) EXPECT_NEAR(count, Draws / 6, 500);
    EXPECT_GT(differences, Draws - 10);
}

TEST(ProcedureTest, ReportsOnceAndLetsTheCallerGoOn) {
    StackLog stack;
    int result = 0;
    Procedure(stack, "outer", [&] {
        Procedure(stack, "inner", [&] {
            result = 1;
            (void)Array<int>()[0];
            result = 2;
        });
        result += 10;
    });
    EXPECT_EQ(stack.log, "+outer+inner!9 Subscript out of range--");
    EXPECT_EQ(result, 11);
}

TEST(ProcedureTest, ExceptionsOfLibrariesAreFailures) {
    const struct {
        const char* name;
        std::function<void()> body;
        const char* log;
    } rows[] = {
        {"memory", [] { throw std::bad_alloc(); }, "+p!7 Out of memory.-"},
        {"another", [] { throw std::runtime_error("odd"); }, "+p!51 odd.-"},
        {"none", [] {}, "+p-"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        StackLog stack;
        Procedure(stack, "p", row.body, [&] { stack.log += "."; });
        EXPECT_EQ(stack.log, row.log);
    }
}

TEST(ProcedureTest, TheEndOfTheProgramIsNoFailure) {
    StackLog stack;
    EXPECT_THROW(Procedure(stack, "p", [] { throw ProgramEnd{}; }), ProgramEnd);
    EXPECT_EQ(stack.log, "+p");
}

}  // namespace
}  // namespace tabulon::test

#include "content/persisted_recordset.h"

#include <gmock/gmock.h>

#include "platform/failure_of.h"
#include "platform/seeded_random.h"
#include "platform/text.h"

namespace tabulon {
namespace {

using namespace std::string_literals;
using test::FailureOf;

constexpr int Overflow = 6, TypeMismatch = 13, Unreadable = 57, Null = 94, NoColumn = 3265;

const std::string Bindings =
    "xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882' "
    "xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882' "
    "xmlns:rs='urn:schemas-microsoft-com:rowset' xmlns:z='#RowsetSchema'";
const std::string Schema =
    "<s:Schema id='RowsetSchema'><s:ElementType name='row' content='eltOnly'>"
    "<s:AttributeType name='Number' rs:number='1'><s:datatype dt:type='int'/></s:AttributeType>"
    "<s:AttributeType name='Single'><s:datatype dt:type='r4' dt:maxLength='4'/></s:AttributeType>"
    "<s:AttributeType name='Text'><s:datatype dt:type='string' rs:dbtype='str'/></s:AttributeType>"
    "<s:extends type='rs:rowbase'/></s:ElementType></s:Schema>";

std::string Table(const std::string& data) { return "<xml " + Bindings + ">" + Schema + data + "</xml>"; }
std::string OneRow(const std::string& attributes) {
    return Table("<rs:data><z:row " + attributes + "/></rs:data>");
}

/// "1:a 2:b": Number and Text of every row.
std::string RowsOf(const std::string& bytes) {
    const PersistedRecordset table(bytes);
    std::string rows;
    for (const auto& row : table.Rows()) rows += " " + row.Text("Number") + ":" + row.Text("Text");
    return rows.empty() ? rows : rows.substr(1);
}

struct Form {
    const char* Name;
    std::string Bytes;
    std::string Rows;
};
class RecordsetFormTest : public testing::TestWithParam<Form> {};

TEST_P(RecordsetFormTest, GivesItsRows) { EXPECT_EQ(RowsOf(GetParam().Bytes), GetParam().Rows); }

const std::string Row1 = "<z:row Number='1' Text='a'/>", Row2 = "<z:row Number='2' Text='b'/>";
const std::string Both = "<rs:data>" + Row1 + Row2 + "</rs:data>";

INSTANTIATE_TEST_SUITE_P(
    All, RecordsetFormTest,
    testing::Values(
        Form{"Plain", Table(Both), "1:a 2:b"}, Form{"NoRows", Table("<rs:data/>"), ""},
        Form{"NoData", Table(""), ""},
        Form{"PrefixBoundAnew",
             Table("<rs:data>" + Row1 + "<z:row xmlns:z='urn:other' Number='3' Text='c'/>" + Row2 +
                   "</rs:data>"),
             "1:a 2:b"},
        Form{"PendingRows", Table("<rs:data>" + Row1 + "<rs:insert>" + Row2 + "</rs:insert></rs:data>"),
             "1:a 2:b"},
        Form{"ChangedAndRemovedRows",
             Table("<rs:data>" + Row1 + "<rs:delete>" + Row2 + "</rs:delete><rs:update><rs:original>" + Row2 +
                   "</rs:original></rs:update></rs:data>"),
             "1:a"},
        Form{"CurrentRowsOfAnUpdate",
             Table("<rs:data><rs:update><rs:original>" + Row1 +
                   "</rs:original><z:row Text='new'/></rs:update>" + Row2 + "<rs:update><rs:original>" +
                   Row2 + "</rs:original>" + Row1 + "<rs:original>" + Row1 +
                   "</rs:original><z:row Number='3'/></rs:update></rs:data>"),
             "1:new 2:b 1:a 3:a"},
        Form{"ByteOrderMark", "\xEF\xBB\xBF" + Table(Both), "1:a 2:b"},
        Form{"Declaration", "<?xml version='1.0' encoding='windows-1252'?>" + Table(Both), "1:a 2:b"},
        Form{"DoubleQuotes", ReplaceAll(Table(Both), "'", "\""), "1:a 2:b"},
        Form{"AnyOrderAndMore", OneRow("Else='x' Text='a' Single='0' Number='1'"), "1:a"},
        Form{"OtherPrefixes",
             "<t xmlns:a='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882' xmlns='#RowsetSchema'"
             " xmlns:z='urn:schemas-microsoft-com:rowset' "
             "xmlns:rs='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'>"
             "<a:Schema><a:AttributeType name='Number' rs:type='int'/><a:AttributeType name='c1' "
             "z:name='Text'/>"
             "</a:Schema><z:data><row Number='01' c1='a'/></z:data></t>",
             "1:a"},
        Form{"PrefixesBoundToOther",
             "<xml " + ReplaceAll(Bindings, "xmlns:z='#RowsetSchema'", "xmlns:z='urn:other'") + ">" + Schema +
                 Both + "</xml>",
             ""},
        Form{"Entities", OneRow("Number='1' Text='&lt;&amp;&#65;&#xe9;&#13;&#10;'"), "1:<&A\u00E9\r\n"},
        Form{"Utf8", OneRow("Number='1' Text='\u00E9\u20AC'"), "1:\u00E9\u20AC"},
        Form{"Windows1252", OneRow("Number='1' Text='\xE9\x80'"), "1:\u00E9\u20AC"},
        Form{"ColumnNamesWithoutCase", ReplaceAll(OneRow("TEXT='a' Number='1'"), "'Text'", "'TEXT'"), "1:a"}),
    [](const auto& row) { return std::string(row.param.Name); });

TEST(PersistedRecordsetTest, ReadsUtf16) {
    std::string wide = "\xFF\xFE";
    for (const char c : Table(Both)) wide += {c, '\0'};
    EXPECT_EQ(RowsOf(wide), "1:a 2:b");
}

struct Unusable {
    const char* Name;
    std::string Bytes;
};
class UnusableRecordsetTest : public testing::TestWithParam<Unusable> {};

TEST_P(UnusableRecordsetTest, Fails) {
    EXPECT_EQ(FailureOf([] { PersistedRecordset{GetParam().Bytes}; }), Unreadable);
}

std::string Repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (; times > 0; --times) all += text;
    return all;
}

INSTANTIATE_TEST_SUITE_P(
    All, UnusableRecordsetTest,
    testing::Values(
        Unusable{"Empty", ""}, Unusable{"NoXml", "Sequence,Top\n1,2\n"},
        Unusable{"Zeros", std::string(64, '\0')},
        Unusable{"NoSchema", "<xml " + Bindings + ">" + Both + "</xml>"},
        Unusable{"WrongEnd", Table("<rs:data></rs:date>")},
        Unusable{"OpenQuote", Table("<rs:data><z:row Number='1/></rs:data>")},
        Unusable{"NestedDeeply", Table(Repeated("<a>", 100'000) + Repeated("</a>", 100'000))},
        Unusable{"TooManyAttributesAround",
                 Table("<a" + Repeated(" b=''", limits::ElementAttributes + 1) + "><b/></a>")},
        Unusable{"TooManyAttributesOfAColumn", "<xml " + Bindings + "><s:Schema><s:AttributeType" +
                                                   Repeated(" rs:name=''", limits::ElementAttributes + 1) +
                                                   "/></s:Schema>" + Both + "</xml>"},
        Unusable{"TooManyAttributesOfAChangedRow",
                 Table("<rs:data><rs:update><z:row" + Repeated(" b=''", limits::ElementAttributes + 1) +
                       "/></rs:update></rs:data>")},
        Unusable{"TooManyColumns", "<xml " + Bindings + "><s:Schema>" +
                                       Repeated("<s:AttributeType name='x'/>", limits::Columns + 1) +
                                       "</s:Schema>" + Both + "</xml>"},
        Unusable{"TooManyRows", Table("<rs:data>" + Repeated(Row1, limits::Rows + 1) + "</rs:data>")},
        Unusable{"TooLarge", Table(std::string(limits::ContentFileBytes, ' '))}),
    [](const auto& row) { return std::string(row.param.Name); });

TEST(PersistedRecordsetTest, ARowOfAMillionAttributesIsRead) {
    EXPECT_EQ(RowsOf(OneRow(Repeated("x='' ", 1'000'000) + "Number='1' Text='a'")), "1:a");
}

struct Cell {
    const char* Name;
    const char* Attributes;
    int Failure;  // of ToInteger; 0 when it succeeds
    int Value = 0;
    const char* Column = "Number";
};
class CellTest : public testing::TestWithParam<Cell> {};

TEST_P(CellTest, Converts) {
    const PersistedRecordset table(OneRow(GetParam().Attributes));
    Integer value;
    EXPECT_EQ(FailureOf([&] { value = table.Rows()[0].ToInteger(GetParam().Column); }), GetParam().Failure);
    EXPECT_EQ(value, GetParam().Value);
}
INSTANTIATE_TEST_SUITE_P(
    All, CellTest,
    testing::Values(Cell{"Whole", "Number='-32768'", 0, -32768},
                    Cell{"HalfToEven", "Single='2.5'", 0, 2, "Single"},
                    Cell{"HalfToTheOtherEven", "Single='3.5'", 0, 4, "Single"},
                    Cell{"RoundedToASingleFirst", "Single='2.4999999999'", 0, 2, "Single"},
                    Cell{"OfAText", "Text=' 7 '", 0, 7, "Text"}, Cell{"Blank", "Number=''", TypeMismatch},
                    Cell{"Infinite", "Single='INF'", TypeMismatch, 0, "Single"},
                    Cell{"NotANumber", "Single='NaN'", TypeMismatch, 0, "Single"},
                    Cell{"Words", "Number='12 apples'", TypeMismatch},
                    Cell{"Above", "Number='32768'", Overflow},
                    Cell{"BeyondASingle", "Single='1e39'", Overflow, 0, "Single"},
                    Cell{"BeyondADouble", "Number='1e999'", Overflow}, Cell{"NullValue", "Text='x'", Null},
                    Cell{"Unknown", "Other='1'", NoColumn, 0, "Other"}),
    [](const auto& row) { return std::string(row.param.Name); });

TEST(PersistedRecordsetTest, NumbersHaveTheirShortestText) {
    const std::string schema = ReplaceAll(Schema, "name='Text'><s:datatype dt:type='string'",
                                          "name='Wide'><s:datatype dt:type='r8'/></s:AttributeType>"
                                          "<s:AttributeType name='Text'><s:datatype dt:type='string'");
    const PersistedRecordset table(
        "<xml " + Bindings + ">" + schema +
        "<rs:data><z:row Number='+007' Single='1.50' Wide='2.0' Text='01.0'/></rs:data></xml>");
    const auto& row = table.Rows()[0];
    EXPECT_EQ(row.Text("Wide"), "2");
    EXPECT_EQ(row.Text("Number"), "7");
    EXPECT_EQ(row.Text("Single"), "1.5");
    EXPECT_EQ(row.Text("Text"), "01.0");
}

TEST(PersistedRecordsetTest, RowsKnowTheirLine) {
    const PersistedRecordset table("\xEF\xBB\xBF<?xml version='1.0'?>\r\n" +
                                   Table("\n<rs:data>\n" + Row1 + "\n\n<z:row\nNumber='2'/>\n</rs:data>"));
    EXPECT_EQ(table.Rows()[0].Line(), 4);
    EXPECT_EQ(table.Rows()[1].Line(), 6);
}

TEST(PersistedRecordsetTest, ColumnsMayBeAskedInAnyOrder) {
    const PersistedRecordset table(OneRow("Number='1' Single='2' Text='3'"));
    const auto& row = table.Rows()[0];
    for (int n = 0; n < 2; ++n) {
        EXPECT_EQ(row.Text("Text"), "3");
        EXPECT_EQ(row.ToSingle("Single"), 2.0F);
        EXPECT_EQ(row.ToLong("Number"), 1);
        EXPECT_FALSE(row.IsNull("Single"));
    }
}

TEST(PersistedRecordsetTest, DamageEndsInAFailureOrInRows) {
    const std::string whole = Table(Both);
    SeededRandom chance(1);
    for (int n = 0; n < 3000; ++n) {
        std::string bytes =
            whole.substr(0, static_cast<std::size_t>(chance.Draw(2, 0)) == 0
                                ? whole.size()
                                : static_cast<std::size_t>(chance.Draw(static_cast<int>(whole.size()), 0)));
        for (int flips = chance.Draw(4, 0); flips > 0 && !bytes.empty(); --flips)
            bytes[static_cast<std::size_t>(chance.Draw(static_cast<int>(bytes.size()), 0))] =
                static_cast<char>(chance.Draw(256, 0));
        try {
            RowsOf(bytes);
        } catch (const Failure& failure) {
            EXPECT_THAT(failure.Number(), testing::AnyOf(Overflow, TypeMismatch, Unreadable, Null, NoColumn));
        }
    }
}

}  // namespace
}  // namespace tabulon

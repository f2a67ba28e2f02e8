#include "info/rich_text.h"

#include <gmock/gmock.h>
#include <random>

namespace tabulon {
namespace {

/// All characters: bullets as "* ", paragraphs end with "|".
std::string TextOf(const std::vector<TextParagraph>& paragraphs) {
    std::string text;
    for (const TextParagraph& paragraph : paragraphs) {
        if (paragraph.Bullet) text += "* ";
        for (const TextRun& run : paragraph.Runs) text += run.Text;
        text += "|";
    }
    return text;
}

struct TextRow {
    const char* Name;
    std::string Source;  // without what stands around
    std::string Text;
};

const TextRow Characters[] = {
    {"Empty", "", ""},
    {"Paragraphs", "a\\par b\\par\\par c", "a|b||c|"},
    {"SourceLinesDoNotCount", "a\r\nb\nc", "abc|"},
    {"LineAndTab", "a\\line b\\tab c", "a\nb\tc|"},
    {"EscapedNewLineIsAParagraph", "a\\\nb", "a|b|"},
    {"EscapedSymbols", "\\{a\\}\\\\", "{a}\\|"},
    {"WesternByDefault", "caf\\'e9 \\'80", "caf\u00E9 \u20AC|"},
    {"RawByte", "caf\xE9", "caf\u00E9|"},
    {"Cyrillic", "\\ansicpg1251 \\'cf\\'f0", "\u041F\u0440|"},
    {"CentralEuropean", "\\ansicpg1250 \\'9e\\'9a", "\u017E\u0161|"},
    {"PC437", "\\pc \\'81", "\u00FC|"},
    {"PC850", "\\pca \\'9b", "\u00F8|"},
    {"Macintosh", "\\mac \\'8e", "\u00E9|"},
    {"PageOfTheFont", "{\\fonttbl{\\f0 A;}{\\f1\\fcharset204 B;}}\\'e9{\\f1 \\'e9}\\'e9",
     "\u00E9\u0439\u00E9|"},
    {"TwoBytesOfOneCharacter", "{\\fonttbl{\\f0\\fcharset128 A;}}\\f0 \\'93\\'fa", "\u65E5|"},
    {"UnknownPageIsWestern", "\\ansicpg4711 \\'e9", "\u00E9|"},
    {"UnknownByte", "\\ansicpg1253 \\'d2x", "\uFFFDx|"},
    {"Unicode", "\\u8364?\\u-8704?", "\u20AC\uFFFD|"},
    {"UnicodePair", "\\u-10179?\\u-8704?", "\U0001F600|"},
    {"UnicodeSkipsMore", "\\uc2\\u233\\'c3\\'a9x{\\uc0\\u233y}", "\u00E9x\u00E9y|"},
    {"UnicodeSkipEndsWithTheGroup", "{\\u233}x", "\u00E9x|"},
    {"UnicodeSkipTakesAWord", "\\u233\\tab x", "\u00E9x|"},
    {"NamedCharacters", "\\ldblquote a\\rdblquote\\emdash\\~\\bullet", "\u201Ca\u201D\u2014\u00A0\u2022|"},
    {"HiddenText", "a{\\v b}c", "ac|"},
    {"UnknownWords", "\\foo12\\bar a\\-b\\:c", "abc|"},
    {"Destinations", "{\\info{\\author Me}}{\\*\\new{x}y}{\\pict 0a0b}{\\stylesheet{\\s0 N;}}a", "a|"},
    {"BinaryData", "a{\\pict\\bin3 }}}}b", "ab|"},
    {"BinaryDataInText", "{a\\bin1 }}b", "ab|"},
    {"Link", "see {\\field{\\*\\fldinst{HYPERLINK \"http://x.org\"}}{\\fldrslt{\\ul this}}}", "see this|"},
    {"Table", "\\trowd a\\cell b\\cell\\row c\\cell\\row", "a\tb\t|c\t|"},
    {"Bullets", "{\\pntext\\'b7\\tab}a\\par{\\listtext\\bullet\\tab}b\\par c", "* a|* b|c|"},
    {"CircleBullet", "{\\pntext o\\tab}a", "* a|"},
    {"NumberedList", "{\\pntext 12.\\tab}a", "12.\ta|"},
    {"SymbolBullet", "{\\fonttbl{\\f3\\fcharset2 Symbol;}}{\\pntext\\f3\\'b7\\tab}a", "* a|"},
    {"PrivateBullet", "\\u-3913?a", "\u2022a|"},
};

TEST(RichTextTest, CharactersAreReadLikeThis) {
    for (const TextRow& row : Characters)
        EXPECT_EQ(TextOf(ReadRichText("{\\rtf1\\ansi " + row.Source + "}")), row.Text) << row.Name;
}

TEST(RichTextTest, LooksFollowTheirGroups) {
    const auto paragraphs = ReadRichText(
        "{\\rtf1\\deff1{\\fonttbl{\\f0\\froman Times New Roman{\\*\\falt Times};}{\\f1\\fswiss Arial;}}"
        "{\\colortbl;\\red255\\green0\\blue16;\\red1\\green2\\blue3;}"
        "\\fs20 a{\\b\\i\\f0\\cf1 b\\b0 c}{\\ul\\fs37 d\\ulnone e}\\cf9\\plain f}");
    ASSERT_EQ(paragraphs.size(), 1u);
    const Font arial{"Arial", 10, false};
    const Font times{"Times New Roman", 10, false};
    const Colour red{255, 0, 16};
    const std::vector<TextRun> wanted = {{"a", arial, false, false, {}},
                                         {"b", {times.Name, 10, true}, true, false, red},
                                         {"c", times, true, false, red},
                                         {"d", {"Arial", 19, false}, false, true, {}},
                                         {"e", {"Arial", 19, false}, false, false, {}},
                                         {"f", {"Arial", 12, false}, false, false, {}}};
    EXPECT_EQ(paragraphs[0].Runs, wanted);
}

TEST(RichTextTest, ParagraphsHaveAlignmentAndIndent) {
    const auto paragraphs =
        ReadRichText("{\\rtf1\\qc a\\par\\qr b\\par\\qj\\li720 c\\par{\\pard d\\par}e\\par\\li-20\\ql f}");
    ASSERT_EQ(paragraphs.size(), 6u);
    const struct {
        TextAlignment alignment;
        int indent;
    } rows[] = {{TextAlignment::Centre, 0}, {TextAlignment::Right, 0},      {TextAlignment::Justified, 36},
                {TextAlignment::Left, 0},   {TextAlignment::Justified, 36}, {TextAlignment::Left, 0}};
    for (std::size_t i = 0; i < paragraphs.size(); ++i) {
        EXPECT_EQ(paragraphs[i].Alignment, rows[i].alignment) << i;
        EXPECT_EQ(paragraphs[i].Indent, rows[i].indent) << i;
    }
}

const std::string Small =
    "{\\rtf1\\ansi\\ansicpg1250\\deff0{\\fonttbl{\\f0\\fcharset238 Arial;}{\\f1\\fcharset128 Mincho;}}"
    "{\\colortbl;\\red255\\green0\\blue0;}{\\*\\generator X;}\\pard\\qc{\\b\\fs40\\cf1 Title}\\par"
    "{\\pntext\\f0\\'b7\\tab}one \\u8364?\\u-10179?\\u-8704?\\par{\\f1\\'93\\'fa}\\tab{\\pict\\bin4 "
    "}{}{}\\'9a\\line}";

TEST(RichTextDamageTest, CutOffTextIsRefusedWhereverItIsCut) {
    EXPECT_NO_THROW(ReadRichText(Small));
    for (std::size_t length = 0; length < Small.size(); ++length)
        EXPECT_THROW(ReadRichText(Small.substr(0, length)), Failure) << length;
}

TEST(RichTextDamageTest, FlippedBytesAreReadOrRefused) {
    std::mt19937 random(7);
    for (int round = 0; round < 1500; ++round) {
        std::string damaged = Small;
        for (int i = 0; i < 3; ++i) damaged[random() % damaged.size()] = static_cast<char>(random());
        try {
            ReadRichText(damaged);
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), static_cast<int>(FailureNumber::FileIoError));
        }
    }
}

std::string Repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

TEST(RichTextDamageTest, WhatGrowsBeyondAllMeasureIsRefused) {
    const struct {
        const char* name;
        std::string content;
    } rows[] = {{"depth", Repeated("{", 100'000)},
                {"runs", Repeated("\\b a\\b0 b", 150'000)},
                {"paragraphs", Repeated("\\par", 300'000)},
                {"colours", "{\\colortbl" + Repeated(";", 5000) + "}"}};
    for (const auto& row : rows)
        EXPECT_THROW(ReadRichText("{\\rtf1" + row.content + "}"), Failure) << row.name;
}

TEST(RichTextDamageTest, NumbersBeyondAllMeasureChangeNothingElse) {
    const auto paragraphs = ReadRichText(
        "{\\rtf1\\fs2147483647 a\\fs-7 b\\fs99999999999999999999 c\\li999999999 \\uc-5 \\cf-1 \\f-3 d}");
    EXPECT_EQ(TextOf(paragraphs), "abcd|");
    for (const TextRun& run : paragraphs[0].Runs) {
        EXPECT_GE(run.Font.Size, 1);
        EXPECT_LE(run.Font.Size, 200);
    }
}

}  // namespace
}  // namespace tabulon

#include <algorithm>

#include "info/rich_text_reader.h"

namespace tabulon {

namespace {

struct CharsetPage {
    int Charset;
    int Page;
};

constexpr int SymbolCharset = 2;

constexpr CharsetPage CharsetPages[] = {
    {0, 1252},   {77, CodePages::Macintosh},
    {128, 932},  {129, 949},
    {134, 936},  {136, 950},
    {161, 1253}, {162, 1254},
    {163, 1258}, {177, 1255},
    {178, 1256}, {186, 1257},
    {204, 1251}, {222, 874},
    {238, 1250}, {254, 437},
    {255, 850},
};

constexpr int TwipsPerPoint = 20;
constexpr int WidestIndent = 1000;  // points

}  // namespace

constexpr RichTextReader::Word RichTextReader::Words[] = {
    {"ansicpg", &RichTextReader::DocumentPage, CodePages::Western},
    {"b", &RichTextReader::Bold, 1},
    {"bin", &RichTextReader::BinaryData, 0},
    {"blue", &RichTextReader::Blue, 0},
    {"bullet", &RichTextReader::Character, 0x2022},
    {"cell", &RichTextReader::Character, '\t'},
    {"cf", &RichTextReader::ColourNumber, 0},
    {"colortbl", &RichTextReader::ColourTable, 0},
    {"column", &RichTextReader::EndParagraph, 0},
    {"cpg", &RichTextReader::FontPage, 0},
    {"deff", &RichTextReader::UsualFont, 0},
    {"emdash", &RichTextReader::Character, 0x2014},
    {"emspace", &RichTextReader::Character, 0x2003},
    {"endash", &RichTextReader::Character, 0x2013},
    {"enspace", &RichTextReader::Character, 0x2002},
    {"f", &RichTextReader::FontNumber, 0},
    {"fcharset", &RichTextReader::FontCharset, 0},
    {"fldinst", &RichTextReader::SkipGroup, 0},
    {"fonttbl", &RichTextReader::FontTable, 0},
    {"footer", &RichTextReader::SkipGroup, 0},
    {"footerf", &RichTextReader::SkipGroup, 0},
    {"footerl", &RichTextReader::SkipGroup, 0},
    {"footerr", &RichTextReader::SkipGroup, 0},
    {"footnote", &RichTextReader::SkipGroup, 0},
    {"fs", &RichTextReader::Size, 24},
    {"green", &RichTextReader::Green, 0},
    {"header", &RichTextReader::SkipGroup, 0},
    {"headerf", &RichTextReader::SkipGroup, 0},
    {"headerl", &RichTextReader::SkipGroup, 0},
    {"headerr", &RichTextReader::SkipGroup, 0},
    {"i", &RichTextReader::Italic, 1},
    {"info", &RichTextReader::SkipGroup, 0},
    {"ldblquote", &RichTextReader::Character, 0x201C},
    {"li", &RichTextReader::Indent, 0},
    {"line", &RichTextReader::Character, '\n'},
    {"listtable", &RichTextReader::SkipGroup, 0},
    {"listtext", &RichTextReader::ListText, 0},
    {"lquote", &RichTextReader::Character, 0x2018},
    {"mac", &RichTextReader::DocumentPage, CodePages::Macintosh},
    {"nestcell", &RichTextReader::Character, '\t'},
    {"nestrow", &RichTextReader::EndParagraph, 0},
    {"nonshppict", &RichTextReader::SkipGroup, 0},
    {"object", &RichTextReader::SkipGroup, 0},
    {"page", &RichTextReader::EndParagraph, 0},
    {"par", &RichTextReader::EndParagraph, 0},
    {"pard", &RichTextReader::ParagraphDefaults, 0},
    {"pc", &RichTextReader::DocumentPage, 437},
    {"pca", &RichTextReader::DocumentPage, 850},
    {"pict", &RichTextReader::SkipGroup, 0},
    {"plain", &RichTextReader::Plain, 0},
    {"pntext", &RichTextReader::ListText, 0},
    {"qc", &RichTextReader::Align, static_cast<int>(TextAlignment::Centre)},
    {"qj", &RichTextReader::Align, static_cast<int>(TextAlignment::Justified)},
    {"ql", &RichTextReader::Align, static_cast<int>(TextAlignment::Left)},
    {"qr", &RichTextReader::Align, static_cast<int>(TextAlignment::Right)},
    {"rdblquote", &RichTextReader::Character, 0x201D},
    {"red", &RichTextReader::Red, 0},
    {"row", &RichTextReader::EndParagraph, 0},
    {"rquote", &RichTextReader::Character, 0x2019},
    {"rxe", &RichTextReader::SkipGroup, 0},
    {"sect", &RichTextReader::EndParagraph, 0},
    {"stylesheet", &RichTextReader::SkipGroup, 0},
    {"tab", &RichTextReader::Character, '\t'},
    {"tc", &RichTextReader::SkipGroup, 0},
    {"u", &RichTextReader::Unicode, 0xFFFD},
    {"uc", &RichTextReader::UnicodeSkip, 1},
    {"ul", &RichTextReader::Underline, 1},
    {"uld", &RichTextReader::Underline, 1},
    {"uldash", &RichTextReader::Underline, 1},
    {"uldb", &RichTextReader::Underline, 1},
    {"ulnone", &RichTextReader::Underline, 0},
    {"ulth", &RichTextReader::Underline, 1},
    {"ulw", &RichTextReader::Underline, 1},
    {"ulwave", &RichTextReader::Underline, 1},
    {"v", &RichTextReader::Hidden, 1},
    {"xe", &RichTextReader::SkipGroup, 0},
};

const RichTextReader::Word* RichTextReader::Find(std::string_view name) {
    static_assert(std::ranges::is_sorted(Words, {}, &Word::Name));
    const Word* end = std::end(Words);
    const Word* found = std::ranges::lower_bound(std::begin(Words), end, name, {}, &Word::Name);
    return found != end && found->Name == name ? found : nullptr;
}

void RichTextReader::Into(Destination destination) {
    if (Top().Into != Destination::Skipped) Top().Into = destination;
}

void RichTextReader::SkipGroup(int) { Into(Destination::Skipped); }

void RichTextReader::FontTable(int) { Into(Destination::FontTable); }

void RichTextReader::ColourTable(int) {
    m_builder.Colours.clear();
    Into(Destination::ColourTable);
}

void RichTextReader::ListText(int) { Into(Destination::ListText); }

void RichTextReader::BinaryData(int size) {
    m_at += std::min(m_bytes.size() - m_at, static_cast<std::size_t>(std::max(size, 0)));
}

void RichTextReader::Unicode(int code) {
    m_skip = Top().UnicodeSkip;
    Utf16(static_cast<char16_t>(code));
}

void RichTextReader::Utf16(char16_t unit) {
    if (unit >= 0xD800 && unit < 0xDC00) {
        m_firstHalf = unit;
        return;
    }
    char32_t character = unit;
    if (m_firstHalf != 0 && unit >= 0xDC00 && unit < 0xE000)
        character = 0x10000u + ((m_firstHalf - 0xD800u) << 10) + (unit - 0xDC00u);
    m_firstHalf = 0;
    // The private place of fonts of symbols: nearly always a bullet.
    Text(character >= 0xF000 && character < 0xF100 ? "\u2022" : Utf8Of(character));
}

void RichTextReader::UnicodeSkip(int count) { Top().UnicodeSkip = std::clamp(count, 0, 255); }

void RichTextReader::DocumentPage(int page) { m_builder.CodePage = page; }

void RichTextReader::UsualFont(int number) { m_builder.UsualFont = number; }

void RichTextReader::FontNumber(int number) {
    constexpr std::size_t mostFonts = 4096;
    Top().Look.Font = number;
    if (Top().Into != Destination::FontTable) return;
    if (m_builder.Fonts.size() >= mostFonts) throw Failure(FailureNumber::FileIoError, "Rich text too large");
    m_tableFont = number;
    m_builder.Fonts[number] = {};
}

void RichTextReader::FontCharset(int charset) {
    if (Top().Into != Destination::FontTable) return;
    RichTextFont& font = m_builder.Fonts[m_tableFont];
    font.Symbols = charset == SymbolCharset;
    const auto found = std::ranges::find(CharsetPages, charset, &CharsetPage::Charset);
    if (found != std::end(CharsetPages)) font.CodePage = found->Page;
}

void RichTextReader::FontPage(int page) {
    if (Top().Into == Destination::FontTable) m_builder.Fonts[m_tableFont].CodePage = page;
}

void RichTextReader::Plain(int) { Top().Look = {}; }

void RichTextReader::ParagraphDefaults(int) {
    Top().Alignment = TextAlignment::Left;
    Top().Indent = 0;
}

void RichTextReader::Indent(int twips) { Top().Indent = std::clamp(twips / TwipsPerPoint, 0, WidestIndent); }

void RichTextReader::EndParagraph(int) {
    if (Top().Into == Destination::Text) m_builder.EndParagraph(Top().Alignment, Top().Indent);
}

}  // namespace tabulon

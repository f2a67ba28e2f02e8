#include "info/rich_text.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "info/rich_text_reader.h"

namespace tabulon {

namespace {

constexpr std::string_view Beginning = "{\\rtf";
constexpr std::size_t DeepestGroup = 200;
constexpr std::size_t LongestListText = 64;
constexpr std::size_t LongestFontName = 128;
constexpr std::size_t MostColours = 4096;
constexpr std::string_view NonBreakingSpace = "\u00A0";
constexpr std::string_view NonBreakingHyphen = "\u2011";

[[noreturn]] void FailDamaged(const char* why) { throw Failure(FailureNumber::FileIoError, why); }

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// What stands before an item of a list is a bullet, unless it is a number or a letter that counts.
bool IsBullet(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(" \t");
    if (begin == text.npos) return false;
    const std::string_view mark = text.substr(begin, text.find_last_not_of(" \t") + 1 - begin);
    return mark == "o" || std::ranges::none_of(mark, [](char c) { return IsLetter(c) || IsDigit(c); });
}

}  // namespace

bool IsRichText(std::string_view bytes) { return bytes.starts_with(Beginning); }

std::vector<TextParagraph> ReadRichText(std::string_view bytes) { return RichTextReader(bytes).Read(); }

std::vector<TextParagraph> RichTextReader::Read() {
    if (!IsRichText(m_bytes)) FailDamaged("This is no rich text");
    m_at = 1;
    m_groups.emplace_back();
    while (!m_groups.empty()) Token();
    return m_builder.TakeParagraphs();
}

char RichTextReader::Next() {
    if (AtEnd()) FailDamaged("The rich text is cut off");
    return m_bytes[m_at++];
}

void RichTextReader::Token() {
    const char c = Next();
    switch (c) {
        case '{':
            Open();
            break;
        case '}':
            Close();
            break;
        case '\\':
            Control();
            break;
        case '\r':
        case '\n':
        case '\0':
            break;
        default:
            Byte(c);
    }
}

void RichTextReader::Open() {
    FlushBytes();
    if (m_groups.size() >= DeepestGroup) FailDamaged("The groups of the rich text are too deep");
    m_skip = 0;
    m_groups.push_back(Group(Top()));
}

void RichTextReader::Close() {
    FlushBytes();
    m_skip = 0;
    const Group closed = Top();
    m_groups.pop_back();
    if (m_groups.empty()) {
        m_builder.EndText(closed.Alignment, closed.Indent);
    } else if (closed.Into == Destination::ListText && Top().Into != Destination::ListText) {
        EndListText();
    }
}

void RichTextReader::Control() {
    const char c = Next();
    if (!IsLetter(c)) {
        ControlSymbol(c);
        return;
    }
    --m_at;
    const std::string_view name = TakeLetters();
    int value = 0;
    const bool hasValue = TakeNumber(value);
    if (!AtEnd() && m_bytes[m_at] == ' ') ++m_at;
    ControlWord(name, hasValue, value);
}

std::string_view RichTextReader::TakeLetters() {
    const std::size_t begin = m_at;
    while (!AtEnd() && IsLetter(m_bytes[m_at])) ++m_at;
    return m_bytes.substr(begin, m_at - begin);
}

bool RichTextReader::TakeNumber(int& value) {
    std::size_t end = m_at;
    if (end < m_bytes.size() && m_bytes[end] == '-') ++end;
    while (end < m_bytes.size() && IsDigit(m_bytes[end])) ++end;
    const char* begin = m_bytes.data();
    if (std::from_chars(begin + m_at, begin + end, value).ptr == begin + m_at) return false;
    m_at = end;
    return true;
}

void RichTextReader::ControlWord(std::string_view name, bool hasValue, int value) {
    FlushBytes();
    const Word* word = Find(name);
    const bool isData = word && word->Act == &RichTextReader::BinaryData;
    if (m_skip > 0) {
        --m_skip;
        if (!isData) return;
    }
    if (!word || (Top().Into == Destination::Skipped && !isData)) return;
    const bool isFixed = word->Act == &RichTextReader::Character || word->Act == &RichTextReader::Align;
    (this->*word->Act)(hasValue && !isFixed ? value : word->Value);
}

void RichTextReader::ControlSymbol(char symbol) {
    switch (symbol) {
        case '\'':
            HexByte();
            return;
        case '{':
        case '}':
        case '\\':
            Byte(symbol);
            return;
        default:
            break;
    }
    FlushBytes();
    if (m_skip > 0) {
        --m_skip;
        return;
    }
    switch (symbol) {
        case '*':
            SkipGroup(0);
            break;
        case '~':
            Text(NonBreakingSpace);
            break;
        case '_':
            Text(NonBreakingHyphen);
            break;
        case '\r':
        case '\n':
            EndParagraph(0);
            break;
        case '\t':
            Text("\t");
            break;
        default:
            break;
    }
}

void RichTextReader::HexByte() {
    const char digits[] = {Next(), Next()};
    int value = 0;
    const bool isByte = std::from_chars(digits, digits + 2, value, 16).ptr == digits + 2;
    if (isByte) Byte(static_cast<char>(value));
}

void RichTextReader::Byte(char byte) {
    if (m_skip > 0) {
        --m_skip;
        return;
    }
    switch (Top().Into) {
        case Destination::Skipped:
            break;
        case Destination::FontTable:
            FontTableByte(byte);
            break;
        case Destination::ColourTable:
            if (byte != ';') break;
            if (m_builder.Colours.size() >= MostColours) FailDamaged("Rich text too large");
            m_builder.Colours.push_back(std::exchange(m_colour, {}));
            break;
        case Destination::Text:
        case Destination::ListText:
            m_pending += byte;
    }
}

void RichTextReader::FontTableByte(char byte) {
    std::string& name = m_builder.Fonts[m_tableFont].Name;
    if (byte != ';' && name.size() < LongestFontName) name += byte;
}

void RichTextReader::FlushBytes() {
    if (m_pending.empty()) return;
    const std::string bytes = std::exchange(m_pending, {});
    if (Top().Into == Destination::ListText) {
        Text(m_builder.Decode(Top().Look, bytes));
    } else {
        m_builder.AddBytes(Top().Look, bytes);
    }
}

void RichTextReader::Text(std::string_view utf8) {
    if (Top().Into == Destination::Text) m_builder.AddText(Top().Look, utf8);
    if (Top().Into == Destination::ListText && m_listText.size() < LongestListText) m_listText += utf8;
}

void RichTextReader::EndListText() {
    const std::string text = std::exchange(m_listText, {});
    if (IsBullet(text)) {
        m_builder.MakeBullet();
    } else {
        Text(text);
    }
}

}  // namespace tabulon

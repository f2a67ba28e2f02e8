#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "info/rich_text_builder.h"

namespace tabulon {

/// Reads one rich text.
class RichTextReader {
  public:
    explicit RichTextReader(std::string_view bytes) : m_bytes(bytes) {}

    std::vector<TextParagraph> Read();

  private:
    enum class Destination { Text, Skipped, FontTable, ColourTable, ListText };

    /// What an inner group takes over and an outer one gets back.
    struct Group {
        Destination Into = Destination::Text;
        RichTextLook Look;
        TextAlignment Alignment = TextAlignment::Left;
        int Indent = 0;
        int UnicodeSkip = 1;
    };

    using Action = void (RichTextReader::*)(int value);
    struct Word {
        std::string_view Name;
        Action Act;
        int Value;  // when the text gives none, or always
    };
    static const Word Words[];
    static const Word* Find(std::string_view name);

    Group& Top() { return m_groups.back(); }
    bool AtEnd() const { return m_at >= m_bytes.size(); }
    char Next();

    void Token();
    void Open();
    void Close();
    void Control();
    void ControlSymbol(char symbol);
    void ControlWord(std::string_view name, bool hasValue, int value);
    std::string_view TakeLetters();
    bool TakeNumber(int& value);
    void HexByte();
    void Byte(char byte);
    void Text(std::string_view utf8);
    void FlushBytes();
    void FontTableByte(char byte);
    void EndListText();

    void Into(Destination destination);
    void SkipGroup(int);
    void FontTable(int);
    void ColourTable(int);
    void ListText(int);
    void BinaryData(int size);
    void Unicode(int code);
    void Utf16(char16_t unit);
    void UnicodeSkip(int count);
    void DocumentPage(int page);
    void UsualFont(int number);
    void FontNumber(int number);
    void FontCharset(int charset);
    void FontPage(int page);
    void Red(int value) { m_colour.Red = static_cast<std::uint8_t>(value); }
    void Green(int value) { m_colour.Green = static_cast<std::uint8_t>(value); }
    void Blue(int value) { m_colour.Blue = static_cast<std::uint8_t>(value); }
    void Plain(int);
    void Bold(int on) { Top().Look.Bold = on != 0; }
    void Italic(int on) { Top().Look.Italic = on != 0; }
    void Underline(int on) { Top().Look.Underline = on != 0; }
    void Hidden(int on) { Top().Look.Hidden = on != 0; }
    void Size(int halfPoints) { Top().Look.HalfPoints = halfPoints; }
    void ColourNumber(int number) { Top().Look.Colour = number; }
    void ParagraphDefaults(int);
    void Align(int alignment) { Top().Alignment = static_cast<TextAlignment>(alignment); }
    void Indent(int twips);
    void Character(int code) { Text(Utf8Of(static_cast<char32_t>(code))); }
    void EndParagraph(int);

    std::string_view m_bytes;
    std::size_t m_at = 0;
    std::vector<Group> m_groups;
    RichTextBuilder m_builder;
    std::string m_pending;  // bytes that wait for their neighbours: a character may have several
    int m_skip = 0;         // what stands in for a Unicode character and is not to be read
    char16_t m_firstHalf = 0;
    int m_tableFont = 0;
    Colour m_colour;
    std::string m_listText;
};

}  // namespace tabulon

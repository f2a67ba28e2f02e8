#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "forms/controls.h"
#include "platform/code_pages.h"

namespace tabulon {

/// How text is to look; fonts and colours are numbers of their tables.
struct RichTextLook {
    int Font = -1;  // the document's usual one
    int HalfPoints = 24;
    int Colour = 0;
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool Hidden = false;
};

struct RichTextFont {
    std::string Name;
    int CodePage = 0;  // 0 for the document's
    bool Symbols = false;
};

/// Puts a rich text together from characters and their looks. What grows beyond all measure fails with
/// FileIoError.
class RichTextBuilder {
  public:
    std::map<int, RichTextFont> Fonts;
    std::vector<Colour> Colours;
    int UsualFont = 0;
    int CodePage = CodePages::Western;

    void AddText(const RichTextLook& look, std::string_view utf8);
    /// Bytes in the code page of the look's font.
    void AddBytes(const RichTextLook& look, std::string_view bytes);
    /// The characters of such bytes.
    std::string Decode(const RichTextLook& look, std::string_view bytes);
    void MakeBullet() { m_paragraph.Bullet = true; }
    void EndParagraph(TextAlignment alignment, int indent);
    /// Ends a last paragraph that has text.
    void EndText(TextAlignment alignment, int indent);
    std::vector<TextParagraph> TakeParagraphs() { return std::move(m_paragraphs); }

  private:
    TextRun EmptyRun(const RichTextLook& look) const;
    const RichTextFont* FontOf(const RichTextLook& look) const;

    CodePages m_codePages;
    std::vector<TextParagraph> m_paragraphs;
    TextParagraph m_paragraph;
    std::size_t m_pieces = 0;
};

}  // namespace tabulon

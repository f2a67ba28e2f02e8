#include "info/rich_text_builder.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"

namespace tabulon {

namespace {

constexpr std::size_t MostPieces = 200'000;  // runs and paragraphs
constexpr int LargestFont = 200;

bool IsSameLook(const TextRun& a, const TextRun& b) {
    return a.Font == b.Font && a.Italic == b.Italic && a.Underline == b.Underline &&
           a.ForeColor == b.ForeColor;
}

/// Fonts of symbols have their bullets where others have letters.
std::string WithBullets(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isBullet = byte == 0xB7 || byte == 0xA7 || byte == 0xD8;
        text += isBullet ? "\u2022" : Utf8Of(byte);
    }
    return text;
}

}  // namespace

void RichTextBuilder::AddText(const RichTextLook& look, std::string_view utf8) {
    if (look.Hidden || utf8.empty()) return;
    TextRun run = EmptyRun(look);
    std::vector<TextRun>& runs = m_paragraph.Runs;
    if (runs.empty() || !IsSameLook(runs.back(), run)) {
        if (++m_pieces > MostPieces) throw Failure(FailureNumber::FileIoError, "Rich text too large");
        runs.push_back(std::move(run));
    }
    runs.back().Text += utf8;
}

void RichTextBuilder::AddBytes(const RichTextLook& look, std::string_view bytes) {
    if (!look.Hidden && !bytes.empty()) AddText(look, Decode(look, bytes));
}

std::string RichTextBuilder::Decode(const RichTextLook& look, std::string_view bytes) {
    const RichTextFont* font = FontOf(look);
    if (font && font->Symbols) return WithBullets(bytes);
    return m_codePages.ToUtf8(bytes, font && font->CodePage != 0 ? font->CodePage : CodePage);
}

void RichTextBuilder::EndParagraph(TextAlignment alignment, int indent) {
    if (++m_pieces > MostPieces) throw Failure(FailureNumber::FileIoError, "Rich text too large");
    m_paragraph.Alignment = alignment;
    m_paragraph.Indent = indent;
    m_paragraphs.push_back(std::exchange(m_paragraph, {}));
}

void RichTextBuilder::EndText(TextAlignment alignment, int indent) {
    if (!m_paragraph.Runs.empty()) EndParagraph(alignment, indent);
}

TextRun RichTextBuilder::EmptyRun(const RichTextLook& look) const {
    TextRun run;
    if (const RichTextFont* font = FontOf(look); font && !font->Name.empty())
        run.Font.Name = ToUtf8(font->Name);
    run.Font.Size = (std::clamp(look.HalfPoints, 1, 2 * LargestFont) + 1) / 2;
    run.Font.Bold = look.Bold;
    run.Italic = look.Italic;
    run.Underline = look.Underline;
    if (look.Colour >= 0 && look.Colour < static_cast<int>(Colours.size()))
        run.ForeColor = Colours[static_cast<std::size_t>(look.Colour)];
    return run;
}

const RichTextFont* RichTextBuilder::FontOf(const RichTextLook& look) const {
    const auto found = Fonts.find(look.Font < 0 ? UsualFont : look.Font);
    return found == Fonts.end() ? nullptr : &found->second;
}

}  // namespace tabulon

#include "help/page_text.h"

#include <algorithm>

#include "help/html_reader.h"
#include "help/limits.h"
#include "platform/text.h"

namespace tabulon {

namespace {

constexpr std::string_view Inline[] = {"a",  "abbr", "b",    "big",  "code",   "em",  "font", "i",
                                       "s",  "kbd",  "samp", "span", "strong", "sub", "sup",  "small",
                                       "tt", "u",    "img",  "cite", "dfn",    "var"};
constexpr std::string_view WithoutEnd[] = {"area", "base",  "br",   "col",  "hr",
                                           "img",  "input", "link", "meta", "param"};

constexpr std::string_view NoBreakSpace = "\u00A0";

template <class Names>
bool IsOneOf(std::string_view name, const Names& names) {
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

class TextReader final : public HtmlVisitor {
  public:
    void Start(std::string_view element, const HtmlAttributes&) override {
        if (element == "title") m_inTitle = true;
        Break(element);
        if (IsOneOf(element, WithoutEnd)) return;
        if (element == "table") ++m_tables;
        ++m_depth;
        if (m_depth > help_limits::Nesting || m_tables > help_limits::NestedTables) Result.IsSimple = false;
    }
    void End(std::string_view element) override {
        if (element == "title") m_inTitle = false;
        Break(element);
        if (IsOneOf(element, WithoutEnd)) return;
        if (element == "table") m_tables = std::max(0, m_tables - 1);
        m_depth = std::max(0, m_depth - 1);
    }
    void Text(std::string_view text) override {
        std::string& to = m_inTitle ? Result.Title : Result.Text;
        for (const char c : ReplaceAll(text, NoBreakSpace, " ")) {
            const bool blank = c == ' ' || c == '\t' || c == '\r' || c == '\n';
            const bool begins = to.empty() || to.back() == '\n' || to.back() == ' ';
            if (!blank)
                to += c;
            else if (!begins)
                to += ' ';
        }
    }

    PageText Result;

  private:
    void Break(std::string_view element) {
        if (m_inTitle || IsOneOf(element, Inline) || Result.Text.empty()) return;
        if (Result.Text.back() == ' ') Result.Text.pop_back();
        if (!Result.Text.empty() && Result.Text.back() != '\n') Result.Text += '\n';
    }

    bool m_inTitle = false;
    int m_depth = 0;
    int m_tables = 0;
};

}  // namespace

PageText ReadPageText(std::string_view html) {
    TextReader reader;
    ReadHtml(html, reader);
    return std::move(reader.Result);
}

}  // namespace tabulon

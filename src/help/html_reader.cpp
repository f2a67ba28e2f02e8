#include "help/html_reader.h"

#include <algorithm>
#include <exception>
#include <libxml/HTMLparser.h>
#include <memory>
#include <new>

#include "platform/text.h"

namespace tabulon {

namespace {

constexpr std::string_view Root = "<html>";
constexpr std::size_t Portion = 1U << 16;

/// No exception may pass through the parser.
struct Walk {
    HtmlVisitor& Visitor;
    htmlParserCtxtPtr Parser = nullptr;
    std::exception_ptr Trouble = nullptr;

    template <class Act>
    void Do(Act act) {
        if (Trouble) return;
        try {
            act();
        } catch (...) {
            Trouble = std::current_exception();
            xmlStopParser(Parser);
        }
    }
};

std::string_view View(const xmlChar* text) {
    return text ? reinterpret_cast<const char*>(text) : std::string_view();
}

HtmlAttributes AttributesOf(const xmlChar** attributes) {
    HtmlAttributes result;
    for (; attributes && attributes[0]; attributes += 2)
        result.emplace_back(View(attributes[0]), View(attributes[1]));
    return result;
}

void OnStart(void* walk, const xmlChar* name, const xmlChar** attributes) {
    auto& of = *static_cast<Walk*>(walk);
    of.Do([&] { of.Visitor.Start(View(name), AttributesOf(attributes)); });
}

void OnEnd(void* walk, const xmlChar* name) {
    auto& of = *static_cast<Walk*>(walk);
    of.Do([&] { of.Visitor.End(View(name)); });
}

void OnText(void* walk, const xmlChar* text, int length) {
    auto& of = *static_cast<Walk*>(walk);
    of.Do([&] { of.Visitor.Text(View(text).substr(0, static_cast<std::size_t>(length))); });
}

void OnScriptOrStyle(void*, const xmlChar*, int) {}

xmlSAXHandler Handlers() {
    xmlSAXHandler handlers{};
    handlers.startElement = OnStart;
    handlers.endElement = OnEnd;
    handlers.characters = OnText;
    handlers.ignorableWhitespace = OnText;
    handlers.cdataBlock = OnScriptOrStyle;
    return handlers;
}

struct Freer {
    void operator()(htmlParserCtxtPtr parser) const { htmlFreeParserCtxt(parser); }
};

}  // namespace

void ReadHtml(std::string_view html, HtmlVisitor& visitor) {
    xmlSAXHandler handlers = Handlers();
    Walk walk{visitor};
    const std::unique_ptr<htmlParserCtxt, Freer> parser(
        htmlCreatePushParserCtxt(&handlers, &walk, nullptr, 0, nullptr, XML_CHAR_ENCODING_UTF8));
    if (!parser) throw std::bad_alloc();
    walk.Parser = parser.get();
    htmlCtxtUseOptions(parser.get(), HTML_PARSE_IGNORE_ENC | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING |
                                         HTML_PARSE_NONET | HTML_PARSE_COMPACT);
    // An end without a beginning would close the document, were nothing open yet.
    htmlParseChunk(parser.get(), Root.data(), static_cast<int>(Root.size()), 0);
    for (; !html.empty() && !walk.Trouble; html.remove_prefix(std::min(Portion, html.size())))
        htmlParseChunk(parser.get(), html.data(), static_cast<int>(std::min(Portion, html.size())), 0);
    if (!walk.Trouble) htmlParseChunk(parser.get(), nullptr, 0, 1);
    if (walk.Trouble) std::rethrow_exception(walk.Trouble);
}

std::string_view ValueOf(const HtmlAttributes& attributes, std::string_view name) {
    for (const auto& [key, value] : attributes)
        if (EqualNoCase(key, name)) return value;
    return {};
}

}  // namespace tabulon

#include "help/help_book.h"

#include <algorithm>

#include "help/help_text.h"
#include "help/limits.h"
#include "help/links.h"
#include "help/page_text.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace tabulon {

namespace {

constexpr std::string_view PageExtensions[] = {".htm", ".html", ".xhtml", ".txt"};
constexpr std::string_view UsualHomes[] = {"index.htm",   "index.html", "default.htm", "default.html",
                                           "welcome.htm", "intro.htm",  "main.htm"};
constexpr std::size_t SystemVersionBytes = 4;
constexpr std::size_t RecordHeadBytes = 4;
enum SystemRecord { ContentsFile = 0, IndexFile = 1, DefaultPage = 2, TitleText = 3, Language = 4 };

int NumberAt(std::string_view bytes, std::size_t place) {
    return static_cast<unsigned char>(bytes[place]) | static_cast<unsigned char>(bytes[place + 1]) << 8;
}

std::string_view Extension(std::string_view file) {
    const std::size_t dot = file.rfind('.');
    return dot == file.npos ? std::string_view() : file.substr(dot);
}

}  // namespace

HelpBook::HelpBook(HelpFiles files) : m_files(std::move(files)) {
    if (const std::string* system = m_files.Find("#SYSTEM")) ReadSystem(*system);
    if (!m_files.Find(m_contentsFile)) m_contentsFile = FirstWithExtension(".hhc");
    if (!m_files.Find(m_indexFile)) m_indexFile = FirstWithExtension(".hhk");
    m_contents = ReadTopics(TextOf(m_contentsFile));
    m_index = ReadTopics(TextOf(m_indexFile));
    m_home = ResolveLink({}, m_home).File;
    if (m_home.empty() || !m_files.Find(m_home)) m_home = FirstPage();
    if (m_home.empty()) throw Failure(FailureNumber::FileIoError);
    if (m_title.empty()) m_title = ReadPageText(TextOf(m_home)).Title;
}

std::vector<std::string> HelpBook::Pages() const {
    std::vector<std::string> pages;
    for (const auto& [name, bytes] : m_files.All())
        if (IsPage(name)) pages.push_back(name);
    return pages;
}

std::string HelpBook::TextOf(std::string_view file) const {
    const std::string* bytes = m_files.Find(file);
    if (!bytes) return {};
    return PageAsUtf8(std::string_view(*bytes).substr(0, help_limits::PageBytes), m_codePage);
}

bool HelpBook::IsPage(std::string_view file) {
    return std::any_of(std::begin(PageExtensions), std::end(PageExtensions),
                       [file](std::string_view known) { return EqualNoCase(Extension(file), known); });
}

/// A number of the version, and then records: code, length, bytes.
void HelpBook::ReadSystem(std::string_view system) {
    system.remove_prefix(std::min(SystemVersionBytes, system.size()));
    while (system.size() >= RecordHeadBytes) {
        const int code = NumberAt(system, 0);
        const auto length = static_cast<std::size_t>(NumberAt(system, 2));
        system.remove_prefix(RecordHeadBytes);
        TakeSystemRecord(code, system.substr(0, length));
        system.remove_prefix(std::min(length, system.size()));
    }
}

void HelpBook::TakeSystemRecord(int code, std::string_view data) {
    const std::string text = ToUtf8(TrimAtNul(data));
    if (code == ContentsFile) m_contentsFile = text;
    if (code == IndexFile) m_indexFile = text;
    if (code == DefaultPage) m_home = text;
    if (code == TitleText) m_title = text.substr(0, help_limits::TitleBytes);
    if (code == Language && data.size() >= 2) m_codePage = CodePageOf(NumberAt(data, 0));
}

std::string HelpBook::FirstWithExtension(std::string_view extension) const {
    for (const auto& [name, bytes] : m_files.All())
        if (EqualNoCase(Extension(name), extension)) return name;
    return {};
}

std::string HelpBook::FirstPage() const {
    for (const HelpTopic& topic : m_contents)
        for (const HelpTarget& target : topic.Targets)
            if (const HelpLink link = ResolveLink({}, target.Link); m_files.Find(link.File)) return link.File;
    for (const std::string_view usual : UsualHomes)
        if (m_files.Find(usual)) return std::string(usual);
    const std::vector<std::string> pages = Pages();
    return pages.empty() ? std::string() : pages.front();
}

}  // namespace tabulon

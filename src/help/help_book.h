#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "help/help_files.h"
#include "help/topics.h"

namespace tabulon {

/// A help file as its reader sees it.
class HelpBook {
  public:
    HelpBook() = default;
    /// Fails with FileIoError when there is no page in it.
    explicit HelpBook(HelpFiles files);

    const std::string& Title() const { return m_title; }
    /// The page that opens first.
    const std::string& Home() const { return m_home; }
    const std::vector<HelpTopic>& Contents() const { return m_contents; }
    const std::vector<HelpTopic>& Index() const { return m_index; }
    /// All pages, by their names, in alphabetical order.
    std::vector<std::string> Pages() const;

    const std::string* Find(std::string_view file) const { return m_files.Find(file); }
    /// The text of a file in UTF-8, cut at the limit of a page; empty when there is no such file.
    std::string TextOf(std::string_view file) const;

    /// True for names that a page has.
    static bool IsPage(std::string_view file);

  private:
    void ReadSystem(std::string_view system);
    void TakeSystemRecord(int code, std::string_view data);
    std::string FirstWithExtension(std::string_view extension) const;
    std::string FirstPage() const;

    HelpFiles m_files;
    std::string m_title;
    std::string m_home;
    std::string m_contentsFile;
    std::string m_indexFile;
    int m_codePage = 0;  // of pages that don't name theirs; 0 when the file doesn't tell
    std::vector<HelpTopic> m_contents;
    std::vector<HelpTopic> m_index;
};

}  // namespace tabulon

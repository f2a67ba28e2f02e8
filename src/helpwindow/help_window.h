#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QSplitter>
#include <QTabWidget>
#include <QToolBar>
#include <filesystem>
#include <functional>

#include "help/help_book.h"
#include "helpwindow/help_page.h"
#include "helpwindow/index_pane.h"
#include "helpwindow/search_pane.h"
#include "helpwindow/topic_tree.h"

namespace tabulon {

/// The window of a help file: contents, index and search beside the page. It opens at the index, where there
/// is one, with the file's first page.
class HelpWindow final : public QMainWindow {
  public:
    /// `pictures` is the folder of the program's own pictures.
    HelpWindow(HelpBook book, const std::filesystem::path& pictures);

    HelpPage& Page() { return *m_page; }
    TopicTree& Contents() { return *m_contents; }
    IndexPane& Index() { return *m_index; }
    SearchPane& Search() { return *m_search; }
    QTabWidget& Tabs() { return *m_tabs; }

    /// Opens an address in the user's browser; asked for before.
    std::function<void(const QString& address)> OpenInBrowser;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void BuildPanes();
    void BuildToolBar(const std::filesystem::path& pictures);
    void BuildKeys();
    void Place();
    void Follow(const QString& link);
    void FollowOutside(const HelpLink& link);
    void AskForBrowser(const QString& address);
    void Tell(const QString& text);
    void ShowTab(QWidget* pane, QWidget& focus);
    void PageChanged(const QUrl& url);

    HelpBook m_book;
    HelpPage* m_page;
    TopicTree* m_contents;
    IndexPane* m_index;
    SearchPane* m_search;
    QTabWidget* m_tabs;
    QSplitter* m_splitter;
    QToolBar* m_bar;
};

}  // namespace tabulon

#pragma once

#include <QStringList>
#include <QTextBrowser>
#include <functional>

#include "help/help_book.h"
#include "help/links.h"

namespace tabulon {

/// Shows the pages of a book, with their pictures and styles. Nothing outside of the book is ever read.
class HelpPage final : public QTextBrowser {
  public:
    explicit HelpPage(const HelpBook& book);

    /// Shows a page of the book; one that is missing shows as a page that says so.
    void ShowPage(const QString& file, const QString& fragment = {});
    /// The file of the page that shows.
    QString File() const;
    /// Marks the words wherever they begin a word of the page.
    void Mark(const QStringList& words);

    /// A link that leads out of the book.
    std::function<void(const HelpLink&)> onOutside;

  protected:
    QVariant loadResource(int type, const QUrl& name) override;

  private:
    void Follow(const QUrl& url);
    QString Html(const QString& file) const;
    QImage PictureOf(const QString& file);

    const HelpBook& m_book;
    qint64 m_pixelsLeft = 0;  // of the pictures of the page
};

}  // namespace tabulon

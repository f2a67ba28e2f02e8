#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QWidget>
#include <functional>
#include <optional>

#include "help/help_search.h"

namespace tabulon {

/// Looks for words in all pages of a book.
class SearchPane final : public QWidget {
  public:
    explicit SearchPane(const HelpBook& book);

    QLineEdit& Input() { return *m_input; }
    QListWidget& List() { return *m_list; }
    QString Summary() const { return m_summary->text(); }

    /// A page that was chosen, and the words that were looked for.
    std::function<void(const QString& file, const QStringList& words)> onHit;

  private:
    void Find();
    void Follow(const QListWidgetItem* item);

    const HelpBook& m_book;
    std::optional<HelpSearch> m_search;  // read when it is first needed
    std::vector<HelpHit> m_hits;
    QStringList m_words;
    QLineEdit* m_input;
    QPushButton* m_find;
    QLabel* m_summary;
    QListWidget* m_list;
};

}  // namespace tabulon

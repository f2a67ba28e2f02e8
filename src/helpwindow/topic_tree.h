#pragma once

#include <QHash>
#include <QTreeWidget>
#include <functional>

#include "help/topics.h"

namespace tabulon {

/// The contents of a book as a tree. A click or Enter follows a topic.
class TopicTree final : public QTreeWidget {
  public:
    explicit TopicTree(const std::vector<HelpTopic>& topics);

    /// Shows which topic the page belongs to, if any.
    void Select(const QString& file, const QString& fragment);

    std::function<void(const QString& link)> onLink;

  private:
    void Fill(QTreeWidgetItem* parent, const std::vector<HelpTopic>& topics);

    QHash<QString, QTreeWidgetItem*> m_items;  // by page, and by page with fragment
};

}  // namespace tabulon

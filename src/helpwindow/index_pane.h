#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QWidget>
#include <functional>

#include "help/topics.h"

namespace tabulon {

/// The keywords of a book. What is typed finds the first one that begins so; Enter or a click follows it.
class IndexPane final : public QWidget {
  public:
    explicit IndexPane(const std::vector<HelpTopic>& topics);

    QLineEdit& Input() { return *m_input; }
    QListWidget& List() { return *m_list; }

    std::function<void(const QString& link)> onLink;

  private:
    void Fill(const std::vector<HelpTopic>& topics, int depth);
    void Find(const QString& typed);
    void Follow(const QListWidgetItem* item);
    void Choose(const HelpTopic& topic);

    QLineEdit* m_input;
    QListWidget* m_list;
    std::vector<HelpTopic> m_topics;  // one for each row
};

}  // namespace tabulon

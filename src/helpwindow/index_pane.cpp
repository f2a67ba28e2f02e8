#include "helpwindow/index_pane.h"

#include <QLabel>
#include <QMenu>
#include <QVBoxLayout>

#include "helpwindow/key_passing.h"
#include "qt/text.h"

namespace tabulon {

namespace {
constexpr int Indent = 4;
}

IndexPane::IndexPane(const std::vector<HelpTopic>& topics)
    : m_input(new QLineEdit(this)), m_list(new QListWidget(this)) {
    auto* label = new QLabel("Type the &keyword to find:", this);
    label->setBuddy(m_input);
    m_input->setAccessibleName("Keyword");
    m_list->setAccessibleName("Keywords");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_input);
    layout->addWidget(m_list);
    Fill(topics, 0);
    PassArrowsTo(*m_input, *m_list);
    connect(m_input, &QLineEdit::textEdited, this, [this](const QString& text) { Find(text); });
    connect(m_input, &QLineEdit::returnPressed, this, [this] { Follow(m_list->currentItem()); });
    connect(m_list, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { Follow(item); });
    connect(m_list, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) { Follow(item); });
}

void IndexPane::Fill(const std::vector<HelpTopic>& topics, int depth) {
    for (const HelpTopic& topic : topics) {
        m_list->addItem(QString(depth * Indent, ' ') + ToQt(topic.Title));
        m_topics.push_back({topic.Title, topic.Targets, {}});
        Fill(topic.Children, depth + 1);
    }
}

void IndexPane::Find(const QString& typed) {
    const QString wanted = typed.trimmed();
    for (int row = 0; row < m_list->count(); ++row) {
        if (!m_list->item(row)->text().trimmed().startsWith(wanted, Qt::CaseInsensitive)) continue;
        m_list->setCurrentRow(row);
        m_list->scrollToItem(m_list->item(row), QAbstractItemView::PositionAtTop);
        return;
    }
}

void IndexPane::Follow(const QListWidgetItem* item) {
    if (!item || !onLink) return;
    const HelpTopic& topic = m_topics[static_cast<std::size_t>(m_list->row(item))];
    if (topic.Targets.size() == 1) onLink(ToQt(topic.Targets.front().Link));
    if (topic.Targets.size() > 1) Choose(topic);
}

/// A keyword with several places asks which one is meant.
void IndexPane::Choose(const HelpTopic& topic) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAccessibleName("Topics found");
    for (const HelpTarget& target : topic.Targets) {
        QAction* action =
            menu->addAction(ToQt(target.Title.empty() ? topic.Title : target.Title).replace("&", "&&"));
        connect(action, &QAction::triggered, this, [this, link = ToQt(target.Link)] { onLink(link); });
    }
    menu->popup(m_list->mapToGlobal(m_list->visualItemRect(m_list->currentItem()).bottomLeft()));
}

}  // namespace tabulon

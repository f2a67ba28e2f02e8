#include "helpwindow/search_pane.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "helpwindow/key_passing.h"
#include "qt/text.h"

namespace tabulon {

SearchPane::SearchPane(const HelpBook& book)
    : m_book(book),
      m_input(new QLineEdit(this)),
      m_find(new QPushButton("&Find", this)),
      m_summary(new QLabel(this)),
      m_list(new QListWidget(this)) {
    auto* label = new QLabel("&Words to look for:", this);
    label->setBuddy(m_input);
    m_input->setAccessibleName("Words to look for");
    m_list->setAccessibleName("Pages found");
    m_list->setWordWrap(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_summary->setWordWrap(true);
    auto* line = new QHBoxLayout;
    line->addWidget(m_input);
    line->addWidget(m_find);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addLayout(line);
    layout->addWidget(m_summary);
    layout->addWidget(m_list);
    PassArrowsTo(*m_input, *m_list);
    connect(m_find, &QPushButton::clicked, this, [this] { Find(); });
    connect(m_input, &QLineEdit::returnPressed, this, [this] { Find(); });
    connect(m_list, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { Follow(item); });
    connect(m_list, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) { Follow(item); });
}

void SearchPane::Find() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    if (!m_search) m_search.emplace(m_book);
    const std::string query = FromQt(m_input->text());
    m_hits = m_search->Find(query);
    QGuiApplication::restoreOverrideCursor();
    m_words.clear();
    for (const std::string& word : HelpSearch::WordsOf(query)) m_words.append(ToQt(word));
    m_list->clear();
    for (const HelpHit& hit : m_hits) m_list->addItem(ToQt(hit.Title) + "\n" + ToQt(hit.Excerpt));
    if (m_words.isEmpty())
        m_summary->setText("Type one word or more.");
    else if (m_hits.empty())
        m_summary->setText("No page has all of these words.");
    else
        m_summary->setText(m_hits.size() == 1 ? "One page found:"
                                              : QString("%1 pages found:").arg(m_hits.size()));
    if (!m_hits.empty()) m_list->setCurrentRow(0);
    if (!m_hits.empty()) m_list->setFocus();
}

void SearchPane::Follow(const QListWidgetItem* item) {
    if (item && onHit) onHit(ToQt(m_hits[static_cast<std::size_t>(m_list->row(item))].File), m_words);
}

}  // namespace tabulon

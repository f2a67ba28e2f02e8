#include "helpwindow/topic_tree.h"

#include <QHeaderView>

#include "help/links.h"
#include "qt/text.h"

namespace tabulon {

namespace {

constexpr int LinkRole = Qt::UserRole;

QString KeyOf(const QString& file, const QString& fragment) {
    return fragment.isEmpty() ? file.toLower() : file.toLower() + "#" + fragment;
}

}  // namespace

TopicTree::TopicTree(const std::vector<HelpTopic>& topics) {
    setHeaderLabel("Pages");
    setHeaderHidden(true);
    setAccessibleName("Contents");
    setUniformRowHeights(true);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    header()->setStretchLastSection(false);
    Fill(invisibleRootItem(), topics);
    expandToDepth(0);
    const auto follow = [this](QTreeWidgetItem* item) {
        const QString link = item->data(0, LinkRole).toString();
        if (!link.isEmpty() && onLink) onLink(link);
    };
    connect(this, &QTreeWidget::itemClicked, this, follow);
    connect(this, &QTreeWidget::itemActivated, this, follow);
}

void TopicTree::Fill(QTreeWidgetItem* parent, const std::vector<HelpTopic>& topics) {
    for (const HelpTopic& topic : topics) {
        auto* item = new QTreeWidgetItem(parent, {ToQt(topic.Title)});
        item->setToolTip(0, ToolTip(topic.Title));
        if (!topic.Targets.empty()) {
            const std::string& link = topic.Targets.front().Link;
            const HelpLink to = ResolveLink({}, link);
            item->setData(0, LinkRole, ToQt(link));
            for (const QString& key : {KeyOf(ToQt(to.File), ToQt(to.Fragment)), KeyOf(ToQt(to.File), {})})
                if (!m_items.contains(key)) m_items.insert(key, item);
        }
        Fill(item, topic.Children);
    }
}

void TopicTree::Select(const QString& file, const QString& fragment) {
    QTreeWidgetItem* item = m_items.value(KeyOf(file, fragment), m_items.value(KeyOf(file, {})));
    if (!item) {
        setCurrentItem(nullptr);
        return;
    }
    setCurrentItem(item);
    scrollToItem(item);
}

}  // namespace tabulon

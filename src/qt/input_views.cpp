#include "qt/input_views.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <algorithm>

#include "qt/text.h"

namespace tabulon {

namespace {

constexpr int NoLimit = 32767;
constexpr int WidestList = 440;
constexpr int FrameHeight = 8;  // above and below a line of text

/// A game's letters may be higher than a line of the program.
QFont FontOfLine(const Font& font, const QWidget& widget) {
    return FittingFont(ToQt(font), "Gg", {widget.width(), widget.height() - FrameHeight});
}

Qt::FocusPolicy PolicyOf(const Control& control) {
    return control.TabStop ? Qt::StrongFocus : Qt::ClickFocus;
}

}  // namespace

LineEditView::LineEditView(TextBox& box, ViewHost& host, QWidget* parent)
    : ViewOf(box, host, new QLineEdit(parent)), m_edit(static_cast<QLineEdit&>(Widget())) {
    m_edit.setFocusPolicy(PolicyOf(box));
    connect(&m_edit, &QLineEdit::textChanged, this, [this](const QString& text) {
        DeliverUse(
            [this, typed = FromQt(text)] {
                TheData().Text = typed;
                m_text.Take(typed);
            },
            TheData().Change);
    });
}

void LineEditView::SyncOwn() {
    TextBox& box = TheData();
    if (m_font.Take(box.Font)) m_edit.setFont(FontOfLine(box.Font, m_edit));
    if (m_maxLength.Take(box.MaxLength)) m_edit.setMaxLength(box.MaxLength > 0 ? box.MaxLength : NoLimit);
    if (m_text.Take(box.Text)) m_edit.setText(ToQt(box.Text));
    if (m_marked.Take(box.Marked)) Look::Mark(m_edit, box.Marked);
    if (!box.SelectAllRequested) return;
    box.SelectAllRequested = false;
    m_edit.selectAll();
}

TextEditView::TextEditView(TextBox& box, ViewHost& host, QWidget* parent)
    : ViewOf(box, host, new QPlainTextEdit(parent)), m_edit(static_cast<QPlainTextEdit&>(Widget())) {
    m_edit.setFocusPolicy(PolicyOf(box));
    m_edit.setTabChangesFocus(true);
    connect(&m_edit, &QPlainTextEdit::textChanged, this, [this] { TakeText(); });
}

void TextEditView::TakeText() {
    const int limit = TheData().MaxLength;
    const QString text = m_edit.toPlainText();
    const std::string typed = FromQt(limit > 0 ? text.left(limit) : text);
    DeliverUse(
        [this, typed, whole = FromQt(text)] {
            TheData().Text = typed;
            m_text.Take(whole);
        },
        TheData().Change);
}

void TextEditView::SyncOwn() {
    TextBox& box = TheData();
    if (m_font.Take(box.Font)) m_edit.setFont(ToQt(box.Font));
    if (m_text.Take(box.Text)) {
        m_edit.setPlainText(ToQt(box.Text));
        m_edit.moveCursor(QTextCursor::End);
    }
    if (!box.SelectAllRequested) return;
    box.SelectAllRequested = false;
    m_edit.selectAll();
}

/// The open list is as wide as its longest row, within reason.
void ComboBoxWidget::showPopup() {
    aboutToOpen();
    if (!isVisible()) return;  // the form may be gone
    const int rows = view()->sizeHintForColumn(0) + view()->verticalScrollBar()->sizeHint().width();
    view()->setMinimumWidth(std::clamp(rows, width(), std::max(width(), WidestList)));
    QComboBox::showPopup();
}

void ComboBoxWidget::initStyleOption(QStyleOptionComboBox* option) const {
    constexpr int margins = 4;
    QComboBox::initStyleOption(option);
    const QRect room =
        style()->subControlRect(QStyle::CC_ComboBox, option, QStyle::SC_ComboBoxEditField, this);
    option->currentText =
        fontMetrics().elidedText(option->currentText, Qt::ElideRight, room.width() - margins);
}

ComboBoxView::ComboBoxView(ComboBox& box, ViewHost& host, QWidget* parent)
    : ViewOf(box, host, new ComboBoxWidget(parent)),
      m_box(static_cast<ComboBoxWidget&>(Widget())),
      m_secondClick([this] { DeliverUse([] {}, TheData().DblClick); }) {
    m_box.view()->viewport()->installEventFilter(this);
    m_box.setFocusPolicy(PolicyOf(box));
    m_box.aboutToOpen = [this] { DeliverUse([] {}, TheData().DropDown); };
    connect(&m_box, &QComboBox::activated, this, [this](int row) { TakeRow(row); });
    m_box.view()->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    m_box.view()->setTextElideMode(Qt::ElideRight);
    connect(m_box.view()->verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this](int row) { TakeTopRow(row); });
}

/// A turn of the wheel over the closed list is no choice.
bool ComboBoxView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_box) return event->type() == QEvent::Wheel || ControlView::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonRelease && TheData().DblClick)
        m_secondClick.Await(static_cast<QMouseEvent*>(event)->globalPosition());
    return false;
}

void ComboBoxView::TakeRow(int row) {
    DeliverUse(
        [this, row] {
            TheData().ListIndex = row;
            m_row.Take(row);
        },
        TheData().Click);
}

void ComboBoxView::TakeTopRow(int row) {
    if (!m_box.view()->isVisible()) return;
    DeliverUse(
        [this, row] {
            TheData().TopIndex = row;
            m_topRow.Take(row);
        },
        TheData().Scroll);
}

void ComboBoxView::ApplyRows() {
    m_box.clear();
    for (const ListRow& row : TheData().Rows) {
        m_box.addItem(ToQt(row.Text));
        m_box.setItemData(m_box.count() - 1, ToolTip(row.ToolTipText), Qt::ToolTipRole);
    }
}

void ComboBoxView::SyncOwn() {
    const ComboBox& box = TheData();
    if (m_font.Take(box.Font)) m_box.setFont(FontOfLine(box.Font, m_box));
    const bool newRows = m_rows.Take(box.Rows);
    if (newRows) ApplyRows();
    if (m_row.Take(box.ListIndex) || newRows) m_box.setCurrentIndex(box.ListIndex);
    if (m_topRow.Take(box.TopIndex)) m_box.view()->verticalScrollBar()->setValue(box.TopIndex);
}

ListBoxView::ListBoxView(ListBox& list, ViewHost& host, QWidget* parent)
    : ViewOf(list, host, new QListWidget(parent)), m_list(static_cast<QListWidget&>(Widget())) {
    m_list.setFocusPolicy(PolicyOf(list));
    m_list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list.setTextElideMode(Qt::ElideRight);
    connect(&m_list, &QListWidget::itemSelectionChanged, this, [this] { TakeSelection(); });
    connect(&m_list, &QListWidget::itemDoubleClicked, this,
            [this] { DeliverUse([] {}, TheData().DblClick); });
}

bool ListBoxView::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress;
    if (isKey && SelectsFocusedRow(static_cast<QKeyEvent*>(event)->key())) return true;
    return ControlView::eventFilter(watched, event);
}

/// The list gives a row the focus without selecting it. A key that would leave that row, or stay on it for
/// want of another, selects it first.
bool ListBoxView::SelectsFocusedRow(int key) {
    const bool isArrow = key >= Qt::Key_Left && key <= Qt::Key_Down;
    const bool leads = isArrow || key == Qt::Key_Home || key == Qt::Key_PageUp;
    if (!leads || !m_list.currentItem() || !m_list.selectedItems().isEmpty()) return false;
    m_list.setCurrentItem(m_list.currentItem(), QItemSelectionModel::Select);
    return isArrow;
}

void ListBoxView::TakeSelection() {
    if (IsSyncing()) return;
    const auto rows = m_list.selectionModel()->selectedRows();
    const int row = rows.isEmpty() ? -1 : rows.first().row();
    DeliverUse(
        [this, row] {
            TheData().ListIndex = row;
            m_row.Take(row);
        },
        TheData().Click);
}

void ListBoxView::ApplyRows() {
    m_list.clear();
    for (const ListRow& row : TheData().Rows) {
        auto* item = new QListWidgetItem(ToQt(row.Text), &m_list);
        item->setToolTip(ToolTip(row.ToolTipText.empty() ? row.Text : row.ToolTipText));
    }
}

void ListBoxView::SyncOwn() {
    const ListBox& list = TheData();
    if (m_font.Take(list.Font)) m_list.setFont(ToQt(list.Font));
    const bool newRows = m_rows.Take(list.Rows);
    if (newRows) ApplyRows();
    if (m_row.Take(list.ListIndex) || newRows) m_list.setCurrentRow(list.ListIndex);
}

}  // namespace tabulon

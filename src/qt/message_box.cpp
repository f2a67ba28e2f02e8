#include "qt/message_box.h"

#include <QWindow>

#include "qt/text.h"

namespace tabulon {

namespace {

QMessageBox::Icon IconOf(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::Critical:
            return QMessageBox::Critical;
        case BoxIcon::Question:
            return QMessageBox::Question;
        case BoxIcon::Exclamation:
            return QMessageBox::Warning;
        case BoxIcon::Information:
            return QMessageBox::Information;
        case BoxIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ButtonsOf(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::OkCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case BoxButtons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case BoxButtons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case BoxButtons::Ok:
            break;
    }
    return QMessageBox::Ok;
}

BoxAnswer AnswerWithoutButton(BoxButtons buttons) {
    if (buttons == BoxButtons::Ok) return BoxAnswer::Ok;
    return buttons == BoxButtons::YesNo ? BoxAnswer::No : BoxAnswer::Cancel;
}

}  // namespace

MessageBox::MessageBox(const MessageBoxText& content)
    : m_box(IconOf(content.icon), ToQt(content.title), QString(), ButtonsOf(content.buttons)),
      m_buttons(content.buttons) {
    m_box.setTextFormat(Qt::PlainText);
    m_box.setText(ToQt(content.text));
}

void MessageBox::Open(const QWidget* above) {
    m_box.setWindowModality(Qt::ApplicationModal);
    m_box.winId();
    if (above) m_box.windowHandle()->setTransientParent(above->windowHandle());
    m_box.show();
    m_box.activateWindow();
}

BoxAnswer MessageBox::Answer() const {
    switch (m_box.standardButton(m_box.clickedButton())) {
        case QMessageBox::Ok:
            return BoxAnswer::Ok;
        case QMessageBox::Cancel:
            return BoxAnswer::Cancel;
        case QMessageBox::Yes:
            return BoxAnswer::Yes;
        case QMessageBox::No:
            return BoxAnswer::No;
        default:
            return AnswerWithoutButton(m_buttons);
    }
}

}  // namespace tabulon

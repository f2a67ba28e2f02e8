#include "qt/focus_step.h"

#include <QWidget>
#include <algorithm>

namespace tabulon {

QWidget* StepFrom(const QWidget& here, std::vector<QWidget*> likes, int key) {
    const bool back = key == Qt::Key_Left || key == Qt::Key_Up || key == Qt::Key_Home;
    const bool forth = key == Qt::Key_Right || key == Qt::Key_Down || key == Qt::Key_End;
    if (!back && !forth) return nullptr;
    if (back) std::ranges::reverse(likes);
    likes.erase(likes.begin(), std::ranges::find(likes, &here) + 1);
    if (key == Qt::Key_Up || key == Qt::Key_Down)
        std::erase_if(likes, [&here](const QWidget* like) { return like->x() != here.x(); });
    if (likes.empty()) return nullptr;
    return key == Qt::Key_Home || key == Qt::Key_End ? likes.back() : likes.front();
}

}  // namespace tabulon

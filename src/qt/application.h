#pragma once

#include <QApplication>
#include <QSize>
#include <memory>

namespace tabulon {

/// The program's application. Pictures and places scale by whole factors only, and by none that leaves the
/// program too small a screen, so that large fonts reach it as a density.
std::unique_ptr<QApplication> MakeApplication(int& argc, char** argv);

/// The scale for a screen of that many pixels where the desktop asks for another: a whole one is lowered as
/// long as it leaves less than 1024×768.
qreal ScaleFor(QSize pixels, qreal asked);

}  // namespace tabulon

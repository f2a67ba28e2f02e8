#pragma once

#include <QObject>
#include <QProcess>
#include <QTimer>
#include <filesystem>
#include <functional>

#include "help/help_book.h"
#include "help/unpacking.h"

namespace tabulon {

/// Unpacks a help file in a process of its own, which may die of it.
class HelpLoader final : public QObject {
  public:
    /// `program` unpacks the file when it is started with "--unpack FILE".
    HelpLoader(const std::filesystem::path& program, const std::filesystem::path& file);
    ~HelpLoader() override;

    void Start();

    /// One of the two is called, once.
    std::function<void(HelpBook)> onLoaded;
    std::function<void(UnpackingEnd)> onFailed;

  private:
    void Read();
    void Finish(int code, bool crashed);
    void Fail(UnpackingEnd end);

    QProcess m_process;
    QTimer m_patience;
    QByteArray m_stream;
    bool m_over = false;
};

}  // namespace tabulon

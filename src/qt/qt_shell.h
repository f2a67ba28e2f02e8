#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QProcess>
#include <QString>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/shell.h"

namespace tabulon {

/// The one copy of the program for one user and one data directory: a lock tells of it, a local socket
/// reaches it. Neither outlives a crash.
class SingleInstance {
  public:
    explicit SingleInstance(const std::filesystem::path& dataDirectory);

    /// Becomes the one copy, unless another one runs.
    bool Claim();
    /// Lets another copy take the place.
    void Release();
    /// Asks the running copy to come to the front; false when it does not answer in time.
    bool RaiseOther() const;

    std::function<void()> onRaise;

  private:
    void Answer();

    QString m_name;
    QLockFile m_lock;
    QLocalServer m_server;
};

/// The desktop as Qt reaches it.
class QtShell final : public Shell {
  public:
    /// `ownProgram` is the file of the running program, `dataDirectory` the one whose games it plays.
    QtShell(std::filesystem::path ownProgram, const std::filesystem::path& dataDirectory);
    ~QtShell() override;

    void Open(const std::string& target) override;
    /// Starting the own program hands it the place of the one copy.
    void Start(const std::filesystem::path& program, const std::vector<std::string>& arguments = {}) override;
    void StartCompanion(const std::filesystem::path& program,
                        const std::vector<std::string>& arguments) override;
    bool PreviousInstance() override;
    bool RaisePreviousInstance() override;

    /// Called when another copy has asked this one to come to the front.
    std::function<void()> onRaise;

  private:
    std::filesystem::path m_ownProgram;
    SingleInstance m_instance;
    std::vector<std::unique_ptr<QProcess>> m_companions;
};

}  // namespace tabulon

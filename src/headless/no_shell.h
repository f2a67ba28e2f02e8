#pragma once

#include "platform/shell.h"

namespace tabulon {

/// A desktop on which nothing can be opened or started, and where no other copy runs.
class NoShell final : public Shell {
  public:
    void Open(const std::string&) override {}
    void Start(const std::filesystem::path&, const std::vector<std::string>&) override {}
    void StartCompanion(const std::filesystem::path&, const std::vector<std::string>&) override {}
    bool PreviousInstance() override { return false; }
    bool RaisePreviousInstance() override { return false; }
};

}  // namespace tabulon

#pragma once

#include <string>

#include "platform/procedure.h"

namespace tabulon::test {

/// A procedure stack that writes down its calls: "+name" for Push, "-" for Pop, "!number description".
class StackLog : public ProcedureStack {
  public:
    void Push(std::string_view name) override { log += "+" + std::string(name); }
    void Pop() override { log += "-"; }
    void HandleError(const Failure& failure) override {
        log += "!" + std::to_string(failure.Number()) + " " + failure.Description();
    }
    std::string log;
};

}  // namespace tabulon::test

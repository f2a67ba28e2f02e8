#pragma once

#include <iosfwd>
#include <nlohmann/json.hpp>

#include "app/program.h"

namespace tabulon::playtest {

/// Writes what happens in a session, one JSON object a line.
class Trace {
  public:
    explicit Trace(std::ostream& out) : m_out(out) {}

    void Sound(const std::string& genre, const std::string& name, bool loop);
    void Silence();
    void Message(const std::string& text, bool computer);
    void Question(const std::string& text, bool answer);
    void Card(const CCard& card, bool computer, int pick);
    void Box(const std::string& text, BoxIcon icon, const std::string& title);
    void Error(const clsErrHandler& handler);
    void Refused(const std::string& control);
    void Stuck(const std::string& form, const std::string& why);
    void State(int step, std::int64_t milliseconds, Program& program);
    void Ended();

  private:
    void Write(const nlohmann::ordered_json& line);

    std::ostream& m_out;
};

}  // namespace tabulon::playtest

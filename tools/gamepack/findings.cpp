#include "gamepack/findings.h"

namespace tabulon::gamepack {

namespace {

std::string Counted(int count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace

void Findings::Error(const std::string& place, const std::string& text) {
    m_lines.push_back("error: " + place + ": " + text);
    ++m_errors;
}

void Findings::Warning(const std::string& place, const std::string& text) {
    m_lines.push_back("warning: " + place + ": " + text);
}

std::string Findings::Summary() const {
    return Counted(m_errors, "error") + ", " +
           Counted(static_cast<int>(m_lines.size()) - m_errors, "warning");
}

}  // namespace tabulon::gamepack

#include "diagnostics/recordset.h"

#include <utility>

#include "platform/failure.h"

namespace tabulon {

Recordset::Recordset(std::vector<std::string> fields) : m_fields(std::move(fields)) {}

void Recordset::AddNew() {
    m_new.clear();
    for (const std::string& field : m_fields) m_new[field];
    m_adding = true;
}

void Recordset::SetField(const std::string& name, std::string value) {
    const auto field = m_new.find(name);
    if (!m_adding || field == m_new.end()) throw Failure(FailureNumber::CustomError, "No field " + name);
    field->second = std::move(value);
}

void Recordset::Update() {
    if (!m_adding) throw Failure(FailureNumber::CustomError, "No row to update");
    m_rows.push_back(std::move(m_new));
    m_adding = false;
}

void Recordset::MoveNext() {
    if (!m_deleted) ++m_current;
    m_deleted = false;
}

void Recordset::Delete() {
    if (EndOfFile()) throw Failure(FailureNumber::CustomError, "No current row");
    m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(m_current));
    m_deleted = true;
}

const std::string& Recordset::Field(const std::string& name) const {
    if (EndOfFile()) throw Failure(FailureNumber::CustomError, "No current row");
    const auto field = m_rows[m_current].find(name);
    if (field == m_rows[m_current].end()) throw Failure(FailureNumber::CustomError, "No field " + name);
    return field->second;
}

}  // namespace tabulon

#pragma once

#include <map>
#include <string>
#include <vector>

namespace tabulon {

/// A small table in memory with named text fields and a current row: what error reports can go to instead of
/// a file.
class Recordset {
  public:
    explicit Recordset(std::vector<std::string> fields);

    /// Starts a row that Update adds.
    void AddNew();
    /// Fails with CustomError for a field that the table does not have, or without a started row.
    void SetField(const std::string& name, std::string value);
    void Update();

    int RecordCount() const { return static_cast<int>(m_rows.size()); }
    void MoveFirst() { m_current = 0; }
    bool EndOfFile() const { return m_current >= m_rows.size(); }
    void MoveNext();
    /// Removes the current row; MoveNext then goes on with the row behind it.
    void Delete();

    /// The value of a field in the current row; fails like SetField.
    const std::string& Field(const std::string& name) const;

  private:
    using Row = std::map<std::string, std::string>;

    std::vector<std::string> m_fields;
    std::vector<Row> m_rows;
    Row m_new;
    std::size_t m_current = 0;
    bool m_adding = false;
    bool m_deleted = false;
};

}  // namespace tabulon

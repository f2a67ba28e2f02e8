#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace tabulon {

/// One SQLite file and its prepared statements, which are kept. Trouble with the file is never thrown: the
/// statement that met it has no rows and does not succeed, and Trouble() tells why.
class Database {
  public:
    /// Opens or makes the file; read-only when it cannot be written.
    explicit Database(const std::filesystem::path& file);

    /// The last trouble, with the file's name; empty while there was none.
    const std::string& Trouble() const { return m_trouble; }
    void SetTrouble(std::string_view why);

    bool IsOpen() const { return m_connection != nullptr; }
    bool InTransaction() const;
    bool IsReadOnly() const;
    /// Runs several statements without rows; false after trouble.
    bool Execute(const char* sql);
    /// From now on every statement fails at once. Trouble() stays.
    void Close();

  private:
    friend class Statement;
    struct Closer {
        void operator()(sqlite3* connection) const;
        void operator()(sqlite3_stmt* statement) const;
    };

    bool Configure();
    void NoteTrouble();
    sqlite3_stmt* Prepared(std::string_view sql);

    std::filesystem::path m_file;
    std::string m_trouble;
    std::unique_ptr<sqlite3, Closer> m_connection;
    std::map<std::string_view, std::unique_ptr<sqlite3_stmt, Closer>> m_statements;
};

/// Bytes to be bound as they are, not as text.
struct Blob {
    std::string_view bytes;
};

/// One run of a statement, with the values for ?1, ?2, … . The same statement must not run inside its own
/// run.
class Statement {
  public:
    /// `sql` must be a literal: the prepared statement is kept under it.
    template <class... Values>
    Statement(Database& database, std::string_view sql, const Values&... values)
        : m_database(database), m_statement(database.Prepared(sql)) {
        if (m_statement) (Bind(values), ...);
    }
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    /// Goes to the next row; false at the end, and after trouble.
    bool Row();
    /// Runs to the end; false after trouble.
    bool Run();

    /// The columns of the row, from 0.
    std::int64_t Number(int column) const;
    std::string Bytes(int column) const;
    bool IsNull(int column) const;

  private:
    void Bind(std::int64_t value);
    void Bind(std::string_view text);
    void Bind(Blob blob);

    Database& m_database;
    sqlite3_stmt* m_statement;
    int m_bound = 0;
    bool m_failed = false;
};

}  // namespace tabulon

#include "platform/database.h"

#include <sqlite3.h>
#include <unistd.h>

namespace tabulon {

namespace {

constexpr int BusyMilliseconds = 5000;
constexpr int LongestValue = 16 << 20;

}  // namespace

void Database::Closer::operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }

void Database::Closer::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Database::Database(const std::filesystem::path& file) : m_file(file) {
    sqlite3* connection = nullptr;
    const int opened =
        sqlite3_open_v2(file.c_str(), &connection, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    m_connection.reset(connection);
    if (opened == SQLITE_OK && Configure()) return;
    NoteTrouble();
    Close();
}

// The file may be damaged, or be another's: nothing in it but plain tables is believed.
bool Database::Configure() {
    sqlite3* const connection = m_connection.get();
    sqlite3_busy_timeout(connection, BusyMilliseconds);
    sqlite3_limit(connection, SQLITE_LIMIT_LENGTH, LongestValue);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    // Not WAL: that wants the right to write even from those who only read.
    return Execute("PRAGMA cell_size_check=ON; PRAGMA journal_mode=DELETE; PRAGMA synchronous=FULL");
}

void Database::SetTrouble(std::string_view why) { m_trouble = m_file.string() + ": " + std::string(why); }

void Database::NoteTrouble() { SetTrouble(sqlite3_errmsg(m_connection.get())); }

bool Database::InTransaction() const { return IsOpen() && !sqlite3_get_autocommit(m_connection.get()); }

bool Database::IsReadOnly() const {
    if (!IsOpen() || sqlite3_db_readonly(m_connection.get(), "main") == 1) return true;
    const char* const file = sqlite3_db_filename(m_connection.get(), "main");
    if (!file || !*file) return false;
    // Each change needs a journal beside the file.
    return access(std::filesystem::path(file).parent_path().c_str(), W_OK) != 0;
}

bool Database::Execute(const char* sql) {
    if (!IsOpen()) return false;
    if (sqlite3_exec(m_connection.get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK) return true;
    NoteTrouble();
    return false;
}

void Database::Close() {
    m_statements.clear();
    m_connection.reset();
}

sqlite3_stmt* Database::Prepared(std::string_view sql) {
    if (!IsOpen()) return nullptr;
    const auto kept = m_statements.find(sql);
    if (kept != m_statements.end()) return kept->second.get();
    sqlite3_stmt* statement = nullptr;
    const int prepared = sqlite3_prepare_v3(m_connection.get(), sql.data(), static_cast<int>(sql.size()),
                                            SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    if (prepared == SQLITE_OK)
        m_statements[sql].reset(statement);
    else
        NoteTrouble();
    return statement;
}

Statement::~Statement() {
    if (!m_statement) return;
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
}

void Statement::Bind(std::int64_t value) {
    m_failed |= sqlite3_bind_int64(m_statement, ++m_bound, value) != SQLITE_OK;
}

void Statement::Bind(std::string_view text) {
    m_failed |= sqlite3_bind_text64(m_statement, ++m_bound, text.data() ? text.data() : "", text.size(),
                                    SQLITE_STATIC, SQLITE_UTF8) != SQLITE_OK;
}

void Statement::Bind(Blob blob) {
    m_failed |= sqlite3_bind_blob64(m_statement, ++m_bound, blob.bytes.data() ? blob.bytes.data() : "",
                                    blob.bytes.size(), SQLITE_STATIC) != SQLITE_OK;
}

bool Statement::Row() {
    if (!m_statement) return false;
    const int result = m_failed ? SQLITE_ERROR : sqlite3_step(m_statement);
    if (result == SQLITE_ROW) return true;
    m_failed = result != SQLITE_DONE;
    if (m_failed) m_database.NoteTrouble();
    return false;
}

bool Statement::Run() {
    while (Row()) continue;
    return m_statement && !m_failed;
}

std::int64_t Statement::Number(int column) const { return sqlite3_column_int64(m_statement, column); }

std::string Statement::Bytes(int column) const {
    const void* const bytes = sqlite3_column_blob(m_statement, column);
    const int size = sqlite3_column_bytes(m_statement, column);
    return bytes ? std::string(static_cast<const char*>(bytes), static_cast<std::size_t>(size))
                 : std::string();
}

bool Statement::IsNull(int column) const { return sqlite3_column_type(m_statement, column) == SQLITE_NULL; }

}  // namespace tabulon

#include "platform/settings_store.h"

namespace tabulon {

namespace {

constexpr std::size_t LongestPath = 4096;
constexpr std::int64_t Version = 1;

// A key's row knows its whole path, so that one statement finds a value. The root itself is the key "".
// Numbers are never used twice: another process may delete a key and make the next one at any time.
constexpr const char* Schema =
    "BEGIN IMMEDIATE;"
    "CREATE TABLE IF NOT EXISTS keys("
    " id INTEGER PRIMARY KEY AUTOINCREMENT, root INTEGER NOT NULL, path TEXT NOT NULL COLLATE NOCASE,"
    " parent INTEGER NOT NULL, name TEXT NOT NULL, UNIQUE(root, path));"
    "CREATE INDEX IF NOT EXISTS children ON keys(parent);"
    "CREATE TABLE IF NOT EXISTS entries("
    " key INTEGER NOT NULL, name TEXT NOT NULL COLLATE NOCASE, type INTEGER NOT NULL, bytes BLOB NOT NULL,"
    " PRIMARY KEY(key, name)) WITHOUT ROWID;"
    "PRAGMA user_version=1;"
    "COMMIT";

bool HoldsNul(std::string_view text) { return text.find('\0') != std::string_view::npos; }

bool NamesKey(std::string_view key) {
    if (key.empty()) return true;
    const bool emptyPart =
        key.front() == '\\' || key.back() == '\\' || key.find("\\\\") != std::string_view::npos;
    return !emptyPart && !HoldsNul(key) && key.size() <= LongestPath;
}

std::string_view LastPart(std::string_view key) { return key.substr(key.rfind('\\') + 1); }

/// The paths from the root down to the key itself.
std::vector<std::string_view> Steps(std::string_view key) {
    std::vector<std::string_view> steps{""};
    for (std::size_t end = key.find('\\'); end != std::string_view::npos; end = key.find('\\', end + 1))
        steps.push_back(key.substr(0, end));
    if (!key.empty()) steps.push_back(key);
    return steps;
}

}  // namespace

SettingsStore::SettingsStore(const std::filesystem::path& file) : m_database(file) {
    if (m_database.IsOpen()) Prepare();
}

void SettingsStore::Prepare() {
    std::int64_t version = 0;
    if (Statement read(m_database, "PRAGMA user_version"); read.Row()) version = read.Number(0);
    const bool usable = version == Version || (version == 0 && m_database.Execute(Schema));
    if (!usable && version != 0) m_database.SetTrouble("made by another version of the program");
    if (!usable) return m_database.Close();
    if (m_database.IsReadOnly()) m_database.SetTrouble("can be read but not written");
}

std::optional<StoredValue> SettingsStore::Query(std::uint32_t root, std::string_view key,
                                                std::string_view name) {
    if (!NamesKey(key) || HoldsNul(name)) return std::nullopt;
    Statement find(m_database,
                   "SELECT entries.type, entries.bytes FROM keys JOIN entries ON entries.key = keys.id"
                   " WHERE keys.root = ?1 AND keys.path = ?2 AND entries.name = ?3",
                   root, key, name);
    if (!find.Row()) return std::nullopt;
    return StoredValue{static_cast<std::uint32_t>(find.Number(0)), find.Bytes(1)};
}

bool SettingsStore::Write(std::uint32_t root, std::string_view key, std::string_view name, std::uint32_t type,
                          std::string_view bytes) {
    if (HoldsNul(name)) return false;
    StoreTransaction whole(*this);
    const auto id = whole.Begun() ? MadeKey(root, key) : std::nullopt;
    if (!id) return false;
    Statement put(m_database,
                  "INSERT INTO entries(key, name, type, bytes) VALUES(?1, ?2, ?3, ?4)"
                  " ON CONFLICT(key, name) DO UPDATE SET type = excluded.type, bytes = excluded.bytes",
                  *id, name, type, Blob{bytes});
    return put.Run() && whole.Commit();
}

bool SettingsStore::CreateKey(std::uint32_t root, std::string_view key) {
    if (KeyExists(root, key)) return true;
    StoreTransaction whole(*this);
    return whole.Begun() && MadeKey(root, key) && whole.Commit();
}

bool SettingsStore::DeleteKey(std::uint32_t root, std::string_view key) {
    StoreTransaction whole(*this);
    const auto id = whole.Begun() && !key.empty() ? KeyId(root, key) : std::nullopt;
    if (!id) return false;
    const bool gone = Statement(m_database,
                                "DELETE FROM keys WHERE id = ?1"
                                " AND NOT EXISTS(SELECT 1 FROM keys WHERE parent = ?1) RETURNING id",
                                *id)
                          .Row();
    return gone && Statement(m_database, "DELETE FROM entries WHERE key = ?1", *id).Run() && whole.Commit();
}

bool SettingsStore::KeyExists(std::uint32_t root, std::string_view key) {
    return KeyId(root, key).has_value();
}

std::optional<std::vector<std::string>> SettingsStore::SubKeys(std::uint32_t root, std::string_view key) {
    if (!NamesKey(key)) return std::nullopt;
    // One row without a name stands for a key that has no subkeys. Without the limit, a damaged file could
    // have no end of them.
    Statement list(m_database,
                   "SELECT child.name FROM keys LEFT JOIN keys AS child ON child.parent = keys.id"
                   " WHERE keys.root = ?1 AND keys.path = ?2 ORDER BY child.id LIMIT 100000",
                   root, key);
    if (!list.Row()) return std::nullopt;
    std::vector<std::string> names;
    do {
        if (!list.IsNull(0)) names.push_back(list.Bytes(0));
    } while (list.Row());
    return names;
}

std::optional<std::int64_t> SettingsStore::KeyId(std::uint32_t root, std::string_view key) {
    if (!NamesKey(key)) return std::nullopt;
    Statement find(m_database, "SELECT id FROM keys WHERE root = ?1 AND path = ?2", root, key);
    if (!find.Row()) return std::nullopt;
    return find.Number(0);
}

/// The key's number, made with those above it inside the present transaction.
std::optional<std::int64_t> SettingsStore::MadeKey(std::uint32_t root, std::string_view key) {
    if (!NamesKey(key)) return std::nullopt;
    std::optional<std::int64_t> id = KeyId(root, key);
    if (id) return id;
    std::int64_t parent = 0;
    for (const std::string_view step : Steps(key)) {
        id = KeyId(root, step);
        Statement make(m_database,
                       "INSERT INTO keys(root, path, parent, name) VALUES(?1, ?2, ?3, ?4) RETURNING id", root,
                       step, parent, LastPart(step));
        if (!id && make.Row()) id = make.Number(0);
        if (!id) return std::nullopt;
        parent = *id;
    }
    return id;
}

StoreTransaction::StoreTransaction(SettingsStore& store)
    : m_store(store), m_inner(store.m_transactions++ > 0) {
    Database& database = m_store.m_database;
    // An inner one in an outer one that did not begin, or that the store gave up, would commit by itself.
    m_open = m_inner ? database.InTransaction() && Statement(database, "SAVEPOINT inner_one").Run()
                     : Statement(database, "BEGIN IMMEDIATE").Run();
}

StoreTransaction::~StoreTransaction() {
    if (m_open) Undo();
    --m_store.m_transactions;
}

bool StoreTransaction::Commit() {
    if (!m_open) return false;
    if (!Statement(m_store.m_database, m_inner ? "RELEASE inner_one" : "COMMIT").Run()) return false;
    m_open = false;
    return true;
}

void StoreTransaction::Undo() {
    Database& database = m_store.m_database;
    if (!database.InTransaction()) return;
    if (!m_inner) {
        Statement(database, "ROLLBACK").Run();
        return;
    }
    Statement(database, "ROLLBACK TO inner_one").Run();
    Statement(database, "RELEASE inner_one").Run();
}

}  // namespace tabulon

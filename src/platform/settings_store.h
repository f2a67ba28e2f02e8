#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"

namespace tabulon {

struct StoredValue {
    std::uint32_t type = 0;
    std::string bytes;
    bool operator==(const StoredValue&) const = default;
};

/// The machine's settings: under each root (a 32-bit number) a tree of keys that hold named, typed values, in
/// one file that processes may share. A key is named by its path ("SOFTWARE\Maker\Product"). Names are
/// compared without ASCII case and keep the case that they were created with. A path with an empty part or
/// a NUL, or one of more than 4096 bytes, names no key.
///
/// No operation throws for the store's sake. Each one that changes is done whole, or returns false and has
/// changed nothing.
class SettingsStore {
  public:
    /// Opens or makes the file (":memory:" for a store that ends with the object). What cannot be written is
    /// opened for reading; what cannot be read is left alone, and the store is empty and takes nothing.
    explicit SettingsStore(const std::filesystem::path& file);

    /// What the user should know: why the store cannot be opened or written, or what last went wrong.
    const std::string& Trouble() const { return m_database.Trouble(); }

    std::optional<StoredValue> Query(std::uint32_t root, std::string_view key, std::string_view name);
    /// Makes the key and those above it when they are missing.
    bool Write(std::uint32_t root, std::string_view key, std::string_view name, std::uint32_t type,
               std::string_view bytes);
    bool CreateKey(std::uint32_t root, std::string_view key);
    /// Only a key without subkeys is deleted; its values go with it.
    bool DeleteKey(std::uint32_t root, std::string_view key);
    bool KeyExists(std::uint32_t root, std::string_view key);
    /// The names below a key in the order of their creation; nothing when there is no such key.
    std::optional<std::vector<std::string>> SubKeys(std::uint32_t root, std::string_view key);

  private:
    friend class StoreTransaction;

    void Prepare();
    std::optional<std::int64_t> KeyId(std::uint32_t root, std::string_view key);
    std::optional<std::int64_t> MadeKey(std::uint32_t root, std::string_view key);

    Database m_database;
    int m_transactions = 0;  // how many are open, one inside the other
};

/// What is written while it lives reaches the store whole at Commit, or is undone. Another one inside it is
/// undone by itself, and is kept only when the outer one is. Other processes wait meanwhile.
class StoreTransaction {
  public:
    explicit StoreTransaction(SettingsStore& store);
    ~StoreTransaction();
    StoreTransaction(const StoreTransaction&) = delete;
    StoreTransaction& operator=(const StoreTransaction&) = delete;

    /// False when the store takes no changes: then all writes until the end of the transaction fail.
    bool Begun() const { return m_open; }
    /// False when nothing was kept.
    bool Commit();

  private:
    void Undo();

    SettingsStore& m_store;
    const bool m_inner;
    bool m_open;
};

}  // namespace tabulon

#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/integer.h"
#include "platform/message_boxes.h"
#include "platform/settings_store.h"

namespace tabulon {

inline constexpr std::uint32_t HKEY_LOCAL_MACHINE = 0x80000002;

inline constexpr std::uint32_t REG_SZ = 1;
inline constexpr std::uint32_t REG_BINARY = 3;
inline constexpr std::uint32_t REG_DWORD = 4;

inline constexpr char ProductKey[] = "SOFTWARE\\Corvane Software\\Tabulon";
inline constexpr char GamesKey[] = "SOFTWARE\\Corvane Software\\Tabulon\\Games";

/// No value, a text (UTF-8), bytes, or a number.
using RegistryValue = std::variant<std::monostate, std::string, std::vector<std::uint8_t>, std::int32_t>;

/// What a value read from the store is as a text, a number or a truth: no value is "", 0 or false, and a text
/// counts as the number that it says. Fails with TypeMismatch for bytes and for a text that is no number,
/// with Overflow beyond the type. Nothing but a RegistryValue fits, so that an argument of another type keeps
/// the conversions of numbers.h.
template <std::same_as<RegistryValue> Value>
std::string ToText(const Value& value);
template <std::same_as<RegistryValue> Value>
std::int32_t ToLong(const Value& value);
template <std::same_as<RegistryValue> Value>
Integer ToInteger(const Value& value);
template <std::same_as<RegistryValue> Value>
bool ToBoolean(const Value& value);

/// The typed way to the settings store. What is not there is no failure: it reads as no value. What the store
/// refuses is lost in silence. A value that does not convert ends in a message box with the procedure's name.
class modRegistry {
  public:
    modRegistry(SettingsStore& store, MessageBoxes& boxes) : m_store(store), m_boxes(boxes) {}

    /// No value also for types other than the three above.
    RegistryValue RegistryGetKeyValue(std::uint32_t Root, const std::string& KeyPath,
                                      const std::string& ValueName);
    /// Makes the key in any case, and writes nothing for types other than the three above.
    void RegistrySetKeyValue(std::uint32_t Root, const std::string& KeyPath, const std::string& ValueName,
                             const RegistryValue& Value, std::uint32_t ValueType);
    /// A key with subkeys stays.
    void RegistryDeleteKey(std::uint32_t Root, const std::string& KeyPath);
    /// Leaves both results as they are when there is no such key, and Names when it has no subkeys.
    void RegistryEnumerateSubKeys(std::uint32_t Root, const std::string& KeyPath,
                                  std::vector<std::string>& Names, std::int32_t& Count);

    /// For a StoreTransaction around several writes.
    SettingsStore& Store() { return m_store; }

  private:
    template <class Body>
    void Guarded(const char* procedure, Body&& body);
    void ShowFailure(const char* procedure, const Failure& failure);

    SettingsStore& m_store;
    MessageBoxes& m_boxes;
};

}  // namespace tabulon

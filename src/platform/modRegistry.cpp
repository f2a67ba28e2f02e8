#include "platform/modRegistry.h"

#include <exception>
#include <new>
#include <optional>
#include <string_view>

#include "platform/numbers.h"
#include "platform/text.h"

namespace tabulon {

namespace {

using Bytes = std::vector<std::uint8_t>;

[[noreturn]] void FailToConvert() { throw Failure(FailureNumber::TypeMismatch); }

/// The lowest four bytes first; fewer than four are the low ones, and more do not fit and read as 0.
std::int32_t NumberOf(std::string_view bytes) {
    if (bytes.size() > 4) return 0;
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        number |= std::uint32_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
    return static_cast<std::int32_t>(number);
}

std::string BytesOf(std::int32_t number) {
    const auto bits = static_cast<std::uint32_t>(number);
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(bits >> shift);
    return bytes;
}

std::string BytesOf(const Bytes& bytes) { return {bytes.begin(), bytes.end()}; }

RegistryValue ReadAs(const StoredValue& stored) {
    switch (stored.type) {
        case REG_SZ:
            return TrimAtNul(stored.bytes);
        case REG_BINARY:
            return Bytes(stored.bytes.begin(), stored.bytes.end());
        case REG_DWORD:
            return NumberOf(stored.bytes);
        default:
            return {};
    }
}

std::optional<std::string> WrittenAs(std::uint32_t type, const RegistryValue& value) {
    switch (type) {
        case REG_SZ:
            return TrimAtNul(ToText(value)) + '\0';
        case REG_BINARY:
            if (!std::holds_alternative<Bytes>(value)) FailToConvert();
            return BytesOf(std::get<Bytes>(value));
        case REG_DWORD:
            return BytesOf(ToLong(value));
        default:
            return std::nullopt;
    }
}

}  // namespace

template <std::same_as<RegistryValue> Value>
std::string ToText(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* number = std::get_if<std::int32_t>(&value)) return ToText(*number);
    if (std::holds_alternative<Bytes>(value)) FailToConvert();
    return {};
}

template <std::same_as<RegistryValue> Value>
std::int32_t ToLong(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return ToLong(std::string_view(*text));
    if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
    if (std::holds_alternative<Bytes>(value)) FailToConvert();
    return 0;
}

template <std::same_as<RegistryValue> Value>
Integer ToInteger(const Value& value) {
    return ToLong(value);
}

template <std::same_as<RegistryValue> Value>
bool ToBoolean(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return ToDouble(*text) != 0;
    return ToLong(value) != 0;
}

template std::string ToText(const RegistryValue&);
template std::int32_t ToLong(const RegistryValue&);
template Integer ToInteger(const RegistryValue&);
template bool ToBoolean(const RegistryValue&);

template <class Body>
void modRegistry::Guarded(const char* procedure, Body&& body) {
    try {
        body();
    } catch (const Failure& failure) {
        ShowFailure(procedure, failure);
    } catch (const std::bad_alloc&) {
        ShowFailure(procedure, Failure(FailureNumber::OutOfMemory));
    } catch (const std::exception& other) {
        ShowFailure(procedure, Failure(FailureNumber::InternalError, other.what()));
    }
}

void modRegistry::ShowFailure(const char* procedure, const Failure& failure) {
    m_boxes.MsgBox("Error: " + std::to_string(failure.Number()) + ". " + failure.Description(), BoxIcon::None,
                   BoxButtons::Ok, procedure);
}

RegistryValue modRegistry::RegistryGetKeyValue(std::uint32_t Root, const std::string& KeyPath,
                                               const std::string& ValueName) {
    RegistryValue result;
    Guarded("RegistryGetKeyValue", [&] {
        if (const auto stored = m_store.Query(Root, KeyPath, ValueName)) result = ReadAs(*stored);
    });
    return result;
}

void modRegistry::RegistrySetKeyValue(std::uint32_t Root, const std::string& KeyPath,
                                      const std::string& ValueName, const RegistryValue& Value,
                                      std::uint32_t ValueType) {
    Guarded("RegistrySetKeyValue", [&] {
        m_store.CreateKey(Root, KeyPath);
        const auto bytes = WrittenAs(ValueType, Value);
        if (bytes) m_store.Write(Root, KeyPath, ValueName, ValueType, *bytes);
    });
}

void modRegistry::RegistryDeleteKey(std::uint32_t Root, const std::string& KeyPath) {
    Guarded("RegistryDeleteKey", [&] { m_store.DeleteKey(Root, KeyPath); });
}

void modRegistry::RegistryEnumerateSubKeys(std::uint32_t Root, const std::string& KeyPath,
                                           std::vector<std::string>& Names, std::int32_t& Count) {
    Guarded("RegistryEnumerateSubKeys", [&] {
        auto found = m_store.SubKeys(Root, KeyPath);
        if (!found) return;
        Count = static_cast<std::int32_t>(found->size());
        if (!found->empty()) Names = std::move(*found);
    });
}

}  // namespace tabulon

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "platform/integer.h"

namespace tabulon {

/// A file beyond a limit cannot be read. Far above any real game, and small enough that no file can hang or
/// exhaust the machine.
namespace limits {
inline constexpr std::size_t ContentFileBytes = 16U << 20;
/// Elements inside one another.
inline constexpr int ContentDepth = 32;
inline constexpr std::ptrdiff_t ElementAttributes = 256;
inline constexpr std::size_t Columns = 256;
inline constexpr std::size_t Rows = 5000;
}  // namespace limits

/// A table that ADO saved as XML (persistence format of its rowsets): a schema with one s:AttributeType for
/// each column, and rows under rs:data, those still pending under rs:insert and rs:update. Read only.
/// Namespaces count, prefixes do not. Text in 8 bits is UTF-8, or Windows-1252 when it is none or says so.
class PersistedRecordset {
  public:
    /// Fails with FileIoError for what is no such table or breaks a limit.
    explicit PersistedRecordset(std::string bytes);

    enum class Type { Text, Whole, Single, Double };

    struct Column {
        std::string Name;
        std::string Attribute;  // what a row's attribute is called
        Type DataType = Type::Text;
    };

    class Row {
      public:
        Row(const PersistedRecordset& table, pugi::xml_node node)
            : m_table(&table), m_node(node), m_nextAttribute(node.first_attribute()) {}

        /// The value as text, numbers in their shortest form. All four fail with ItemNotFound for a column
        /// that the table does not have, with InvalidUseOfNull for a null, with TypeMismatch or Overflow for
        /// what does not convert.
        std::string Text(std::string_view column) const;
        Integer ToInteger(std::string_view column) const;
        std::int32_t ToLong(std::string_view column) const;
        float ToSingle(std::string_view column) const;

        bool IsNull(std::string_view column) const;
        /// Of the file, from 1.
        int Line() const;

      private:
        const Column& Found(std::string_view column) const;
        pugi::xml_attribute Attribute(const Column& column) const;
        std::string_view Raw(const Column& column) const;
        double Number(std::string_view column) const;

        const PersistedRecordset* m_table;
        pugi::xml_node m_node;
        // Where the next look-up begins: columns are mostly asked in their order.
        mutable std::size_t m_nextColumn = 0;
        mutable pugi::xml_attribute m_nextAttribute;
    };

    const std::vector<Column>& Columns() const { return m_columns; }
    const std::vector<Row>& Rows() const { return m_rows; }
    /// Names are compared without ASCII case; null when there is no such column.
    const Column* FindColumn(std::string_view name) const;

    PersistedRecordset(const PersistedRecordset&) = delete;
    PersistedRecordset& operator=(const PersistedRecordset&) = delete;

  private:
    const Column& Required(std::string_view name) const;
    void ReadColumns(pugi::xml_node root);
    void AddColumns(pugi::xml_node parent);
    void ReadRows(pugi::xml_node parent);
    void CompleteRows(pugi::xml_node update);
    bool IsRow(pugi::xml_node node);

    std::string m_text;            // parsed in place
    bool m_onlyRootBinds = false;  // prefixes to namespaces
    std::vector<std::size_t> m_lineEnds;
    pugi::xml_document m_document;
    std::vector<Column> m_columns;
    std::vector<Row> m_rows;
    std::string m_rowName;  // of every row; empty while it is not known, or may differ
};

}  // namespace tabulon

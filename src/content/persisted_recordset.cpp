#include "content/persisted_recordset.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <functional>
#include <iterator>
#include <numeric>
#include <utility>

#include "platform/failure.h"
#include "platform/numbers.h"
#include "platform/text.h"

namespace tabulon {

namespace {

constexpr std::string_view SchemaNamespace = "uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882";
constexpr std::string_view TypeNamespace = "uuid:C2F41010-65B3-11d1-A29F-00AA00C14882";
constexpr std::string_view RowsetNamespace = "urn:schemas-microsoft-com:rowset";
constexpr std::string_view RowNamespace = "#RowsetSchema";

[[noreturn]] void Refuse(const std::string& why) {
    throw Failure(FailureNumber::FileIoError, "The content file cannot be read: " + why);
}

/// What a prefix is bound to at a node; empty when it is bound to nothing.
std::string_view NamespaceOf(pugi::xml_node node, std::string_view prefix) {
    const std::string binding = prefix.empty() ? "xmlns" : "xmlns:" + std::string(prefix);
    for (; node; node = node.parent())
        if (const pugi::xml_attribute attribute = node.attribute(binding.c_str())) return attribute.value();
    return {};
}

/// Whether the qualified name, read at the node, is the local name in the namespace.
bool IsName(pugi::xml_node node, std::string_view qualified, std::string_view space, std::string_view local) {
    const std::size_t colon = qualified.find(':');
    const bool prefixed = colon != std::string_view::npos;
    if ((prefixed ? qualified.substr(colon + 1) : qualified) != local) return false;
    return NamespaceOf(node, prefixed ? qualified.substr(0, colon) : std::string_view()) == space;
}

bool IsElement(pugi::xml_node node, std::string_view space, std::string_view local) {
    return node.type() == pugi::node_element && IsName(node, node.name(), space, local);
}

bool HasTooManyAttributes(pugi::xml_node node) {
    const auto attributes = node.attributes();
    return std::distance(attributes.begin(), attributes.end()) > limits::ElementAttributes;
}

std::string AttributeOf(pugi::xml_node node, std::string_view space, std::string_view local) {
    if (HasTooManyAttributes(node)) Refuse("an element has too many attributes");
    for (const pugi::xml_attribute attribute : node.attributes())
        if (std::string_view(attribute.name()).ends_with(local) &&
            IsName(node, attribute.name(), space, local))
            return attribute.value();
    return {};
}

void AddMissingAttributes(pugi::xml_node row, pugi::xml_node from) {
    if (HasTooManyAttributes(row) || HasTooManyAttributes(from))
        Refuse("a changed row has too many attributes");
    for (const pugi::xml_attribute attribute : from.attributes())
        if (!row.attribute(attribute.name())) row.append_copy(attribute);
}

PersistedRecordset::Type TypeNamed(std::string_view name) {
    using Type = PersistedRecordset::Type;
    for (const std::string_view whole : {"int", "i1", "i2", "i4", "ui1", "ui2", "ui4"})
        if (name == whole) return Type::Whole;
    if (name == "r4") return Type::Single;
    for (const std::string_view wide : {"r8", "float", "number", "i8", "ui8", "fixed.14.4"})
        if (name == wide) return Type::Double;
    return Type::Text;
}

PersistedRecordset::Type TypeOf(pugi::xml_node attributeType) {
    std::string name = AttributeOf(attributeType, TypeNamespace, "type");
    for (const pugi::xml_node child : attributeType.children())
        if (name.empty() && IsElement(child, SchemaNamespace, "datatype"))
            name = AttributeOf(child, TypeNamespace, "type");
    return TypeNamed(name);
}

/// pugixml knows the wide encodings by their first bytes; text in 8 bits is ours to tell.
bool IsWide(std::string_view bytes) {
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") ||
           bytes.substr(0, 4).find('\0') != std::string_view::npos;
}

/// Names are looked up among the attributes of every element around. Rows have none inside, and are many.
struct SizeGuard final : pugi::xml_tree_walker {
    bool for_each(pugi::xml_node& node) override {
        return depth() < limits::ContentDepth && (!node.first_child() || !HasTooManyAttributes(node));
    }
};

bool IsAscii(std::string_view bytes) {
    const char all = std::accumulate(bytes.begin(), bytes.end(), '\0', std::bit_or<char>());
    return static_cast<unsigned char>(all) < 0x80;
}

/// Most files are plain ASCII, which needs no closer look.
std::string Decoded(std::string bytes) {
    return IsAscii(bytes) || IsWide(bytes) ? std::move(bytes) : ToUtf8(bytes);
}

std::size_t CountOf(std::string_view part, std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + part.size())) ++count;
    return count;
}

std::size_t BindingsAt(pugi::xml_node node) {
    return static_cast<std::size_t>(
        std::ranges::count_if(node.attributes(), [](pugi::xml_attribute attribute) {
            return std::string_view(attribute.name()).starts_with("xmlns");
        }));
}

std::string Shortest(double value) {
    std::array<char, 32> digits{};
    return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr};
}

std::vector<std::size_t> LineEnds(const std::string& text) {
    std::vector<std::size_t> ends;
    for (std::size_t at = text.find('\n'); at != text.npos; at = text.find('\n', at + 1)) ends.push_back(at);
    return ends;
}

void Parse(pugi::xml_document& document, std::string& text) {
    const pugi::xml_encoding encoding = IsWide(text) ? pugi::encoding_auto : pugi::encoding_utf8;
    const pugi::xml_parse_result result =
        document.load_buffer_inplace(text.data(), text.size(), pugi::parse_default, encoding);
    if (!result) Refuse(result.description());
    SizeGuard guard;
    if (!document.traverse(guard)) Refuse("its elements are nested too deeply, or have too many attributes");
}

}  // namespace

PersistedRecordset::PersistedRecordset(std::string bytes) {
    if (bytes.size() > limits::ContentFileBytes) Refuse("it is too large");
    m_text = Decoded(std::move(bytes));
    m_lineEnds = LineEnds(m_text);
    const std::size_t bindings = CountOf("xmlns", m_text);
    Parse(m_document, m_text);
    m_onlyRootBinds = bindings == BindingsAt(m_document.document_element());
    ReadColumns(m_document.document_element());
    for (const pugi::xml_node data : m_document.document_element().children())
        if (IsElement(data, RowsetNamespace, "data")) ReadRows(data);
}

void PersistedRecordset::ReadColumns(pugi::xml_node root) {
    for (const pugi::xml_node schema : root.children()) {
        if (!IsElement(schema, SchemaNamespace, "Schema")) continue;
        AddColumns(schema);
        for (const pugi::xml_node element : schema.children())
            if (IsElement(element, SchemaNamespace, "ElementType")) AddColumns(element);
    }
    if (m_columns.empty()) Refuse("it has no columns");
}

void PersistedRecordset::AddColumns(pugi::xml_node parent) {
    for (const pugi::xml_node type : parent.children()) {
        if (!IsElement(type, SchemaNamespace, "AttributeType")) continue;
        if (m_columns.size() == limits::Columns) Refuse("it has too many columns");
        const std::string attribute = type.attribute("name").value();
        const std::string renamed = AttributeOf(type, RowsetNamespace, "name");
        m_columns.push_back({renamed.empty() ? attribute : renamed, attribute, TypeOf(type)});
    }
}

void PersistedRecordset::ReadRows(pugi::xml_node parent) {
    for (const pugi::xml_node child : parent.children()) {
        if (IsRow(child)) {
            if (m_rows.size() == limits::Rows) Refuse("it has too many rows");
            m_rows.emplace_back(*this, child);
        } else if (IsElement(child, RowsetNamespace, "insert")) {
            ReadRows(child);
        } else if (IsElement(child, RowsetNamespace, "update")) {
            CompleteRows(child);
            ReadRows(child);
        }
    }
}

// A changed row may hold its changed columns alone. The others stand in the row as it was, which comes first.
void PersistedRecordset::CompleteRows(pugi::xml_node update) {
    pugi::xml_node original;
    for (const pugi::xml_node child : update.children()) {
        if (IsElement(child, RowsetNamespace, "original"))
            original = child.find_child([this](pugi::xml_node node) { return IsRow(node); });
        else if (IsRow(child))
            AddMissingAttributes(child, original);
    }
}

// Looking for what a prefix means costs more than reading the row. Where only the root binds any, as in all
// files that ADO writes, one look is enough.
bool PersistedRecordset::IsRow(pugi::xml_node node) {
    if (!m_rowName.empty() && node.name() == m_rowName) return true;
    if (!IsElement(node, RowNamespace, "row")) return false;
    if (m_onlyRootBinds) m_rowName = node.name();
    return true;
}

const PersistedRecordset::Column* PersistedRecordset::FindColumn(std::string_view name) const {
    auto found = std::ranges::find(m_columns, name, &Column::Name);
    if (found == m_columns.end())
        found = std::ranges::find_if(m_columns,
                                     [&](const Column& column) { return EqualNoCase(column.Name, name); });
    return found == m_columns.end() ? nullptr : &*found;
}

const PersistedRecordset::Column& PersistedRecordset::Required(std::string_view name) const {
    const Column* column = FindColumn(name);
    if (!column)
        throw Failure(FailureNumber::ItemNotFound,
                      "The content file has no column \"" + std::string(name) + "\"");
    return *column;
}

std::string PersistedRecordset::Row::Text(std::string_view column) const {
    const Column& field = Found(column);
    switch (field.DataType) {
        case Type::Whole:
            return ToText(tabulon::ToLong(Raw(field)));
        case Type::Single:
            return ToText(tabulon::ToSingle(Raw(field)));
        case Type::Double:
            return Shortest(ToDouble(Raw(field)));
        case Type::Text:
            break;
    }
    return std::string(Raw(field));
}

Integer PersistedRecordset::Row::ToInteger(std::string_view column) const {
    return tabulon::ToInteger(Number(column));
}

std::int32_t PersistedRecordset::Row::ToLong(std::string_view column) const {
    return tabulon::ToLong(Number(column));
}

float PersistedRecordset::Row::ToSingle(std::string_view column) const {
    return tabulon::ToSingle(Raw(Found(column)));
}

bool PersistedRecordset::Row::IsNull(std::string_view column) const { return !Attribute(Found(column)); }

int PersistedRecordset::Row::Line() const {
    const auto before =
        std::ranges::lower_bound(m_table->m_lineEnds, static_cast<std::size_t>(m_node.offset_debug()));
    return 1 + static_cast<int>(before - m_table->m_lineEnds.begin());
}

const PersistedRecordset::Column& PersistedRecordset::Row::Found(std::string_view column) const {
    const std::vector<Column>& columns = m_table->m_columns;
    if (m_nextColumn >= columns.size() || columns[m_nextColumn].Name != column)
        m_nextColumn = static_cast<std::size_t>(&m_table->Required(column) - columns.data());
    return columns[m_nextColumn++];
}

pugi::xml_attribute PersistedRecordset::Row::Attribute(const Column& column) const {
    const bool isNext = std::strcmp(column.Attribute.c_str(), m_nextAttribute.name()) == 0;
    const pugi::xml_attribute found = isNext ? m_nextAttribute : m_node.attribute(column.Attribute.c_str());
    if (found) m_nextAttribute = found.next_attribute();
    return found;
}

std::string_view PersistedRecordset::Row::Raw(const Column& column) const {
    const pugi::xml_attribute attribute = Attribute(column);
    if (!attribute) throw Failure(FailureNumber::InvalidUseOfNull);
    return attribute.value();
}

/// A single is rounded to its precision first, as the column would hold it.
double PersistedRecordset::Row::Number(std::string_view column) const {
    const Column& field = Found(column);
    const std::string_view text = Raw(field);
    std::int16_t digits = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), digits);
    if (read.ec == std::errc() && read.ptr == text.data() + text.size()) return digits;
    return field.DataType == Type::Single ? static_cast<double>(tabulon::ToSingle(text)) : ToDouble(text);
}

}  // namespace tabulon

#pragma once

#include <initializer_list>
#include <span>
#include <string>

#include "content/content_files.h"

namespace tabulon::test {

/// A persisted recordset with the columns, and rows that are given as their attributes.
inline std::string ContentXml(std::span<const ColumnDefinition> columns, const std::string& rows) {
    std::string xml =
        "<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882' "
        "xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882' "
        "xmlns:rs='urn:schemas-microsoft-com:rowset' xmlns:z='#RowsetSchema'>\n"
        "<s:Schema id='RowsetSchema'><s:ElementType name='row' content='eltOnly'>\n";
    for (const ColumnDefinition& column : columns) {
        const std::string type = column.Type == AdoType::Single    ? "r4"
                                 : column.Type == AdoType::Integer ? "int"
                                                                   : "string";
        xml += "<s:AttributeType name='" + std::string(column.Name) + "'><s:datatype dt:type='" + type +
               "'/></s:AttributeType>\n";
    }
    return xml + "</s:ElementType></s:Schema>\n<rs:data>\n" + rows + "</rs:data>\n</xml>\n";
}

struct Attribute {
    std::string Name;
    std::string Value;
};

/// The row with other values for some of its attributes.
inline std::string WithValues(std::string row, std::initializer_list<Attribute> others) {
    for (const Attribute& other : others) {
        const std::string beginning = " " + other.Name + "='";
        const std::size_t value = row.find(beginning) + beginning.size();
        row.replace(value, row.find('\'', value) - value, other.Value);
    }
    return row;
}

/// A row of spaces.xml, beside the space before it.
inline std::string SpaceRow(int sequence, std::initializer_list<Attribute> others = {}) {
    return WithValues("<z:row Sequence='" + std::to_string(sequence) + "' Top='20' Left='" +
                          std::to_string(10 * sequence) +
                          "' Height='4' Width='3' ActionType='6' Message=' ' Data1='2' Data2='0'/>\n",
                      others);
}

/// A row of cards1.xml.
inline std::string CardRow(int index, std::initializer_list<Attribute> others = {}) {
    return WithValues(
        "<z:row DeckID='1' Index='" + std::to_string(index) + "' Message='Q" + std::to_string(index) +
            "' CorrectActionType='6' CorrectMessage='Right' CorrectData1='5' CorrectData2='1' "
            "IncorrectActionType='5' IncorrectMessage=' ' IncorrectData1='3' IncorrectData2='0' "
            "CorrectAnswer='2' "
            "Answer1='a' Answer2='b' Answer3='c' Answer4=' '/>\n",
        others);
}

inline std::string DeckRow(const std::string& index) {
    return "<z:row Index='" + index + "' Name='Deck " + index + "' Bitmap=' ' BitmapPath=' '/>\n";
}

}  // namespace tabulon::test

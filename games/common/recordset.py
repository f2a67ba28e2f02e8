"""Writes tables as persisted recordsets, the form in which the Player reads spaces, decks and cards."""
from xml.sax.saxutils import quoteattr

INT = ("int", "dt:maxLength='4' rs:precision='10' rs:fixedlength='true'")
SINGLE = ("r4", "dt:maxLength='4' rs:precision='7' rs:fixedlength='true'")


def text(longest):
    return "string", f"rs:dbtype='str' dt:maxLength='{longest}'"


def recordset(columns, rows):
    """COLUMNS are (name, type) pairs; each of ROWS maps every name to a value. A text that is empty becomes a single
    blank, since the Player does not read a table with a value missing."""
    lines = [
        "<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'",
        "\txmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'",
        "\txmlns:rs='urn:schemas-microsoft-com:rowset'",
        "\txmlns:z='#RowsetSchema'>",
        "<s:Schema id='RowsetSchema'>",
        "\t<s:ElementType name='row' content='eltOnly'>",
    ]
    for number, (name, (kind, facts)) in enumerate(columns, 1):
        lines += [
            f"\t\t<s:AttributeType name='{name}' rs:number='{number}' rs:write='true'>",
            f"\t\t\t<s:datatype dt:type='{kind}' {facts} rs:maybenull='false'/>",
            "\t\t</s:AttributeType>",
        ]
    lines += ["\t\t<s:extends type='rs:rowbase'/>", "\t</s:ElementType>", "</s:Schema>", "<rs:data>"]
    for row in rows:
        values = " ".join(f"{name}={quoteattr(str(row[name]) or ' ')}" for name, _ in columns)
        lines.append(f"\t<z:row {values}/>")
    return "\n".join([*lines, "</rs:data>", "</xml>", ""])

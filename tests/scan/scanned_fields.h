/*
 * Scanned fields and their values as texts that rows of tables compare.
 */
#pragma once

#include "support/octets.h"
#include "scan/header_scanner.h"

#include <string>
#include <vector>

/// "token 128 yes; count 1; number 5; charset 106; \"text\"": what is set, in this order.
inline std::string described(const QvlScannedValue &value)
{
    if (!value.isReadable)
        return "unreadable";
    std::string text;
    const auto add = [&text](const std::string &part) {
        text += (text.empty() ? "" : "; ") + part;
    };
    if (value.token >= 0)
        add("token " + std::to_string(value.token) + " "
            + (value.tokenName ? value.tokenName : "unnamed"));
    if (value.count >= 0)
        add("count " + std::to_string(value.count));
    if (value.number >= 0)
        add("number " + std::to_string(value.number));
    if (value.charset > 0)
        add("charset " + std::to_string(value.charset));
    if (!value.text.isNull())
        add("\"" + value.text.toStdString() + "\"");
    return text;
}

/// The fields of @p scanner, which is left at its end.
inline std::vector<QvlScannedField> allFields(QvlHeaderScanner *scanner)
{
    std::vector<QvlScannedField> fields;
    QvlScannedField field;
    while (scanner->next(&field))
        fields.push_back(field);
    return fields;
}

/// The value of the only field of @p header.
inline std::string decodedValue(const QByteArray &header)
{
    const HeapBlock block(header);
    QvlHeaderScanner scanner(QByteArrayView(block.data(), block.size()));
    QvlScannedField field;
    if (!scanner.next(&field))
        return scanner.meaning();
    const std::string value = described(field.decoded());
    return scanner.next(&field) ? "more than one field" : value;
}

/*
 * Scanned fields and their values as texts that rows of tables compare.
 */
#pragma once

#include "scan/header_scanner.h"
#include "support/octets.h"

#include <gtest/gtest.h>

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

/// The fields of a copy of octets, which a sanitizer guards.
struct Scan
{
    explicit Scan(const QByteArray &octets)
        : block(octets), scanner(QByteArrayView(block.data(), block.size())),
          fields(allFields(&scanner))
    {
    }

    HeapBlock block;
    QvlHeaderScanner scanner;
    std::vector<QvlScannedField> fields;
};

/// Checks that the fields lie one after the other and fill the header up to position().
inline void expectTiling(const Scan &scan)
{
    qsizetype end = 0;
    const auto *begin = reinterpret_cast<const char *>(scan.block.data());
    for (const QvlScannedField &field : scan.fields) {
        EXPECT_EQ(field.offset, end);
        EXPECT_EQ(field.octets.data(), begin + end);
        end += field.octets.size();
        EXPECT_EQ(field.value.data() + field.value.size(), begin + end);
        EXPECT_GT(field.value.size(), 0);
        EXPECT_EQ(field.known, qvlKnownField(field.code));
        EXPECT_EQ(field.letters.isEmpty(), field.code != QvlScannedField::NoCode);
    }
    EXPECT_EQ(scan.scanner.position(), end);
    EXPECT_LE(end, scan.block.size());
}

/// The name of the standard or in letters; empty for an unassigned code.
inline std::string nameOf(const QvlScannedField &field)
{
    if (field.known)
        return field.known->name;
    return field.letters.toByteArray().toStdString();
}

/// Checks every beginning of @p pdu: it has the same fields up to the one that is truncated.
inline void expectSameFieldsWhenTruncated(const QByteArray &pdu)
{
    const Scan all(pdu);
    for (qsizetype size = 0; size < pdu.size(); ++size) {
        SCOPED_TRACE(size);
        const Scan scan(pdu.first(size));
        expectTiling(scan);
        ASSERT_LE(scan.fields.size(), all.fields.size());
        for (std::size_t i = 0; i < scan.fields.size(); ++i)
            EXPECT_EQ(scan.fields[i].octets, all.fields[i].octets);
        EXPECT_NE(scan.scanner.result(), QvlHeaderScanner::Scanning);
        if (size >= all.scanner.position()) {
            EXPECT_EQ(scan.scanner.position(), all.scanner.position());
            continue;
        }
        ASSERT_LT(scan.fields.size(), all.fields.size());
        EXPECT_EQ(scan.scanner.position(), all.fields[scan.fields.size()].offset);
        EXPECT_EQ(scan.scanner.isComplete(), scan.scanner.position() == size);
    }
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

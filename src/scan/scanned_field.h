/** @file
 * A header field as it came, and its decoded value.
 */
#pragma once

#include "../base/export.h"
#include "../wire/known_fields.h"

#include <QByteArrayView>
#include <QString>

/**
 * The decoded value of a header field. Its form, see QvlKnownField::form, says which members are
 * set; the others keep their initial values.
 */
struct QvlScannedValue
{
    /// True when the octets have the form of the field. Otherwise no other member counts. Always
    /// false for Opaque.
    bool isReadable = false;
    /// The octet of Token and TokenOrText; the one after the value-length of Sender, Time,
    /// TokenAndInteger and TokenAndText.
    int token = -1;
    /// The name of the token, or null when the standard has none for it.
    const char *tokenName = nullptr;
    /// The count of CountAndAddress and CountAndDate, and how many octets Tokens has.
    qint64 count = -1;
    /// The number of Version and Integer; the seconds of Date, Time and CountAndDate, as sent; the
    /// number of TokenAndInteger; the code of ContentType when it has one.
    qint64 number = -1;
    /// The charset that an encoded text or an address declares, by its MIBenum; 0 when none.
    int charset = 0;
    /**
     * The text of all forms that have one, without quote and terminator; the media type of
     * ContentType, empty for a code that is not assigned.
     *
     * qvlDecodeText() says how charsets are decoded. Unlike there, the text ends at its first zero.
     */
    QString text;
};

/// A header field as it came. The views point into the octets that were scanned.
struct QVL_EXPORT QvlScannedField
{
    /// The code of a field whose name is in letters.
    static constexpr int NoCode = -1;

    /// The octet on the wire without its high bit, 0..127, or NoCode.
    int code = NoCode;
    /// The name in letters, without its terminator; empty when the field has a code.
    QByteArrayView letters;
    /// What the standard says of the code; null for a name in letters and for an unassigned code.
    const QvlKnownField *known = nullptr;
    /// Where the field begins in the octets that were scanned.
    qsizetype offset = 0;
    /// The whole field: code or name, and value.
    QByteArrayView octets;
    /// The value alone, with its value-length, quote and terminator.
    QByteArrayView value;

    /// Where the value begins in the octets that were scanned.
    qsizetype valueOffset() const { return offset + octets.size() - value.size(); }

    /**
     * Decodes the value by the form of the field. The value of a field in letters is a text.
     * A token may stand after a value-length. Octets after those that the form has are ignored.
     * Linear in the octets of the value. Not readable when there is no memory.
     */
    QvlScannedValue decoded() const;
};

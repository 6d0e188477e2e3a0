/** @file
 * Scanner of MMS PDU headers: finds every field, also those that the decoder does not know.
 */
#pragma once

#include "../base/export.h"
#include "../wire/linear_buffer.h"
#include "scanned_field.h"

#include <QByteArrayView>

/**
 * Walks a header from field to field. The first octet of a value decides how long the value is, as
 * in WSP (WAP-230-WSP, 8.4.1.2), whatever the field is; so fields of any version can be passed
 * over. A field whose name is in letters has a text as its value.
 *
 * @code
 * QvlHeaderScanner scanner(pdu);
 * QvlScannedField field;
 * while (scanner.next(&field))
 *     show(field);
 * @endcode
 *
 * The decoder's rules for values differ in places, so it may find other fields in a malformed
 * header, or in one that breaks off.
 *
 * Allocates nothing and copies nothing: the octets stay the caller's and have to outlive the
 * scanner and the fields. Nothing is read outside of them. Linear in the octets of the header.
 * Looks at the first 2 GB only.
 */
class QVL_EXPORT QvlHeaderScanner
{
public:
    /// How a scan ends.
    enum Result : unsigned char {
        Scanning, ///< it has not ended
        ContentTypeRead, ///< Content-Type ended the header; its body follows
        DataRead, ///< the data ended after a field
        NoField, ///< an octet begins no field: 0 to 31, or 127
        NoValue, ///< the data ends after a code or a name
        TextWithoutEnd, ///< the data ends in a text
        LengthWithoutEnd, ///< the data ends in a value-length
        LengthTooLarge, ///< a value is longer than the data
    };

    /// A scanner at the first field of @p pdu.
    explicit QvlHeaderScanner(QByteArrayView pdu);

    /// Finds the next field. False, and @p field unchanged, when the scan ended.
    [[nodiscard]] bool next(QvlScannedField *field);

    /// How the scan ended.
    Result result() const { return m_result; }
    /// True when the header was read to its end: ContentTypeRead or DataRead.
    bool isComplete() const { return m_result == ContentTypeRead || m_result == DataRead; }
    /// Octets from the start to the end of the last field: where the body begins after
    /// ContentTypeRead, where the malformed field begins after a failure.
    qsizetype position() const { return m_position; }
    /// The result in words, in English and without a full stop; never null.
    const char *meaning() const;

private:
    QByteArrayView m_pdu;
    LinearBuffer m_buffer; // over m_pdu
    int m_position = 0;
    Result m_result = Scanning;
};

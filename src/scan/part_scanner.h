/** @file
 * Scanners of multipart bodies: find every part, and every header of a part, also those that the
 * codec does not know (WAP-230-WSP, 8.5).
 */
#pragma once

#include "../base/export.h"
#include "../wire/linear_buffer.h"
#include "content_type_value.h"

#include <QByteArrayView>
#include <QString>

#include <optional>

/// A header of a part as it came. The views point into the octets that were scanned.
struct QVL_EXPORT QvlScannedHeader
{
    /// The octet on the wire without its high bit, 0..127, or QvlScannedField::NoCode.
    int code = QvlScannedField::NoCode;
    /// The page of header codes that was selected; the standard's own page is 1.
    int page = 1;
    /// The name in letters, without its terminator; empty when the header has a code.
    QByteArrayView letters;
    /// The standard's name for the code, such as "Content-Location"; null for a name in letters,
    /// for an unassigned code and for other pages. Exists as long as the program.
    const char *name = nullptr;
    /// Where the header begins in the octets that were scanned.
    qsizetype offset = 0;
    /// The whole header: code or name, and value.
    QByteArrayView octets;
    /// The value alone, with its value-length, quotes and terminator.
    QByteArrayView value;

    /// True when the standard's or the sender's name of the header is @p wanted, ignoring case.
    bool isNamed(QByteArrayView wanted) const;
    /// The text of a value that is a text, without quotes and terminator; null for others and when
    /// there is no memory. Content-Location and Content-ID may also have a value-length and a
    /// charset. Linear in the octets of the value.
    QString text() const;
    /// The number of a value that is an integer; -1 for others.
    qint64 number() const;
};

/**
 * Walks the headers of a part from header to header. The first octet of a value decides how long
 * the value is, except that Content-Location and Content-ID may begin with an octet from 128 on
 * without the quote that they need. A header whose name is in letters has a text as its value.
 * Octets that select a page of header codes are passed over.
 *
 * Allocates nothing and copies nothing: the octets stay the caller's and have to outlive the
 * scanner and the headers. Linear in the octets.
 */
class QVL_EXPORT QvlPartHeaderScanner
{
public:
    /// How a scan ends.
    enum Result : unsigned char {
        Scanning, ///< it has not ended
        HeadersRead, ///< the octets end after a header
        NoHeader, ///< an octet begins no header
        NoPage, ///< the octets end before the number of a page
        NoValue, ///< the octets end after a code or a name
        NameWithoutEnd, ///< the octets end in a name
        ValueWithoutEnd, ///< a value is longer than the octets
    };

    /// A scanner at the first header of @p headers, such as QvlScannedPart::headers.
    explicit QvlPartHeaderScanner(QByteArrayView headers);

    /// Finds the next header. False, and @p header unchanged, when the scan ended.
    [[nodiscard]] bool next(QvlScannedHeader *header);

    /// How the scan ended.
    Result result() const { return m_result; }
    /// Octets from the start to the end of the last header, or of the last page number.
    qsizetype position() const { return m_position; }
    /// The result in words, in English and without a full stop; never null.
    const char *meaning() const;

private:
    QVL_INTERNAL Result skipPages();
    QVL_INTERNAL Result readName(QvlScannedHeader *header);
    QVL_INTERNAL bool skipValue(const QvlScannedHeader &header);

    QByteArrayView m_headers;
    LinearBuffer m_buffer; // over m_headers
    int m_position = 0;
    int m_page = 1;
    Result m_result = Scanning;
};

/// A part of a body as it came. The views point into the octets that were scanned.
struct QVL_EXPORT QvlScannedPart
{
    /// Counted from 0.
    int index = 0;
    /// Where the part begins in the body.
    qsizetype offset = 0;
    /// The whole part: the lengths of headers and data, content type, headers, data.
    QByteArrayView octets;
    /// The content type; all octets before the data when it has no end, empty when there are none.
    QByteArrayView contentTypeOctets;
    /// The headers after the content type.
    QByteArrayView headers;
    /// The data, in the transfer encoding that the part declares.
    QByteArrayView data;

    /// The decoded content type; nothing when it is malformed or there is no memory. Reads it
    /// again at each call, as do the operations below: linear in the octets before the data.
    std::optional<QvlContentType> contentType() const;
    /// The MIBenum of the charset, see QvlContentType::charset(); 0 when none.
    int charset() const;
    /// Content-Transfer-Encoding in lower case, such as "base64"; null when there is none.
    QString transferEncoding() const;
    /// Content-Disposition in lower case, such as "attachment"; null when there is none.
    QString disposition() const;
    /// The file name of Content-Disposition, else Name of the content type; null when there is
    /// none.
    QString fileName() const;
    /// Content-Location; null when there is none. The last one counts, as for the headers above.
    QString location() const;
    /// Content-ID with its angle brackets; null when there is none.
    QString id() const;
};

/**
 * Walks a body from part to part by the lengths that each part states.
 *
 * The count of the parts is a uintvar. The codec of this library writes it in one octet instead.
 * From 128 on the two differ, and the parts decide: the first reading under which they end exactly
 * with the data counts, else the one with more whole parts, else the uintvar.
 *
 * Allocates nothing and copies nothing: the octets stay the caller's and have to outlive the
 * scanner and the parts. Linear in the parts; does not look into headers beyond the content type,
 * nor into data. Looks at the first 2 GB only.
 */
class QVL_EXPORT QvlPartScanner
{
public:
    /// How a scan ends.
    enum Result : unsigned char {
        Scanning, ///< it has not ended
        PartsRead, ///< as many parts as the count says were read
        NoCount, ///< the data ends before the count does
        PartMissing, ///< the data ends before all counted parts
        LengthWithoutEnd, ///< the data ends in a length
        HeadersTooLong, ///< the headers of a part are longer than the data
        DataTooLong, ///< the data of a part is longer than the body's
    };

    /// A scanner at the first part of @p body. Passes over the parts twice if the count is
    /// ambiguous.
    explicit QvlPartScanner(QByteArrayView body);

    /// Finds the next part. False, and @p part unchanged, when the scan ended.
    [[nodiscard]] bool next(QvlScannedPart *part);

    /// How the scan ended.
    Result result() const { return m_result; }
    /// Octets from the start to the end of the last part.
    qsizetype position() const { return m_position; }
    /// The result in words, in English and without a full stop; never null.
    const char *meaning() const;
    /// The stated count of parts; those of a truncated body may be fewer.
    int count() const { return m_count; }
    /// Octets that the count takes; 0 for an empty body.
    int countSize() const { return m_countSize; }

private:
    QVL_INTERNAL Result readPart(QvlScannedPart *part);

    QByteArrayView m_body;
    LinearBuffer m_buffer; // over m_body
    int m_count = 0;
    int m_countSize = 0;
    int m_index = 0;
    int m_position = 0;
    Result m_result = Scanning;
};

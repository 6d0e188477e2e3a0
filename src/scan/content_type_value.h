/** @file
 * A content type as it came, with its parameters: that of a message or of a part.
 */
#pragma once

#include "../base/export.h"
#include "scanned_field.h"

#include <QByteArrayView>
#include <QString>

#include <optional>
#include <vector>

/// A parameter of a content type. The views point into the octets that were read.
struct QvlScannedParameter
{
    /// The octet on the wire without its high bit, 0..127, or QvlScannedField::NoCode.
    int code = QvlScannedField::NoCode;
    /// The name in letters, without its terminator; empty when the parameter has a code.
    QByteArrayView letters;
    /// The standard's name for the code, in lower case, such as "charset" or "name"; null for an
    /// unassigned code and for a name in letters. Exists as long as the program.
    const char *name = nullptr;
    /// The whole parameter: code or name, and value.
    QByteArrayView octets;
    /// The value alone, with its value-length, quote and terminator.
    QByteArrayView value;
    /// The number of a value that is an integer: the charset's MIBenum, the well-known media code
    /// of Type; -1 for others.
    qint64 number = -1;
    /// The text of a value that is a text, without quotes and terminator; the media type of a Type
    /// that came as a code, null for an unassigned one. Decoded like QvlScannedValue::text.
    QString text;
};

/// A content type as it came.
struct QVL_EXPORT QvlContentType
{
    /// The well-known media code, or -1 when the media type came as a text.
    qint64 code = -1;
    /// Type and subtype, such as "image/jpeg", in lower case; empty for an unassigned code.
    QString mediaType;
    /// The parameters in the order of the octets.
    std::vector<QvlScannedParameter> parameters;
    /// False when the octets end early or a parameter is malformed; the parameters before it are
    /// there.
    bool isComplete = true;

    /// The first parameter with the standard's @p name, given by its code or in letters, ignoring
    /// case; null when there is none. Linear in the parameters, as are the others below.
    const QvlScannedParameter *find(QByteArrayView name) const;
    /// The MIBenum of the charset, also when its name is given; 0 when there is none, when it
    /// is unknown, and for "any charset".
    int charset() const;
    /// The parameter Name; null when there is none.
    QString name() const;
    /// The parameter Start, which refers to the root part; null when there is none.
    QString start() const;
    /// The parameter Type, the media type of the root part; null when there is none.
    QString type() const;
};

/**
 * Reads a content type as WSP encodes it (WAP-230-WSP, 8.4.2.24) at the start of @p value: one
 * octet from 128 on; a text, which may have parameters after semicolons; or value-length, media
 * type and parameters. In the last form a media octet from A0 to BF may follow the octet C2:
 * some gateways convert it to UTF-8.
 *
 * Nothing when there is no media type or no memory. Octets after the content type are ignored. The
 * octets stay the caller's and have to outlive the parameters. Linear in the octets.
 */
QVL_EXPORT std::optional<QvlContentType> qvlReadContentType(QByteArrayView value);

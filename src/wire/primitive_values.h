/** @file
 * Value codecs, one class for each primitive encoding of WSP (WAP-230-WSP, 8.4.2) that MMS uses.
 *
 * Every class has the same three operations. readFrom() stores the value, moves the cursor past it
 * and returns WireResult::Read, or stores nothing and returns WireResult::OutOfData. writeTo()
 * appends the value and always returns WireResult::Written: it drops octets that do not fit, so
 * size the array with sizeOf(), which gives the octets that writeTo() appends.
 *
 * Integers have 32 bits and wrap: a larger number on the wire is not detected. Texts end before
 * their first U+0000 when they are written or sized.
 */
#pragma once

#include "../base/export.h"

#include <QDateTime>
#include <QString>

class LinearBuffer;

/// Integer-value: one octet with the high bit set for 0..127, else a length and big-endian octets.
class QVL_EXPORT IntegerBinary
{
public:
    /// Accepts any length octet from 1 to 127, not only 1 to 30; a length of 0 gives 0.
    static unsigned char readFrom(LinearBuffer *buffer, int *value);
    /// Negative values are written as one octet with their low seven bits.
    static unsigned char writeTo(LinearBuffer *buffer, int value);
    /// Octets that writeTo() appends: 1 to 5.
    static int sizeOf(int value);
};

/// uintvar: groups of seven bits, most significant first, the high bit set on all but the last.
class QVL_EXPORT UIntBinary
{
public:
    /// Reads octets up to the first one without the high bit, however many there are.
    static unsigned char readFrom(LinearBuffer *buffer, int *value);
    /// Appends 1 to 5 octets.
    static unsigned char writeTo(LinearBuffer *buffer, int value);
    /// Negative values count as one octet although writeTo() appends five.
    static int sizeOf(int value);
};

/// Value-length: one octet up to 30, else 31 and a uintvar.
class QVL_EXPORT ValueLengthBinary
{
public:
    /// Takes any octet except 31 as the length itself.
    static unsigned char readFrom(LinearBuffer *buffer, int *value);
    /// Appends 1 to 6 octets; a negative length takes one.
    static unsigned char writeTo(LinearBuffer *buffer, int value);
    /// Octets that writeTo() appends.
    static int sizeOf(int value);
};

/// Well-known charset: the MIBenum as an Integer-value.
class QVL_EXPORT CharsetBinary : public IntegerBinary
{
};

/**
 * Value-length, token and date: the form of Expiry and Delivery-Time.
 *
 * Absolute and relative times are both read as seconds since 1970 in local time. Only the absolute
 * form is written; dates from 2038 on take one octet, because the seconds are a signed number.
 */
class QVL_EXPORT TimeBinary
{
public:
    /// Unreadable seconds count as 0.
    static unsigned char readFrom(LinearBuffer *buffer, QDateTime *value);
    /// Like readFrom(), without the conversion to local time.
    static unsigned char readSeconds(LinearBuffer *buffer, int *seconds);
    /// Appends value-length, the token of an absolute time and seconds.
    static unsigned char writeTo(LinearBuffer *buffer, const QDateTime &value);
    /// Octets that writeTo() appends.
    static int sizeOf(const QDateTime &value);
};

/**
 * Text-string: octets up to a zero, preceded by a quote 127 if the first octet is 128 or above.
 *
 * Written as UTF-8 but read as Latin-1. Kept: stored messages depend on it.
 */
class QVL_EXPORT PlainTextBinary
{
public:
    /// Reads up to a zero and moves past it, or to the end of the data. Linear in the text.
    static unsigned char readFrom(LinearBuffer *buffer, QString *text);
    /// Appends the text and a zero. Linear in the text.
    static unsigned char writeTo(LinearBuffer *buffer, const QString &text);
    /// Octets that writeTo() appends. Converts the text, so linear in it.
    static int sizeOf(const QString &text);
};

/**
 * Encoded-string-value: a plain Text-string, or value-length, charset and text.
 *
 * Always written with the charset UTF-8 as 0xEA. That octet reads as 106, and only a charset of 234
 * is decoded as UTF-8, so the text reads as local 8-bit text. Kept: stored messages depend on it.
 */
class QVL_EXPORT EncodedStringBinary
{
public:
    /// Reads both forms. Linear in the text.
    static unsigned char readFrom(LinearBuffer *buffer, QString *text);
    /// Appends the form with charset. Linear in the text.
    static unsigned char writeTo(LinearBuffer *buffer, const QString &text);
    /// Octets that writeTo() appends. Converts the text, so linear in it.
    static int sizeOf(const QString &text);
};

/*
 * The few shapes of header field values, each written once over a getter and a setter of the header
 * record: shapes know octets, the field classes in field_codecs.cpp know names. Fields that fit no
 * shape are written by hand there. Shapes are not base classes, because base classes would be
 * exported and compilers mangle the names of such templates differently.
 */
#pragma once

#include "wire/address.h"
#include "wire/append.h"
#include "wire/header_field_codes.h"
#include "wire/header_record.h"
#include "wire/linear_buffer.h"
#include "wire/primitive_values.h"
#include "wire/wire_result.h"

/// Shapes of header fields. read(), write() and size() return what FieldBase documents for
/// readField(), writeField() and fieldSize().
namespace FieldShapes {

inline constexpr unsigned char Yes = 128; ///< token of a yes-or-no value
inline constexpr unsigned char No = 129; ///< token of a yes-or-no value

/// Octets of a field that consists of its code and one octet.
inline constexpr int OctetFieldSize = 2;

/// Appends a field's code, a short integer on the wire.
inline void writeCode(LinearBuffer *buffer, unsigned char code)
{
    WireAppend::value<IntegerBinary>(buffer, code);
}

/// Appends a field that consists of its code and one octet. Returns WireResult::Written.
inline unsigned char writeOctet(LinearBuffer *buffer, unsigned char code, unsigned char octet)
{
    writeCode(buffer, code);
    WireAppend::octet(buffer, octet);
    return WireResult::Written;
}

/// Reads one octet, converts it with @p ValueOf and stores the result.
template <unsigned char Code, auto Set, auto ValueOf>
unsigned char readOctet(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
{
    unsigned char octet = 0;
    if (!buffer->readByte(&octet))
        return WireResult::OutOfData;
    (msg->*Set)(ValueOf(octet));
    msg->addFieldsPresent(headerFieldMask(Code));
    return WireResult::Read;
}

constexpr unsigned char asItIs(unsigned char octet)
{
    return octet;
}

constexpr bool isYes(unsigned char octet)
{
    return octet == Yes;
}

/// One octet, stored and written as it is.
template <unsigned char Code, auto Get, auto Set>
struct Octet
{
    static unsigned char read(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
    {
        return readOctet<Code, Set, asItIs>(buffer, msg);
    }

    static unsigned char write(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
    {
        return writeOctet(buffer, Code, (msg->*Get)());
    }

    static int size(MMS_UA_UAMsg *) { return OctetFieldSize; }
};

/// One octet that is read as a flag: Yes sets it, everything else clears it.
template <unsigned char Code, auto Get, auto Set, unsigned char WhenSet = Yes,
          unsigned char WhenClear = No>
struct Flag
{
    static unsigned char read(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
    {
        return readOctet<Code, Set, isYes>(buffer, msg);
    }

    static unsigned char write(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
    {
        return writeOctet(buffer, Code, (msg->*Get)() ? WhenSet : WhenClear);
    }

    static int size(MMS_UA_UAMsg *) { return OctetFieldSize; }
};

/// True for an empty text, 0, or a null time.
inline bool countsAsAbsent(const QString &text)
{
    return text.isEmpty();
}
inline bool countsAsAbsent(int value)
{
    return value == 0;
}
inline bool countsAsAbsent(const QDateTime &value)
{
    return value.isNull();
}

/// A value with its own codec, stored and marked as present unless countsAsAbsent().
template <unsigned char Code, typename Codec, typename Value, auto Get, auto Set>
struct Optional
{
    /// A failed read or an absent value changes nothing.
    static unsigned char read(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
    {
        Value value{};
        const unsigned char result = Codec::readFrom(buffer, &value);
        if (!countsAsAbsent(value)) {
            (msg->*Set)(value);
            msg->addFieldsPresent(headerFieldMask(Code));
        }
        return result;
    }

    static unsigned char write(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
    {
        writeCode(buffer, Code);
        return Codec::writeTo(buffer, (msg->*Get)());
    }

    static int size(MMS_UA_UAMsg *msg) { return 1 + Codec::sizeOf((msg->*Get)()); }
};

/// The recipients of one kind, as stored in the header record.
using RecipientList = QPtrList<MMS_UTIL_Entry>;

/// A list of addresses, one field each.
template <unsigned char Code, RecipientList &(MMS_UTIL_MsgHeaderBase::*List)(), auto Add>
struct Recipients
{
    /// Adds one recipient, also with a truncated address, because the address reader never fails.
    static unsigned char read(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
    {
        MMS_UTIL_Entry entry;
        const unsigned char result = AddressBinary::readFrom(buffer, &entry);
        (msg->*Add)(entry);
        msg->addFieldsPresent(headerFieldMask(Code));
        return result;
    }

    /// Writes a field per recipient. Continues after an entry that cannot be written and returns
    /// the last entry's result.
    static unsigned char write(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
    {
        unsigned char result = WireResult::Written;
        for (const MMS_UTIL_Entry *entry : (msg->*List)()) {
            if (!entry)
                continue;
            writeCode(buffer, Code);
            result = AddressBinary::writeTo(buffer, *entry);
        }
        return result;
    }

    static int size(MMS_UA_UAMsg *msg)
    {
        int sum = 0;
        for (const MMS_UTIL_Entry *entry : (msg->*List)())
            sum += entry ? 1 + AddressBinary::sizeOf(*entry) : 0;
        return sum;
    }
};

} // namespace FieldShapes

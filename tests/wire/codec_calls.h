/*
 * Calls of value codecs and field codecs, with their results as values that test rows compare.
 */
#pragma once

#include "support/octets.h"
#include "wire/field_base.h"
#include "wire/header_record.h"
#include "wire/wire_result.h"

#include <memory>

/// The octets of a Text-string with its terminator.
inline QByteArray text(const char *ascii)
{
    return QByteArray(ascii) + octet(0);
}

/// The presence bit of a header field.
constexpr unsigned int presenceBit(int code)
{
    return 1u << (code - 1);
}

/// The result of a value codec's readFrom(), the value, and the octets consumed.
template <typename Value>
struct ValueReading
{
    unsigned char result;
    Value value;
    int position;
};

/// Reads @p octets with @p Codec into the value @p before, which a failed read does not change.
template <typename Codec, typename Value>
ValueReading<Value> readValue(const QByteArray &octets, Value before = {})
{
    Input input(octets);
    const unsigned char result = Codec::readFrom(input, &before);
    return {result, before, input.position()};
}

/// The result of a codec, and the octets appended.
struct Writing
{
    unsigned char result;
    QByteArray octets;
};

template <typename Codec, typename Value>
Writing writeValue(const Value &value)
{
    Output output;
    const unsigned char result = Codec::writeTo(output, value);
    return {result, output.octets()};
}

/// The octets that a value codec appends. Its writers always return the same result.
template <typename Codec, typename Value>
QByteArray octetsOf(const Value &value)
{
    return writeValue<Codec>(value).octets;
}

/// Creates a field codec. Rows of tables contain this function.
using MakeField = std::unique_ptr<FieldBase> (*)();

template <typename Field>
std::unique_ptr<FieldBase> makeField()
{
    return std::make_unique<Field>();
}

/// The result of readField(), and the octets consumed.
struct FieldReading
{
    unsigned char result;
    int position;
};

inline FieldReading readField(MakeField make, const QByteArray &value, MMS_UA_UAMsg &msg)
{
    Input input(value);
    const unsigned char result = make()->readField(input, &msg);
    return {result, input.position()};
}

/// Reads a field with the cursor already past the end, where not even one octet can be read.
inline unsigned char readFieldPastTheEnd(MakeField make, MMS_UA_UAMsg &msg)
{
    Input input(""_octets);
    input.buffer()->readByte();
    return make()->readField(input, &msg);
}

inline Writing writeField(MakeField make, MMS_UA_UAMsg &msg)
{
    Output output;
    const unsigned char result = make()->writeField(output, &msg);
    return {result, output.octets()};
}

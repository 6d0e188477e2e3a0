#include "wire/header_values.h"

#include "base/tables.h"
#include "wire/value_names.h"

namespace {

const char *nameIn(std::span<const QvlFieldValue> values, unsigned char value)
{
    const QvlFieldValue *row = rowOf(values, value, &QvlFieldValue::value);
    return row ? row->name : nullptr;
}

} // namespace

std::span<const QvlFieldValue> QvlMessageType::values()
{
    return ValueNames::messageTypes;
}

const char *QvlMessageType::nameOf(unsigned char value)
{
    return nameIn(values(), value);
}

std::span<const QvlFieldValue> QvlMessageClass::values()
{
    return ValueNames::messageClasses;
}

const char *QvlMessageClass::nameOf(unsigned char value)
{
    return nameIn(values(), value);
}

std::span<const QvlFieldValue> QvlPriority::values()
{
    return ValueNames::priorities;
}

const char *QvlPriority::nameOf(unsigned char value)
{
    return nameIn(values(), value);
}

std::span<const QvlFieldValue> QvlStatus::values()
{
    return ValueNames::statuses;
}

const char *QvlStatus::nameOf(unsigned char value)
{
    return nameIn(values(), value);
}

std::span<const QvlFieldValue> QvlResponseStatus::values()
{
    return ValueNames::responseStatuses;
}

const char *QvlResponseStatus::nameOf(unsigned char value)
{
    return nameIn(values(), value);
}

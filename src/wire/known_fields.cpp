#include "wire/known_fields.h"

#include "wire/known_field_table.h"

std::span<const QvlKnownField> qvlKnownFields()
{
    return KnownFields::table;
}

const QvlKnownField *qvlKnownField(int code)
{
    return KnownFields::find(code);
}

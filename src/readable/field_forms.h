/*
 * Header fields in the forms that the decoder reads.
 */
#pragma once

#include "scan/scanned_field.h"

#include <QByteArray>

namespace FieldForms {

/**
 * The whole of @p field, one of the 24 that the decoder knows, in a form that the decoder reads and
 * that means the same. Empty when there is none; never empty for Content-Type, since the body
 * follows it: a media type that has no code becomes one such as "image" of any kind.
 */
QByteArray rewritten(const QvlScannedField &field);

} // namespace FieldForms

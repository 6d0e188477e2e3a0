/*
 * The step before the multipart codec. The codec skips unknown headers and parameters octet by
 * octet, so it takes some of their octets for headers that it knows. This step leaves those out,
 * and rewrites what the codec knows only in other forms.
 */
#pragma once

#include "readable/change.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>
#include <vector>

/// A body for the codec, and how it differs from the body as it came.
struct ReadableBody
{
    /// The changed body; nothing when the codec reads the body as it came.
    std::optional<QByteArray> body;
    /// The changes in the order of the octets.
    std::vector<QvlChange> changes;
};

/**
 * Changes what the codec would misread in @p body, which begins at @p offset of its PDU. From a
 * malformed part on everything stays as it came. The views of the changes point into @p body.
 *
 * Linear in the parts and in the octets of their headers; copies the body once if something
 * changes. Throws when memory runs out.
 */
ReadableBody readableBody(QByteArrayView body, qsizetype offset);

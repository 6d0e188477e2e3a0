/*
 * Texts of a header in the charset that the sender declared. The decoder reads nearly every text by
 * the local encoding.
 */
#pragma once

#include "wire/header_record.h"

#include <QByteArrayView>

/// Stores the texts and addresses of @p pdu that declare another charset than UTF-8 in @p header,
/// which was decoded from it. Linear in the octets of the header.
void storeDeclaredTexts(QByteArrayView pdu, MMS_UA_UAMsg *header);

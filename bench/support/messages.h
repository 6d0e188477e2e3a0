/*
 * Messages to measure with, made through the library's own operations.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QByteArray>

enum class Names { Given, Missing };

/// Appends @p count pictures whose bodies have @p octets octets together, which are no pictures.
void addPictures(MMS_COMP_SMILMultipart *message, int count, int octets, Names names);

/// A record of message type @p type in which every field that the type writes says something.
void fillHeader(MMS_UA_UAMsg *header, unsigned char type);

/// A notification whose header has exactly @p octets octets in nine fields.
void fillNotification(MMS_UA_UAMsg *header, int octets);

/// The header of @p header in octets; empty when it cannot be written.
QByteArray encodedHeader(MMS_UA_UAMsg *header);

/// The body of @p message in octets; empty when it cannot be written.
QByteArray assembled(MMS_COMP_SMILMultipart *message);

/// Decodes the header of @p pdu, which has to outlive @p header's body.
bool decodeHeader(const QByteArray &pdu, MMS_UA_UAMsg *header);

/// Parses @p body into @p message, by the content type of @p header.
bool parseBody(const QByteArray &body, MMS_UA_UAMsg *header, MMS_COMP_SMILMultipart *message);

/*
 * Messages for measuring, created with the library's own operations.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QByteArray>

enum class Names { Given, Missing };

/// Appends @p count pictures with @p octets octets altogether, which are not real pictures.
void addPictures(MMS_COMP_SMILMultipart *message, int count, int octets, Names names);

/// A record of message type @p type with a value in every field that the type writes.
void fillHeader(MMS_UA_UAMsg *header, unsigned char type);

/// A notification whose header takes exactly @p octets octets in nine fields.
void fillNotification(MMS_UA_UAMsg *header, int octets);

/// The octets of @p header; empty when it cannot be encoded.
QByteArray encodedHeader(MMS_UA_UAMsg *header);

/// The octets of the body of @p message; empty when it cannot be encoded.
QByteArray assembled(MMS_COMP_SMILMultipart *message);

/// Decodes the header of @p pdu, which must outlive @p header's body.
bool decodeHeader(const QByteArray &pdu, MMS_UA_UAMsg *header);

/// Parses @p body into @p message according to the content type of @p header.
bool parseBody(const QByteArray &body, MMS_UA_UAMsg *header, MMS_COMP_SMILMultipart *message);

/*
 * The header fields of a record for a reader: as texts and as JSON.
 */
#pragma once

#include <QList>
#include <QString>

class JsonWriter;
class MMS_UA_UAMsg;
struct QvlSentTimes;

/// One header field of one message.
struct FieldView
{
    QString name; ///< name of the field, such as "Message-Class"
    QString text; ///< value for a person; may contain control characters
};

/// The fields that are present, in the order of the message. Times are those of the record.
QList<FieldView> headerView(const MMS_UA_UAMsg &header);

/// The value of the field with @p code, with the times of @p sent in place of decoded ones.
QString recordText(unsigned char code, const MMS_UA_UAMsg &header, const QvlSentTimes &sent);

/// Writes the member "header", documented in docs/json.md.
void writeHeader(const MMS_UA_UAMsg &header, JsonWriter *json);

/// Name and number of a message type, such as "m-send-req (128)".
QString messageTypeText(unsigned char type);

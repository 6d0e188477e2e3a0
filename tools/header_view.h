/*
 * The header fields of a message for a reader: each as a text and as JSON.
 */
#pragma once

#include <QJsonValue>
#include <QList>
#include <QString>

class MMS_UA_UAMsg;

/// One header field of one message.
struct FieldView
{
    QString name; ///< name of the field, such as "Message-Class"
    QString text; ///< value for a person; may hold anything that the message holds
    QJsonValue json; ///< value for a program
};

/// The fields that are present, in the order in which the message had them.
QList<FieldView> headerView(const MMS_UA_UAMsg &header);

/// Name and number of a message type, such as "m-send-req (128)".
QString messageTypeText(unsigned char type);

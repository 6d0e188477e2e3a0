#include "window/message_source.h"

#include <QFileInfo>

std::unique_ptr<Message> MessageSource::decode() const
{
    std::unique_ptr<Message> message = decodeMessage(pdu);
    message->fileName = QFileInfo(fileName).fileName();
    return message;
}

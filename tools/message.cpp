#include "message.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace {

bool readOctets(const QString &fileName, QByteArray *octets, QString *error)
{
    QFile file(fileName);
    const bool opened = fileName == QLatin1String("-") ? file.open(stdin, QIODevice::ReadOnly)
                                                       : file.open(QIODevice::ReadOnly);
    if (opened)
        *octets = file.readAll();
    if (opened && file.error() == QFileDevice::NoError)
        return true;
    *error = file.errorString();
    return false;
}

bool isMultipart(const MMS_UA_UAMsg &header)
{
    return header.getContentSubType().startsWith(QLatin1String("vnd.wap.multipart."),
                                                 Qt::CaseInsensitive);
}

void decode(Message *message)
{
    auto *pdu = reinterpret_cast<unsigned char *>(message->octets.data());
    auto length = static_cast<unsigned int>(message->octets.size());
    MMS_UA_UAMsg &header = message->header;
    message->headerResult = MMS_UA_Decoder().decodeHeader(pdu, length, &header);
    if (message->headerResult != WireResult::Read || header.getBodyLength() == 0
        || !isMultipart(header))
        return;
    message->body.setMimeType(header.getContentType());
    message->body.setSubType(header.getContentSubType());
    const auto octets = QByteArray::fromRawData(reinterpret_cast<const char *>(header.getBody()),
                                                header.getBodyLength());
    message->bodyResult = MMS_COMP_SMILMultipartParser::parse(octets, &header, &message->body);
}

} // namespace

std::unique_ptr<Message> readMessage(const QString &fileName, QString *error)
{
    auto message = std::make_unique<Message>();
    message->fileName = fileName;
    if (!readOctets(fileName, &message->octets, error))
        return nullptr;
    decode(message.get());
    return message;
}

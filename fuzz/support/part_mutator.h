/*
 * The mutator of the targets that take a whole message: changes single parts, so that the lengths
 * around them stay valid. Included once in such a target.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QByteArray>

#include <cstdint>
#include <cstring>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t most);

inline QByteArray withChangedPart(const QByteArray &pdu, unsigned int seed)
{
    QvlMessage message;
    if (!message.receive(pdu).isOk() || message.parts().getPartCount() == 0)
        return {};
    auto *part = message.parts().getBodypartByIndex(int(seed) % message.parts().getPartCount());
    QByteArray octets = part->getBodyData();
    const qsizetype length = octets.size();
    octets.resize(length + 64);
    octets.resize(qsizetype(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t *>(octets.data()),
                                             std::size_t(length), std::size_t(octets.size()))));
    part->setBodyData(octets);
    QByteArray changed;
    return message.encode(&changed).isOk() ? changed : QByteArray();
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size,
                                               std::size_t most, unsigned int seed)
{
    const QByteArray pdu(reinterpret_cast<const char *>(data), qsizetype(size));
    const QByteArray changed = seed % 4 == 0 ? QByteArray() : withChangedPart(pdu, seed / 4);
    if (changed.isEmpty() || std::size_t(changed.size()) > most)
        return LLVMFuzzerMutate(data, size, most);
    std::memcpy(data, changed.constData(), std::size_t(changed.size()));
    return std::size_t(changed.size());
}

/*
 * Untrusted stored records of a body part, a media object and a slide. A record that was read is
 * written and must read back as the same record.
 */
#include "support/invariant.h"

#include <qvlsmilparser.h>

#include <QDataStream>
#include <QIODevice>

#include <cstdint>

namespace {

template <typename Value>
QByteArray recordOf(const Value &value)
{
    QByteArray octets;
    QDataStream out(&octets, QIODevice::WriteOnly);
    value.writeToStream(out);
    return octets;
}

template <typename Value, typename... Arguments>
void readAndWrite(const QByteArray &octets, Arguments... arguments)
{
    QDataStream in(octets);
    Value value(arguments...);
    value.readFromStream(in);
    const QByteArray once = recordOf(value);
    QDataStream back(once);
    Value again(arguments...);
    again.readFromStream(back);
    require(back.status() == QDataStream::Ok && back.atEnd(), "a record is read back completely");
    require(recordOf(again) == once, "a record is read back as written");
    if constexpr (requires { value.clear(); }) {
        value.clear();
        again.clear();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray octets(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1));
    MMS_COMP_SMILMultipart *const noMessage = nullptr;
    if (data[0] % 3 == 0)
        readAndWrite<MMS_COMP_SMILMultipartBodypart>(octets);
    else if (data[0] % 3 == 1)
        readAndWrite<MMS_COMP_SMILMediaObject>(octets, noMessage);
    else
        readAndWrite<MMS_COMP_SMILTimingContainer>(octets, noMessage);
    return 0;
}

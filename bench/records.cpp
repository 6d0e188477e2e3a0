/*
 * Stored records: writes and reads a body part, a media object and a slide.
 */
#include "subjects.h"
#include "support/benchmarks.h"
#include "support/messages.h"
#include "support/presentations.h"

#include <QDataStream>
#include <QIODevice>

#include <memory>

namespace {

constexpr int PictureOctets = 30'000;

template <typename Value>
QByteArray recordOf(const Value &value)
{
    QByteArray octets;
    QDataStream out(&octets, QIODevice::WriteOnly);
    value.writeToStream(out);
    return octets;
}

// A reader owns the parts that it creates, so clear() deletes them.
template <typename Value, typename... Arguments>
bool readRecord(const QByteArray &octets, Arguments... arguments)
{
    QDataStream in(octets);
    Value value(arguments...);
    value.readFromStream(in);
    if constexpr (requires { value.clear(); })
        value.clear();
    return in.status() == QDataStream::Ok && in.atEnd();
}

// @p owner keeps @p value alive.
template <typename Value, typename... Arguments>
void addRecord(const std::string &name, std::shared_ptr<void> owner, const Value *value,
               Arguments... arguments)
{
    addBenchmark("record/write " + name, [owner, value] {
        return Work{[owner, value] { return !recordOf(*value).isEmpty(); },
                    recordOf(*value).size()};
    });
    addBenchmark("record/read " + name, [=] {
        const QByteArray octets = recordOf(*value);
        return Work{[=] { return readRecord<Value>(octets, arguments...); }, octets.size()};
    });
}

} // namespace

void addRecordBenchmarks()
{
    auto message = std::make_shared<MMS_COMP_SMILMultipart>();
    addPictures(message.get(), 1, PictureOctets, Names::Given);
    addRecord("body part", message, message->getBodypartByIndex(0));

    MMS_COMP_SMILMultipart *const noMessage = nullptr;
    auto show = std::make_shared<QvlMessage>();
    fill(show.get(), {.slides = 1, .params = 3});
    addRecord("media object", show, show->slides().getMediaObject(0, 0), noMessage);
    addRecord("slide", show, show->slides().getSlide(0), noMessage);
}

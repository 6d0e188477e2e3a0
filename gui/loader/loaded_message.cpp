#include "loader/loaded_message.h"

#include "input/file_name.h"
#include "input/files.h"

#include <filesystem>
#include <new>

namespace {

using Slide = MMS_COMP_SMILTimingContainer;

constexpr qint64 MostHeader = 16 << 10; // octets; headers have some hundred

QByteArray headerIn(const QByteArray &start)
{
    QvlHeaderScanner scanner(start);
    QvlScannedField field;
    while (scanner.next(&field))
        ;
    return start.first(scanner.position());
}

qint64 sizeOf(const QString &name)
{
    std::error_code error;
    const std::filesystem::path path(FileName::toOctets(name).toStdString());
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return error ? 0 : qint64(size);
}

LoadedMessage unreadable(const QString &name, const QString &error)
{
    LoadedMessage loaded;
    loaded.entry.file = name;
    loaded.entry.error = error;
    loaded.entry.state = MessageState::Refused;
    loaded.isWhole = true;
    return loaded;
}

void addTexts(const Message &message, const Slide &slide, QString *texts)
{
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i) {
        if (texts->size() >= LoadedMessage::MostTexts)
            return;
        const MMS_COMP_SMILMediaObject &object = *slide.getMediaObject(i);
        if (object.getData() && object.getMediaElementType() == SMIL_MEDIA_TEXT)
            *texts +=
                message.text(*object.getData()).left(LoadedMessage::MostTexts) + QLatin1Char('\n');
    }
}

QString textsOf(const Message &message)
{
    QString texts;
    const MMS_COMP_SMILData &slides = message.slides();
    for (unsigned int i = 0; i < slides.getTotalSlidesNum(); ++i)
        addTexts(message, *slides.getSlide(i), &texts);
    texts.truncate(LoadedMessage::MostTexts);
    return texts;
}

LoadedMessage header(const QString &name)
{
    QByteArray start;
    QString error;
    if (!readStart(name, MostHeader, &start, &error))
        return unreadable(name, error);
    LoadedMessage loaded;
    loaded.entry = MessageList::entryOf(*decodeMessage(headerIn(start)));
    loaded.entry.file = name;
    loaded.entry.octets = sizeOf(name);
    return loaded;
}

LoadedMessage whole(const QString &name)
{
    QString error;
    const std::unique_ptr<Message> message = readMessage(name, {}, &error);
    if (!message)
        return unreadable(name, error);
    return {MessageList::entryOf(*message), true, textsOf(*message)};
}

LoadedMessage unlessOutOfMemory(LoadedMessage (*load)(const QString &), const QString &name)
{
    try {
        return load(name);
    } catch (const std::bad_alloc &) {
        return unreadable(name, QStringLiteral("not enough memory"));
    }
}

} // namespace

LoadedMessage loadHeader(const QString &name)
{
    return unlessOutOfMemory(header, name);
}

LoadedMessage loadWhole(const QString &name)
{
    return unlessOutOfMemory(whole, name);
}

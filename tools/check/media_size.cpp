#include "check/media_size.h"

#include "render/picture_source.h"

#include <QtEndian>

#include <optional>

namespace Check {

namespace {

/// A box of an ISO base media file (ISO/IEC 14496-12, 4.2).
struct Box
{
    QByteArrayView type;
    QByteArrayView content;
};

// Takes the first box of @p boxes away from them. Nothing if there is none, or one that ends later.
std::optional<Box> takeBox(QByteArrayView *boxes)
{
    constexpr qsizetype ShortHeader = 8; // size and type
    constexpr qsizetype LongHeader = 16; // and a size of 64 bits, if the other one is 1
    if (boxes->size() < ShortHeader)
        return std::nullopt;
    quint64 size = qFromBigEndian<quint32>(boxes->data());
    qsizetype header = ShortHeader;
    if (size == 1 && boxes->size() >= LongHeader) {
        size = qFromBigEndian<quint64>(boxes->data() + ShortHeader);
        header = LongHeader;
    } else if (size == 0) {
        size = quint64(boxes->size()); // up to the end
    }
    if (size < quint64(header) || size > quint64(boxes->size()))
        return std::nullopt;
    const QByteArrayView box = boxes->first(qsizetype(size));
    *boxes = boxes->sliced(box.size());
    return Box{box.sliced(4, 4), box.sliced(header)};
}

// The content of the first box of @p type among @p boxes; empty if there is none.
QByteArrayView findBox(QByteArrayView boxes, QByteArrayView type)
{
    while (const std::optional<Box> box = takeBox(&boxes)) {
        if (box->type == type)
            return box->content;
    }
    return {};
}

// The header of a track ends with a matrix of nine numbers, and with width and height in pixels
// times 65,536; 0 for sounds. Phones turn a portrait video by the matrix 0 b, c 0.
QSize sizeOfTrack(QByteArrayView header)
{
    constexpr qsizetype Shortest = 84;
    if (header.size() < Shortest)
        return {};
    const char *size = header.end() - 8;
    const char *matrix = size - 9 * 4;
    const auto number = [matrix](int index) {
        return qFromBigEndian<qint32>(matrix + qsizetype(index) * 4);
    };
    const bool isTurned = number(0) == 0 && number(4) == 0 && number(1) != 0 && number(3) != 0;
    const QSize stored(qFromBigEndian<quint16>(size), qFromBigEndian<quint16>(size + 4));
    return isTurned ? stored.transposed() : stored;
}

} // namespace

QSize pictureSize(const MMS_COMP_SMILMultipartBodypart &part)
{
    return examinePicture(part.getBodyData()).shownSize();
}

QSize videoSize(QByteArrayView file)
{
    QByteArrayView boxes = findBox(file, "moov");
    while (const std::optional<Box> box = takeBox(&boxes)) {
        const QSize size = box->type == QByteArrayView("trak")
            ? sizeOfTrack(findBox(box->content, "tkhd"))
            : QSize();
        if (!size.isEmpty())
            return size;
    }
    return {};
}

} // namespace Check

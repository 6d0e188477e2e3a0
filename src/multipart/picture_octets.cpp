#include "multipart/picture_octets.h"

#include "base/no_memory.h"

#include <QByteArrayView>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace {

constexpr QByteArrayView Signature("\x89PNG\r\n\x1A\n");
constexpr qsizetype Frame = 12; // length, type and checksum of a chunk

constexpr std::array<QByteArrayView, 4> metadata{"iCCP", "iTXt", "tEXt", "zTXt"};

// The chunk at the beginning of @p rest, or as much of it as there is.
QByteArrayView firstChunk(QByteArrayView rest)
{
    const qint64 size =
        rest.size() < Frame ? Frame : Frame + qint64(qFromBigEndian<quint32>(rest.data()));
    return rest.first(qsizetype(std::min(size, qint64(rest.size()))));
}

bool isMetadata(QByteArrayView chunk)
{
    return std::ranges::find(metadata, chunk.sliced(4, 4)) != metadata.end();
}

QByteArray withoutMetadata(const QByteArray &png)
{
    QByteArray result;
    qsizetype kept = 0; // octets of the picture before this are in the result, or left out
    for (qsizetype at = Signature.size(); png.size() - at >= Frame;) {
        const QByteArrayView chunk = firstChunk(QByteArrayView(png).sliced(at));
        if (isMetadata(chunk)) {
            result += QByteArrayView(png).sliced(kept, at - kept);
            kept = at + chunk.size();
        }
        at += chunk.size();
    }
    if (kept == 0)
        return png;
    result += QByteArrayView(png).sliced(kept);
    return result;
}

} // namespace

QByteArray qvlPictureOctets(const QByteArray &octets)
{
    return unlessOutOfMemory(QByteArray(), [&] {
        return octets.startsWith(Signature) ? withoutMetadata(octets) : octets;
    });
}

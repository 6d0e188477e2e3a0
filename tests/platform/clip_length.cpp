/*
 * Prints the milliseconds that the platform's player engine measures for a clip: 0 if it opens but
 * cannot be measured. Exit code 1 if the engine does not open it, 2 if the file cannot be read.
 *     clip_length FILE EXTENSION
 */
#include "platform/player_engine.h"

#include <QByteArray>
#include <QFile>

#include <cstdio>

int main(int argc, char **argv)
{
    QFile file(QString::fromLocal8Bit(argc == 3 ? argv[1] : ""));
    if (!file.open(QIODevice::ReadOnly))
        return 2;
    const QByteArray clip = file.readAll();
    MP_PlayerEngine *engine = MP_CreatePlayerEngine(nullptr, nullptr);
    StaticStreamInfo info;
    const bool measured =
        engine->open(clip.constData(), int(clip.size()), argv[2]) && engine->getStreamInfo(&info);
    engine->destroy();
    if (!measured)
        return 1;
    std::printf("%d\n", info.playDuration);
}

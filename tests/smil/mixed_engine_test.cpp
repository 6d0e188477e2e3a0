/*
 * Slides for messages without presentation, with the platform's own engine: playable clips get a
 * slide of their duration, and others stay attachments.
 */
#include "multipart/part_facts.h"
#include "smil/presentation_facts.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

QByteArray clip(const char *name)
{
    QFile file(QStringLiteral(QVL_FIXTURES "/clips/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray amr(int frames)
{
    return "#!AMR\n" + QByteArray(frames, '\x7C'); // without data, 20 ms each
}

} // namespace

TEST(MixedMessageWithClips, EveryPlayableClipGetsASlideOfItsDuration)
{
    Multipart message;
    message.setSubType("vnd.wap.multipart.mixed");
    appendParts(message,
                {{.format = "audio/amr", .location = "a.amr", .data = amr(117)},
                 {.format = "audio/amr", .location = "b.amr", .data = "no clip"},
                 {.format = "video/3gpp", .location = "c.3gp", .data = clip("video.3gp")},
                 {.format = "audio/unheard-of", .location = "d.AMR", .data = amr(25)},
                 {.format = "audio/unheard-of", .location = "e", .data = amr(25)},
                 {.format = "video/3gpp", .location = "f.3gp", .data = amr(25)}});
    MMS_COMP_SMILData slides(nullptr);
    EXPECT_EQ(MMS_COMP_SMILParser::makeSmilForMixed(&message, &slides, true), 1);
    EXPECT_EQ(slidesOf(slides),
              (QStringList{"2500: audio a.amr", "1000: video c.3gp", "500: audio d.AMR"}));
    EXPECT_EQ(message.getAttachmentCount(), 3);
}

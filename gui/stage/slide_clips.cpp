#include "stage/slide_clips.h"

#include "convert/clip_extension.h"
#include "view/terminal_text.h"

#include <qvlsmilparser.h>

#include <algorithm>

SlideClips::SlideClips(QObject *parent) : QObject(parent) { }

SlideClips::~SlideClips() = default;

void SlideClips::setSlide(const MMS_COMP_SMILTimingContainer *slide, const SlideTiming &timing)
{
    m_clips.clear();
    m_pictures.clear();
    m_remarks.clear();
    for (unsigned int i = 0; slide && i < slide->getMediaObjectCount(); ++i) {
        const int type = slide->getMediaObject(i)->getMediaElementType();
        if (slide->getMediaObject(i)->getData()
            && (type == SMIL_MEDIA_AUDIO || type == SMIL_MEDIA_VIDEO))
            add(int(i), *slide, timing);
    }
    emit remarksChanged();
}

void SlideClips::add(int index, const MMS_COMP_SMILTimingContainer &slide,
                     const SlideTiming &timing)
{
    const MMS_COMP_SMILMediaObject &object = *slide.getMediaObject(unsigned(index));
    const QString name = TerminalText::visible(object.getSrc());
    const QString extension = clipExtension(*object.getData());
    if (m_clips.size() >= Most)
        return addRemark(tr("%1 is not played: the slide has too many clips.").arg(name));
    if (!ClipPlayer::canPlay(extension))
        return addRemark(tr("%1 is of a kind that is not played. It can be saved.").arg(name));
    auto clip = std::make_unique<Clip>();
    clip->object = index;
    clip->name = name;
    clip->span = timing.media[std::size_t(index)];
    clip->player = std::make_unique<ClipPlayer>(object.getData()->getBodyData(), extension);
    clip->isVideo = object.getMediaElementType() == SMIL_MEDIA_VIDEO;
    connectClip(clip.get());
    m_clips.push_back(std::move(clip));
}

void SlideClips::connectClip(Clip *clip)
{
    connect(clip->player.get(), &ClipPlayer::frame, this, [this, clip](const QImage &picture) {
        if (!clip->isVideo)
            return; // such as the cover of a song
        m_pictures.insert(clip->object, picture);
        emit picturesChanged();
    });
    connect(clip->player.get(), &ClipPlayer::ended, this, [clip] {
        clip->isPlaying = false;
        clip->isOver = true;
    });
    connect(clip->player.get(), &ClipPlayer::incomplete, this, [this, clip](const QString &why) {
        addRemark(clip->name + QLatin1StringView(": ") + why);
    });
    connect(clip->player.get(), &ClipPlayer::failed, this, [this, clip](const QString &why) {
        clip->isPlaying = false;
        clip->isOver = true;
        addRemark(tr("%1 is not played: %2 It can be saved.").arg(clip->name, why));
    });
}

void SlideClips::addRemark(const QString &remark)
{
    if (m_remarks.contains(remark))
        return;
    m_remarks += remark;
    emit remarksChanged();
}

void SlideClips::follow(int milliseconds, bool isPlaying)
{
    for (const auto &clip : m_clips) {
        const bool shouldPlay = isPlaying && !clip->isOver && clip->span.contains(milliseconds);
        if (shouldPlay == clip->isPlaying)
            continue;
        clip->isPlaying = shouldPlay;
        if (!shouldPlay) {
            clip->player->pause();
        } else {
            const qint64 at =
                clip->hasBegun ? clip->player->position() : qint64(milliseconds) - clip->span.begin;
            clip->hasBegun = true;
            clip->player->start(at);
        }
    }
}

void SlideClips::jump(int milliseconds, bool isPlaying)
{
    for (const auto &clip : m_clips) {
        clip->player->pause();
        clip->isPlaying = false;
        clip->isOver = false;
        clip->hasBegun = false;
        if (!isPlaying && clip->isVideo && clip->span.contains(milliseconds))
            clip->player->showAt(milliseconds - clip->span.begin);
    }
    follow(milliseconds, isPlaying);
}

bool SlideClips::arePlaying() const
{
    return std::ranges::any_of(m_clips, [](const auto &clip) { return clip->isPlaying; });
}

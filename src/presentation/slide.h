/*
 * A slide: the media shown together, how long, and its colours. Holds the rules of composing, at
 * most one text, one image or video, and one audio, and derives the duration from what plays.
 */
#pragma once

#include "multipart/liveness.h"
#include "platform/export.h"
#include "platform/ptr_list.h"
#include "presentation/colour.h"
#include "presentation/media_object.h"

#include <QString>

class QDataStream;

/**
 * One slide of a presentation, a par of its document. Owns its media objects. Points at the message
 * without owning it; the pointer becomes null when the message is deleted.
 *
 * A picture is an image or a video. The order of the media objects matters: a text behind the
 * picture is shown below it.
 */
class QVL_EXPORT MMS_COMP_SMILTimingContainer
{
public:
    /// Milliseconds that a slide lasts unless something else says so.
    static constexpr int DefaultDuration = 5000;

    /// An empty slide whose content is in @p multipart, which may be null.
    explicit MMS_COMP_SMILTimingContainer(MMS_COMP_SMILMultipart *multipart);
    MMS_COMP_SMILTimingContainer(const MMS_COMP_SMILTimingContainer &) = delete;
    MMS_COMP_SMILTimingContainer &operator=(const MMS_COMP_SMILTimingContainer &) = delete;
    /// Releases the content of the slide's objects, as clear() does.
    ~MMS_COMP_SMILTimingContainer();

    /// Milliseconds; -1 for none given, -2 for indefinite.
    int getDur() const { return m_dur; }
    void setDur(int milliseconds) { m_dur = milliseconds; }
    /// Whether the user fixed the duration.
    bool getSetDurManually() const { return m_setDurManually; }
    void setSetDurManually(bool manually) { m_setDurManually = manually; }
    /// The message, or null; not owned.
    MMS_COMP_SMILMultipart *getMultiPart() const { return m_multipart.get(); }
    void setMultiPart(MMS_COMP_SMILMultipart *multipart) { m_multipart = multipart; }
    MMS_COMP_COLOR getPageColor() const { return m_pageColor; }
    void setPageColor(const MMS_COMP_COLOR &colour) { m_pageColor = colour; }
    MMS_COMP_COLOR getTextColor() const { return m_textColor; }
    void setTextColor(const MMS_COMP_COLOR &colour) { m_textColor = colour; }
    /// Keyword such as "normal".
    QString getTextSize() const { return m_textSize; }
    void setTextSize(const QString &size) { m_textSize = size; }

    unsigned int getMediaObjectCount() const { return unsigned(m_objects.count()); }
    /// The object at @p index, which stays the slide's, or null out of range.
    MMS_COMP_SMILMediaObject *getMediaObject(unsigned int index) const;
    /// Adds @p object, which becomes the slide's, without any check. Null is ignored.
    void appendObject(MMS_COMP_SMILMediaObject *object);
    /// Puts @p object, which becomes the slide's, at @p index; false for null or beyond the end.
    bool insert(unsigned int index, MMS_COMP_SMILMediaObject *object);
    /// Releases, removes and deletes the object at @p index; true also when there is none.
    bool remove(unsigned int index);

    /// Whether the slide has room for an element "text", "img", "video" or "audio", in any case.
    bool canBeInserted(const QString &kind) const;
    /**
     * Puts new content into the slide, in place of what has its place. @p textBelowImage says where
     * a text goes that is new, or a picture beside the text. False when there is no memory.
     */
    bool updateData(const QString &regionId, const QString &src,
                    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type, const QString &subType,
                    const QArray<char> &bytes, bool textBelowImage,
                    MMS_COMP_SMILMultipart *multipart);

    /**
     * The first object of its kind, or null. With @p take it leaves the slide and becomes the
     * caller's, and the duration is derived anew unless it was the text.
     */
    MMS_COMP_SMILMediaObject *getTextElem(bool take);
    MMS_COMP_SMILMediaObject *getVideoElem(bool take);
    MMS_COMP_SMILMediaObject *getImgObjectLikeElem(bool take);
    MMS_COMP_SMILMediaObject *getAudioElem(bool take);

    /// Each releases, removes and deletes the first object that fits.
    void removeTextElem();
    void removeImgLikeElem();
    void removeBySrc(const QString &src);

    bool isVideoExist() const;
    /// True for a video too: it takes the picture's place.
    bool isImageExist() const;
    bool isAudioExist() const;
    /// True when there is nothing but texts without characters.
    bool isBlank() const;
    /// False when a picture comes behind a text, else true.
    bool isTextBellowImg() const;

    /// Colours and text size travel as params of the media objects: into them and out of them.
    void updatePageColorToElem();
    void updatePageColorFromElem();
    void updateTextColorToElem();
    void updateTextColorFromElem();
    int updateTextSizeToElem(); ///< 0, or SmilResult::OutOfMemory
    void updateTextSizeFromElem();

    /// Octets of the slide's content.
    unsigned int getPageSize() const;
    /**
     * Derives the duration from the first video and the first audio: the sum of what plays, else
     * the user's or the default one, rounded up to a multiple of 500 ms.
     */
    void rectifyDur();
    /// Releases and deletes all objects; the duration is the default one again.
    void clear();

    /// Copies the slide to @p target with content from @p multipart; false when an object fails.
    bool copyTo(MMS_COMP_SMILTimingContainer *target, MMS_COMP_SMILMultipart *multipart) const;

    /**
     * Duration, count and the objects' records, in the stream's own encoding. Both return true,
     * reading false when there is no memory; objects that were there stay in front.
     */
    bool writeToStream(QDataStream &stream) const;
    bool readFromStream(QDataStream &stream);

private:
    using Predicate = bool (*)(const MMS_COMP_SMILMediaObject &);
    int indexOfFirst(Predicate fits) const;
    int indexOfLast(Predicate fits) const;
    MMS_COMP_SMILMediaObject *first(Predicate fits) const;
    MMS_COMP_SMILMediaObject *take(Predicate fits);
    void release(int index);
    void removeParamFromAll(const QString &name);

    QPtrList<MMS_COMP_SMILMediaObject> m_objects;
    int m_dur = DefaultDuration;
    bool m_setDurManually = false;
    QvlWeakPointer<MMS_COMP_SMILMultipart> m_multipart;
    MMS_COMP_COLOR m_pageColor{SMIL_COLOR_INVALID, QLatin1String(""), QColor()};
    MMS_COMP_COLOR m_textColor{SMIL_COLOR_INVALID, QLatin1String(""), QColor()};
    QString m_textSize = QLatin1String("");
};

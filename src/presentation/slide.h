/** @file
 * A slide: the media shown together, how long, and its colors. Holds the rules of composing, at
 * most one text, one image or video, and one audio, and derives the duration from what plays.
 */
#pragma once

#include "../base/durations.h"
#include "../base/export.h"
#include "../base/ptr_list.h"
#include "../multipart/liveness.h"
#include "color.h"
#include "media_object.h"

#include <QString>

class QDataStream;

/**
 * One slide of a presentation, a par of its document. Owns its media objects. Points at the message
 * without owning it; the pointer becomes null when the message is deleted.
 *
 * A picture is an image or a video. The order of the media objects matters: a text behind the
 * picture is shown below it. Lookups walk the objects, of which a slide has few. Setters return
 * true.
 */
class QVL_EXPORT MMS_COMP_SMILTimingContainer
{
public:
    /// Milliseconds that a slide lasts unless something else says so.
    static constexpr int DefaultDuration = QvlDuration::Default;

    /// An empty slide whose content is in @p multipart, which may be null.
    explicit MMS_COMP_SMILTimingContainer(MMS_COMP_SMILMultipart *multipart);
    MMS_COMP_SMILTimingContainer(const MMS_COMP_SMILTimingContainer &) = delete;
    MMS_COMP_SMILTimingContainer &operator=(const MMS_COMP_SMILTimingContainer &) = delete;
    /// Releases the content of the slide's objects, as clear() does.
    ~MMS_COMP_SMILTimingContainer();

    /// How long the slide is shown, in milliseconds, or QvlDuration::None or Indefinite. Starts as
    /// DefaultDuration.
    int getDur() const { return m_dur; }
    /// @copydoc getDur
    bool setDur(int milliseconds)
    {
        m_dur = milliseconds;
        return true;
    }
    /// Whether the user fixed the duration. rectifyDur() takes that back when something plays.
    bool getSetDurManually() const { return m_setDurManually; }
    /// @copydoc getSetDurManually
    bool setSetDurManually(bool manually)
    {
        m_setDurManually = manually;
        return true;
    }
    /// The message, or null; not owned. The slide's objects keep their own.
    MMS_COMP_SMILMultipart *getMultiPart() const { return m_multipart.get(); }
    /// @copydoc getMultiPart
    bool setMultiPart(MMS_COMP_SMILMultipart *multipart)
    {
        m_multipart = multipart;
        return true;
    }
    /// Color behind the media; unusable until one is set.
    MMS_COMP_COLOR getPageColor() const { return m_pageColor; }
    /// @copydoc getPageColor
    bool setPageColor(const MMS_COMP_COLOR &color)
    {
        m_pageColor = color;
        return true;
    }
    /// Color of the text; unusable until one is set.
    MMS_COMP_COLOR getTextColor() const { return m_textColor; }
    /// @copydoc getTextColor
    bool setTextColor(const MMS_COMP_COLOR &color)
    {
        m_textColor = color;
        return true;
    }
    /// Size of the text: a keyword such as "normal", or empty.
    QString getTextSize() const { return m_textSize; }
    /// @copydoc getTextSize
    bool setTextSize(const QString &size)
    {
        m_textSize = size;
        return true;
    }

    /// Count of media objects.
    unsigned int getMediaObjectCount() const { return unsigned(m_objects.count()); }
    /// The object at @p index, which stays the slide's, or null out of range.
    MMS_COMP_SMILMediaObject *getMediaObject(unsigned int index) const;
    /// Adds @p object, which becomes the slide's, without any check. Null is ignored.
    void appendObject(MMS_COMP_SMILMediaObject *object);
    /// Puts @p object, which becomes the slide's, at @p index; false for null, beyond the end or
    /// without memory, and it stays the caller's. One that plays derives the duration anew.
    bool insert(unsigned int index, MMS_COMP_SMILMediaObject *object);
    /// Releases, removes and deletes the object at @p index; true also when there is none. One that
    /// played derives the duration anew.
    bool remove(unsigned int index);

    /// Whether the slide has room for an element "text", "img", "video" or "audio", in any case.
    bool canBeInserted(const QString &kind) const;
    /**
     * Puts new content into the slide, in place of what has its place: the last text, the last
     * picture, or the first object of another kind. A video or sound derives the duration anew.
     *
     * @param regionId region that the content is shown in
     * @param src location of the part; used as it is, also when another part has it
     * @param type kind of element
     * @param subType subtype of the part, such as "jpeg"
     * @param bytes octets of the part, which are shared and not copied
     * @param textBelowImage where a text goes that is new, or a picture beside the text
     * @param multipart the message, which gets a part that is new
     * @return false when there is no memory
     */
    bool updateData(const QString &regionId, const QString &src,
                    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type, const QString &subType,
                    const QArray<char> &bytes, bool textBelowImage,
                    MMS_COMP_SMILMultipart *multipart);

    /// @name Objects by their kind
    /// @{

    /**
     * The first object of its kind, or null. With @p take it leaves the slide and becomes the
     * caller's, and the duration is derived anew unless it was the text.
     */
    MMS_COMP_SMILMediaObject *getTextElem(bool take);
    MMS_COMP_SMILMediaObject *getVideoElem(bool take);
    MMS_COMP_SMILMediaObject *getImgObjectLikeElem(bool take);
    MMS_COMP_SMILMediaObject *getAudioElem(bool take);
    /// @}

    /// Releases, removes and deletes the first text, if any.
    void removeTextElem();
    /// The same with the first picture. A video derives the duration anew.
    void removeImgLikeElem();
    /// The same with the first object whose location is @p src, in the same case.
    void removeBySrc(const QString &src);

    /// True when there is a video.
    bool isVideoExist() const;
    /// True when there is an image, or a video: it takes the picture's place.
    bool isImageExist() const;
    /// True when there is a sound.
    bool isAudioExist() const;
    /// True when there is nothing but texts without characters.
    bool isBlank() const;
    /// False when a picture comes behind a text, else true.
    bool isTextBellowImg() const;

    /// Puts the page color, which travels as a param, into the first text, picture and sound. An
    /// unusable one removes the param from all objects.
    void updatePageColorToElem();
    /// Takes it from the first of the three that has a usable one; else it becomes unusable.
    void updatePageColorFromElem();
    /// Puts the text color into a param of the first text. An unusable one removes the param from
    /// all objects.
    void updateTextColorToElem();
    /// Takes it from the first text; else it becomes unusable.
    void updateTextColorFromElem();
    /// Puts the text size, an empty one too, into a param of the first text. Returns 0, or
    /// SmilResult::OutOfMemory.
    int updateTextSizeToElem();
    /// Takes it from the first text; "normal" without one.
    void updateTextSizeFromElem();

    /// Octets of the parts that the slide's objects are bound to.
    unsigned int getPageSize() const;
    /**
     * Derives the duration from the first video and the first audio: the sum of what plays, else
     * the user's or the default one, rounded up to a multiple of QvlDuration::Step. Measures the
     * two in the platform's player engine.
     */
    void rectifyDur();
    /// Releases and deletes all objects; the duration is the default one again.
    void clear();

    /// Copies the slide to @p target with content from @p multipart. False for null, or when an
    /// object cannot be copied, see MMS_COMP_SMILMediaObject::copyTo(), and then the copies made
    /// until then stay.
    bool copyTo(MMS_COMP_SMILTimingContainer *target, MMS_COMP_SMILMultipart *multipart) const;

    /// Writes duration, count and the objects' records in the stream's own encoding. Returns true.
    bool writeToStream(QDataStream &stream) const;
    /// Reads what writeToStream() wrote, as far as the stream goes. Objects that were there stay in
    /// front. False when there is no memory, else true.
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
    MMS_COMP_COLOR m_pageColor{SMIL_COLOR_INVALID, QStringLiteral(""), QColor()};
    MMS_COMP_COLOR m_textColor{SMIL_COLOR_INVALID, QStringLiteral(""), QColor()};
    QString m_textSize = QStringLiteral("");
};

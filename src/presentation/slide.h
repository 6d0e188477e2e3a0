/** @file
 * A slide: media shown together, their duration and colors. Implements the composer's rules (at
 * most one text, one image or video, and one audio) and derives the duration from the media that
 * play.
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
 * One slide of a presentation: a par of its document. Owns its media objects, but not the message;
 * the pointer becomes null when the message is deleted.
 *
 * A picture is an image or a video. The order of the media objects matters: a text after the
 * picture is shown below it. Lookups walk the objects, of which a slide has few. Setters return
 * true.
 */
class QVL_EXPORT MMS_COMP_SMILTimingContainer
{
public:
    /// Milliseconds that a slide lasts by default.
    static constexpr int DefaultDuration = QvlDuration::Default;

    /// An empty slide whose content is in @p multipart, which may be null.
    explicit MMS_COMP_SMILTimingContainer(MMS_COMP_SMILMultipart *multipart);
    MMS_COMP_SMILTimingContainer(const MMS_COMP_SMILTimingContainer &) = delete;
    MMS_COMP_SMILTimingContainer &operator=(const MMS_COMP_SMILTimingContainer &) = delete;
    /// Releases the content of the slide's objects, as clear() does.
    ~MMS_COMP_SMILTimingContainer();

    /// How long the slide is shown, in milliseconds, or QvlDuration::NotGiven or Indefinite. Starts as
    /// DefaultDuration.
    int getDur() const { return m_dur; }
    /// @copydoc getDur
    bool setDur(int milliseconds)
    {
        m_dur = milliseconds;
        return true;
    }
    /// Whether the user fixed the duration. rectifyDur() resets it when a clip plays.
    bool getSetDurManually() const { return m_setDurManually; }
    /// @copydoc getSetDurManually
    bool setSetDurManually(bool manually)
    {
        m_setDurManually = manually;
        return true;
    }
    /// The message, or null; not owned. The slide's objects have pointers of their own.
    MMS_COMP_SMILMultipart *getMultiPart() const { return m_multipart.get(); }
    /// @copydoc getMultiPart
    bool setMultiPart(MMS_COMP_SMILMultipart *multipart)
    {
        m_multipart = multipart;
        return true;
    }
    /// Background color; unusable until one is set.
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
    /// The object at @p index, owned by the slide; null out of range.
    MMS_COMP_SMILMediaObject *getMediaObject(unsigned int index) const;
    /// Adds @p object, which the slide then owns, without any check. Null is ignored.
    void appendObject(MMS_COMP_SMILMediaObject *object);
    /// Inserts @p object, which the slide then owns, at @p index. Derives the duration anew for an
    /// object that plays. False for null, beyond the end or without memory; the caller then keeps
    /// the object.
    bool insert(unsigned int index, MMS_COMP_SMILMediaObject *object);
    /// Releases, removes and deletes the object at @p index. Derives the duration anew for an
    /// object that plays. Returns true, even when there is no such object.
    bool remove(unsigned int index);

    /// Whether the slide has room for an element "text", "img", "video" or "audio", ignoring case.
    bool canBeInserted(const QString &kind) const;
    /**
     * Adds new content to the slide, or replaces existing content: the last text, the last picture,
     * or the first object of another kind. A video or sound derives the duration anew.
     *
     * @param regionId id of the content's region
     * @param src location of the part; used as it is, even if another part has it
     * @param type kind of element
     * @param subType subtype of the part, such as "jpeg"
     * @param bytes octets of the part, which are shared and not copied
     * @param textBelowImage order of the text and the picture when one of them is new
     * @param multipart the message, which gets a new part
     * @return false when there is no memory
     */
    bool updateData(const QString &regionId, const QString &src,
                    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type, const QString &subType,
                    const QArray<char> &bytes, bool textBelowImage,
                    MMS_COMP_SMILMultipart *multipart);

    /// @name Objects by their kind
    /// @{

    /**
     * The first object of the kind, or null. With @p take it leaves the slide, the caller owns it,
     * and the duration is derived anew except for a text.
     */
    MMS_COMP_SMILMediaObject *getTextElem(bool take);
    MMS_COMP_SMILMediaObject *getVideoElem(bool take);
    MMS_COMP_SMILMediaObject *getImgObjectLikeElem(bool take);
    MMS_COMP_SMILMediaObject *getAudioElem(bool take);
    /// @}

    /// Releases, removes and deletes the first text, if any.
    void removeTextElem();
    /// Likewise for the first picture. A video derives the duration anew.
    void removeImgLikeElem();
    /// Likewise for the first object with the location @p src, case-sensitively.
    void removeBySrc(const QString &src);

    /// True when there is a video.
    bool isVideoExist() const;
    /// True when there is an image or a video, which takes the place of an image.
    bool isImageExist() const;
    /// True when there is a sound.
    bool isAudioExist() const;
    /// True when the slide has only texts without characters, or nothing.
    bool isBlank() const;
    /// False when a picture comes after a text, else true.
    bool isTextBellowImg() const;

    /// Stores the page color in a param of the first text, picture and sound. An unusable color
    /// removes the param from all objects.
    void updatePageColorToElem();
    /// Reads the page color from the first of these with a usable one; without any it becomes
    /// unusable.
    void updatePageColorFromElem();
    /// Stores the text color in a param of the first text. An unusable color removes the param from
    /// all objects.
    void updateTextColorToElem();
    /// Reads the text color from the first text; without one it becomes unusable.
    void updateTextColorFromElem();
    /// Stores the text size, even an empty one, in a param of the first text. Returns 0, or
    /// SmilResult::OutOfMemory.
    int updateTextSizeToElem();
    /// Reads the text size from the first text; "normal" without one.
    void updateTextSizeFromElem();

    /// Octets of the parts that the slide's objects are bound to.
    unsigned int getPageSize() const;
    /**
     * Derives the duration: the sum of the first video and the first audio. If neither plays, the
     * user's duration or the default one. Rounds up to a multiple of QvlDuration::Step. Measures
     * both clips in the platform's player engine.
     */
    void rectifyDur();
    /// Releases and deletes all objects and resets the duration to the default.
    void clear();

    /// Copies the slide to @p target with content from @p multipart. False for null, or when an
    /// object cannot be copied, see MMS_COMP_SMILMediaObject::copyTo(); the objects copied before
    /// stay.
    bool copyTo(MMS_COMP_SMILTimingContainer *target, MMS_COMP_SMILMultipart *multipart) const;

    /// Writes duration, count and the records of the objects in the stream's encoding. Returns
    /// true.
    bool writeToStream(QDataStream &stream) const;
    /// Reads a record of writeToStream(), or its beginning if the stream ends early. Existing
    /// objects stay before the new ones. False when there is no memory, else true.
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

/** @file
 * One part of a multimedia message: its MIME headers, its octets, and the presentation's data about
 * it.
 */
#pragma once

#include "../base/export.h"
#include "../base/qt_names.h"
#include "liveness.h"

#include <QString>

class QDataStream;

/**
 * Body part of a message.
 *
 * A plain value: copies share the octets until one of them gets new octets. Comparisons of texts
 * are case-sensitive, and texts are never trimmed.
 */
class QVL_EXPORT MMS_COMP_SMILMultipartBodypart
{
public:
    /// Values of the display file type.
    enum DispFileType {
        Shown = 0, ///< shown by the presentation: the SMIL part, or a part of a slide
        Attachment = 1, ///< not used by any slide
    };

    /// An empty attachment with reference count 1.
    MMS_COMP_SMILMultipartBodypart();
    /// Copies everything including the reference count, except the weak pointers at the part and
    /// its membership in a message.
    MMS_COMP_SMILMultipartBodypart(const MMS_COMP_SMILMultipartBodypart &other);
    /// Copies the same.
    MMS_COMP_SMILMultipartBodypart &operator=(const MMS_COMP_SMILMultipartBodypart &other);
    /// Weak pointers at the part become null.
    ~MMS_COMP_SMILMultipartBodypart();

    /// A DispFileType: whether the presentation shows the part. Starts as Attachment.
    int getDispFileType() const { return m_dispFileType; }
    /// @copydoc getDispFileType
    void setDispFileType(int type) { m_dispFileType = type; }

    /// Name shown to the user. Setting returns 0.
    QString getDispFileName() const { return m_dispFileName; }
    /// @copydoc getDispFileName
    int setDispFileName(const QString &name);

    /// Main type, such as "image". Both setters discard the result of the media probe.
    QString getContentType() const { return m_contentType; }
    /// @copydoc getContentType
    void setContentType(const QString &type);
    /// Sets the text of an EMAIL_Util type code. Returns 1, or 0 without a change for an unknown
    /// code.
    int setContentType(int code);
    /// EMAIL_Util type code of the main type, or -1.
    int getContentTypeByCode() const;

    /// Subtype, such as "jpeg". Both setters discard the result of the media probe. This one
    /// returns 1.
    QString getSubType() const { return m_subType; }
    /// @copydoc getSubType
    int setContentSubType(const QString &subType);
    /// Sets the text of an EMAIL_Util subtype code. Returns 1, or 0 without a change for an unknown
    /// code.
    int setSubTypeCode(int code);
    /// EMAIL_Util subtype code of the subtype, or -1.
    int getSubTypeCode() const;

    /// Name of the charset. Decoding converts "UCS2" octets to UTF-8 but keeps the name.
    QString getCharset() const { return m_charset; }
    /// @copydoc getCharset
    void setCharset(const QString &charset) { m_charset = charset; }
    /// Sets the text of an EMAIL_Util charset code. Returns 1, or 0 without a change for an unknown
    /// code.
    int setCharsetByCode(int code);
    /**
     * Looks up the charset's text among the subtypes, so the result is usually -1. Kept: there is
     * no lookup of charsets, and callers rely on the result.
     */
    int getCharsetByCode() const;

    /// Description for the application; not sent in messages.
    QString getDescription() const { return m_description; }
    /// @copydoc getDescription
    void setDescription(const QString &description) { m_description = description; }

    /// Content-Location: the name by which the presentation refers to the part. Setting returns 0.
    QString getContentLocation() const { return m_contentLocation; }
    /// @copydoc getContentLocation
    int setContentLocation(const QString &location);

    /// Content-ID as the sender wrote it, angle brackets included. Setting returns 0.
    QString getContentID() const { return m_contentID; }
    /// @copydoc getContentID
    int setContentID(const QString &id);

    /// Name of the transfer encoding; not sent in messages. Setting returns 0.
    QString getContentXferEncoding() const { return m_contentXferEncoding; }
    /// @copydoc getContentXferEncoding
    int setContentXferEncoding(const QString &encoding);
    /// Sets the text of an EMAIL_Util transfer encoding code, "" for an unknown code.
    void setContentXferEncodingByCode(int code);
    /// EMAIL_Util code of the transfer encoding, or -1.
    int getContentXferEncodingByCode() const;

    /// The octets themselves: an empty array, never a null one. The reference is valid until the
    /// part or its octets change.
    const QArray<char> &getBodyData() const { return m_bodyData; }
    /// Count of octets.
    int getBodyDataLen() const { return int(m_bodyData.size()); }
    /// Shares the octets of @p data; a null array counts as empty. Discards the result of the media
    /// probe.
    void setBodyData(const QArray<char> &data);
    /**
     * Copies octets into the part. Discards the result of the media probe. Linear in the octets.
     *
     * @param data the octets; ignored when @p len is below 1
     * @param len count of octets; a count below 1 empties the body
     * @return 0; MultipartResult::OutOfMemory, also for null @p data, keeps the old octets
     */
    int setBodyData(const char *data, int len);

    /// How many objects of the presentation use the part; starts at 1.
    int getRefCount() const { return m_refCount; }
    /// @copydoc getRefCount
    void setRefCount(int count) { m_refCount = count; }

    /// "type/subtype"; "/" when both are empty.
    QString getMimeFormat() const;
    /// The text before the first "/", or "" without one.
    static QString getTypePartFromFormat(const QString &format);
    /// The text after the last "/", or "" without one.
    static QString getSubTypePartFromFormat(const QString &format);

    /**
     * Writes the texts, the display file type and the octets in the stream's byte order and
     * version, but not reference count and media probe. Returns 1.
     */
    int writeToStream(QDataStream &stream) const;
    /// Reads a record of writeToStream(). Returns 1; check the stream's status.
    int readFromStream(QDataStream &stream);

    /**
     * How long an audio or video part plays. Opens the octets in the platform's player engine on
     * every call, so linear in the octets.
     *
     * @return milliseconds, rounded up to a multiple of QvlDuration::Step, or -1 when unknown
     */
    int getPlayDur();

    /**
     * Media probe: true when the handset can show or play the part. Decodes images, opens audio and
     * video in the player engine, and supports everything else. Keeps the result for an image, and
     * that of getPlayDur(), until type, subtype or octets change.
     */
    bool isMediaObjectSupported();

    /// For weak pointers at the part.
    const QvlLiveness &liveness() const { return m_liveness; }
    /// True once a message has taken the part: from then on only a message may delete it, or code
    /// that takes parts over from a message.
    bool isHeldByMultipart() const { return m_liveness.isHeld(); }

private:
    friend class MMS_COMP_SMILMultipart;

    enum class MediaCheck { NotChecked = 0, Supported = 1, NotSupported = 2 };

    int m_dispFileType = Attachment;
    QString m_dispFileName;
    QString m_contentType;
    QString m_subType;
    QString m_charset;
    QString m_description;
    QString m_contentLocation;
    QString m_contentID;
    QString m_contentXferEncoding;
    QArray<char> m_bodyData;
    int m_refCount = 1;
    MediaCheck m_mediaCheck = MediaCheck::NotChecked;
    QvlLiveness m_liveness;
};

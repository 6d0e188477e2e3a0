/** @file
 * One part of a multimedia message: its MIME headers, its octets, and what the presentation needs
 * to know of it.
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
 * A plain value: copies share the octets until one of them is given others. Texts are compared with
 * regard to case and are never trimmed.
 */
class QVL_EXPORT MMS_COMP_SMILMultipartBodypart
{
public:
    /// Values of the display file type.
    enum DispFileType {
        Shown = 0, ///< shown by the presentation: the SMIL part, or one that a slide refers to
        Attachment = 1, ///< claimed by no slide
    };

    /// An empty attachment with reference count 1.
    MMS_COMP_SMILMultipartBodypart();
    /// Copies everything, reference count included; who owns the part and who points at it stays.
    MMS_COMP_SMILMultipartBodypart(const MMS_COMP_SMILMultipartBodypart &other);
    /// Takes over the same.
    MMS_COMP_SMILMultipartBodypart &operator=(const MMS_COMP_SMILMultipartBodypart &other);
    /// Makes the weak pointers at the part null.
    ~MMS_COMP_SMILMultipartBodypart();

    /// A DispFileType: what the presentation does with the part. Starts as Attachment.
    int getDispFileType() const { return m_dispFileType; }
    /// @copydoc getDispFileType
    void setDispFileType(int type) { m_dispFileType = type; }

    /// Name shown to the user. Setting returns 0.
    QString getDispFileName() const { return m_dispFileName; }
    /// @copydoc getDispFileName
    int setDispFileName(const QString &name);

    /// Main type, such as "image". Setting it in either form makes the next media probe run anew.
    QString getContentType() const { return m_contentType; }
    /// @copydoc getContentType
    void setContentType(const QString &type);
    /// Sets the text of an EMAIL_Util type code: 1, or 0 and nothing changed for an unknown code.
    int setContentType(int code);
    /// EMAIL_Util type code of the main type, or -1.
    int getContentTypeByCode() const;

    /// Subtype, such as "jpeg". Setting it in either form makes the next media probe run anew; in
    /// this one it returns 1.
    QString getSubType() const { return m_subType; }
    /// @copydoc getSubType
    int setContentSubType(const QString &subType);
    /// Sets the text of an EMAIL_Util subtype code: 1, or 0 and nothing changed for an unknown
    /// code.
    int setSubTypeCode(int code);
    /// EMAIL_Util subtype code of the subtype, or -1.
    int getSubTypeCode() const;

    /// Name of the charset. Octets that came as "UCS2" were converted to UTF-8 on their way in.
    QString getCharset() const { return m_charset; }
    /// @copydoc getCharset
    void setCharset(const QString &charset) { m_charset = charset; }
    /// Sets the text of an EMAIL_Util charset code: 1, or 0 and nothing changed for an unknown
    /// code.
    int setCharsetByCode(int code);
    /**
     * The charset's text looked up among the subtypes, so usually -1. Kept: there is no lookup of
     * charsets, and callers rely on the value that this gives.
     */
    int getCharsetByCode() const;

    /// Description for the application's own use; not part of a message on the wire.
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

    /// Name of the transfer encoding; not part of a message on the wire. Setting returns 0.
    QString getContentXferEncoding() const { return m_contentXferEncoding; }
    /// @copydoc getContentXferEncoding
    int setContentXferEncoding(const QString &encoding);
    /// Sets the text of an EMAIL_Util transfer encoding code, "" for an unknown code.
    void setContentXferEncodingByCode(int code);
    /// EMAIL_Util code of the transfer encoding, or -1.
    int getContentXferEncodingByCode() const;

    /// The octets themselves, an empty array and never a null one; valid as long as the part and
    /// its octets are not changed.
    const QArray<char> &getBodyData() const { return m_bodyData; }
    /// Count of octets.
    int getBodyDataLen() const { return int(m_bodyData.size()); }
    /// Shares the octets of @p data; a null array counts as an empty one. Makes the next media
    /// probe run anew.
    void setBodyData(const QArray<char> &data);
    /**
     * Copies octets into the part. Makes the next media probe run anew. Linear in their count.
     *
     * @param data the octets; not looked at when @p len is below 1
     * @param len count of octets; one below 1 empties the body
     * @return 0, or MultipartResult::OutOfMemory, also for null @p data, which leaves the octets
     * that were there
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
    /// The text behind the last "/", or "" without one.
    static QString getSubTypePartFromFormat(const QString &format);

    /**
     * Writes the texts, the display file type and the octets in the stream's own byte order and
     * version. Returns 1. Neither reference count nor media probe are part of the record.
     */
    int writeToStream(QDataStream &stream) const;
    /// Reads what writeToStream() wrote, leaving what the stream delivers. Returns 1.
    int readFromStream(QDataStream &stream);

    /**
     * How long an audio or video part plays. Opens the octets in the platform's player engine at
     * every call, so linear in their count.
     *
     * @return milliseconds, rounded up to a multiple of QvlDuration::Step, or -1 when they cannot be measured
     */
    int getPlayDur();

    /**
     * True when the handset can show or play the part. Images are decoded, audio and video opened
     * in the player engine, everything else counts as supported. The answer for an image, and what
     * getPlayDur() learnt, is kept until type, subtype or octets change.
     */
    bool isMediaObjectSupported();

    /// For weak pointers at the part.
    const QvlLiveness &liveness() const { return m_liveness; }
    /// True once a message has taken the part: from then on only a message deletes it, or whoever
    /// takes parts over from one.
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

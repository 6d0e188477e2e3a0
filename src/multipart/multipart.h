/** @file
 * The body of a multimedia message: an ordered list of parts and the values of its content type.
 */
#pragma once

#include "../base/export.h"
#include "../base/ptr_list.h"
#include "body_part.h"
#include "liveness.h"

#include <QString>

#include <memory>

class PartIndex;

/**
 * Multipart message body. Owns its parts unless the copy constructor created it. Setters return
 * true.
 *
 * A reference matches a part if it equals the part's Content-ID according to isCidEqual(), or the
 * part's Content-Location ignoring case. A message is related if its type is "application" and its
 * subtype is "vnd.wap.multipart.related", both ignoring case; otherwise it is mixed.
 *
 * Operations with a reference or a name walk the parts once, as do getSmilPart(), holds() and the
 * attachments of a related message.
 */
class QVL_EXPORT MMS_COMP_SMILMultipart
{
public:
    /// An empty related message with the ext type "application/smil".
    MMS_COMP_SMILMultipart();
    /**
     * Copies as copyFrom() does. The copy never deletes its parts, neither the copied ones nor
     * those added later: the caller deletes them. Kept: callers take the parts over.
     */
    MMS_COMP_SMILMultipart(const MMS_COMP_SMILMultipart &source);
    MMS_COMP_SMILMultipart &operator=(const MMS_COMP_SMILMultipart &) = delete;
    /// Deletes the parts that the message owns; weak pointers at the message become null.
    ~MMS_COMP_SMILMultipart();

    /**
     * Copies ext type, mime type, subtype and start, and appends a copy of every part of @p source,
     * sharing its octets; @p source may be the message itself. The boundary and the existing parts
     * stay. Linear in the parts of @p source.
     */
    void copyFrom(const MMS_COMP_SMILMultipart &source);

    /// Removes all parts and makes the message related, with an empty start and ext type.
    void clear();

    /// Count of parts.
    int getPartCount() const { return m_parts.count(); }
    /// The part at @p index, owned by the message; null out of range.
    MMS_COMP_SMILMultipartBodypart *getBodypartByIndex(int index) const
    {
        return m_parts.at(index);
    }
    /// Adds @p part, which the message then owns, at the end. Null is ignored. When there is no
    /// memory, a message that owns its parts deletes it.
    void appendBodypart(MMS_COMP_SMILMultipartBodypart *part);
    /**
     * Inserts a part before another.
     *
     * @param part the message owns it from then on
     * @param index index of the other part: below 0 for the front, out of range for the end
     * @return 0; MultipartResult::InsertionRefused for a null part and when there is no memory, in
     * which case a message that owns its parts deletes the part
     */
    int insertBodypart(MMS_COMP_SMILMultipartBodypart *part, int index);
    /**
     * Gives back one use of the part at @p index: decrements its reference count, or removes and
     * deletes the part when the count is below 2. Returns 0, or MultipartResult::RemovalRefused.
     */
    int deletePart(int index);
    /**
     * Gives back one use of the parts that match @p src. Meant for references that match one part:
     * if several match, every removal shifts the next one to the part after the match. Kept:
     * callers rely on the result.
     *
     * @param src a reference: Content-ID or Content-Location
     * @return 0, also when nothing matches; MultipartResult::RemovalRefused for an empty reference
     * or when there is no part at that place
     */
    int deletePartBySrc(const QString &src);

    /// Main type of the body, such as "application".
    QString getMimeType() const { return m_mimeType; }
    /// @copydoc getMimeType
    bool setMimeType(const QString &type)
    {
        m_mimeType = type;
        return true;
    }
    /// Subtype of the body, such as "vnd.wap.multipart.related".
    QString getSubType() const { return m_subType; }
    /// @copydoc getSubType
    bool setSubType(const QString &subType)
    {
        m_subType = subType;
        return true;
    }
    /// Content type of the presentation: the "type" parameter of a related body.
    QString getExtType() const { return m_extType; }
    /// @copydoc getExtType
    bool setExtType(const QString &type)
    {
        m_extType = type;
        return true;
    }
    /// Reference to the presentation part: the "start" parameter.
    QString getStart() const { return m_start; }
    /// Stores the reference. If it matches an attachment, that one becomes the presentation part.
    bool setStart(const QString &start);
    /// Boundary of a body in text form. Such a body is neither parsed nor assembled.
    QString getBoundary() const { return m_boundary; }
    /// @copydoc getBoundary
    bool setBoundary(const QString &boundary)
    {
        m_boundary = boundary;
        return true;
    }

    /// @p reference without one leading "<", then one trailing ">", then a leading "cid:" in any
    /// case.
    static QString parseCid(const QString &reference);
    /**
     * True when the two are equal ignoring case, each trimmed and without what parseCid() removes.
     * False if @p a is empty then.
     */
    static bool isCidEqual(const QString &a, const QString &b);
    /// The first part with display file type @p type that matches @p src, owned by the message;
    /// null when there is none.
    MMS_COMP_SMILMultipartBodypart *getBodyPartBySrc(const QString &src, int type) const;
    /**
     * The presentation part: the part that start refers to; else the first part of a related
     * message if it is application/smil, which is then marked as shown; else null.
     */
    MMS_COMP_SMILMultipartBodypart *getSmilPart();

    /**
     * True when @p name cannot be given to a new part: a part matches it, it is not a valid URL, or
     * it has 100 characters or more.
     */
    bool isPartExist(const QString &name) const;
    /**
     * The first of "file0", "file1", ... with the extension @p ext, unless that is empty, that can
     * be given to a new part. Leaves out an @p ext that makes every name unusable. A null text when
     * there is no memory.
     */
    QString createUniqueAttchmentLocation(const QString &ext) const;
    /**
     * A location for a new part, derived from the file name in @p name: the name itself if it can
     * be used, else with "_0", "_1", ... before its extension. Base and extension are truncated to
     * 88 characters. If the extension or a character of the name makes all these names unusable,
     * the result is that of createUniqueAttchmentLocation() without extension. A null text when
     * there is no memory.
     */
    QString createUniqueLocation(const QString &name) const;

    /// Count of attachments: all parts of a mixed message, the unused parts of a related one.
    int getAttachmentCount() const;
    /// The attachment at @p index, counted as by getAttachmentCount(); owned by the message, null
    /// out of range.
    MMS_COMP_SMILMultipartBodypart *getAttachment(int index) const;

    /// True when the parts contain @p part itself, not only a part of its name.
    bool holds(const MMS_COMP_SMILMultipartBodypart *part) const;
    /// For weak pointers at the message.
    const QvlLiveness &liveness() const { return m_liveness; }

private:
    friend class PartIndexScope;

    bool isRelated() const;
    void setRelatedType();

    QString m_extType;
    QString m_mimeType;
    QString m_subType;
    QString m_start;
    QString m_boundary;
    QPtrList<MMS_COMP_SMILMultipartBodypart> m_parts; // never null: null parts are rejected
    std::unique_ptr<PartIndex> m_index; // set while a PartIndexScope exists
    QvlLiveness m_liveness;
};

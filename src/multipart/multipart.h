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
 * Multipart message body. Owns its parts unless it was made by the copy constructor. Setters return
 * true.
 *
 * A reference matches a part when it equals the part's Content-ID as isCidEqual() compares them, or
 * the part's Content-Location without regard to case. A message is related when its type is
 * "application" and its subtype "vnd.wap.multipart.related" in any case; any other is mixed.
 *
 * Whatever takes a reference or a name walks the parts once, and so do getSmilPart(), holds() and
 * the attachments of a related message.
 */
class QVL_EXPORT MMS_COMP_SMILMultipart
{
public:
    /// An empty related message with the ext type "application/smil".
    MMS_COMP_SMILMultipart();
    /**
     * Copies as copyFrom() does. The copy never deletes its parts, neither the copied ones nor
     * those that are added later: whoever makes one deletes them. Kept: callers take the parts
     * over.
     */
    MMS_COMP_SMILMultipart(const MMS_COMP_SMILMultipart &source);
    MMS_COMP_SMILMultipart &operator=(const MMS_COMP_SMILMultipart &) = delete;
    /// Deletes the parts that the message owns and makes the weak pointers at it null.
    ~MMS_COMP_SMILMultipart();

    /**
     * Takes over ext type, mime type, subtype and start, and appends a copy of every part of
     * @p source, sharing its octets; @p source may be the message itself. The boundary and the
     * parts already here stay. Linear in the parts of @p source.
     */
    void copyFrom(const MMS_COMP_SMILMultipart &source);

    /// Removes all parts and makes the message related again, with an empty start and ext type.
    void clear();

    /// Count of parts.
    int getPartCount() const { return m_parts.count(); }
    /// The part at @p index, which stays the message's, or null out of range.
    MMS_COMP_SMILMultipartBodypart *getBodypartByIndex(int index) const
    {
        return m_parts.at(index);
    }
    /// Adds @p part, which becomes the message's, at the end. Null is ignored. When there is no
    /// memory, a message that owns its parts deletes it.
    void appendBodypart(MMS_COMP_SMILMultipartBodypart *part);
    /**
     * Puts a part before another.
     *
     * @param part becomes the message's
     * @param index of the other part: below 0 stands for the front, out of range for the end
     * @return 0, or MultipartResult::InsertionRefused for a null part, and when there is no memory,
     * and then a message that owns its parts deletes it
     */
    int insertBodypart(MMS_COMP_SMILMultipartBodypart *part, int index);
    /**
     * Takes one use of the part at @p index back: lowers its reference count, or removes and
     * deletes the part when the count is below 2. Returns 0, or MultipartResult::RemovalRefused.
     */
    int deletePart(int index);
    /**
     * Takes one use of the parts that match @p src back. Meant for references that match one part:
     * where several match, every removal makes the next one hit the part behind the match. Kept:
     * callers rely on what is left.
     *
     * @param src a reference: Content-ID or Content-Location
     * @return 0, also when nothing matches, or MultipartResult::RemovalRefused for an empty
     * reference or when nothing stands at that place
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
    /// Reference of the presentation part: the "start" parameter.
    QString getStart() const { return m_start; }
    /// Stores the reference and takes the attachment that it matches, if any, for the presentation.
    bool setStart(const QString &start);
    /// Boundary of a body in text form; such a body is neither parsed nor assembled.
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
     * True when the two are equal without regard to case after trimming each and taking it through
     * parseCid(); never for an @p a that is empty then.
     */
    static bool isCidEqual(const QString &a, const QString &b);
    /// The first part of display file type @p type that matches @p src, which stays the message's,
    /// or null.
    MMS_COMP_SMILMultipartBodypart *getBodyPartBySrc(const QString &src, int type) const;
    /**
     * The presentation part: the one that start refers to, or the first part of a related message
     * when it is application/smil, which is then taken as shown. Null when there is none.
     */
    MMS_COMP_SMILMultipartBodypart *getSmilPart();

    /**
     * True when @p name cannot be given to a new part: a part matches it, it is no valid URL, or it
     * has 100 characters or more.
     */
    bool isPartExist(const QString &name) const;
    /**
     * The first of "file0", "file1", ... with the extension @p ext, unless that is empty, that can
     * be given to a new part. When @p ext itself makes every name unusable it is left out. A null
     * text when there is no memory.
     */
    QString createUniqueAttchmentLocation(const QString &ext) const;
    /**
     * A location for a new part made of the file name in @p name: the name itself when it can be
     * used, else with "_0", "_1", ... before its extension. Base and extension are cut to 88
     * characters. When the extension or a character of the name makes every one of these unusable
     * the result is that of createUniqueAttchmentLocation() without extension. A null text when
     * there is no memory.
     */
    QString createUniqueLocation(const QString &name) const;

    /// Count of attachments: all parts of a mixed message, the unclaimed ones of a related one.
    int getAttachmentCount() const;
    /// The attachment at @p index, counted as by getAttachmentCount(), which stays the message's,
    /// or null out of range.
    MMS_COMP_SMILMultipartBodypart *getAttachment(int index) const;

    /// True when @p part itself, not only one of its name, is among the parts.
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
    QPtrList<MMS_COMP_SMILMultipartBodypart> m_parts; // never null: such parts are not taken
    std::unique_ptr<PartIndex> m_index; // while a PartIndexScope lives
    QvlLiveness m_liveness;
};

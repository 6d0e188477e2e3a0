/** @file
 * Media objects: the elements of a slide, each naming its content by a location and bound to the
 * body part that holds it.
 */
#pragma once

#include "../base/export.h"
#include "../base/ptr_list.h"
#include "../multipart/body_part.h"
#include "../multipart/liveness.h"
#include "../multipart/multipart.h"
#include "media_element_type.h"
#include "media_params.h"
#include "smil_time.h"

#include <QString>

class QDataStream;
class QDomElement;
class SmilElement;

/// A param of a media object. Setters with a result return true.
class QVL_EXPORT MMS_COMP_SMILMediaObjectParam
{
public:
    /// A param of kind data with empty texts.
    MMS_COMP_SMILMediaObjectParam() = default;
    /// A param with the values that setAll() takes.
    MMS_COMP_SMILMediaObjectParam(const QString &name, const QString &value,
                                  MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType,
                                  const QString &refValueType);

    /// What the value is for, such as "textsize".
    QString getName() const { return m_name; }
    /// @copydoc getName
    bool setName(const QString &name);
    /// Whether the name is @p name, in the same case.
    bool isNamed(const QString &name) const { return m_name == name; }
    /// The value. A param with an empty one is written without its name.
    QString getValue() const { return m_value; }
    /// @copydoc getValue
    bool setValue(const QString &value);
    /// Kind of the value.
    MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE getValueType() const { return m_valueType; }
    /// @copydoc getValueType
    bool setValueType(MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType);
    /// MIME type of a referenced value: the attribute "type".
    QString getRefValueType() const { return m_refValueType; }
    /// @copydoc getRefValueType
    bool setRefValueType(const QString &refValueType);
    /// Sets name, value, kind of value and MIME type of a referenced value.
    bool setAll(const QString &name, const QString &value,
                MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType, const QString &refValueType);

    /// The value type of a keyword in qvlParamValueTypes, compared with regard to case, else
    /// unknown.
    static MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueTypeOf(const QString &keyword);

    /// Writes name, value, value type and type in the stream's own encoding. Returns true.
    bool writeToStream(QDataStream &stream) const;
    /// Reads what writeToStream() wrote. Returns true; the stream's status tells of an early end.
    bool readFromStream(QDataStream &stream);

private:
    QString m_name = QStringLiteral("");
    QString m_value = QStringLiteral("");
    MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE m_valueType = SMIL_PARAM_VALUE_DATA;
    QString m_refValueType = QStringLiteral("");
};

/**
 * One media element of a slide.
 *
 * Owns its params. Points at the body part with its content and at the message without owning them:
 * both pointers become null when their target is deleted. Setters with a result return true.
 */
class QVL_EXPORT MMS_COMP_SMILMediaObject
{
public:
    /// An empty object of unknown kind whose content is in @p multipart, which may be null.
    explicit MMS_COMP_SMILMediaObject(MMS_COMP_SMILMultipart *multipart);
    MMS_COMP_SMILMediaObject(const MMS_COMP_SMILMediaObject &) = delete;
    MMS_COMP_SMILMediaObject &operator=(const MMS_COMP_SMILMediaObject &) = delete;
    /// Never deletes the body part: clear() does.
    ~MMS_COMP_SMILMediaObject();

    /// Kind of element. Setting it to text sets the media type to "txt" too.
    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE getMediaElementType() const { return m_mediaElementType; }
    /// @copydoc getMediaElementType
    bool setMediaElementType(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type);
    /// Free text of the application: "txt" for a text, else empty unless it is set.
    QString getMediaType() const { return m_mediaType; }
    /// @copydoc getMediaType
    bool setMediaType(const QString &mediaType);
    /// Reference of the content: Content-Location, or "cid:" and Content-ID. Setting it sets the
    /// alternative text as well; set another one afterwards.
    QString getSrc() const { return m_src; }
    /// @copydoc getSrc
    bool setSrc(const QString &src);
    /// Id of the region that the object is shown in; videos and sounds are written without.
    QString getRegionId() const { return m_regionId; }
    /// @copydoc getRegionId
    bool setRegionId(const QString &regionId);
    /// MIME type of the content, such as "image/jpeg"; empty unless the application set it, or
    /// MMS_COMP_SMILParser::makeSmilForMixed() did.
    QString getMimeType() const { return m_mimeType; }
    /// @copydoc getMimeType
    bool setMimeType(const QString &mimeType);
    /// Text that stands for content that cannot be shown.
    QString getAlt() const { return m_alt; }
    /// @copydoc getAlt
    bool setAlt(const QString &alt);

    /// @name Begin and end
    /// @{

    /// Begin and end of the object within its slide, and their pieces as MMS_COMP_SMIL_TIME has
    /// them; lengths are milliseconds. Both start as none.
    MMS_COMP_SMIL_TIME getBegin() const { return m_begin; }
    MMS_COMP_SMIL_TIME_TYPE getBeginTimeType() const { return m_begin.timeType; }
    bool setBeginTimeType(MMS_COMP_SMIL_TIME_TYPE type);
    QString getBeginTimeEvent() const { return m_begin.eventId; }
    bool setBeginTimeEvent(const QString &eventId);
    int getBeginTimeLength() const { return m_begin.timeValue; }
    bool setBeginTimeLength(int milliseconds);
    MMS_COMP_SMIL_TIME getEnd() const { return m_end; }
    MMS_COMP_SMIL_TIME_TYPE getEndTimeType() const { return m_end.timeType; }
    bool setEndTimeType(MMS_COMP_SMIL_TIME_TYPE type);
    QString getEndTimeEvent() const { return m_end.eventId; }
    bool setEndTimeEvent(const QString &eventId);
    int getEndTimeLength() const { return m_end.timeValue; }
    bool setEndTimeLength(int milliseconds);
    /// @}

    /// The bound body part, or null; not owned.
    MMS_COMP_SMILMultipartBodypart *getData() const { return m_data.get(); }
    /// Binds @p part, or nothing for null, without touching its reference count. While the object
    /// has a message, @p part stays the caller's unless a message holds it.
    bool setData(MMS_COMP_SMILMultipartBodypart *part);
    /**
     * Fills the object, and the bound body part or else a new one, with new content.
     *
     * @param regionId region that the object is shown in
     * @param src location of the part; used as it is, also when another part has it
     * @param type kind of element; the main type of the part follows it
     * @param subType subtype of the part, such as "jpeg"
     * @param bytes octets of the part, which are shared and not copied
     * @param multipart gets a part that is new; without one the part is the object's until clear()
     * deletes it or a message takes it
     * @return false only when there is no memory for a part
     */
    bool setData(const QString &regionId, const QString &src, MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type,
                 const QString &subType, const QArray<char> &bytes,
                 MMS_COMP_SMILMultipart *multipart);
    /// The message, or null; not owned.
    MMS_COMP_SMILMultipart *getMultiPart() const { return m_multipart.get(); }
    /// @copydoc getMultiPart
    bool setMultiPart(MMS_COMP_SMILMultipart *multipart);

    /**
     * Reads kind, attributes and times from a media element and binds the part that its src refers
     * to, which from then on counts as shown. Linear in the parts.
     *
     * @param element a media element; its params are not read
     * @param multipart the message that has the part
     * @return 0; SmilResult::NotInMessage when there is no such part or an argument is null, and
     * what was read until then stays; SmilResult::OutOfMemory
     */
    int setObjectElem(QDomElement *element, MMS_COMP_SMILMultipart *multipart);

    /**
     * Copies the object to @p target, bound to the part of @p multipart that the src refers to and
     * that is shown. The params of the target stay in front of the copied ones.
     *
     * The end time goes into the target's begin time. Kept: the composer shows copied slides so.
     *
     * @param target gets the copy; may be the object itself
     * @param multipart the message that has the part
     * @return false, and @p target unchanged, when there is no such part or an argument is null;
     * false when there is no memory, and what was copied until then stays
     */
    bool copyTo(MMS_COMP_SMILMediaObject *target, MMS_COMP_SMILMultipart *multipart) const;

    /// Count of params.
    int getParamCount() const { return m_params.count(); }
    /// The param at @p index, which stays the object's, or null out of range.
    MMS_COMP_SMILMediaObjectParam *getParam(int index) const { return m_params.at(index); }
    /// Adds a param with the values that MMS_COMP_SMILMediaObjectParam::setAll() takes, even when
    /// there is one with the name. 0, or SmilResult::OutOfMemory.
    int appendParamElem(const QString &name, const QString &value,
                        MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType,
                        const QString &refValueType);
    /// The same with the kind as MMS_COMP_SMILMediaObjectParam::valueTypeOf() takes it.
    int appendParamElem(const QString &name, const QString &value, const QString &valueTypeKeyword,
                        const QString &refValueType);
    /// Removes and deletes the param at @p index; false out of range.
    bool deleteParamElem(int index);
    /// Sets the value of the first param with the name, or adds one of kind data. 0, or
    /// SmilResult::OutOfMemory.
    int updateParamByName(const QString &name, const QString &value);
    /// The value of the first param with the name; "" if there is none.
    QString getParamValueByName(const QString &name) const;
    /// Removes and deletes the first param with the name, if any.
    void removeParamByName(const QString &name);

    /**
     * Releases the content and binds nothing any more. When the object's message holds the part,
     * gives one use of it back to the message. Deletes a part that no message ever took if the
     * object made it, in setData() or readFromStream(), or if the object was given no message. Any
     * other part stays as it is. Linear in the parts.
     */
    void clear();

    /// Writes attributes, times, the body part's own record, and params in the stream's own
    /// encoding. Returns true.
    bool writeToStream(QDataStream &stream) const;
    /**
     * Reads what writeToStream() wrote, as far as the stream goes. A part that was read is the
     * object's until clear() deletes it or a message takes it; the part bound before is deleted
     * if clear() would delete it and no message holds it. Params that were there stay in front.
     * False when there is no memory, else true.
     */
    bool readFromStream(QDataStream &stream);

private:
    friend class MMS_COMP_SMILData;

    [[nodiscard]] QVL_INTERNAL int readElement(const SmilElement &element,
                                               MMS_COMP_SMILMultipart *multipart);
    QVL_INTERNAL void bindOwn(MMS_COMP_SMILMultipartBodypart *part);
    QVL_INTERNAL bool ownsData() const;
    int indexOfParam(const QString &name) const;

    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE m_mediaElementType = SMIL_MEDIA_UNKNOWN;
    QString m_mediaType = QStringLiteral("");
    QString m_src = QStringLiteral("");
    QString m_regionId = QStringLiteral("");
    QString m_mimeType = QStringLiteral("");
    MMS_COMP_SMIL_TIME m_begin;
    MMS_COMP_SMIL_TIME m_end;
    QString m_alt = QStringLiteral("");
    QvlWeakPointer<MMS_COMP_SMILMultipartBodypart> m_data;
    bool m_madeData = false; ///< the object itself made the part that it is bound to
    QPtrList<MMS_COMP_SMILMediaObjectParam> m_params;
    QvlWeakPointer<MMS_COMP_SMILMultipart> m_multipart;
};

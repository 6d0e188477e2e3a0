/** @file
 * Media objects: the elements of a slide. Each names its content by a location and is bound to the
 * body part with the content.
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

    /// Meaning of the value, such as "textsize".
    QString getName() const { return m_name; }
    /// @copydoc getName
    bool setName(const QString &name);
    /// Whether the name is @p name, case-sensitively.
    bool isNamed(const QString &name) const { return m_name == name; }
    /// The value. A param with an empty value is written without its name.
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

    /// The value type for a keyword in qvlParamValueTypes, case-sensitively; unknown for any other
    /// text.
    static MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueTypeOf(const QString &keyword);

    /// Writes name, value, value type and type in the stream's own encoding. Returns true.
    bool writeToStream(QDataStream &stream) const;
    /// Reads a record of writeToStream(). Returns true; check the stream's status for an early end.
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
 * Owns its params. Does not own the body part with its content and the message: these pointers
 * become null when their target is deleted. Setters with a result return true.
 */
class QVL_EXPORT MMS_COMP_SMILMediaObject
{
public:
    /// An empty object of unknown kind whose content is in @p multipart, which may be null.
    explicit MMS_COMP_SMILMediaObject(MMS_COMP_SMILMultipart *multipart);
    MMS_COMP_SMILMediaObject(const MMS_COMP_SMILMediaObject &) = delete;
    MMS_COMP_SMILMediaObject &operator=(const MMS_COMP_SMILMediaObject &) = delete;
    /// Never deletes the body part; use clear().
    ~MMS_COMP_SMILMediaObject();

    /// Kind of element. Setting it to text also sets the media type to "txt".
    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE getMediaElementType() const { return m_mediaElementType; }
    /// @copydoc getMediaElementType
    bool setMediaElementType(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type);
    /// Free text of the application: "txt" for texts, else empty unless set.
    QString getMediaType() const { return m_mediaType; }
    /// @copydoc getMediaType
    bool setMediaType(const QString &mediaType);
    /// Reference to the content: Content-Location, or "cid:" and Content-ID. Setting it also sets
    /// the alternative text, so set another one afterwards.
    QString getSrc() const { return m_src; }
    /// @copydoc getSrc
    bool setSrc(const QString &src);
    /// Id of the object's region; videos and sounds are written without it.
    QString getRegionId() const { return m_regionId; }
    /// @copydoc getRegionId
    bool setRegionId(const QString &regionId);
    /// MIME type of the content, such as "image/jpeg"; empty unless set by the application or by
    /// MMS_COMP_SMILParser::makeSmilForMixed().
    QString getMimeType() const { return m_mimeType; }
    /// @copydoc getMimeType
    bool setMimeType(const QString &mimeType);
    /// Text shown instead of content that cannot be shown.
    QString getAlt() const { return m_alt; }
    /// @copydoc getAlt
    bool setAlt(const QString &alt);

    /// @name Begin and end
    /// @{

    /// Begin and end of the object within its slide, and their fields in MMS_COMP_SMIL_TIME; times
    /// are in milliseconds. Both start as none.
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
    /// Binds @p part, or nothing for null, and does not change its reference count. If the object
    /// has a message, @p part still belongs to the caller unless a message holds it.
    bool setData(MMS_COMP_SMILMultipartBodypart *part);
    /**
     * Sets the attributes of the object, and fills the bound body part, or else a new one, with new
     * content.
     *
     * @param regionId id of the object's region
     * @param src location of the part; used as it is, even if another part has it
     * @param type kind of element, which determines the main type of the part
     * @param subType subtype of the part, such as "jpeg"
     * @param bytes octets of the part, which are shared and not copied
     * @param multipart gets a new part; with null the object owns the part until clear() deletes it
     * or a message takes it
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
     * to, which then counts as shown. Linear in the parts.
     *
     * @param element a media element; its params are not read
     * @param multipart the message with the part
     * @return 0; SmilResult::NotInMessage when there is no such part or an argument is null, and
     * everything read before stays; SmilResult::OutOfMemory
     */
    int setObjectElem(QDomElement *element, MMS_COMP_SMILMultipart *multipart);

    /**
     * Copies the object to @p target and binds the copy to the part of @p multipart that the src
     * refers to and that is shown. Existing params of the target stay before the copied ones.
     *
     * The end time goes into the target's begin time. Kept: the composer shows copied slides this
     * way.
     *
     * @param target gets the copy; may be the object itself
     * @param multipart the message with the part
     * @return false, and @p target unchanged, when there is no such part or an argument is null;
     * false when there is no memory, and everything copied before stays
     */
    bool copyTo(MMS_COMP_SMILMediaObject *target, MMS_COMP_SMILMultipart *multipart) const;

    /// Count of params.
    int getParamCount() const { return m_params.count(); }
    /// The param at @p index, owned by the object; null out of range.
    MMS_COMP_SMILMediaObjectParam *getParam(int index) const { return m_params.at(index); }
    /// Adds a param with the values of MMS_COMP_SMILMediaObjectParam::setAll(), even if there is
    /// one with the name. Returns 0, or SmilResult::OutOfMemory.
    int appendParamElem(const QString &name, const QString &value,
                        MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType,
                        const QString &refValueType);
    /// The same with the keyword of a kind, see MMS_COMP_SMILMediaObjectParam::valueTypeOf().
    int appendParamElem(const QString &name, const QString &value, const QString &valueTypeKeyword,
                        const QString &refValueType);
    /// Removes and deletes the param at @p index; false out of range.
    bool deleteParamElem(int index);
    /// Sets the value of the first param with the name, or adds one of kind data. Returns 0, or
    /// SmilResult::OutOfMemory.
    int updateParamByName(const QString &name, const QString &value);
    /// The value of the first param with the name; "" when there is none.
    QString getParamValueByName(const QString &name) const;
    /// Removes and deletes the first param with the name, if any.
    void removeParamByName(const QString &name);

    /**
     * Releases the content and unbinds the part. If the object's message holds the part, gives one
     * use back to the message. Deletes a part that no message ever took if the object created it,
     * in setData() or readFromStream(), or if the object was given no message. Keeps any other
     * part. Linear in the parts.
     */
    void clear();

    /// Writes attributes, times, the record of the body part, and params in the stream's encoding.
    /// Returns true.
    bool writeToStream(QDataStream &stream) const;
    /**
     * Reads a record of writeToStream(), or its beginning if the stream ends early. The object owns
     * a part that it reads until clear() deletes it or a message takes it. Deletes the part bound
     * before if clear() would delete it and no message holds it. Existing params stay before the
     * new ones. False when there is no memory, else true.
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
    bool m_madeData = false; ///< the object itself created the bound part
    QPtrList<MMS_COMP_SMILMediaObjectParam> m_params;
    QvlWeakPointer<MMS_COMP_SMILMultipart> m_multipart;
};

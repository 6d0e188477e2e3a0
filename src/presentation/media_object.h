/*
 * Media objects: the elements of a slide, each naming its content by a location and bound to the
 * body part that holds it.
 */
#pragma once

#include "multipart/body_part.h"
#include "multipart/liveness.h"
#include "multipart/multipart.h"
#include "platform/export.h"
#include "platform/ptr_list.h"
#include "presentation/media_element_type.h"
#include "presentation/smil_time.h"

#include <QString>

class QDataStream;
class QDomElement;

/// Kinds of value of a param. The numbers stand in stored messages.
enum MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE : int {
    SMIL_PARAM_VALUE_DATA = 0,
    SMIL_PARAM_VALUE_REF = 1,
    SMIL_PARAM_VALUE_OBJECT = 2,
    SMIL_PARAM_VALUE_UNKNOWN = 3,
};

/// A param of a media object. Setters with a result return true.
class QVL_EXPORT MMS_COMP_SMILMediaObjectParam
{
public:
    MMS_COMP_SMILMediaObjectParam() = default;
    MMS_COMP_SMILMediaObjectParam(const QString &name, const QString &value,
                                  MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType,
                                  const QString &refValueType);

    QString getName() const { return m_name; }
    bool setName(const QString &name);
    QString getValue() const { return m_value; }
    bool setValue(const QString &value);
    MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE getValueType() const { return m_valueType; }
    bool setValueType(MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType);
    /// MIME type of a referenced value: the attribute "type".
    QString getRefValueType() const { return m_refValueType; }
    bool setRefValueType(const QString &refValueType);
    bool setAll(const QString &name, const QString &value,
                MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType, const QString &refValueType);

    /// The value type for "data", "ref" and "object", compared with regard to case, else unknown.
    static MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueTypeOf(const QString &keyword);

    /// Name, value, value type and type, in the stream's own encoding. Both return true.
    bool writeToStream(QDataStream &stream) const;
    bool readFromStream(QDataStream &stream);

private:
    QString m_name = QLatin1String("");
    QString m_value = QLatin1String("");
    MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE m_valueType = SMIL_PARAM_VALUE_DATA;
    QString m_refValueType = QLatin1String("");
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

    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE getMediaElementType() const { return m_mediaElementType; }
    /// Sets the media type to "txt" too when @p type is text.
    bool setMediaElementType(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type);
    QString getMediaType() const { return m_mediaType; }
    bool setMediaType(const QString &mediaType);
    /// Location of the content.
    QString getSrc() const { return m_src; }
    /// Sets the alternative text to @p src as well; set another one afterwards.
    bool setSrc(const QString &src);
    QString getRegionId() const { return m_regionId; }
    bool setRegionId(const QString &regionId);
    QString getMimeType() const { return m_mimeType; }
    bool setMimeType(const QString &mimeType);
    QString getAlt() const { return m_alt; }
    bool setAlt(const QString &alt);

    /// Begin and end times; lengths in milliseconds.
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

    /// The bound body part, or null; not owned.
    MMS_COMP_SMILMultipartBodypart *getData() const { return m_data.get(); }
    /// Binds @p part, or nothing for null, without touching its reference count.
    bool setData(MMS_COMP_SMILMultipartBodypart *part);
    /**
     * Fills the object, and the bound body part or else a new one in @p multipart, with new
     * content. False only when there is no memory for a part. Does not make @p src unique.
     */
    bool setData(const QString &regionId, const QString &src, MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type,
                 const QString &subType, const QArray<char> &bytes,
                 MMS_COMP_SMILMultipart *multipart);
    /// The message, or null; not owned.
    MMS_COMP_SMILMultipart *getMultiPart() const { return m_multipart.get(); }
    bool setMultiPart(MMS_COMP_SMILMultipart *multipart);

    /**
     * Reads kind, attributes and times from a media element and binds the part of @p multipart that
     * its src refers to, which from then on counts as shown. 0, or SmilResult::NotInMessage when
     * there is none; what was read until then stays.
     */
    int setObjectElem(QDomElement *element, MMS_COMP_SMILMultipart *multipart);

    /**
     * Copies the object to @p target, bound to the part of @p multipart that the src refers to and
     * that is shown. False, and @p target unchanged, when there is none or an argument is null.
     *
     * The end time goes into the target's begin time. Kept: the composer shows copied slides so.
     */
    bool copyTo(MMS_COMP_SMILMediaObject *target, MMS_COMP_SMILMultipart *multipart) const;

    int getParamCount() const { return m_params.count(); }
    /// The param at @p index, which stays the object's, or null out of range.
    MMS_COMP_SMILMediaObjectParam *getParam(int index) const { return m_params.at(index); }
    /// 0, or SmilResult::OutOfMemory.
    int appendParamElem(const QString &name, const QString &value,
                        MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType,
                        const QString &refValueType);
    int appendParamElem(const QString &name, const QString &value, const QString &valueTypeKeyword,
                        const QString &refValueType);
    /// Removes and deletes the param at @p index; false out of range.
    bool deleteParamElem(int index);
    /// Each of the three acts on the first param with the name.
    int updateParamByName(const QString &name, const QString &value); ///< adds one if there is none
    QString getParamValueByName(const QString &name) const; ///< "" if there is none
    void removeParamByName(const QString &name);

    /**
     * Releases the content: gives one use of the part back to the message when the part stands in
     * it, deletes a part that no message ever took, and binds nothing any more.
     */
    void clear();

    /**
     * Attributes, times, the body part's own record, and params, in the stream's own encoding. Both
     * return true, reading false when there is no memory. A part that was read is the object's
     * until clear() deletes it or a message takes it; params that were there stay in front.
     */
    bool writeToStream(QDataStream &stream) const;
    bool readFromStream(QDataStream &stream);

private:
    int indexOfParam(const QString &name) const;

    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE m_mediaElementType = SMIL_MEDIA_UNKNOWN;
    QString m_mediaType = QLatin1String("");
    QString m_src = QLatin1String("");
    QString m_regionId = QLatin1String("");
    QString m_mimeType = QLatin1String("");
    MMS_COMP_SMIL_TIME m_begin;
    MMS_COMP_SMIL_TIME m_end;
    QString m_alt = QLatin1String("");
    QvlWeakPointer<MMS_COMP_SMILMultipartBodypart> m_data;
    QPtrList<MMS_COMP_SMILMediaObjectParam> m_params;
    QvlWeakPointer<MMS_COMP_SMILMultipart> m_multipart;
};

/*
 * The whole edited state of a message as a value: what undo and redo restore. It includes what no
 * PDU holds, such as fixed durations and reference counts. Parts share their octets with the
 * message, and states share the parts and slides in which they do not differ.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QDateTime>
#include <QString>

#include <memory>
#include <utility>
#include <vector>

/// A value that states share. Compares by value.
template <typename Value>
class SharedValue
{
public:
    SharedValue(Value value) : m_value(std::make_shared<const Value>(std::move(value))) { }

    const Value &operator*() const { return *m_value; }
    const Value *operator->() const { return m_value.get(); }
    bool operator==(const SharedValue &other) const
    {
        return m_value == other.m_value || *m_value == *other.m_value;
    }

private:
    std::shared_ptr<const Value> m_value; ///< never null
};

struct EditedAddress
{
    QString name;
    unsigned char type = MMS_UTIL_Entry::Email; ///< a MMS_UTIL_Entry::Type
    QString address;

    bool operator==(const EditedAddress &) const = default;
};

struct EditedHeader
{
    EditedAddress from;
    std::vector<EditedAddress> to;
    std::vector<EditedAddress> cc;
    std::vector<EditedAddress> bcc;
    QString subject;
    QString transactionId;
    QDateTime date;
    QDateTime deliveryTime;
    int expiry = 0;
    unsigned int fieldsPresent = 0;
    unsigned char type = 0;
    unsigned char version = 0;
    unsigned char messageClass = 0;
    unsigned char priority = 0;
    bool deliveryReport = false;
    bool readReply = false;
    bool senderVisibility = false;

    bool operator==(const EditedHeader &) const = default;
};

struct EditedPart
{
    MMS_COMP_SMILMultipartBodypart part; ///< a copy, which shares the octets

    bool operator==(const EditedPart &other) const;
};

struct EditedColor
{
    MMS_COMP_COLOR color;

    bool operator==(const EditedColor &other) const;
};

struct EditedTime
{
    int type = SMIL_TIME_NONE;
    QString event;
    int milliseconds = 0;

    bool operator==(const EditedTime &) const = default;
};

struct EditedParam
{
    QString name;
    QString value;
    int valueType = SMIL_PARAM_VALUE_DATA;
    QString refValueType;

    bool operator==(const EditedParam &) const = default;
};

struct EditedObject
{
    int kind = SMIL_MEDIA_UNKNOWN;
    int part = -1; ///< index of the bound part; -1 for none
    QString mediaType;
    QString src;
    QString regionId;
    QString mimeType;
    QString alt;
    EditedTime begin;
    EditedTime end;
    std::vector<EditedParam> params;

    bool operator==(const EditedObject &) const = default;
};

struct EditedSlide
{
    int duration = 0;
    bool isDurationFixed = false;
    EditedColor pageColor;
    EditedColor textColor;
    QString textSize;
    std::vector<EditedObject> objects;

    bool operator==(const EditedSlide &) const = default;
};

/// A slide with this state, whose media objects are bound to parts of @p parts.
std::unique_ptr<MMS_COMP_SMILTimingContainer> newSlide(const EditedSlide &state,
                                                       MMS_COMP_SMILMultipart *parts);

struct EditedRegion
{
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
    int fit = 0;
    QString id;

    bool operator==(const EditedRegion &) const = default;
};

/// Root layout, regions, metas, and the values of the body's content type.
struct EditedFrame
{
    int unit = SMIL_UNIT_PIXEL;
    int width = 0;
    int height = 0;
    EditedColor color;
    std::vector<EditedRegion> regions;
    std::vector<std::pair<QString, QString>> metas;
    QString mimeType;
    QString subType;
    QString extType;
    QString start;

    bool operator==(const EditedFrame &) const = default;
};

struct EditedState
{
    SharedValue<EditedHeader> header;
    SharedValue<EditedFrame> frame;
    std::vector<SharedValue<EditedPart>> parts; ///< in their order
    std::vector<SharedValue<EditedSlide>> slides;

    bool operator==(const EditedState &) const = default;

    /// The state of @p message. Linear in the parts and media objects.
    static EditedState of(const QvlMessage &message);
    /// The same, and shares with @p previous what is equal.
    static EditedState of(const QvlMessage &message, const EditedState &previous);

    /// Gives @p message this state. All its parts, slides and media objects are new ones.
    void restore(QvlMessage *message) const;
};

#include "wire/field_codecs.h"

#include "wire/date_time.h"
#include "wire/field_shapes.h"
#include "wire/octets.h"

using namespace FieldShapes;

// Defines the operations of a field class with a shape. A macro, because a template would be an
// exported base class.
#define QVL_DEFINE_FIELD(Field, ...) \
    unsigned char Field::readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) \
    { \
        return __VA_ARGS__::read(buffer, msg); \
    } \
    unsigned char Field::writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg) \
    { \
        return __VA_ARGS__::write(buffer, msg); \
    } \
    int Field::fieldSize(MMS_UA_UAMsg *msg) \
    { \
        return __VA_ARGS__::size(msg); \
    }

namespace {

using Msg = MMS_UA_UAMsg;

// Octets of From's value after its value-length: the token and the address, if any.
int fromLength(const MMS_UTIL_Entry &from)
{
    return from.getAddress().isEmpty() ? 1 : 1 + AddressBinary::sizeOf(from);
}

int dateSeconds(MMS_UA_UAMsg *msg)
{
    return DateTime::toSeconds(msg->getDate());
}

// Octets of Expiry's value after its value-length: the token and the seconds.
int expiryLength(MMS_UA_UAMsg *msg)
{
    return 1 + IntegerBinary::sizeOf(msg->getExpiry());
}

} // namespace

QVL_DEFINE_FIELD(BccField,
                 Recipients<HeaderFieldCode::Bcc, &Msg::getBccRecipients, &Msg::addBccRecipient>)
QVL_DEFINE_FIELD(CcField,
                 Recipients<HeaderFieldCode::Cc, &Msg::getCcRecipients, &Msg::addCcRecipient>)
QVL_DEFINE_FIELD(ToField,
                 Recipients<HeaderFieldCode::To, &Msg::getToRecipients, &Msg::addToRecipient>)
QVL_DEFINE_FIELD(ContentLocationField,
                 Optional<HeaderFieldCode::ContentLocation, PlainTextBinary, QString,
                          &Msg::getContentLocation, &Msg::setContentLocation>)
QVL_DEFINE_FIELD(MsgIDField,
                 Optional<HeaderFieldCode::MessageId, PlainTextBinary, QString, &Msg::getMessageId,
                          &Msg::setMessageId>)
QVL_DEFINE_FIELD(TIDField,
                 Optional<HeaderFieldCode::TransactionId, PlainTextBinary, QString,
                          &Msg::getTransactionId, &Msg::setTransactionId>)
QVL_DEFINE_FIELD(SubjectField,
                 Optional<HeaderFieldCode::Subject, EncodedStringBinary, QString, &Msg::getSubject,
                          &Msg::setSubject>)
QVL_DEFINE_FIELD(ResponseTextField,
                 Optional<HeaderFieldCode::ResponseText, EncodedStringBinary, QString,
                          &Msg::getResponseText, &Msg::setResponseText>)
QVL_DEFINE_FIELD(MsgSizeField,
                 Optional<HeaderFieldCode::MessageSize, IntegerBinary, int, &Msg::getMessageSize,
                          &Msg::setMessageSize>)
QVL_DEFINE_FIELD(DeliveryTimeField,
                 Optional<HeaderFieldCode::DeliveryTime, TimeBinary, QDateTime,
                          &Msg::getDeliveryTime, &Msg::setDeliveryTime>)
QVL_DEFINE_FIELD(MsgTypeField,
                 Octet<HeaderFieldCode::MessageType, &Msg::getMessageType, &Msg::setMessageType>)
QVL_DEFINE_FIELD(MsgClassField,
                 Octet<HeaderFieldCode::MessageClass, &Msg::getMessageClass, &Msg::setMessageClass>)
QVL_DEFINE_FIELD(MsgStatusField, Octet<HeaderFieldCode::Status, &Msg::getStatus, &Msg::setStatus>)
QVL_DEFINE_FIELD(
    ResponseStatusField,
    Octet<HeaderFieldCode::ResponseStatus, &Msg::getResponseStatus, &Msg::setResponseStatus>)
QVL_DEFINE_FIELD(PriorityField,
                 Octet<HeaderFieldCode::Priority, &Msg::getPriority, &Msg::setPriority>)
QVL_DEFINE_FIELD(
    DeliveryReportField,
    Flag<HeaderFieldCode::DeliveryReport, &Msg::getDeliveryReport, &Msg::setDeliveryReport>)
QVL_DEFINE_FIELD(ReadReplyField,
                 Flag<HeaderFieldCode::ReadReply, &Msg::getReadReply, &Msg::setReadReply>)
QVL_DEFINE_FIELD(
    ReportAllowedField,
    Flag<HeaderFieldCode::ReportAllowed, &Msg::getReportAllowed, &Msg::setReportAllowed>)
QVL_DEFINE_FIELD(SenderVisibilityField,
                 Flag<HeaderFieldCode::SenderVisibility, &Msg::getSenderVisibility,
                      &Msg::setSenderVisibility, No, Yes>)
#undef QVL_DEFINE_FIELD

unsigned char VersionField::readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
{
    return readOctet<HeaderFieldCode::MmsVersion, &Msg::setMMSVersion, WireOctet::withoutHighBit>(
        buffer, msg);
}

unsigned char VersionField::writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
{
    writeCode(buffer, HeaderFieldCode::MmsVersion);
    return IntegerBinary::writeTo(buffer, msg->getMMSVersion());
}

int VersionField::fieldSize(MMS_UA_UAMsg *)
{
    return OctetFieldSize;
}

// from ::= value-length (80 address | octet)
// A sender without a name and an address becomes an entry of type Absent.
unsigned char FromField::readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
{
    int length = 0;
    const unsigned char result = ValueLengthBinary::readFrom(buffer, &length);
    unsigned char token = 0;
    if (!buffer->readByte(&token))
        return WireResult::OutOfData;

    MMS_UTIL_Entry sender;
    const bool named = length >= 2 && token == WireToken::AddressPresent;
    const unsigned char addressResult = named ? AddressBinary::readFrom(buffer, &sender) : result;
    if (sender.isEmpty())
        sender =
            MMS_UTIL_Entry(QStringLiteral("NoBody"), MMS_UTIL_Entry::Absent, QLatin1String(""));
    msg->setFrom(sender);
    msg->addFieldsPresent(headerFieldMask(HeaderFieldCode::From));
    return addressResult;
}

unsigned char FromField::writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
{
    const MMS_UTIL_Entry from = msg->getFrom();
    const bool known = !from.getAddress().isEmpty();
    writeCode(buffer, HeaderFieldCode::From);
    WireAppend::value<ValueLengthBinary>(buffer, fromLength(from));
    if (!buffer->appendByte(known ? WireToken::AddressPresent : WireToken::InsertAddress))
        return WireResult::OutOfData;
    return known ? AddressBinary::writeTo(buffer, from) : WireResult::Written;
}

int FromField::fieldSize(MMS_UA_UAMsg *msg)
{
    const int length = fromLength(msg->getFrom());
    return 1 + ValueLengthBinary::sizeOf(length) + length;
}

unsigned char MsgDateField::readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
{
    int seconds = 0;
    const unsigned char result = IntegerBinary::readFrom(buffer, &seconds);
    msg->setDate(DateTime::now());
    msg->addFieldsPresent(headerFieldMask(HeaderFieldCode::Date));
    return result;
}

unsigned char MsgDateField::writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
{
    writeCode(buffer, HeaderFieldCode::Date);
    return IntegerBinary::writeTo(buffer, dateSeconds(msg));
}

int MsgDateField::fieldSize(MMS_UA_UAMsg *msg)
{
    return 1 + IntegerBinary::sizeOf(dateSeconds(msg));
}

// expiry ::= time
// An unreadable value leaves the record's value unchanged but counts as present.
unsigned char ExpiryField::readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
{
    int seconds = 0;
    const unsigned char result = TimeBinary::readSeconds(buffer, &seconds);
    if (result == WireResult::Read)
        msg->setExpiry(DateTime::sinceJulianDayZero(seconds));
    msg->addFieldsPresent(headerFieldMask(HeaderFieldCode::Expiry));
    return result;
}

unsigned char ExpiryField::writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
{
    writeCode(buffer, HeaderFieldCode::Expiry);
    WireAppend::value<ValueLengthBinary>(buffer, expiryLength(msg));
    WireAppend::octet(buffer, WireToken::RelativeTime);
    return IntegerBinary::writeTo(buffer, msg->getExpiry());
}

int ExpiryField::fieldSize(MMS_UA_UAMsg *msg)
{
    const int length = expiryLength(msg);
    return 1 + ValueLengthBinary::sizeOf(length) + length;
}

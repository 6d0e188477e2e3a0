#include "message/header_texts.h"

#include "readable/append_octets.h"
#include "scan/header_scanner.h"
#include "wire/address.h"
#include "wire/header_field_codes.h"
#include "wire/primitive_values.h"

#include <array>
#include <tuple>
#include <vector>

namespace {

using namespace HeaderFieldCode;

struct Recipients
{
    int code;
    const QPtrList<MMS_UTIL_Entry> &list;
    std::vector<QString> texts; // null where the decoder's is right
};

// The text of a value that declares a charset; null if the decoder reads the value, too.
QString declaredText(const QvlScannedField &field)
{
    const QvlScannedValue value = field.decoded();
    const bool isDecoded =
        value.charset == 0 || value.charset == Charset::Utf8 || value.charset == Charset::UsAscii;
    return value.isReadable && !isDecoded ? value.text : QString();
}

MMS_UTIL_Entry entryOf(const QString &text)
{
    const QByteArray content = char(Charset::Utf8 | WireOctet::HighBit) + text.toUtf8() + '\0';
    QByteArray octets;
    AppendOctets::value<ValueLengthBinary>(&octets, int(content.size()));
    octets += content;
    LinearBuffer buffer = LinearBuffer::forReading(
        reinterpret_cast<const unsigned char *>(octets.constData()), int(octets.size()));
    MMS_UTIL_Entry entry;
    std::ignore = AddressBinary::readFrom(&buffer, &entry); // it never fails
    return entry;
}

void storeText(const QvlScannedField &field, MMS_UA_UAMsg *header)
{
    const QString text = declaredText(field);
    if (text.isEmpty())
        return;
    if (field.code == Subject)
        header->setSubject(text);
    else if (field.code == ResponseText)
        header->setResponseText(text);
    else
        header->setFrom(entryOf(text));
}

// Only if the decoder found the same recipients.
void storeRecipients(const Recipients &recipients)
{
    if (recipients.texts.size() != std::size_t(recipients.list.count()))
        return;
    for (std::size_t i = 0; i < recipients.texts.size(); ++i) {
        if (!recipients.texts[i].isEmpty())
            *recipients.list.at(static_cast<int>(i)) = entryOf(recipients.texts[i]);
    }
}

} // namespace

void storeDeclaredTexts(QByteArrayView pdu, MMS_UA_UAMsg *header)
{
    std::array recipients{Recipients{To, header->getToRecipients(), {}},
                          Recipients{Cc, header->getCcRecipients(), {}},
                          Recipients{Bcc, header->getBccRecipients(), {}}};
    QvlHeaderScanner scanner(pdu);
    QvlScannedField field;
    while (scanner.next(&field)) {
        if (field.code == Subject || field.code == ResponseText || field.code == From)
            storeText(field, header);
        for (Recipients &one : recipients) {
            if (field.code == one.code)
                one.texts.push_back(declaredText(field));
        }
    }
    for (const Recipients &one : recipients)
        storeRecipients(one);
}

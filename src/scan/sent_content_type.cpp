#include "scan/sent_content_type.h"

#include "scan/header_scanner.h"
#include "wire/header_field_codes.h"

std::optional<QvlContentType> qvlSentContentType(QByteArrayView pdu)
{
    QvlHeaderScanner scanner(pdu);
    QvlScannedField field;
    while (scanner.next(&field)) {
        if (field.code == HeaderFieldCode::ContentType)
            return qvlReadContentType(field.value);
    }
    return std::nullopt;
}

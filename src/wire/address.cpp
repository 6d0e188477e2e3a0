#include "wire/address.h"

#include "wire/primitive_values.h"
#include "wire/wire_result.h"
#include "wire/wire_text.h"

#include <algorithm>
#include <tuple>

namespace {

constexpr QLatin1String PlmnSuffix("/TYPE=PLMN");

// U+0000 ends a text on the wire, so a suffix after it would be lost.
int plmnSuffixSize(const QString &address)
{
    return address.contains(QChar::Null) ? 0 : int(PlmnSuffix.size());
}

WireText::Octets plmnOctets(const QString &address)
{
    WireText::Octets octets = WireText::utf8(address);
    octets.append(PlmnSuffix.data(), plmnSuffixSize(address));
    return octets;
}

bool isAscii(const QString &address)
{
    return WireText::isPlain(address) || WireText::isAscii(WireText::utf8(address));
}

// Index of the first PlmnSuffix, or -1.
qsizetype findPlmnSuffix(QStringView text)
{
    const auto isSame = [](QChar character, char ascii) { return character == QLatin1Char(ascii); };
    const auto found =
        std::search(text.begin(), text.end(), PlmnSuffix.begin(), PlmnSuffix.end(), isSame);
    return found == text.end() ? -1 : found - text.begin();
}

} // namespace

// address ::= encoded-string
// its text ::= number "/TYPE=PLMN" any | name "<" address [">" any] | address
unsigned char AddressBinary::readFrom(LinearBuffer *buffer, MMS_UTIL_Entry *entry)
{
    QString text;
    std::ignore = EncodedStringBinary::readFrom(buffer, &text); // truncated: keeps what was read
    if (const qsizetype suffix = findPlmnSuffix(text); suffix >= 0) {
        entry->setType(MMS_UTIL_Entry::Plmn);
        text.truncate(suffix);
        entry->setAddress(text);
        return WireResult::Read;
    }
    entry->setType(MMS_UTIL_Entry::Email);
    const qsizetype open = text.indexOf(QLatin1Char('<'));
    if (open < 0) {
        entry->setName(QString());
        entry->setAddress(text);
        return WireResult::Read;
    }
    const qsizetype close = text.indexOf(QLatin1Char('>'));
    entry->setName(text.left(open));
    entry->setAddress(close > open ? text.sliced(open + 1, close - open - 1)
                                   : text.sliced(open + 1));
    return WireResult::Read;
}

unsigned char AddressBinary::writeTo(LinearBuffer *buffer, const MMS_UTIL_Entry &entry)
{
    switch (entry.getType()) {
    case MMS_UTIL_Entry::Plmn:
        WireText::append(buffer, plmnOctets(entry.getAddress()));
        return WireResult::Written;
    case MMS_UTIL_Entry::Email:
        return isAscii(entry.getAddress())
            ? PlainTextBinary::writeTo(buffer, entry.getAddress())
            : EncodedStringBinary::writeTo(buffer, entry.getAddress());
    default:
        return WireResult::CannotWrite;
    }
}

int AddressBinary::sizeOf(const MMS_UTIL_Entry &entry)
{
    switch (entry.getType()) {
    case MMS_UTIL_Entry::Plmn:
        return WireText::sizeOf(entry.getAddress()) + plmnSuffixSize(entry.getAddress());
    case MMS_UTIL_Entry::Email:
        return isAscii(entry.getAddress()) ? PlainTextBinary::sizeOf(entry.getAddress())
                                           : EncodedStringBinary::sizeOf(entry.getAddress());
    default:
        return 0;
    }
}

#include "input/file_name.h"

#include <QStringDecoder>

#include <algorithm>
#include <optional>

namespace {

constexpr qsizetype LongestSequence = 4; // octets of a character in UTF-8
constexpr char16_t FirstSurrogate = 0xDC00;

std::optional<QString> decoded(QByteArrayView octets)
{
    using Flag = QStringConverter::Flag;
    QStringDecoder decode(QStringConverter::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    const QString text = decode(octets);
    return decode.hasError() ? std::nullopt : std::optional(text);
}

bool isOctet(const QString &text, qsizetype index)
{
    const char16_t unit = text[index].unicode();
    const bool endsPair = index > 0 && text[index - 1].isHighSurrogate();
    return !endsPair && unit >= FirstSurrogate + 0x80 && unit <= FirstSurrogate + 0xFF;
}

} // namespace

QString FileName::fromOctets(const QByteArray &octets)
{
    if (const auto text = decoded(octets))
        return *text;
    QString text;
    for (QByteArrayView rest = octets; !rest.isEmpty();) {
        qsizetype length = 1;
        std::optional<QString> character;
        for (; length <= std::min(LongestSequence, rest.size()); ++length) {
            character = decoded(rest.first(length));
            if (character)
                break;
        }
        if (!character)
            length = 1;
        text += character.value_or(
            QString(QChar(char16_t(FirstSurrogate + static_cast<unsigned char>(rest.front())))));
        rest = rest.sliced(length);
    }
    return text;
}

QByteArray FileName::toOctets(const QString &text)
{
    QByteArray octets;
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!isOctet(text, i))
            continue;
        octets += QStringView(text).sliced(start, i - start).toUtf8();
        octets += static_cast<char>(text[i].unicode() - FirstSurrogate);
        start = i + 1;
    }
    return octets + QStringView(text).sliced(start).toUtf8();
}

QString FileName::inFolder(const QString &folder, const QString &name)
{
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

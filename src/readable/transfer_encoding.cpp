#include "readable/transfer_encoding.h"

#include <algorithm>
#include <utility>

namespace {

constexpr bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

constexpr bool isSpace(char c)
{
    return isBlank(c) || c == '\r' || c == '\n';
}

// base64 ::= (4 letters) * [2 letters ["=="] | 3 letters ["="]], with white space anywhere
std::optional<QByteArray> decodeBase64(QByteArrayView octets)
{
    QByteArray letters(octets.size(), Qt::Uninitialized);
    const auto end = std::remove_copy_if(octets.begin(), octets.end(), letters.begin(), isSpace);
    letters.truncate(end - letters.begin());
    // Qt ignores a single letter at the end.
    if (letters.size() % 4 == 1)
        return std::nullopt;
    auto result =
        QByteArray::fromBase64Encoding(std::move(letters), QByteArray::AbortOnBase64DecodingErrors);
    return result ? std::optional(*std::move(result)) : std::nullopt;
}

constexpr int NoDigit = -1;

constexpr int digitValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : NoDigit;
}

class QuotedPrintable
{
public:
    explicit QuotedPrintable(QByteArrayView octets) : m_rest(octets) { }

    std::optional<QByteArray> decoded();

private:
    void decodeBlanks();
    [[nodiscard]] bool decodeEscape();
    [[nodiscard]] bool decodeOctet();
    QByteArrayView takeBlanks();
    void skip(qsizetype count) { m_rest = m_rest.sliced(count); }
    qsizetype lineEnd() const { return m_rest.startsWith("\r\n") ? 2 : m_rest.startsWith('\n'); }

    QByteArrayView m_rest;
    QByteArray m_result{""};
};

std::optional<QByteArray> QuotedPrintable::decoded()
{
    m_result.reserve(m_rest.size());
    while (!m_rest.isEmpty()) {
        const char next = m_rest.front();
        if (isBlank(next)) {
            decodeBlanks();
            continue;
        }
        skip(1);
        if (next != '=')
            m_result.append(next);
        else if (!decodeEscape())
            return std::nullopt;
    }
    return std::move(m_result);
}

// Transport may have added blanks at the end of a line.
void QuotedPrintable::decodeBlanks()
{
    const QByteArrayView blanks = takeBlanks();
    if (!m_rest.isEmpty() && lineEnd() == 0)
        m_result.append(blanks);
}

// escape ::= "=" (digit digit | blank * line-end), after its "="
bool QuotedPrintable::decodeEscape()
{
    if (decodeOctet())
        return true;
    takeBlanks();
    const qsizetype size = lineEnd();
    skip(size);
    return size > 0;
}

bool QuotedPrintable::decodeOctet()
{
    if (m_rest.size() < 2)
        return false;
    const int high = digitValue(m_rest.front());
    const int low = digitValue(m_rest.first(2).back());
    if (high == NoDigit || low == NoDigit)
        return false;
    m_result.append(char(high * 16 + low));
    skip(2);
    return true;
}

QByteArrayView QuotedPrintable::takeBlanks()
{
    const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), isBlank);
    const QByteArrayView blanks = m_rest.first(end - m_rest.begin());
    skip(blanks.size());
    return blanks;
}

bool isNamed(QByteArrayView encoding, QByteArrayView name)
{
    return encoding.compare(name, Qt::CaseInsensitive) == 0;
}

} // namespace

std::optional<QByteArray> TransferEncoding::decode(QByteArrayView octets, QByteArrayView encoding)
{
    if (isNamed(encoding, "base64"))
        return decodeBase64(octets);
    if (isNamed(encoding, "quoted-printable"))
        return QuotedPrintable(octets).decoded();
    return std::nullopt;
}

/*
 * Octets of a part that were encoded for mail, as Content-Transfer-Encoding names it.
 */
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace TransferEncoding {

/**
 * What @p octets encode in @p encoding, "base64" or "quoted-printable" in any case (RFC 2045, 6.7
 * and 6.8); never null. Nothing for malformed octets and for all other encodings, whose octets stay
 * as they are. Linear.
 */
[[nodiscard]] std::optional<QByteArray> decode(QByteArrayView octets, QByteArrayView encoding);

} // namespace TransferEncoding

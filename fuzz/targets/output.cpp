/*
 * The command's output for an untrusted message: no terminal control characters, one line of JSON,
 * and no path outside the folder.
 */
#include "extract/extract.h"
#include "input/message.h"
#include "view/message_view.h"

#include "support/invariant.h"

#include <QJsonDocument>

#include <algorithm>
#include <cstdint>

namespace {

bool isHarmless(QStringView text)
{
    return std::none_of(text.begin(), text.end(), [](QChar c) {
        return c != QLatin1Char('\n')
            && (c.category() == QChar::Other_Control || c.category() == QChar::Other_Format);
    });
}

void checkNames(const Message &message)
{
    for (int i = 0; i < message.parts().getPartCount(); ++i) {
        const QString name = safeFileName(
            message.parts().getBodypartByIndex(i)->getContentLocation(), QStringLiteral("part"));
        require(!name.isEmpty() && name != QLatin1String(".") && name != QLatin1String(".."),
                "a part's file has a name");
        require(!name.contains(QLatin1Char('/')) && isHarmless(name) && !name.contains(u'\n'),
                "a part's file stays in its folder");
        require(!name.startsWith(QLatin1Char('-')) && !name.startsWith(QLatin1Char('.')),
                "a part's file is neither hidden nor an option");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto message =
        decodeMessage(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    require(isHarmless(messageText(*message)), "the text has no control characters");
    const QByteArray json = QByteArray::fromStdString(messageJson(*message));
    require(json.count('\n') == 1 && json.endsWith('\n'), "JSON is one line");
    require(QJsonDocument::fromJson(json).isObject(), "JSON is an object");
    require(isHarmless(QString::fromUtf8(json)), "JSON has no control characters");
    checkNames(*message);
    return 0;
}

#include "view/result_view.h"

#include "view/json_writer.h"

QString resultText(const char *meaning, int code)
{
    return QString::fromLatin1(meaning) + QStringLiteral(" (result %1)").arg(code);
}

void writeResult(const char *meaning, int code, JsonWriter *json)
{
    json->key("result");
    json->beginObject();
    json->member("code", code);
    json->member("meaning", QString::fromLatin1(meaning));
    json->endObject();
}

#include "view/file_view.h"

#include "view/json_writer.h"
#include "view/terminal_text.h"

QString writtenFileText(const QString &fileName, const QString &details)
{
    return QLatin1String("wrote ") + TerminalText::visible(fileName + details);
}

std::string errorJson(const QString &fileName, const QString &error)
{
    JsonWriter json;
    json.beginObject();
    json.member("error", error);
    json.member("file", fileName);
    json.endObject();
    return json.takeJson() + '\n';
}

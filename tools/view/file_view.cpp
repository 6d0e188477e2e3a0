#include "view/file_view.h"

#include "view/terminal_text.h"

QString writtenFileText(const QString &fileName, const QString &details)
{
    return QLatin1String("wrote ") + TerminalText::visible(fileName + details);
}

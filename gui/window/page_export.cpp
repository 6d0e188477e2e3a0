#include "window/page_export.h"

#include "html/one_page.h"
#include "input/message.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <new>

namespace {

QString writePage(const PageSource &source, const QString &fileName)
{
    const std::unique_ptr<Message> message = decodeMessage(source.pdu);
    message->fileName = QFileInfo(source.fileName).fileName();
    OnePage page(fileName, {}, false);
    PageMedia media(*message, {});
    Report report;
    QString error;
    if (page.add(*message, source.findings, &media, &error))
        page.finish(&report, &error);
    return error;
}

} // namespace

QString exportPage(const PageSource &source, const QString &fileName)
{
    try {
        return writePage(source, fileName);
    } catch (const std::bad_alloc &) {
        return QCoreApplication::translate("PageExport", "There is not enough memory.");
    }
}

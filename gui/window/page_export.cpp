#include "window/page_export.h"

#include "html/one_page.h"
#include "window/message_source.h"

#include <QCoreApplication>

#include <new>

namespace {

ExportedPage writePage(const MessageSource &source, const QString &fileName)
{
    const std::unique_ptr<Message> message = source.decode();
    OnePage page(fileName, {}, false);
    PageMedia media(*message, {});
    Report report;
    ExportedPage result;
    if (page.add(*message, source.findings, &media, &result.error))
        page.finish(&report, &result.error);
    result.isComplete = media.missingLines().isEmpty();
    return result;
}

} // namespace

ExportedPage exportPage(const MessageSource &source, const QString &fileName)
{
    try {
        return writePage(source, fileName);
    } catch (const std::bad_alloc &) {
        return {QCoreApplication::translate("PageExport", "There is not enough memory.")};
    }
}

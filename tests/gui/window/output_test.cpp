/*
 * Messages on paper and as pages.
 */
#include "window/message_source.h"
#include "window/page_export.h"
#include "window/printing.h"

#include "edit/beginnings.h"

#include <QPrinter>
#include <QTemporaryDir>
#include <QTest>

class OutputTest : public QObject
{
    Q_OBJECT

private slots:
    void pageHasTheMessageAndOnlyItsName();
    void pageThatCannotBeWrittenSaysWhy();
    void sixSlidesFillASheetOfPaper_data();
    void sixSlidesFillASheetOfPaper();
    void printerThatCannotBeUsedIsReported();

private:
    QString path(const char *name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    QByteArray content(const char *name) const;

    QTemporaryDir m_folder;
};

namespace {

MessageSource related()
{
    QFile file(QStringLiteral(QVL_FIXTURES "/messages/related.mms"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no fixture");
    return {file.readAll(), file.fileName(), {}};
}

/// A message with @p count slides.
MessageSource messageOf(int count)
{
    const std::unique_ptr<Editor> editor = Beginnings::newMessage();
    for (int slide = 0; slide < count; ++slide) {
        if (slide > 0)
            editor->addSlide(slide);
        editor->setText(slide, QString::number(slide));
    }
    return {editor->encodeDraft().pdu, QStringLiteral("slides.mms"), {}};
}

} // namespace

QByteArray OutputTest::content(const char *name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void OutputTest::pageHasTheMessageAndOnlyItsName()
{
    const ExportedPage exported = exportPage(related(), path("page.html"));
    QCOMPARE(exported.error, QString());
    QVERIFY(exported.isComplete);
    const QByteArray page = content("page.html");
    QVERIFY(page.startsWith("<!DOCTYPE html>"));
    QVERIFY(page.endsWith("</html>\n"));
    QVERIFY(page.contains("Gr\xC3\xBC\xC3\x9F"
                          "e")); // the subject
    QVERIFY(page.contains("related.mms"));
    QVERIFY(!page.contains("fixtures/messages")); // whose folders it was in is nobody's business
}

void OutputTest::pageThatCannotBeWrittenSaysWhy()
{
    const QString error = exportPage(related(), path("missing/page.html")).error;
    QVERIFY2(error.contains(QStringLiteral("missing/page.html")), qPrintable(error));
}

void OutputTest::sixSlidesFillASheetOfPaper_data()
{
    QTest::addColumn<int>("slides");
    QTest::addColumn<int>("sheets");
    QTest::newRow("one slide") << 1 << 1;
    QTest::newRow("six slides") << 6 << 1;
    QTest::newRow("seven slides") << 7 << 2;
}

void OutputTest::sixSlidesFillASheetOfPaper()
{
    QFETCH(const int, slides);
    QFETCH(const int, sheets);
    QPrinter printer;
    printer.setOutputFileName(path("slides.pdf"));
    QVERIFY(printSlides(messageOf(slides), &printer));
    QCOMPARE(content("slides.pdf").count("/Type /Page\n"), sheets);
}

void OutputTest::printerThatCannotBeUsedIsReported()
{
    QPrinter printer;
    printer.setOutputFileName(path("missing/slides.pdf"));
    QVERIFY(!printSlides(messageOf(1), &printer));
}

QTEST_MAIN(OutputTest)
#include "output_test.moc"

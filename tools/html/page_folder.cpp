#include "html/page_folder.h"

#include "html/index.h"
#include "html/message_page.h"
#include "html/page.h"
#include "input/file_name.h"
#include "input/message.h"
#include "output/write_file.h"
#include "view/file_view.h"

#include <QBuffer>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView IndexName("index.html");

QString pageName(int number)
{
    return u"message-%1.html"_s.arg(number);
}

void writeLink(HtmlWriter *html, const QString &page, const QString &text)
{
    html->element("a", text, {{"href", page}});
    html->markup("\n");
}

QByteArray navigation(int number, bool hasNext)
{
    QBuffer octets;
    octets.open(QIODevice::WriteOnly);
    HtmlWriter html(&octets);
    html.open("nav", {{"class", u"neighbors"_s}, {"aria-label", u"Messages"_s}});
    writeLink(&html, IndexName, u"All messages"_s);
    if (number > 1)
        writeLink(&html, pageName(number - 1), u"Previous message"_s);
    if (hasNext)
        writeLink(&html, pageName(number + 1), u"Next message"_s);
    html.close();
    return octets.data();
}

// A page whose content begins with @p start and goes on with @p rest.
bool writePage(const QString &fileName, const PageFrame &frame, const QByteArray &start,
               Draft *rest, QString *error)
{
    if (*error = rest->error(); !error->isEmpty())
        return false;
    const auto writeTo = [&](int file) {
        if (const int failure = writeOctets(file, frame.before + start))
            return failure;
        const int failure = rest->writeTo(file);
        return failure == 0 ? writeOctets(file, frame.after) : failure;
    };
    return replaceFile(writeTo, fileName, error);
}

} // namespace

PageFolder::PageFolder(QString folder, PageLimit limit)
    : m_folder(std::move(folder)), m_limit(limit)
{
    beginIndex(&m_index.html());
}

bool PageFolder::add(const Message &message, const Check::Findings &findings, PageMedia *media,
                     QString *error)
{
    if (!writeLast(true, error))
        return false;
    ++m_count;
    const bool hasRoom = m_index.size() < m_limit.octets();
    if (!hasRoom)
        m_withoutThumbnail.add(message.fileName);
    writeIndexEntry(&m_index.html(), message, hasRoom ? thumbnailOf(message) : QByteArray(),
                    pageName(m_count));
    m_last = std::make_unique<Draft>();
    m_lastTitle = titleOf(message);
    writeMessage(&m_last->html(), message, findings, m_count, media);
    *error = m_index.error();
    return error->isEmpty();
}

bool PageFolder::finish(Report *report, QString *error)
{
    endIndex(&m_index.html());
    const QString fileName = FileName::inFolder(m_folder, IndexName);
    if (!writeLast(false, error)
        || !writePage(fileName, pageFrame(u"Multimedia messages"_s, u"Multimedia messages"_s), {},
                      &m_index, error))
        return false;
    report->written += writtenFileText(
        fileName, u" ("_s + countText() + (m_count == 1 ? u")"_s : u", each on its own page)"_s));
    const QString remark = m_withoutThumbnail.text(u"messages without a thumbnail"_s,
                                                   limitText(m_limit.text(), "--limit"));
    if (!remark.isEmpty())
        report->remarks += remark;
    return true;
}

bool PageFolder::writeLast(bool hasNext, QString *error)
{
    return !m_last
        || writePage(FileName::inFolder(m_folder, pageName(m_count)),
                     pageFrame(m_lastTitle, u"Message %1"_s.arg(m_count)),
                     navigation(m_count, hasNext), m_last.get(), error);
}

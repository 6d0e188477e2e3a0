#include "html/one_page.h"

#include "html/index.h"
#include "html/message_page.h"
#include "output/write_file.h"
#include "view/file_view.h"

#include <utility>

using namespace Qt::StringLiterals;

OnePage::OnePage(QString fileName, PageLimit limit, bool mayHaveIndex)
    : m_fileName(std::move(fileName)), m_limit(limit), m_mayHaveIndex(mayHaveIndex)
{
    beginIndex(&m_index.html());
}

bool OnePage::add(const Message &message, const Check::Findings &findings, PageMedia *media,
                  QString *error)
{
    if (++m_count == 1)
        m_title = titleOf(message);
    if (m_mayHaveIndex)
        writeIndexEntry(&m_index.html(), message, thumbnailOf(message), u"#m%1"_s.arg(m_count));
    writeMessage(&m_messages.html(), message, findings, m_count, media);
    *error = m_messages.error();
    if (error->isEmpty())
        *error = m_index.error();
    if (error->isEmpty() && size() > m_limit.octets())
        *error = cannotWrite(m_fileName,
                             u"the page would have more than %1; write a folder of pages with -o "
                             u"FOLDER/, or raise --limit"_s.arg(m_limit.text()));
    return error->isEmpty();
}

bool OnePage::finish(Report *report, QString *error)
{
    endIndex(&m_index.html());
    if (*error = m_index.error(); !error->isEmpty())
        return false;
    if (!writeFile([this](int file) { return writeTo(file); }, m_fileName, error))
        return false;
    if (!isStandardOutput(m_fileName))
        report->written += writtenFileText(m_fileName, u" ("_s + countText() + u')');
    return true;
}

PageFrame OnePage::frame() const
{
    return m_count == 1 ? pageFrame(m_title, u"Multimedia message"_s)
                        : pageFrame(u"Multimedia messages"_s, u"Multimedia messages"_s);
}

qint64 OnePage::size() const
{
    const qint64 index = m_count > 1 ? m_index.size() : 0;
    return frame().size() + index + m_messages.size();
}

int OnePage::writeTo(int file)
{
    const PageFrame frame = this->frame();
    if (const int error = writeOctets(file, frame.before))
        return error;
    if (const int error = m_count > 1 ? m_index.writeTo(file) : 0)
        return error;
    if (const int error = m_messages.writeTo(file))
        return error;
    return writeOctets(file, frame.after);
}

#include "html/one_page.h"

#include "html/index.h"
#include "html/message_page.h"
#include "output/write_file.h"
#include "view/file_view.h"

using namespace Qt::StringLiterals;

OnePage::OnePage(bool mayHaveIndex)
    : m_mayHaveIndex(mayHaveIndex), m_frame(pageFrame(u"Multimedia messages"_s))
{
    beginIndex(&m_index.html());
}

bool OnePage::add(const Message &message, const Check::Findings &findings, PageMedia *media,
                  QString *error)
{
    ++m_count;
    if (m_mayHaveIndex)
        writeIndexEntry(&m_index.html(), message, thumbnailOf(message), u"#m%1"_s.arg(m_count));
    writeMessage(&m_messages.html(), message, findings, m_count, media);
    *error = m_index.error() + m_messages.error();
    return error->isEmpty();
}

bool OnePage::write(const QString &fileName, Report *report, QString *error)
{
    endIndex(&m_index.html());
    if (*error = m_index.error(); !error->isEmpty())
        return false;
    if (!writeFile([this](int file) { return writeTo(file); }, fileName, error))
        return false;
    if (!isStandardOutput(fileName))
        report->written += writtenFileText(
            fileName, m_count == 1 ? u" (1 message)"_s : u" (%1 messages)"_s.arg(m_count));
    return true;
}

int OnePage::writeTo(int file)
{
    if (const int error = writeOctets(file, m_frame.before))
        return error;
    if (const int error = m_count > 1 ? m_index.writeTo(file) : 0)
        return error;
    if (const int error = m_messages.writeTo(file))
        return error;
    return writeOctets(file, m_frame.after);
}

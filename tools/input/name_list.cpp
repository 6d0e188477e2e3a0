#include "input/name_list.h"

#include "input/file_name.h"

#include <QByteArray>

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <climits>

using namespace Qt::StringLiterals;

namespace {

int keepOpen(FILE *)
{
    return 0;
}

FILE *openList(const QString &fileName)
{
    return fileName == "-"_L1 ? stdin : std::fopen(FileName::toOctets(fileName).constData(), "rbe");
}

qint64 sizeOf(FILE *file)
{
    struct stat info
    {
    };
    return ::fstat(::fileno(file), &info) == 0 && S_ISREG(info.st_mode) ? info.st_size : 0;
}

} // namespace

NameList::NameList(const QString &fileName, char end)
    : m_fileName(fileName), m_end(end),
      m_file(openList(fileName), fileName == "-"_L1 ? keepOpen : std::fclose)
{
    if (m_file)
        m_size = sizeOf(m_file.get());
    else
        fail(qt_error_string(errno));
}

std::optional<QString> NameList::next()
{
    QByteArray name;
    while (m_error.isEmpty()) {
        const int octet = std::fgetc(m_file.get());
        if (octet == EOF && std::ferror(m_file.get())) {
            fail(qt_error_string(errno));
            break;
        }
        ++m_read;
        if (octet != EOF && octet != m_end) {
            name += char(octet);
            if (name.size() >= PATH_MAX)
                fail(u"a name is longer than %1 octets; is this a list of names?"_s.arg(PATH_MAX
                                                                                        - 1));
        } else if (!name.isEmpty()) {
            return name == "-" ? u"./-"_s : FileName::fromOctets(name);
        } else if (octet == EOF) {
            break;
        }
    }
    return std::nullopt;
}

double NameList::fraction() const
{
    return m_size > 0 ? std::min(1.0, double(m_read) / double(m_size)) : 0;
}

void NameList::fail(const QString &reason)
{
    m_error = u"cannot read the names in %1: %2"_s.arg(
        m_fileName == "-"_L1 ? u"standard input"_s : m_fileName, reason);
}

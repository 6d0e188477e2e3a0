#include "commands/many_files.h"

#include "commands/message_command.h"

#include <QThread>

using namespace Qt::StringLiterals;

namespace CommandLine {

namespace {

constexpr int MostJobs = 256;

std::optional<NameList> listFrom(const QCommandLineParser &arguments)
{
    if (!arguments.isSet(u"files-from"_s))
        return std::nullopt;
    return std::make_optional<NameList>(arguments.value(u"files-from"_s),
                                        arguments.isSet(u"0"_s) ? '\0' : '\n');
}

} // namespace

QList<Option> namingOptions()
{
    return {
        {.name = "files-from",
         .value = "FILE",
         .help = "take more names from the lines of FILE; - is standard input",
         .replacesArguments = true},
        {.name = "0", .help = "the names in FILE end with NUL octets, as find -print0 writes them"},
        SizeLimitOption};
}

QList<Option> manyFilesOptions()
{
    return QList<Option>{{.name = "jobs",
                          .value = "N",
                          .help = "number of files to process in parallel (default: one for each "
                                  "processor)",
                          .numbers = {.most = MostJobs}}}
    + namingOptions();
}

NamedFiles::NamedFiles(const QCommandLineParser &arguments, bool findsHidden)
    : m_arguments(arguments),
      m_files(arguments.positionalArguments(), listFrom(arguments), findsHidden)
{
}

int NamedFiles::jobs() const
{
    if (m_files.isOneFile())
        return 1;
    const int jobs = m_arguments.value(u"jobs"_s).toInt();
    return jobs > 0 ? jobs : std::min(QThread::idealThreadCount(), MostJobs);
}

bool NamedFiles::inTurn(const std::function<bool(const QString &)> &take)
{
    while (const std::optional<QString> name = next()) {
        m_hasAny = true;
        if (!take(*name))
            return false;
        m_progress.step(m_fraction);
    }
    return finish();
}

std::optional<QString> NamedFiles::next()
{
    std::optional<QString> name = m_files.next();
    m_fraction = m_files.fraction();
    return name;
}

bool NamedFiles::finish()
{
    if (m_files.skipped() > 0)
        printError(m_files.skipped() == 1 ? u"1 other file skipped"_s
                                          : u"%1 other files skipped"_s.arg(m_files.skipped()));
    if (!m_hasAny && m_files.listError().isEmpty())
        printError(u"no message was found"_s);
    if (m_files.listError().isEmpty())
        return true;
    printError(m_files.listError());
    return false;
}

} // namespace CommandLine

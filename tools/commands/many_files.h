/*
 * The frame of the commands that take many files: the options for that, the order of the results,
 * and the progress.
 */
#pragma once

#include "commands/command_line.h"
#include "commands/files_in_order.h"
#include "commands/progress.h"
#include "input/message_files.h"

#include <QCommandLineParser>

#include <atomic>
#include <functional>

namespace CommandLine {

/// The argument of these commands.
inline constexpr Argument FilesArgument{
    "FILE...", "files with one message each, or folders; - is standard input"};

/// The options that name files.
QList<Option> namingOptions();
/// These, and that for the number of threads.
QList<Option> manyFilesOptions();

/// The files that the user named, one after the other.
class NamedFiles
{
public:
    explicit NamedFiles(const QCommandLineParser &arguments, bool findsHidden = false);

    /// Works on each file with @p work, in several threads, and hands the results to @p take in the
    /// order of the files. Shows the progress. Returns false, and prints why, if the list of names
    /// cannot be read.
    template <typename Result>
    bool forEach(const typename FilesInOrder<Result>::Work &work,
                 const typename FilesInOrder<Result>::Take &take)
    {
        FilesInOrder<Result> files([this] { return next(); }, work,
                                   [&](const QString &name, Result result) {
                                       m_hasAny = true;
                                       take(name, std::move(result));
                                       m_progress.step(m_fraction);
                                   });
        files.run(jobs());
        return finish();
    }

    /// Calls @p take for each file, until it returns false. Shows the progress. Returns false if it
    /// did, or, after printing why, if the list of names cannot be read.
    bool inTurn(const std::function<bool(const QString &name)> &take);

    /// True when one argument names a file and no other can follow.
    bool isOne() const { return m_files.isOneFile(); }

private:
    int jobs() const;
    std::optional<QString> next();
    bool finish();

    const QCommandLineParser &m_arguments;
    MessageFiles m_files;
    Progress m_progress;
    std::atomic<double> m_fraction = 0;
    bool m_hasAny = false;
};

} // namespace CommandLine

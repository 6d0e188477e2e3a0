/*
 * Shows files with several threads and prints them in their order. The thread that finishes a file
 * also prints all files that are ready then, so that no printing thread has to be woken up.
 */
#pragma once

#include <QString>
#include <QStringList>

#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <string>

/// The output for one file.
struct ShownFile
{
    std::string text;
    QString error; ///< when the file could not be read
    QString advice; ///< when it is not a message
    bool refused = false;
};

class ShownFiles
{
public:
    using Show = std::function<ShownFile(const QString &name)>;
    using Print = std::function<void(const QString &name, const ShownFile &shown)>;

    /// Several threads call @p show at the same time; only one at a time calls @p print.
    ShownFiles(QStringList names, Show show, Print print);

    /// Prints all files, with @p jobs threads.
    void printAll(int jobs);

private:
    void work();
    void printReady();

    const QStringList m_names;
    const Show m_show;
    const Print m_print;
    qsizetype m_mostAhead = 0;

    std::mutex m_mutex; // protects the members below
    std::condition_variable m_printedMore;
    std::map<qsizetype, ShownFile> m_ready; // by index
    qsizetype m_started = 0;
    qsizetype m_printed = 0;
};

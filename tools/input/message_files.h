/*
 * The messages that a user names: files, and the messages in folders.
 */
#pragma once

#include "input/name_list.h"

#include <QString>
#include <QStringList>

#include <filesystem>
#include <optional>
#include <vector>

/// True for a folder, or a link to one.
bool isFolder(const std::filesystem::path &path);

/// True for a file that begins with the code of Message-Type and one of the types up to MMS 1.3.
/// Also true for a file that cannot be read, so that reading it gives the reason.
bool beginsLikeMessage(const std::filesystem::path &path);

/**
 * Walks the arguments in their order, then the list, and each folder in the order of the names of
 * its files and folders. In folders, only regular files that begin like a message are found; the
 * others are counted. Links are not followed. Holds the names of one folder for each level.
 */
class MessageFiles
{
public:
    /// @p findsHidden finds files and folders whose names begin with a point, too.
    MessageFiles(QStringList arguments, std::optional<NameList> list, bool findsHidden);

    /// The next file; nothing after the last one. A folder that cannot be listed is given as a
    /// file, so that reading it gives the reason.
    std::optional<QString> next();

    /// True when one argument names a file and no other can follow.
    bool isOneFile() const;
    /// Files in folders that were passed over so far because they are no messages.
    qsizetype skipped() const { return m_skipped; }
    /// Why the list could not be read; empty if it could.
    QString listError() const { return m_list ? m_list->error() : QString(); }
    /// The part of the arguments, the list and the folders that was walked, from 0 to 1. A folder
    /// counts as much as a file beside it.
    double fraction() const;

private:
    /// A folder that is walked.
    struct Folder
    {
        std::filesystem::path path;
        std::vector<std::filesystem::path> names; // in descending order
        std::size_t count; // of names at the beginning
    };

    std::optional<QString> nextName();
    bool enter(const std::filesystem::path &path);
    bool finds(const std::filesystem::path &path);

    const QStringList m_arguments;
    std::optional<NameList> m_list;
    const bool m_findsHidden;
    qsizetype m_nextArgument = 0;
    qsizetype m_skipped = 0;
    std::vector<Folder> m_folders;
};

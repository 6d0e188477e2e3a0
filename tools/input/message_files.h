/*
 * The messages that a user names: files, and the messages in folders.
 */
#pragma once

#include <QString>
#include <QStringList>

#include <filesystem>
#include <optional>
#include <vector>

/**
 * Walks the arguments in their order, and each folder in the order of the names of its files and
 * folders. In folders, only regular files that begin like a message are found; the others are
 * counted. Links are not followed. Holds the names of one folder for each level.
 */
class MessageFiles
{
public:
    /// @p findsHidden finds files and folders whose names begin with a point, too.
    MessageFiles(QStringList arguments, bool findsHidden);

    /// The next file; nothing after the last one. A folder that cannot be listed is given as a
    /// file, so that reading it gives the reason.
    std::optional<QString> next();

    /// Files in folders that were passed over so far because they are no messages.
    qsizetype skipped() const { return m_skipped; }
    /// True when an argument is a folder, so that the number of files is not known.
    bool hasFolders() const { return m_hasFolders; }

private:
    /// A folder that is walked.
    struct Folder
    {
        std::filesystem::path path;
        std::vector<std::filesystem::path> names; // in descending order
    };

    bool enter(const std::filesystem::path &path);
    bool finds(const std::filesystem::path &path);

    const QStringList m_arguments;
    const bool m_findsHidden;
    bool m_hasFolders = false;
    qsizetype m_nextArgument = 0;
    qsizetype m_skipped = 0;
    std::vector<Folder> m_folders;
};

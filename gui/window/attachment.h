/*
 * Which parts may be opened with another program, and under which name.
 */
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

class QTemporaryDir;
class MMS_COMP_SMILMultipartBodypart;

/// What is known of a part before it is opened.
struct Attachment
{
    QString name; ///< a harmless file name whose extension fits the content
    QString typeByContent; ///< for people, such as "PNG image"
    QString typeByName; ///< for people; of the name that the message gives
    bool mayBeOpened; ///< false unless other programs only show or play it: it can only be saved
};

/// Examines @p part, which is at @p index in its message.
Attachment examineAttachment(const MMS_COMP_SMILMultipartBodypart &part, int index);

/// Files in a private folder, which exist as long as the object.
class OpenedAttachments
{
public:
    OpenedAttachments();
    ~OpenedAttachments();

    /// Writes @p octets to a new file with the name @p name, which only its owner can read and
    /// nobody can run. Returns its path; empty, with the reason in @p error, if that fails.
    QString write(const QByteArray &octets, const QString &name, QString *error);

private:
    std::unique_ptr<QTemporaryDir> m_folder; // made for the first file
    int m_count = 0;
};

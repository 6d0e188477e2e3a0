/*
 * The file of unsaved work: a PDU in a folder that only the user can read. It survives a crash, and
 * is offered again as soon as no running program has locked it.
 */
#pragma once

#include <QByteArray>
#include <QLockFile>
#include <QString>
#include <QStringList>

#include <memory>

/// A draft that this program has locked. The lock ends with the object or with the program.
class MessageDraft
{
public:
    /// The folder of the user's drafts.
    static QString standardFolder();

    /// A new draft in @p folder, which is created. The draft has no file until it is written. Null,
    /// with the reason in @p error, if that is not possible.
    static std::unique_ptr<MessageDraft> create(const QString &folder, QString *error);
    /// Locks the draft @p fileName. Null if another window has it.
    static std::unique_ptr<MessageDraft> open(const QString &fileName);
    /// The drafts in @p folder that no window has, by name: what a crash left.
    static QStringList abandoned(const QString &folder);

    const QString &fileName() const { return m_fileName; }
    /// Replaces the content at once, so that after a crash the old one or the new one is there.
    /// False, with the reason in @p error, if that fails.
    bool write(const QByteArray &pdu, QString *error);
    /// Deletes the file, if there is one. The lock stays. False if that fails.
    bool remove();

private:
    explicit MessageDraft(const QString &fileName);

    QString m_fileName;
    QLockFile m_lock;
};

#include "edit/draft.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUuid>

namespace {

constexpr auto OnlyOwner = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

const QString Suffix = QStringLiteral(".mms");
const QString LockSuffix = QStringLiteral(".lock");

struct DraftTexts
{
    Q_DECLARE_TR_FUNCTIONS(MessageDraft)
};

bool createFolder(const QString &folder)
{
    return QDir().mkpath(folder)
        && QFile::setPermissions(folder, OnlyOwner | QFileDevice::ExeOwner);
}

// A program that crashed before it wrote its draft left only a lock.
void removeLonelyLocks(const QDir &folder)
{
    for (const QString &name : folder.entryList({u'*' + LockSuffix}, QDir::Files)) {
        if (folder.exists(name.chopped(LockSuffix.size())))
            continue;
        QLockFile lock(folder.filePath(name));
        lock.setStaleLockTime(0);
        lock.tryLock(); // its destructor deletes the file
    }
}

} // namespace

MessageDraft::MessageDraft(const QString &fileName)
    : m_fileName(fileName), m_lock(fileName + LockSuffix)
{
    m_lock.setStaleLockTime(0); // a window may be open for days
}

QString MessageDraft::standardFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
        + QLatin1String("/drafts");
}

std::unique_ptr<MessageDraft> MessageDraft::create(const QString &folder, QString *error)
{
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces) + Suffix;
    if (createFolder(folder)) {
        std::unique_ptr<MessageDraft> draft(new MessageDraft(QDir(folder).filePath(name)));
        if (draft->m_lock.tryLock())
            return draft;
    }
    *error = DraftTexts::tr("Unsaved work cannot be kept: %1 cannot be written.").arg(folder);
    return nullptr;
}

std::unique_ptr<MessageDraft> MessageDraft::open(const QString &fileName)
{
    std::unique_ptr<MessageDraft> draft(new MessageDraft(fileName));
    return draft->m_lock.tryLock() && QFile::exists(fileName) ? std::move(draft) : nullptr;
}

QStringList MessageDraft::abandoned(const QString &folder)
{
    const QDir drafts(folder);
    removeLonelyLocks(drafts);
    QStringList names;
    for (const QString &name : drafts.entryList({u'*' + Suffix}, QDir::Files, QDir::Name)) {
        const QString fileName = drafts.filePath(name);
        if (open(fileName))
            names += fileName;
    }
    return names;
}

bool MessageDraft::write(const QByteArray &pdu, QString *error)
{
    QSaveFile file(m_fileName);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.setPermissions(OnlyOwner)
        && file.write(pdu) == pdu.size() && file.commit();
    if (!isWritten)
        *error = DraftTexts::tr("Unsaved work cannot be kept: %1").arg(file.errorString());
    return isWritten;
}

bool MessageDraft::remove()
{
    return !QFile::exists(m_fileName) || QFile::remove(m_fileName);
}

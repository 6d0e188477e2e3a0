/*
 * The names that a message's parts already answer to, indexed, so that naming many parts does not
 * walk all of them for every candidate. Names can be added but not taken back: an index lives for
 * one naming pass.
 */
#pragma once

#include <QHash>
#include <QSet>
#include <QString>

class MMS_COMP_SMILMultipart;
class MMS_COMP_SMILMultipartBodypart;

/// Index of locations and Content-IDs; answers as MMS_COMP_SMILMultipart::isPartExist() does.
class PartNames
{
public:
    explicit PartNames(const MMS_COMP_SMILMultipart &multipart);

    /// False for a name that no part may have, whatever other parts are called.
    static bool isUsable(const QString &name);

    /// Makes the names of @p part taken.
    void add(const MMS_COMP_SMILMultipartBodypart &part);

    QString uniqueAttachmentLocation(const QString &ext);
    QString uniqueLocation(const QString &name);

private:
    bool isFree(const QString &name) const;
    QString firstFree(const QString &prefix, const QString &suffix);

    QSet<QString> m_locations; // in lower case
    QSet<QString> m_contentIds; // reduced and in lower case
    QHash<QString, int> m_nextNumber; // by pattern; lower numbers are known to be taken
};

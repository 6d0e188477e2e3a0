/*
 * The names that a message's parts already answer to, indexed, so that naming many parts does not
 * walk all of them for every candidate. Names can be added but not taken back: an index lives for
 * one naming pass.
 */
#pragma once

#include "platform/text_hash.h"

#include <QString>

class MMS_COMP_SMILMultipart;
class MMS_COMP_SMILMultipartBodypart;

/// Index of locations and Content-IDs; answers as MMS_COMP_SMILMultipart::isPartExist() does.
class PartNames
{
public:
    PartNames() = default;
    explicit PartNames(const MMS_COMP_SMILMultipart &multipart) { add(multipart); }

    /// False for a name that no part may have, whatever other parts are called.
    static bool isUsable(const QString &name);

    /// Makes the names of @p part taken.
    void add(const MMS_COMP_SMILMultipartBodypart &part);
    /// Makes the names of all parts of @p multipart taken.
    void add(const MMS_COMP_SMILMultipart &multipart);
    /// Makes @p name taken in exactly this spelling.
    void addExact(const QString &name) { m_exact.insert(name); }

    /// What the operations of the message and of the presentation that create names result in.
    QString uniqueAttachmentLocation(const QString &ext);
    QString uniqueLocation(const QString &name);
    QString uniqueSource(const QString &name);

private:
    bool isTaken(const QString &name) const;
    bool isFree(const QString &name) const { return !isTaken(name) && isUsable(name); }
    QString firstFree(const QString &prefix, const QString &suffix);
    QString itselfOrNumbered(const QString &candidate, const QString &base, const QString &suffix);

    QvlTextSet m_locations; // in lower case
    QvlTextSet m_contentIds; // reduced and in lower case, none of them empty
    QvlTextSet m_exact;
    QvlTextMap<QString, int> m_nextNumber; // by pattern; lower numbers are known to be taken
};

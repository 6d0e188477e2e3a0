/*
 * The type of a file that goes into a message.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QByteArray>
#include <QString>

#include <memory>

/// The type of a file, and how it was found.
struct FileType
{
    QString type;
    QString subtype;
    QLatin1String source; ///< in words

    bool isKnown() const { return !type.isEmpty(); }
};

/// The type of the file @p fileName with the content @p octets: by its extension, else by its
/// content. Content is recognized as text in UTF-8, image, audio or video only.
FileType fileTypeOf(const QString &fileName, const QByteArray &octets);

/// The same; application/octet-stream for an unknown type.
FileType attachmentType(const QString &fileName, const QByteArray &octets);

bool isUtf8(const QByteArray &octets);

/// A part of this type, which shares @p octets.
std::unique_ptr<MMS_COMP_SMILMultipartBodypart> newPart(const FileType &type,
                                                        const QString &location,
                                                        const QByteArray &octets);

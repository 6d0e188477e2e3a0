/*
 * One message of the command: the octets of a file, decoded up to the first error.
 */
#pragma once

#include "input/files.h"

#include <qvlsmilparser.h>

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

/// What became of a message.
enum class MessageState : unsigned char {
    Ok, ///< read as it is
    Changed, ///< read after something was left out or rewritten
    Refused, ///< not read, or not all of it
};

/// "ok", "changed" or "refused".
const char *stateName(MessageState state);

/// A message, and the results of reading its file.
struct Message : QvlMessage
{
    QString fileName; ///< as on the command line
    QByteArray octets; ///< of the file
    Reading reading = AnyVersion;
    unsigned char headerResult = WireResult::Read;
    std::optional<int> bodyResult; ///< nothing when there is no multipart body to parse
    QByteArray smil; ///< text of the SMIL part
    std::optional<int> smilResult; ///< nothing when there is no SMIL part

    bool isRefused() const
    {
        return headerResult != WireResult::Read || bodyResult.value_or(MultipartResult::Ok) != 0
            || smilResult.value_or(SmilResult::Ok) != 0;
    }

    /// The subject for people: the decoder keeps the NUL after a text with a charset.
    QString subject() const
    {
        const QString subject = header().getSubject();
        return subject.endsWith(QChar::Null) ? subject.chopped(1) : subject;
    }

    MessageState state() const
    {
        return isRefused()      ? MessageState::Refused
            : changes().empty() ? MessageState::Ok
                                : MessageState::Changed;
    }
};

/// How a file is read.
struct ReadOptions
{
    qint64 sizeLimit = StandardSizeLimit; ///< in octets; a larger file is not read
    QvlMessage::Reading reading = QvlMessage::AnyVersion;
};

/// Decodes the PDU @p octets.
std::unique_ptr<Message> decodeMessage(const QByteArray &octets);

/**
 * Reads and decodes the file @p fileName, or standard input for "-". Null, with the reason in
 * @p error, if it cannot be read.
 */
std::unique_ptr<Message> readMessage(const QString &fileName, const ReadOptions &options,
                                     QString *error);

/**
 * Reads a message as readMessage() does, or a SMIL document. The message of a document gets an
 * empty part for every location that the document refers to.
 */
std::unique_ptr<Message> readMessageOrDocument(const QString &fileName, const ReadOptions &options,
                                               QString *error);

/// Throws std::bad_alloc if @p result reports a lack of memory.
void requireMemory(const QvlMessage::Result &result);

/// Whether the octets begin like a message: with the code of Message-Type. No text does.
bool isPdu(const QByteArray &octets);

/// The reason why the file cannot be a message; "" if it begins like one.
QString whyNoMessage(const Message &message);

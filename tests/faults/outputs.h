/*
 * Contents of a message as text, completely: two messages with the same text are the same.
 */
#pragma once

#include "multipart/part_facts.h"
#include "readable/change.h"
#include "scan/sent_times.h"
#include "smil/presentation_facts.h"
#include "wire/header_record.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace Outputs {

/// The values, separated by blanks.
template <typename... Values>
std::string line(const char *title, const Values &...values)
{
    std::string text = title;
    ((text += ' ' + testing::PrintToString(values)), ...);
    return text + '\n';
}

inline std::string of(const MMS_UTIL_Entry &entry)
{
    return line("entry", entry.getName(), int(entry.getType()), entry.getAddress());
}

inline std::string of(const char *title, const QPtrList<MMS_UTIL_Entry> &entries)
{
    std::string text = line(title, entries.count());
    for (const MMS_UTIL_Entry *entry : entries)
        text += of(*entry);
    return text;
}

inline std::string of(const QDateTime &time)
{
    return time.toString(Qt::ISODate).toStdString() + ' '
        + (time.isValid() ? std::to_string(time.toSecsSinceEpoch()) : std::string());
}

/// Every field of a record, and its body.
inline std::string of(const MMS_UA_UAMsg &header)
{
    std::string positions;
    for (unsigned char code = 0; code <= 25; ++code)
        positions += std::to_string(header.getFieldPosition(code)) + ' ';
    return line("fields", header.getFieldsPresent(), positions)
        + line("codes", int(header.getMessageType()), int(header.getMMSVersion()),
               int(header.getMessageClass()), int(header.getStatus()),
               int(header.getResponseStatus()), int(header.getPriority()))
        + line("flags", header.getReportAllowed(), header.getReadReply(),
               header.getDeliveryReport(), header.getSenderVisibility())
        + line("texts", header.getTransactionId(), header.getContentLocation(),
               header.getMessageId(), header.getResponseText(), header.getSubject())
        + line("content type", header.getContentType(), header.getContentSubType(),
               header.getContentTypeParams())
        + line("times", of(header.getDate()), of(header.getDeliveryTime()), header.getExpiry())
        + line("size", header.getMessageSize()) + "from " + of(header.getFrom())
        + of("to", header.getToRecipients()) + of("cc", header.getCcRecipients())
        + of("bcc", header.getBccRecipients()) + line("body", header.getBodyOctets());
}

inline std::string of(const MMS_COMP_SMILMultipart &parts)
{
    std::string text = line("parts", parts.getMimeType(), parts.getSubType(), parts.getStart(),
                            parts.getExtType());
    for (const PartFacts &part : factsOf(parts))
        text += line("part", part);
    return text;
}

/// "slide 5000: text a.txt, audio b.amr" for every slide.
inline std::string of(const MMS_COMP_SMILData &slides)
{
    std::string text;
    for (const QString &slide : slidesOf(slides))
        text += "slide " + slide.toStdString() + '\n';
    return text;
}

inline std::string of(const std::optional<QvlSentTime> &time)
{
    return time ? line("time", time->seconds, time->isRelative) : "no time\n";
}

inline std::string of(const QvlSentTimes &times)
{
    return of(times.date) + of(times.expiry) + of(times.deliveryTime);
}

inline std::string of(const std::vector<QvlChange> &changes)
{
    std::string text;
    for (const QvlChange &change : changes) {
        text += line("change", int(change.kind), int(change.place), change.part, change.code,
                     change.octets.toByteArray(), change.offset, change.reason);
    }
    return text;
}

} // namespace Outputs

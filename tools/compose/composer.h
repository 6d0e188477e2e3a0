/*
 * Making a message to send, an m-send-req, out of texts and files.
 */
#pragma once

#include "message/message.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// Why something cannot go into a message.
struct Problem
{
    enum Kind {
        Value, ///< of an option; the text says what is expected
        Usage,
        File, ///< cannot be read
        Content, ///< refused
    };
    Kind kind;
    QString text;
};

/// What came of a step: nothing, or why it failed.
using Outcome = std::optional<Problem>;

/**
 * A message in the making. Header fields are set in the header itself; slides and attachments come
 * in their order. After a step that failed there is nothing to go on with.
 */
class Composer
{
public:
    /// A message of this moment with a transaction id of its own.
    Composer();

    MMS_UA_UAMsg &header() { return m_message.header; }
    /// The most octets that the message may have, in units of 1,024; to be set before files are
    /// added.
    void setLimit(int kilobytes) { m_limit = qint64(kilobytes) * 1024; }

    Outcome attach(const QString &fileName);

    void addSlide();
    int slideCount() const { return int(m_message.slides.getTotalSlidesNum()); }

    /// These act on the last slide, of which there has to be one.
    Outcome addText(const QString &text);
    Outcome addTextFile(const QString &fileName);
    Outcome addMedia(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind, const QString &fileName);
    MMS_COMP_SMILTimingContainer &slide();
    /// In place of what plays, or of the default duration.
    void setDuration(int milliseconds) { m_wishes.last().duration = milliseconds; }
    void setTextAbovePicture(bool above) { m_wishes.last().textAbovePicture = above; }

    /// Encodes the message, which then cannot be changed any more, and reads it back to be sure.
    Outcome finish();
    const QByteArray &pdu() const { return m_message.octets; }
    int partCount() const { return m_message.body.getPartCount(); }

private:
    /// What has to wait until a slide has all its media.
    struct SlideWishes
    {
        std::optional<int> duration;
        bool textAbovePicture = false;
    };

    Outcome read(const QString &fileName, QByteArray *octets);
    Outcome admit(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind);
    Outcome place(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind, const QString &name,
                  const QString &subtype, const QByteArray &octets);
    Outcome finishSlide(int index);
    Outcome finishSlides();
    Outcome encode();

    Message m_message;
    QList<SlideWishes> m_wishes; ///< one for each slide
    qint64 m_limit;
    qint64 m_read = 0; ///< octets of all files
};

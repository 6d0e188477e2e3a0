/*
 * Builds a message to send, an m-send-req, from texts and files.
 */
#pragma once

#include "input/message.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// Why something cannot go into a message.
struct Problem
{
    enum Kind {
        Value, ///< the value of an option is wrong; the text describes the expected one
        Usage,
        File, ///< a file cannot be read
        Content, ///< the content is refused
    };
    Kind kind;
    QString text;
};

/// The result of a step: nothing, or the reason why it failed.
using Outcome = std::optional<Problem>;

/**
 * A message that is being built. Callers set fields in header(), and add slides and attachments in
 * their order. The composer cannot be used after a step that failed.
 */
class Composer
{
public:
    /// A message with the current date and a new transaction id.
    Composer();

    MMS_UA_UAMsg &header() { return m_message.header(); }
    /// Limits the size of the message, in units of 1,024 octets. Must be called before files are
    /// added.
    void setLimit(int kilobytes) { m_limit = qint64(kilobytes) * 1024; }

    Outcome attach(const QString &fileName);

    void addSlide();
    int slideCount() const { return int(m_message.slides().getTotalSlidesNum()); }

    /// These operations need a slide, and change the last one.
    Outcome addText(const QString &text);
    Outcome addTextFile(const QString &fileName);
    Outcome addMedia(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind, const QString &fileName);
    MMS_COMP_SMILTimingContainer &slide();
    /// Overrides the duration of the media and the default.
    void setDuration(int milliseconds) { m_wishes.last().duration = milliseconds; }
    void setTextAbovePicture(bool above) { m_wishes.last().textAbovePicture = above; }

    /// Encodes the message, and checks that it decodes to the same message. Must be called last.
    Outcome finish();
    const QByteArray &pdu() const { return m_message.octets; }
    int partCount() const { return m_message.parts().getPartCount(); }

private:
    /// Settings that apply once a slide has all its media.
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
    qint64 m_read = 0; ///< octets of all files so far
};

/** @file
 * A whole message: what an application needs to receive, present, edit and send one.
 */
#pragma once

#include "../base/export.h"
#include "../multipart/multipart.h"
#include "../presentation/presentation.h"
#include "../wire/header_record.h"

#include <QByteArray>
#include <QString>

#include <optional>

/**
 * The PDU, the header, the parts and the slides of one message, which live as long as the object.
 *
 * What was read before a failure stays and can be shown. One thread at a time may use a message.
 */
class QVL_EXPORT QvlMessage
{
public:
    /// What an operation came to, and which layer of the message failed.
    struct QVL_EXPORT Result
    {
        /// The layers, from the outermost on.
        enum Layer : unsigned char {
            Header, ///< header of the PDU; codes are those of WireResult
            Body, ///< parts; codes are those of MultipartResult
            Presentation, ///< slides; codes are those of SmilResult
        };

        Layer layer = Header; ///< that failed; the last one when none did
        int code = 0; ///< 0 on success, else the layer's code

        /// True on success.
        bool isOk() const { return code == 0; }
        /// The layer in words, such as "header"; never null.
        const char *layerName() const;
        /// The code in words; never null.
        const char *meaning() const;
    };

    /// A message of type m-send-req without a field, a part or a slide.
    QvlMessage();
    QvlMessage(const QvlMessage &) = delete;
    QvlMessage &operator=(const QvlMessage &) = delete;
    /// Deletes header, parts and slides.
    ~QvlMessage();

    /**
     * Forgets what the object holds and reads a PDU: its header, and the parts of a multipart body.
     * The checks of the header refuse nothing, see MMS_UA_UAMsg. Linear in the octets.
     *
     * @param pdu the octets, which are shared and not copied
     */
    [[nodiscard]] Result receive(const QByteArray &pdu);

    /**
     * Reads the slides from the SMIL part. A message without one gets a slide for every part that
     * can be shown, and is not changed by that. Does nothing when the slides are there already.
     */
    [[nodiscard]] Result present();

    /**
     * Stores the slides in the SMIL part. A message without one gets a first part of the name
     * @p location, or of one like it that is free, and becomes a related one. False when there is
     * no memory.
     */
    [[nodiscard]] bool storeSlides(const QString &location = QStringLiteral("slides.smil"));

    /**
     * Encodes the message: the header and, when there are parts, the body. What was not stored of
     * the slides is not sent. Sets the content type in the header. Linear in the octets.
     *
     * @param pdu gets the octets; unchanged after a failure
     */
    [[nodiscard]] Result encode(QByteArray *pdu);

    /// The octets that were received; empty for a message that was not.
    const QByteArray &pdu() const { return m_pdu; }
    /// The header, whose body points into pdu().
    MMS_UA_UAMsg &header() { return m_content->header; }
    /// @copydoc header
    const MMS_UA_UAMsg &header() const { return m_content->header; }
    /// The parts, those of the presentation among them.
    MMS_COMP_SMILMultipart &parts() { return m_content->parts; }
    /// @copydoc parts
    const MMS_COMP_SMILMultipart &parts() const { return m_content->parts; }
    /// The slides, none until present() or until the application adds some.
    MMS_COMP_SMILData &slides() { return m_content->slides; }
    /// @copydoc slides
    const MMS_COMP_SMILData &slides() const { return m_content->slides; }

    /// True when the header announces a multipart, whose parts receive() reads.
    bool isMultipart() const;
    /// True when present() generated the slides, because there is no SMIL part.
    bool areSlidesGenerated() const { return m_content->slidesGenerated; }
    /// The SMIL text of the slides in UTF-8, as storeSlides() stores it. Puts the colors of slides
    /// into the params of their media. Null when there is no memory.
    QByteArray smilText();

private:
    struct Content
    {
        QVL_INTERNAL Content();

        MMS_UA_UAMsg header;
        MMS_COMP_SMILMultipart parts;
        MMS_COMP_SMILData slides{&parts};
        bool slidesGenerated = false;
        std::optional<Result> presented;
    };

    QVL_INTERNAL bool renewContent();
    QVL_INTERNAL Result receiveBody();
    QVL_INTERNAL Result readSlides();

    QByteArray m_pdu; // outlives the header
    std::optional<Content> m_content;
};

/** @file
 * A whole message: everything that an application needs to receive, present, edit and send one.
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
 * The PDU, the header, the parts and the slides of one message. They exist as long as the object.
 *
 * Data read before a failure stays and can be shown. Only one thread may use a message at any
 * moment.
 */
class QVL_EXPORT QvlMessage
{
public:
    /// Outcome of an operation; after a failure, the layer of the message that failed.
    struct QVL_EXPORT Result
    {
        /// The layers, outermost first.
        enum Layer : unsigned char {
            Header, ///< header of the PDU; codes are those of WireResult
            Body, ///< parts; codes are those of MultipartResult
            Presentation, ///< slides; codes are those of SmilResult
        };

        Layer layer = Header; ///< the layer that failed; the last one on success
        int code = 0; ///< 0 on success, else the layer's code

        /// True on success.
        bool isOk() const { return code == 0; }
        /// The layer in words, such as "header"; never null.
        const char *layerName() const;
        /// The code in words; never null.
        const char *meaning() const;
    };

    /// Parts that a message can have: a body counts them in one octet.
    static constexpr int MostParts = 255;

    /// A message of type m-send-req without a field, a part or a slide.
    QvlMessage();
    QvlMessage(const QvlMessage &) = delete;
    QvlMessage &operator=(const QvlMessage &) = delete;
    /// Deletes header, parts and slides.
    ~QvlMessage();

    /**
     * Discards the contents of the object and reads a PDU: its header, and the parts of a multipart
     * body. It does not reject a header that fails the checks of MMS_UA_UAMsg. Linear in the
     * octets.
     *
     * @param pdu the octets, which are shared and not copied
     */
    [[nodiscard]] Result receive(const QByteArray &pdu);

    /**
     * Reads the slides from the SMIL part. A message without one gets a slide for every part that
     * can be shown, and is not changed itself. Later calls only return the first result, unless
     * there was no part.
     */
    [[nodiscard]] Result present();

    /**
     * Stores the slides in the SMIL part. A message without one gets a new first part, named
     * @p location or a similar free name, and becomes related. Reads a SMIL part that was not
     * presented before.
     *
     * @return false when there is no memory, or the SMIL part cannot be read; it is not replaced
     * then
     */
    [[nodiscard]] bool storeSlides(const QString &location = QStringLiteral("slides.smil"));

    /**
     * Encodes the message: the header, and the parts or a received body without parts. Changes of
     * the slides are sent only after storeSlides(). Parts settle the content type and mark it as
     * present; other header fields are written when the application marked them. Linear in the
     * octets.
     *
     * Refuses what would not read back: an unknown message type, parts in a type without a body,
     * more than 255 parts, addresses that are neither e-mail nor phone, and a version above 0x7F.
     *
     * @param pdu gets the octets; unchanged after a failure
     */
    [[nodiscard]] Result encode(QByteArray *pdu);

    /// The received octets; empty for a message that was not received.
    const QByteArray &pdu() const { return m_pdu; }
    /// The header, whose body points into pdu().
    MMS_UA_UAMsg &header() { return m_content->header; }
    /// @copydoc header
    const MMS_UA_UAMsg &header() const { return m_content->header; }
    /// The parts, including the SMIL part.
    MMS_COMP_SMILMultipart &parts() { return m_content->parts; }
    /// @copydoc parts
    const MMS_COMP_SMILMultipart &parts() const { return m_content->parts; }
    /// The slides: none until present() or until the application adds some.
    MMS_COMP_SMILData &slides() { return m_content->slides; }
    /// @copydoc slides
    const MMS_COMP_SMILData &slides() const { return m_content->slides; }

    /// True when the header announces a multipart body, whose parts receive() reads.
    bool isMultipart() const;
    /// True when present() generated the slides because there is no SMIL part.
    bool areSlidesGenerated() const { return m_content->slidesGenerated; }
    /// The SMIL text of the slides in UTF-8, as storeSlides() stores it. Stores the colors of the
    /// slides in the params of their media. Null when there is no memory.
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
    QVL_INTERNAL Result encodeBody(QByteArray *body);

    QByteArray m_pdu; // declared before the header, which points into it
    std::optional<Content> m_content;
};

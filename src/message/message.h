/** @file
 * A whole message: everything that an application needs to receive, present, edit and send one.
 */
#pragma once

#include "../base/export.h"
#include "../multipart/multipart.h"
#include "../presentation/presentation.h"
#include "../readable/readable_pdu.h"
#include "../scan/sent_times.h"
#include "../wire/header_record.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

struct MessageTimes;
struct QvlContentType;
struct QvlScannedPart;

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

    /// What receive() reads.
    enum Reading : unsigned char {
        AnyVersion, ///< messages of MMS 1.0 to 1.3, see QvlReadablePdu
        Strict, ///< what MMS_UA_Decoder and the body codec read without that step: MMS 1.0 only
    };

    /// Parts that a message can have. The library counts them in one octet; from 128 on everyone
    /// else takes that for the first of several.
    static constexpr int MostParts = 127;

    /// A message of type m-send-req without a field, a part or a slide. Without memory for all of
    /// it, present() and storeSlides() report that.
    QvlMessage();
    QvlMessage(const QvlMessage &) = delete;
    QvlMessage &operator=(const QvlMessage &) = delete;
    /// Deletes header, parts and slides.
    ~QvlMessage();

    /**
     * Discards the contents of the object and reads a PDU: its header, and the parts of a multipart
     * body. Any other body becomes one part with the media type, charset and name that the header
     * declares. Parts in base64 or quoted-printable are decoded, texts of the header by the charset
     * that they declare. It does not reject a header that
     * fails the checks of MMS_UA_UAMsg. Linear in the octets.
     *
     * With Strict, no octet is changed, only a multipart body becomes parts, and no part is
     * decoded.
     *
     * @param pdu the octets, which are shared and not copied
     * @param reading whether later versions are read, too
     */
    [[nodiscard]] Result receive(const QByteArray &pdu, Reading reading = AnyVersion);

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
     * Encodes the message: the header and the parts. Changes of the slides are sent only after
     * storeSlides(). Parts settle the content type and mark it as present; other header fields are
     * written when the application marked them. Linear in the octets.
     *
     * Date, Expiry and Delivery-Time that the application did not change are written as the sender
     * meant them, an Expiry counted from the sender's Date. Texts become UTF-8 and are declared as
     * such; a bare Content-ID gets angle brackets, because others refuse it without.
     *
     * Refuses what would not read back: an unknown message type, parts in a type without a body,
     * more than MostParts, parts whose names or media type are too long, addresses that are neither
     * e-mail nor phone, texts that begin with a control character, and a version above 0x7F. Dates
     * after 2038-01-19 have no form on the wire and are written as others.
     *
     * @param pdu gets the octets; unchanged after a failure
     */
    [[nodiscard]] Result encode(QByteArray *pdu);

    /// The received octets; empty for a message that was not received.
    const QByteArray &pdu() const { return m_pdu; }
    /// What receive() changed to read the message; empty when nothing was. The views point into
    /// pdu().
    const std::vector<QvlChange> &changes() const { return m_content->changes; }
    /// Octets before the body in pdu(); all of them when the header was refused.
    qsizetype sentBodyOffset() const;
    /// The times of the received header as the sender wrote them.
    QvlSentTimes sentTimes() const { return qvlSentTimes(m_pdu); }
    /// The header. Its body points into octets of this object.
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

    /// The text of @p part in the charset that its sender declared, see qvlDecodeText().
    QString text(const MMS_COMP_SMILMultipartBodypart &part) const;
    /// The charset that was declared for the octets of @p part, by its MIBenum; 0 for UTF-8 and
    /// US-ASCII, when none was declared, and after the application gave the part other octets.
    int charset(const MMS_COMP_SMILMultipartBodypart &part) const;

    /// True when the header announces a multipart body.
    bool isMultipart() const;
    /// True when present() generated the slides because there is no SMIL part.
    bool areSlidesGenerated() const { return m_content->slidesGenerated; }
    /// The SMIL text of the slides in UTF-8, as storeSlides() stores it. Stores the colors of the
    /// slides in the params of their media. Null when there is no memory.
    QByteArray smilText();

private:
    struct DeclaredText
    {
        QByteArray octets; // shared with the part, so that no other part gets their address
        int charset;
    };

    struct Content
    {
        QVL_INTERNAL Content();
        QVL_INTERNAL ~Content();

        std::optional<QvlReadablePdu> readable; // the header points into it
        MMS_UA_UAMsg header;
        MMS_COMP_SMILMultipart parts;
        MMS_COMP_SMILData slides{&parts};
        std::vector<QvlChange> changes;
        std::vector<DeclaredText> texts; // only those that are not in UTF-8
        std::unique_ptr<MessageTimes> times; // as decoded; null unless a header was received
        bool slidesGenerated = false;
        std::optional<Result> presented;
    };

    QVL_INTERNAL bool renewContent();
    QVL_INTERNAL unsigned char receiveHeader(Reading reading);
    QVL_INTERNAL Result receiveBody(Reading reading);
    QVL_INTERNAL int receiveParts(const QByteArray &body);
    QVL_INTERNAL void receiveSingleBody();
    QVL_INTERNAL std::optional<QvlContentType> sentContentType() const;
    QVL_INTERNAL void receiveRoot();
    QVL_INTERNAL void receiveDeclarations();
    QVL_INTERNAL bool decodeTransfer(MMS_COMP_SMILMultipartBodypart *part, int index,
                                     const QvlScannedPart &scanned);
    QVL_INTERNAL void keepCharset(const MMS_COMP_SMILMultipartBodypart &part, int charset);
    QVL_INTERNAL Result readSlides();
    QVL_INTERNAL void prepareTexts();
    QVL_INTERNAL Result encodeBody(QByteArray *body);
    QVL_INTERNAL unsigned char encodeHeader(QByteArray *octets);

    QByteArray m_pdu;
    std::optional<Content> m_content;
};

/*
 * The SMIL side of a message: reads the text of the SMIL part into a presentation, brings foreign
 * layouts into the handset's own, writes a presentation as SMIL text, and presents messages that
 * come without. One source file for each role. The model is only declared here, because it uses the
 * value readers of this class.
 */
#pragma once

#include "platform/export.h"
#include "platform/qt_names.h"
#include "presentation/media_element_type.h"

#include <QString>

class MMS_COMP_SMILData;
class MMS_COMP_SMILMediaObject;
class MMS_COMP_SMILMultipart;
class QDomElement;
class QDomNode;
struct MMS_COMP_COLOR;
struct MMS_COMP_SMIL_TIME;

/// Reader and writer of SMIL. Keeps nothing between calls but the last warning.
class QVL_EXPORT MMS_COMP_SMILParser
{
public:
    /**
     * Reads @p smilText into @p data, binding media to the parts of @p multipart, brings the layout
     * into the handset's own and takes colours and text sizes from the media's params.
     *
     * Returns 0 or a SmilResult code; what was read before a failure stays in @p data. The text may
     * begin with anything before "<smil" and end in one zero octet.
     */
    [[nodiscard]] int parse(const QArray<char> &smilText, MMS_COMP_SMILMultipart *multipart,
                            MMS_COMP_SMILData *data);
    /// As above, from the file @p fileName, whose encoding is found as XML says.
    [[nodiscard]] int parse(const QString &fileName, MMS_COMP_SMILMultipart *multipart,
                            MMS_COMP_SMILData *data);

    /// SmilResult::MetaRefused when the last parse() could not keep a meta element, else 0.
    int getLastWarning() const { return m_lastWarning; }

    /// Readers of one kind of element each, for callers that read fragments. SmilResult codes.
    int parseSmil(QDomElement *root, MMS_COMP_SMILMultipart *multipart, MMS_COMP_SMILData *data);
    int parseSmilHead(QDomElement *head, MMS_COMP_SMILData *data);
    int parseSmilMeta(QDomElement *meta, MMS_COMP_SMILData *data);
    static int parseSmilLayout(QDomElement *layout, MMS_COMP_SMILData *data);
    static int parseSmilRootLayout(QDomElement *rootLayout, MMS_COMP_SMILData *data);
    static int parseSmilRegion(QDomElement *region, MMS_COMP_SMILData *data);
    static int parseSmilBody(QDomElement *body, MMS_COMP_SMILMultipart *multipart,
                             MMS_COMP_SMILData *data);
    /// @p depth counts the par and seq elements around and including this one.
    static int parseSmilSeq(QDomElement *seq, MMS_COMP_SMILMultipart *multipart,
                            MMS_COMP_SMILData *data, int &depth);
    static int parseSmilPar(QDomElement *par, MMS_COMP_SMILMultipart *multipart,
                            MMS_COMP_SMILData *data, int &depth);
    static int parseMediaObjectParam(QDomElement *element, MMS_COMP_SMILMediaObject *object);

    /// True for par, seq, text, img, audio, video and ref; false for null.
    static bool isValidBodyElement(const QDomElement *element);
    /// The next sibling of @p node, a null node at the end.
    static QDomNode getNextSibling(const QDomNode &node);
    /// The kind for "audio", "video", "text" and "image"; unknown for any other word.
    static MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE getTypeEnum(const QString &word);
    /// The word for a kind that getTypeEnum() gives, "" for any other.
    static QString getMimeTypeStr(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type);

    /// Reads a begin or end time. A text that is empty or not understood leaves the value alone.
    static void parseTime(const QString &text, MMS_COMP_SMIL_TIME *time);
    /// Milliseconds; -1 for an empty text, -2 for "indefinite", 5000 for one not understood.
    static int parseDur(const QString &text);
    /// Reads a colour: one of sixteen names, "#rgb" or "#rrggbb".
    static void parseColor(const QString &text, MMS_COMP_COLOR &colour);

    /**
     * Brings the regions into the handset's layout, a text region above an image region, and takes
     * the media objects along. With three and more regions only ids change. 0, and nothing
     * done, for null and for a list of regions that holds null; else 1.
     */
    static int updateToCorvaneRegion(MMS_COMP_SMILData *data);
    /// Sets the root layout to 120 by 160, making one when there is none. Null is ignored.
    static void updateToCorvaneRootLayout(MMS_COMP_SMILData *data);
    /// Moves every media object from the region @p oldId to the region @p newId.
    static void updateObjectRegionId(MMS_COMP_SMILData *data, const QString &oldId,
                                     const QString &newId);

    /**
     * The SMIL text of @p data, "" for null. Values are written as they are: one that holds "&",
     * "<" or a quote, and a root layout with a colour, make a text that is not well-formed.
     */
    static QString convertToSMILLang(MMS_COMP_SMILData *data);

    /**
     * Presents a message that has no presentation: every attachment that can be shown, plain text,
     * picture, video or sound, becomes a slide of its own at the end of @p data, in the order of
     * the parts, and counts as shown from then on. A slide lasts 5 seconds, or as long as its clip.
     *
     * With @p writeSmil the SMIL text of @p data goes into the message: into its SMIL part, or else
     * into a new first part, which makes the message a related one.
     *
     * Returns 1; 0 for a null argument or when there is no memory, and what was done until then
     * stays.
     */
    static int makeSmilForMixed(MMS_COMP_SMILMultipart *multipart, MMS_COMP_SMILData *data,
                                bool writeSmil);

private:
    int readDocument(class QDomDocument *document, MMS_COMP_SMILMultipart *multipart,
                     MMS_COMP_SMILData *data);

    int m_lastWarning = 0;
};

/** @file
 * The SMIL side of a message: reads the SMIL part into a presentation, converts other layouts to
 * the handset's own, writes a presentation as SMIL text, and generates slides for messages without
 * SMIL. Each task has a source file.
 */
#pragma once

#include "../base/export.h"
#include "../base/qt_names.h"
#include "../presentation/media_element_type.h"

#include <QString>

class MMS_COMP_SMILData;
class MMS_COMP_SMILMediaObject;
class MMS_COMP_SMILMultipart;
class QDomElement;
class QDomNode;
class SmilElement;
class SmilReader;
struct MMS_COMP_COLOR;
struct MMS_COMP_SMIL_TIME;

/// Reader and writer of SMIL. Its only state is the last warning.
class QVL_EXPORT MMS_COMP_SMILParser
{
public:
    /**
     * Reads a document into a presentation and binds its media to the parts of the message.
     * Converts the layout to the handset's own, and takes colors and text sizes from the params of
     * the media. Skips media without content in the message. Linear in the slides; each element
     * walks the parts.
     *
     * @param smilText the document in UTF-8. Text before "<smil" and one zero octet at the end are
     * ignored
     * @param multipart the message with the content; its parts are marked as shown. With null, all
     * media are skipped
     * @param data gets the slides, after the existing ones
     * @retval SmilResult::Ok read; getLastWarning() reports metas that were not kept
     * @retval SmilResult::NullArgument null @p data or an empty text; nothing changed
     * @retval SmilResult::NotWellFormed not XML, or beyond the limits of a document; nothing
     * changed
     * @retval SmilResult::NotSmil the document element is not smil; nothing changed
     * @retval SmilResult::HeadAfterBody everything read before the head stays
     * @retval SmilResult::SecondHead everything read before the second one stays
     * @retval SmilResult::SecondBody everything read before the second one stays
     * @retval SmilResult::NestedTooDeep everything read before the eleventh par or seq stays
     * @retval SmilResult::OutOfMemory everything read before stays
     */
    int parse(const QArray<char> &smilText, MMS_COMP_SMILMultipart *multipart,
              MMS_COMP_SMILData *data);
    /// Reads the file @p fileName likewise. XML's rules determine its encoding, and no other text
    /// may precede the document. SmilResult::FileUnreadable when the file cannot be opened.
    int parse(const QString &fileName, MMS_COMP_SMILMultipart *multipart, MMS_COMP_SMILData *data);

    /// SmilResult::MetaRefused when the last parse() could not keep a meta element, else 0.
    int getLastWarning() const { return m_lastWarning; }

    /// @name Fragments
    /// @{

    /// Reads one kind of element, for callers that read fragments. Returns a SmilResult code,
    /// SmilResult::NullArgument for a null element or presentation.
    int parseSmil(QDomElement *root, MMS_COMP_SMILMultipart *multipart, MMS_COMP_SMILData *data);
    int parseSmilHead(QDomElement *head, MMS_COMP_SMILData *data);
    int parseSmilMeta(QDomElement *meta, MMS_COMP_SMILData *data);
    static int parseSmilLayout(QDomElement *layout, MMS_COMP_SMILData *data);
    static int parseSmilRootLayout(QDomElement *rootLayout, MMS_COMP_SMILData *data);
    static int parseSmilRegion(QDomElement *region, MMS_COMP_SMILData *data);
    static int parseSmilBody(QDomElement *body, MMS_COMP_SMILMultipart *multipart,
                             MMS_COMP_SMILData *data);
    /// @}

    /// Reads a time container, like parseSmil() an element of its kind; SmilResult::NestedTooDeep
    /// for an eleventh level. @p depth counts the enclosing par and seq elements including this
    /// one, and has its old value after the call.
    static int parseSmilSeq(QDomElement *seq, MMS_COMP_SMILMultipart *multipart,
                            MMS_COMP_SMILData *data, int &depth);
    /// @copydoc parseSmilSeq
    static int parseSmilPar(QDomElement *par, MMS_COMP_SMILMultipart *multipart,
                            MMS_COMP_SMILData *data, int &depth);
    /// Adds the params of a media element to @p object. Returns a SmilResult code,
    /// SmilResult::NullArgument for null.
    static int parseMediaObjectParam(QDomElement *element, MMS_COMP_SMILMediaObject *object);

    /// True for par, seq, text, img, audio, video and ref; false for null.
    static bool isValidBodyElement(const QDomElement *element);
    /// The next sibling of @p node, a null node at the end.
    static QDomNode getNextSibling(const QDomNode &node);
    /// The kind for "audio", "video", "text" and "image"; unknown for any other word.
    static MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE getTypeEnum(const QString &word);
    /// The word for a kind that getTypeEnum() returns, "" for any other.
    static QString getMimeTypeStr(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type);

    /// Reads a begin or end time such as "2500ms", "2.5s", "0:02.500" or "id(other)(end)" into
    /// @p time, which must not be null. An empty or unreadable text leaves the value unchanged.
    static void parseTime(const QString &text, MMS_COMP_SMIL_TIME *time);
    /// Milliseconds; QvlDuration::NotGiven for an empty text, Indefinite for "indefinite", Default
    /// for an unreadable text.
    static int parseDur(const QString &text);
    /// Reads a color: one of sixteen names in lower case, or "#rrggbb". In "#rgb" the digits are
    /// not doubled: "#fff" is nearly black. For an unreadable text the last color stays, but not
    /// its kind.
    static void parseColor(const QString &text, MMS_COMP_COLOR &color);

    /**
     * Converts the regions to the handset's layout, a text region above an image region, and moves
     * the media objects along. With three or more regions only ids change. Linear in the regions
     * and objects.
     *
     * @return 1; 0 without any change for null and for a list of regions that contains null; 0 when
     * there is no memory
     */
    static int updateToCorvaneRegion(MMS_COMP_SMILData *data);
    /// Sets the root layout to the handset's screen; creates one if there is none. Null is ignored.
    static void updateToCorvaneRootLayout(MMS_COMP_SMILData *data);
    /// Moves every media object from the region @p oldId to the region @p newId. Null is ignored.
    static void updateObjectRegionId(MMS_COMP_SMILData *data, const QString &oldId,
                                     const QString &newId);

    /**
     * The SMIL text of @p data, "" for null or when there is no memory. First stores the colors and
     * text sizes of the slides in the params of their objects. Values are not escaped: a value with
     * "&", "<" or a quote, and a root layout with a color, give a text that is not well-formed.
     * Linear in the text.
     */
    static QString convertToSMILLang(MMS_COMP_SMILData *data);

    /**
     * Generates slides for a message without a presentation: every attachment that can be shown
     * (plain text, picture, video or sound) becomes a slide at the end of @p data, in the order of
     * the parts, and from then on counts as shown. A slide lasts 5 seconds, or as long as its clip.
     *
     * Opens clips, so linear in their octets. Decodes pictures in the order of the parts as long as
     * their pixels stay within 16 million; any other picture can be shown if its header can be
     * read.
     *
     * @param multipart the message; a new SMIL part, see @p writeSmil, makes it related
     * @param data gets the slides, after the existing ones
     * @param writeSmil true to store the SMIL text of @p data in the message: in its SMIL part, or
     * else in a new first part
     * @return 1; 0 for a null argument or when there is no memory, and everything done before stays
     */
    static int makeSmilForMixed(MMS_COMP_SMILMultipart *multipart, MMS_COMP_SMILData *data,
                                bool writeSmil);

private:
    QVL_INTERNAL int readFragment(const QDomElement *element, MMS_COMP_SMILMultipart *multipart,
                                  MMS_COMP_SMILData *data,
                                  int (SmilReader::*read)(const SmilElement &));
    QVL_INTERNAL int readDocument(const QByteArray &utf8, MMS_COMP_SMILMultipart *multipart,
                                  MMS_COMP_SMILData *data);

    int m_lastWarning = 0;
};

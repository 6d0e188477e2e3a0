/** @file
 * The presentation of a multimedia message: layout, metas and slides. It is bound to the message
 * with the content, read from SMIL, changed by the composer, and written as SMIL.
 */
#pragma once

#include "../base/export.h"
#include "../base/ptr_list.h"
#include "../multipart/liveness.h"
#include "handset.h"
#include "layout.h"
#include "slide.h"

#include <QString>

class QDomElement;
class SmilElement;

/// Unit of region geometry.
enum MMS_COMP_SMIL_UNIT_TYPE_ENUM : int {
    SMIL_UNIT_PIXEL = 0, ///< pixels of the screen
    SMIL_UNIT_PERCENT = 1, ///< percentages of the root layout
};

/**
 * A whole presentation. Owns layout, metas and slides, but not the message; the pointer becomes
 * null when the message is deleted, and either may be deleted first.
 */
class QVL_EXPORT MMS_COMP_SMILData
{
public:
    /// An empty presentation of @p multipart, which may be null. When there is no memory,
    /// getRootLayout() or getMultiPart() is null, and the writer writes no root layout: check both
    /// before use.
    explicit MMS_COMP_SMILData(MMS_COMP_SMILMultipart *multipart);
    /// A copy of @p source with content from @p multipart; incomplete if copyTo() fails.
    MMS_COMP_SMILData(const MMS_COMP_SMILData &source, MMS_COMP_SMILMultipart *multipart);
    MMS_COMP_SMILData(const MMS_COMP_SMILData &) = delete;
    MMS_COMP_SMILData &operator=(const MMS_COMP_SMILData &) = delete;
    /// Releases the content of all slides.
    ~MMS_COMP_SMILData();

    /// Deletes all slides and metas; layout and unit stay.
    void clean();

    /// Unit of all regions; starts as pixels. Setting it does not convert regions and returns true.
    MMS_COMP_SMIL_UNIT_TYPE_ENUM getLayoutMeasureUnit() const { return m_measureUnit; }
    /// @copydoc getLayoutMeasureUnit
    bool setLayoutMeasureUnit(MMS_COMP_SMIL_UNIT_TYPE_ENUM unit)
    {
        m_measureUnit = unit;
        return true;
    }

    /// The layout itself, owned by the presentation.
    MMS_COMP_SMILLayout *getLayout() { return &m_layout; }
    /// The same for reading.
    const MMS_COMP_SMILLayout *getLayout() const { return &m_layout; }
    /// @name Operations of the layout
    /// @{

    /// The operation of MMS_COMP_SMILLayout with the same name and arguments.
    MMS_COMP_SMILRootLayout *getRootLayout() const { return m_layout.getRootLayout(); }
    MMS_COMP_SMILRootLayout *setRootLayout(int width, int height);
    int setRootLayout(QDomElement *element);
    unsigned int getRegionCount() const { return m_layout.getRegionCount(); }
    MMS_COMP_SMILRegion *getRegion(unsigned int index) const { return m_layout.getRegion(index); }
    void appendRegion(MMS_COMP_SMILRegion *region);
    MMS_COMP_SMILRegion *appendRegion(float left, float top, float width, float height,
                                      const QString &fit, const QString &id);
    /// @}

    /// Sets the size from texts such as "120px"; ignores the color. Returns the root layout, owned
    /// by the layout, or null when there is no memory.
    MMS_COMP_SMILRootLayout *setRootLayout(const QString &width, const QString &height,
                                           const QString &backgroundColor);
    /**
     * Adds a region from texts such as "120px" and "50%", unless there is already an equal one. A
     * text with "%" sets the unit of the whole presentation to per cent. Only the number at the
     * beginning of a text counts.
     *
     * @param left distance from the left edge; 0 when empty
     * @param top distance from the top edge; 0 when empty
     * @param width width of the region; -1 when empty
     * @param height height of the region; -1 when empty
     * @param fit keyword, see MMS_COMP_SMILRegion::setFit()
     * @param id name of the region
     * @return the region in the layout, owned by it; null when there is no memory
     */
    MMS_COMP_SMILRegion *appendRegion(const QString &left, const QString &top, const QString &width,
                                      const QString &height, const QString &fit, const QString &id);

    /// Id of the text region in the handset's own layout.
    QString getTextRegionId() const { return QvlHandset::textRegion().id; }
    /// Id of the image region in the handset's own layout.
    QString getImgRegionId() const { return QvlHandset::imageRegion().id; }

    /// Count of metas.
    unsigned int getMetaCount() const { return unsigned(m_metas.count()); }
    /// The meta at @p index, owned by the presentation; null out of range.
    MMS_COMP_SMILMeta *getMeta(unsigned int index) const;
    /// Adds a meta, even if there is one with the name. False when there is no memory.
    bool appendMeta(const QString &name, const QString &content);

    /// Count of slides.
    unsigned int getTotalSlidesNum() const { return unsigned(m_slides.count()); }
    /// The slide at @p index, owned by the presentation; null out of range.
    MMS_COMP_SMILTimingContainer *getSlide(unsigned int index) const;
    /// Adds @p slide, which the presentation then owns. Null is ignored.
    void appendSlide(MMS_COMP_SMILTimingContainer *slide);
    /// Adds an empty slide of @p dur milliseconds, taken as signed. Returns the slide, owned by the
    /// presentation, or null when there is no memory.
    MMS_COMP_SMILTimingContainer *appendSlide(unsigned int dur);
    /// Inserts @p slide, which the presentation then owns, at @p index. False for null, beyond the
    /// end or without memory; the caller then keeps the slide.
    bool insertSlide(unsigned int index, MMS_COMP_SMILTimingContainer *slide);
    /// Removes the slide at @p index and returns it, still with its content; the caller owns it.
    /// Null out of range.
    MMS_COMP_SMILTimingContainer *takeSlide(unsigned int index);

    /// @name Operations of a slide
    /// @{

    /// The slide's operation, see MMS_COMP_SMILTimingContainer; 0, null or false for a slide out of
    /// range. The slide owns an inserted object.
    unsigned int getMediaObjectCount(unsigned int slide) const;
    MMS_COMP_SMILMediaObject *getMediaObject(unsigned int slide, unsigned int index) const;
    bool insertMediaObject(unsigned int slide, unsigned int index,
                           MMS_COMP_SMILMediaObject *object);
    bool deleteMediaObject(unsigned int slide, unsigned int index);
    /// @}

    /**
     * Adds a media element of a document to the last slide, or to a new one if that has no room.
     * Linear in the parts.
     *
     * @param element text, img, video, audio or ref; its params are not read
     * @param multipart the message with the content
     * @param newSlide true to add a new slide in any case
     * @param dur milliseconds for a new slide, as MMS_COMP_SMILTimingContainer::getDur()
     * @param created unless null, gets the object, owned by its slide
     * @retval SmilResult::Ok the object is on its slide
     * @retval SmilResult::NotAMedia any other element, or null; nothing changed
     * @retval SmilResult::NotInMessage no part has the content; nothing changed
     * @retval SmilResult::OutOfMemory no memory for the object or its slide
     */
    int appendElementObject(QDomElement *element, MMS_COMP_SMILMultipart *multipart, bool newSlide,
                            int dur, MMS_COMP_SMILMediaObject **created);

    /**
     * A location for new content, derived from the file name in @p name, that no media object and
     * no body part uses: the name itself, else with "_0", "_1", ... before its extension. Base and
     * extension are truncated to 88 characters. If the extension or a character of the name makes
     * all these names unusable, the result is "file0", "file1", ... A null text when there is no
     * memory. Linear in the objects and parts.
     */
    QString createUniqueSrc(const QString &name) const;
    /// True when @p name is used, is not a valid URL, or has 100 characters or more. Linear in the
    /// objects and parts.
    bool isElemNameExist(const QString &name) const;
    /// Releases and deletes the first media object whose part has this location, case-sensitively,
    /// or this Content-ID. Linear in the objects and parts.
    void deleteObjectByDataLocation(const QString &location);

    /**
     * Stores colors and text size of every slide in the params of its objects. The root layout's
     * color replaces every slide's page color, even if it is none. Kept: the writer relies on it.
     */
    void updateParamToSlide();
    /// The same for the slide at @p index alone; does nothing out of range.
    void updateParamToSlideAt(unsigned int index);
    /// Reads colors and text size of every slide from the params of its objects.
    void updateParamFromSlide();
    /// Removes texts without octets, except one that alone has a slide's page color.
    void removeEmptyTextBeforeSend();

    /// True when every slide is blank, see MMS_COMP_SMILTimingContainer::isBlank().
    bool isEmpty() const;
    /// The message, or null; not owned.
    MMS_COMP_SMILMultipart *getMultiPart() const { return m_multipart.get(); }
    /// Sets the message of the presentation and of every slide, but not of their objects. Returns
    /// true.
    bool setMultiPart(MMS_COMP_SMILMultipart *multipart);
    /**
     * Copies everything except the root layout's color to the end of @p target. Linear in the
     * regions and metas, and in the parts for every object.
     *
     * @param target gets the copy; may be the presentation itself
     * @param multipart the message of the copy; it needs the parts with the same locations, marked
     * as shown
     * @return false for null or when something cannot be copied, and everything copied before stays
     */
    bool copyTo(MMS_COMP_SMILData *target, MMS_COMP_SMILMultipart *multipart) const;

private:
    friend class SmilReader;

    [[nodiscard]] QVL_INTERNAL int appendElement(const SmilElement &element,
                                                 MMS_COMP_SMILMultipart *multipart, bool newSlide,
                                                 int dur, MMS_COMP_SMILMediaObject **created);

    MMS_COMP_SMIL_UNIT_TYPE_ENUM m_measureUnit = SMIL_UNIT_PIXEL;
    MMS_COMP_SMILLayout m_layout;
    QPtrList<MMS_COMP_SMILMeta> m_metas;
    QPtrList<MMS_COMP_SMILTimingContainer> m_slides;
    QvlWeakPointer<MMS_COMP_SMILMultipart> m_multipart;
};

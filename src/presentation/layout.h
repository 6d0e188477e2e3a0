/** @file
 * The head of a presentation: the screen area, the regions for media, and metas, which are free
 * pairs of name and content. The unit of regions, pixels or per cent, belongs to the whole
 * presentation.
 */
#pragma once

#include "../base/export.h"
#include "../base/ptr_list.h"
#include "color.h"
#include "handset.h"
#include "smil_result.h"

#include <QString>

#include <memory>

class QDomElement;
class RegionIndex;
class SmilElement;

/// How media fit into a region.
enum MMS_COMP_SMIL_REGION_FIT : int {
    SMIL_REGION_FIT_HIDDEN = 0, ///< at their own size, clipped at the edges
    SMIL_REGION_FIT_FILL = 1, ///< stretched in both directions
    SMIL_REGION_FIT_MEET = 2, ///< as large as fits, in proportion
    SMIL_REGION_FIT_SCROLL = 3, ///< at their own size, scrollable
    SMIL_REGION_FIT_SLICE = 4, ///< as small as covers the region, in proportion
    SMIL_REGION_FIT_UNKNOWN = 5, ///< any other keyword; not written as SMIL
};

/**
 * A named rectangle, in the unit of MMS_COMP_SMILData::getLayoutMeasureUnit(). Starts as "default",
 * as large as the handset's screen, in the top left corner. Setters accept any value and return
 * true.
 */
class QVL_EXPORT MMS_COMP_SMILRegion
{
public:
    /// @name Size
    /// @{

    /// Size of the rectangle.
    float getHeight() const { return m_height; }
    bool setHeight(float height);
    float getWidth() const { return m_width; }
    bool setWidth(float width);
    /// @}

    /// Distance from the root layout's top edge.
    float getTop() const { return m_top; }
    /// @copydoc getTop
    bool setTop(float top);
    /// Distance from the root layout's left edge.
    float getLeft() const { return m_left; }
    /// @copydoc getLeft
    bool setLeft(float left);
    /// Left plus width.
    float getRight() const { return m_left + m_width; }
    /// Top plus height.
    float getBottom() const { return m_top + m_height; }

    /// Name that media objects use for the region; need not be unique.
    QString getId() const { return m_id; }
    /// @copydoc getId
    bool setId(const QString &id);

    /// How media fit; starts as SMIL_REGION_FIT_HIDDEN.
    MMS_COMP_SMIL_REGION_FIT getFit() const { return m_fit; }
    /// @copydoc getFit
    void setFit(MMS_COMP_SMIL_REGION_FIT fit) { m_fit = fit; }
    /// Sets the fit by its keyword, case-sensitively; unknown for any other text.
    bool setFit(const QString &keyword);
    /// The keyword of @p fit, or null for one that has none.
    static const char *fitKeyword(MMS_COMP_SMIL_REGION_FIT fit);

private:
    float m_height = QvlHandset::ScreenHeight;
    float m_width = QvlHandset::ScreenWidth;
    float m_top = 0;
    float m_left = 0;
    QString m_id = QStringLiteral("default");
    MMS_COMP_SMIL_REGION_FIT m_fit = SMIL_REGION_FIT_HIDDEN;
};

/// The screen area of a presentation. Setters accept any value and return true.
class QVL_EXPORT MMS_COMP_SMILRootLayout
{
public:
    /// @name Size
    /// @{

    /// Size in pixels; starts as the size of the handset's screen.
    int getWidth() const { return m_width; }
    bool setWidth(int width);
    int getHeight() const { return m_height; }
    bool setHeight(int height);
    /// @}

    /// The color itself, owned by the root layout: read it or change it in place. Starts as none.
    /// With a color, the SMIL text is not well-formed, see
    /// MMS_COMP_SMILParser::convertToSMILLang().
    MMS_COMP_COLOR *getBackgroundColor() { return &m_backgroundColor; }
    /// The same for reading.
    const MMS_COMP_COLOR *getBackgroundColor() const { return &m_backgroundColor; }
    /// Sets the color from a text, see MMS_COMP_SMILParser::parseColor().
    void setBackgroundColor(const QString &text);

private:
    int m_width = QvlHandset::ScreenWidth;
    int m_height = QvlHandset::ScreenHeight;
    MMS_COMP_COLOR m_backgroundColor;
};

/**
 * Root layout and regions; owns both. Adding a region, or looking for one by its values, compares
 * it with all regions.
 */
class QVL_EXPORT MMS_COMP_SMILLayout
{
public:
    /// Result of setRootLayout(QDomElement *) for null.
    static constexpr int RootLayoutRefused = SmilResult::RootLayoutRefused;

    /// A root layout as large as the handset's screen, and no region. Without memory there is no
    /// root layout.
    MMS_COMP_SMILLayout();
    /// Deletes root layout and regions.
    ~MMS_COMP_SMILLayout();

    /// The root layout, owned by the layout; null when there was no memory for one.
    MMS_COMP_SMILRootLayout *getRootLayout() const { return m_rootLayout.get(); }
    /// Sets the size; creates a root layout if there is none. Returns the root layout, or null when
    /// there is no memory.
    MMS_COMP_SMILRootLayout *setRootLayout(int width, int height);
    /**
     * Reads width, height and background color of a root-layout element. Returns 0, or
     * RootLayoutRefused for null. A missing size is -1, an unreadable one is 0.
     */
    int setRootLayout(QDomElement *element);

    /// Count of regions.
    unsigned int getRegionCount() const { return unsigned(m_regions.count()); }
    /// The region at @p index, owned by the layout; null out of range.
    MMS_COMP_SMILRegion *getRegion(unsigned int index) const;
    /// The list of regions itself, which owns them: change it in place.
    QPtrList<MMS_COMP_SMILRegion> *getRegionList() { return &m_regions; }

    /**
     * Adds @p region, which the layout then owns. If there is already an equal one, the caller
     * keeps @p region. Null is ignored.
     */
    void appendRegion(MMS_COMP_SMILRegion *region);
    /**
     * Adds a region with these values unless there is already an equal one. The geometry is in the
     * unit of the presentation.
     *
     * @param left distance from the left edge
     * @param top distance from the top edge
     * @param width width of the region
     * @param height height of the region
     * @param fit keyword, see MMS_COMP_SMILRegion::setFit()
     * @param id name of the region
     * @return the region in the layout, owned by it; null when there is no memory
     */
    MMS_COMP_SMILRegion *appendRegion(float left, float top, float width, float height,
                                      const QString &fit, const QString &id);
    /**
     * Whether the layout contains a region with the same six values.
     *
     * @param region region to compare with; null gives false and leaves @p found unchanged
     * @param found unless null, gets the region in the layout, or null when there is none
     * @return true when there is one
     */
    bool isRegionExist(const MMS_COMP_SMILRegion *region, MMS_COMP_SMILRegion **found) const;

    /// Adds copies of the regions of @p source, which may be the layout itself, except those with
    /// an equal one here. Linear in the regions of both.
    void addRegionsOf(const MMS_COMP_SMILLayout &source);

    /// Reads a size in pixels: -1 for an empty text, 0 for an unreadable one.
    static int pixelsOf(const QString &text);
    /// @p text trimmed, in lower case, and without its last two characters if it contains "px".
    static QString withoutPixelUnit(const QString &text);

private:
    friend class RegionIndexScope;
    friend class SmilReader;

    [[nodiscard]] QVL_INTERNAL int readRootLayout(const SmilElement &element);
    void append(std::unique_ptr<MMS_COMP_SMILRegion> region);
    MMS_COMP_SMILRegion *findEqual(const MMS_COMP_SMILRegion &region) const;

    std::unique_ptr<MMS_COMP_SMILRootLayout> m_rootLayout;
    QPtrList<MMS_COMP_SMILRegion> m_regions;
    std::unique_ptr<RegionIndex> m_index; // set while a RegionIndexScope exists
};

/// A pair of name and content in the head. Setters return true.
class QVL_EXPORT MMS_COMP_SMILMeta
{
public:
    /// Meaning of the content, such as "author".
    QString getName() const { return m_name; }
    /// @copydoc getName
    bool setName(const QString &name);
    /// The content. Written without escaping, so it should contain neither "&" nor "<" nor quotes.
    QString getContent() const { return m_content; }
    /// @copydoc getContent
    bool setContent(const QString &content);

private:
    QString m_name = QLatin1String("");
    QString m_content = QLatin1String("");
};

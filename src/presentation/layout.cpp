#include "presentation/layout.h"

#include "platform/no_memory.h"
#include "smil/smil_parser.h"

#include <QDomElement>

#include <algorithm>
#include <array>

namespace {

// Keywords stand at their numbers.
constexpr std::array fitKeywords{"hidden", "fill", "meet", "scroll", "slice"};
static_assert(fitKeywords.size() == SMIL_REGION_FIT_UNKNOWN);

bool equals(const MMS_COMP_SMILRegion &a, const MMS_COMP_SMILRegion &b)
{
    return a.getWidth() == b.getWidth() && a.getHeight() == b.getHeight()
        && a.getTop() == b.getTop() && a.getLeft() == b.getLeft() && a.getId() == b.getId()
        && a.getFit() == b.getFit();
}

} // namespace

bool MMS_COMP_SMILRegion::setHeight(float height)
{
    m_height = height;
    return true;
}

bool MMS_COMP_SMILRegion::setWidth(float width)
{
    m_width = width;
    return true;
}

bool MMS_COMP_SMILRegion::setTop(float top)
{
    m_top = top;
    return true;
}

bool MMS_COMP_SMILRegion::setLeft(float left)
{
    m_left = left;
    return true;
}

bool MMS_COMP_SMILRegion::setId(const QString &id)
{
    m_id = id;
    return true;
}

bool MMS_COMP_SMILRegion::setFit(const QString &keyword)
{
    const auto row = std::find_if(fitKeywords.begin(), fitKeywords.end(),
                                  [&](const char *word) { return keyword == QLatin1String(word); });
    m_fit = MMS_COMP_SMIL_REGION_FIT(row - fitKeywords.begin());
    return true;
}

const char *MMS_COMP_SMILRegion::fitKeyword(MMS_COMP_SMIL_REGION_FIT fit)
{
    return fit >= 0 && fit < SMIL_REGION_FIT_UNKNOWN ? fitKeywords[size_t(fit)] : nullptr;
}

bool MMS_COMP_SMILRootLayout::setWidth(int width)
{
    m_width = width;
    return true;
}

bool MMS_COMP_SMILRootLayout::setHeight(int height)
{
    m_height = height;
    return true;
}

void MMS_COMP_SMILRootLayout::setBackgroundColor(const QString &text)
{
    MMS_COMP_SMILParser::parseColor(text, m_backgroundColor);
}

MMS_COMP_SMILLayout::MMS_COMP_SMILLayout()
{
    m_regions.setAutoDelete(true);
    asFarAsMemoryGoes([this] { m_rootLayout = std::make_unique<MMS_COMP_SMILRootLayout>(); });
}

MMS_COMP_SMILLayout::~MMS_COMP_SMILLayout() = default;

MMS_COMP_SMILRootLayout *MMS_COMP_SMILLayout::setRootLayout(int width, int height)
{
    return unlessOutOfMemory(nullptr, [&]() -> MMS_COMP_SMILRootLayout * {
        if (!m_rootLayout)
            m_rootLayout = std::make_unique<MMS_COMP_SMILRootLayout>();
        m_rootLayout->setWidth(width);
        m_rootLayout->setHeight(height);
        return m_rootLayout.get();
    });
}

int MMS_COMP_SMILLayout::setRootLayout(QDomElement *element)
{
    if (!element)
        return RootLayoutRefused;
    setRootLayout(pixelsOf(element->attribute(QStringLiteral("width"))),
                  pixelsOf(element->attribute(QStringLiteral("height"))));
    m_rootLayout->setBackgroundColor(element->attribute(QStringLiteral("background-color")));
    return 0;
}

MMS_COMP_SMILRegion *MMS_COMP_SMILLayout::getRegion(unsigned int index) const
{
    return index < getRegionCount() ? m_regions.at(int(index)) : nullptr;
}

void MMS_COMP_SMILLayout::appendRegion(MMS_COMP_SMILRegion *region)
{
    asFarAsMemoryGoes([&] {
        if (region && !isRegionExist(region, nullptr))
            m_regions.append(region);
    });
}

MMS_COMP_SMILRegion *MMS_COMP_SMILLayout::appendRegion(float left, float top, float width,
                                                       float height, const QString &fit,
                                                       const QString &id)
{
    return unlessOutOfMemory(nullptr, [&]() -> MMS_COMP_SMILRegion * {
        auto region = std::make_unique<MMS_COMP_SMILRegion>();
        region->setTop(top);
        region->setLeft(left);
        region->setWidth(width);
        region->setHeight(height);
        region->setFit(fit);
        region->setId(id);
        MMS_COMP_SMILRegion *existing = nullptr;
        if (isRegionExist(region.get(), &existing))
            return existing;
        MMS_COMP_SMILRegion *added = region.release();
        m_regions.append(added);
        return added;
    });
}

bool MMS_COMP_SMILLayout::isRegionExist(const MMS_COMP_SMILRegion *region,
                                        MMS_COMP_SMILRegion **found) const
{
    if (!region)
        return false;
    const auto existing =
        std::find_if(m_regions.begin(), m_regions.end(), [&](const MMS_COMP_SMILRegion *other) {
            return other && equals(*region, *other);
        });
    const bool exists = existing != m_regions.end();
    if (found)
        *found = exists ? *existing : nullptr;
    return exists;
}

QString MMS_COMP_SMILLayout::withoutPixelUnit(const QString &text)
{
    const QString size = text.trimmed().toLower();
    return size.contains(QLatin1String("px")) ? size.chopped(2) : size;
}

int MMS_COMP_SMILLayout::pixelsOf(const QString &text)
{
    const QString size = withoutPixelUnit(text);
    return size.isEmpty() ? -1 : size.toInt();
}

bool MMS_COMP_SMILMeta::setName(const QString &name)
{
    m_name = name;
    return true;
}

bool MMS_COMP_SMILMeta::setContent(const QString &content)
{
    m_content = content;
    return true;
}

#include "render/slide_files.h"

#include "input/file_name.h"
#include "input/message.h"
#include "output/write_file.h"
#include "render/render.h"
#include "render/sheet.h"
#include "view/file_view.h"

#include <QBuffer>

#include <algorithm>
#include <utility>

namespace {

constexpr int OrdinaryScale = 2;

// The smallest scale at which @p pixels are drawn for @p handsetPixels.
int scaleFor(int pixels, int handsetPixels)
{
    return (pixels + handsetPixels - 1) / handsetPixels;
}

// True if the pages of all slides take no more than half of the limit.
bool areWithinLimit(const QSize &page, int slides, int scale, const RenderLimits &limits)
{
    const qint64 pixels = qint64(page.width()) * page.height() * scale * scale;
    return pixels * std::min(slides, limits.slides) <= limits.drawn * Million / 2;
}

// Slides are drawn as large as a sheet shows them. Without a wish, many slides of large pages are
// drawn smaller, so that the limit leaves out none or fewer.
int scaleOf(const Message &message, const PictureSizes &sizes, const SheetFormat &format,
            const RenderLimits &limits)
{
    if (sizes.scale > 0)
        return sizes.scale;
    const QSize page = pageSize(message.slides());
    const int slides = int(message.slides().getTotalSlidesNum());
    const int needed =
        sizes.sheetWidth > 0 ? scaleFor(format.largestSlide.width(), page.width()) : 0;
    int scale = std::clamp(needed, OrdinaryScale, LargestScale);
    while (scale > 1 && !areWithinLimit(page, slides, scale, limits))
        --scale;
    return scale;
}

QString slideName(int number)
{
    return QStringLiteral("slide %1").arg(number);
}

QString millions(int pixels)
{
    return QStringLiteral("%1 million pixels").arg(pixels);
}

class SlideFiles
{
public:
    SlideFiles(const Message &message, QString directory, const PictureSizes &sizes,
               const RenderLimits &limits)
        : m_directory(std::move(directory)), m_limits(limits),
          m_total(int(message.slides().getTotalSlidesNum())),
          m_format(sheetFormat(std::min(m_total, limits.slides), sizes.sheetWidth)),
          m_renderer(message, scaleOf(message, sizes, m_format, limits), limits),
          m_captions(limits.drawn * Million / 8)
    {
    }

    bool write(Report *report, QString *error);

private:
    bool writeSlide(const QImage &slide, Report *report, QString *error);
    bool writeSheet(Report *report, QString *error);
    bool writePicture(const QImage &image, const QString &name, Report *report, QString *error);
    QImage captionOf(int width, Report *report);
    QString sheetName() const;
    void addRemarks(Report *report) const;

    QString m_directory;
    RenderLimits m_limits;
    int m_total;
    SheetFormat m_format;
    SlideRenderer m_renderer;
    Work m_captions; ///< apart from the slides, so that these are all drawn
    int m_written = 0;
    int m_sheets = 0;
    QList<SheetCell> m_cells;
    Missing m_notShownWhole;
};

QString SlideFiles::sheetName() const
{
    return m_sheets == 0 ? QStringLiteral("contact-sheet.png")
                         : QStringLiteral("contact-sheet-%1.png").arg(m_sheets + 1);
}

bool SlideFiles::writePicture(const QImage &image, const QString &name, Report *report,
                              QString *error)
{
    const QString path = FileName::inFolder(m_directory, name);
    const QByteArray png = pngOctets(image);
    if (png.isEmpty()) {
        *error = cannotWrite(path, QStringLiteral("there is not enough memory for the picture"));
        return false;
    }
    if (!replaceFile(png, path, error))
        return false;
    report->written +=
        writtenFileText(path, QStringLiteral(" (%1x%2)").arg(image.width()).arg(image.height()));
    return true;
}

QImage SlideFiles::captionOf(int width, Report *report)
{
    QStringList texts;
    for (const LongText &text : m_renderer.longTexts())
        texts += text.text;
    if (texts.isEmpty())
        return QImage();
    const bool isBeyondLimit = m_notShownWhole.count > 0;
    const QImage caption = isBeyondLimit ? QImage() : sheetCaption(texts, width, &m_captions);
    for (const LongText &text : m_renderer.longTexts()) {
        if (caption.isNull())
            m_notShownWhole.add(slideName(m_written));
        else
            report->remarks += QStringLiteral("slide %1: the text %2 does not fit; see %3")
                                   .arg(m_written)
                                   .arg(text.name, sheetName());
    }
    return caption;
}

bool SlideFiles::writeSlide(const QImage &slide, Report *report, QString *error)
{
    ++m_written;
    if (!writePicture(slide, QStringLiteral("slide-%1.png").arg(m_written), report, error))
        return false;
    const QImage small = thumbnail(slide, m_format);
    m_cells += {small, captionOf(small.width(), report)};
    return !fillsSheet(m_cells, m_format) || writeSheet(report, error);
}

bool SlideFiles::writeSheet(Report *report, QString *error)
{
    if (m_cells.isEmpty())
        return true;
    const QImage sheet = contactSheet(std::exchange(m_cells, {}), m_format);
    if (!writePicture(sheet, sheetName(), report, error))
        return false;
    ++m_sheets;
    return true;
}

void SlideFiles::addRemarks(Report *report) const
{
    const QString drawn = limitText(millions(m_limits.drawn), "--max-drawn");
    const QString slides = m_written == m_limits.slides
        ? limitText(QStringLiteral("%1 slides").arg(m_limits.slides), "--max-slides")
        : drawn;
    const Missing notRendered{m_total - m_written, slideName(m_written + 1)};
    report->remarks +=
        {m_renderer.notDecoded().text(QStringLiteral("pictures that were not decoded"),
                                      limitText(millions(m_limits.decoded), "--max-decoded")),
         m_renderer.notDrawn().text(QStringLiteral("media that were not drawn"), drawn),
         m_notShownWhole.text(QStringLiteral("texts that are not shown whole"), drawn),
         notRendered.text(QStringLiteral("slides that were not rendered"), slides)};
    report->remarks.removeAll(QString());
}

bool SlideFiles::write(Report *report, QString *error)
{
    const int most = std::min(m_total, m_limits.slides);
    while (m_written < most) {
        const bool fitsSheet = m_renderer.drawn().take(sheetPixels(m_renderer.size(), m_format));
        const QImage slide = fitsSheet ? m_renderer.render(unsigned(m_written)) : QImage();
        if (slide.isNull())
            break;
        if (!writeSlide(slide, report, error))
            return false;
    }
    if (!writeSheet(report, error))
        return false;
    addRemarks(report);
    return true;
}

} // namespace

bool writeSlides(const Message &message, const QString &directory, const PictureSizes &sizes,
                 const RenderLimits &limits, Report *report, QString *error)
{
    return SlideFiles(message, directory, sizes, limits).write(report, error);
}

QImage firstPage(const Message &message, int size, const RenderLimits &limits)
{
    const QSize page = pageSize(message.slides());
    const int scale = scaleFor(size, std::max(page.width(), page.height()));
    const QImage image =
        SlideRenderer(message, std::min(scale, LargestScale), limits).renderPage(0);
    return image.isNull()
        ? image
        : image.scaled(image.size().scaled(size, size, Qt::KeepAspectRatio).expandedTo({1, 1}),
                       Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QByteArray pngOctets(const QImage &image)
{
    QBuffer png;
    const bool written = png.open(QIODevice::WriteOnly) && image.save(&png, "PNG");
    return written ? png.data() : QByteArray();
}

#include "writing/slide_form.h"

#include "common/plain_tool_tip.h"
#include "edit/editor.h"
#include "edit/smaller_picture.h"
#include "input/files.h"
#include "view/terminal_text.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QFutureWatcher>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeDatabase>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QtConcurrentRun>

#include <array>

using TerminalText::visible;

namespace {

constexpr QSize UsualPicture(640, 480); // of a smaller copy
constexpr int LargePicture = 100 * 1024; // octets, from which on one is offered
/// A color that is offered.
struct NamedColor
{
    const char *value; ///< as QColor reads it
    const char *name;
};
constexpr std::array namedColors{
    NamedColor{"white", QT_TRANSLATE_NOOP("SlideForm", "White")},
    NamedColor{"black", QT_TRANSLATE_NOOP("SlideForm", "Black")},
    NamedColor{"navy", QT_TRANSLATE_NOOP("SlideForm", "Navy")},
    NamedColor{"red", QT_TRANSLATE_NOOP("SlideForm", "Red")},
    NamedColor{"green", QT_TRANSLATE_NOOP("SlideForm", "Green")},
    NamedColor{"yellow", QT_TRANSLATE_NOOP("SlideForm", "Yellow")},
    NamedColor{"silver", QT_TRANSLATE_NOOP("SlideForm", "Silver")},
};
constexpr std::array textSizes{"", "small", "normal", "large"};

QPixmap sample(const QColor &color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(color);
    return pixmap;
}

void addRow(QFormLayout *layout, const QString &title, const QList<QWidget *> &widgets)
{
    auto *row = new QHBoxLayout;
    for (QWidget *widget : widgets)
        row->addWidget(widget);
    row->addStretch();
    auto *label = new QLabel(title, layout->parentWidget());
    label->setBuddy(widgets.first());
    layout->addRow(label, row);
}

} // namespace

SlideForm::SlideForm(Editor *editor, Questions questions, QWidget *parent)
    : QWidget(parent), m_editor(editor), m_questions(std::move(questions)),
      m_text(new QPlainTextEdit(this)), m_textColor(addColors(&Editor::setTextColor)),
      m_textSize(new QComboBox(this)), m_isTextAbove(new QCheckBox(tr("Above t&he picture"), this)),
      m_pageColor(addColors(&Editor::setPageColor)), m_isFixed(new QCheckBox(tr("F&ixed:"), this)),
      m_seconds(new QDoubleSpinBox(this)), m_durationText(new QLabel(this))
{
    auto *layout = new QFormLayout(this);
    layout->setContentsMargins({});
    addText(layout);
    addTextLooks(layout);
    m_picture = addMedia(layout, tr("Picture or video:"), tr("Choose &Picture…"),
                         tr("Pictures and videos (*.jpg *.jpeg *.png *.gif *.bmp *.wbmp *.webp "
                            "*.3gp *.mp4 *.avi *.mpg);;All files (*)"),
                         SMIL_MEDIA_IMAGE);
    m_sound =
        addMedia(layout, tr("Sound:"), tr("Choose Soun&d…"),
                 tr("Sounds (*.amr *.mp3 *.aac *.m4a *.wav *.ogg *.mid *.imy);;All files (*)"),
                 SMIL_MEDIA_AUDIO);
    m_pageColor->setAccessibleName(tr("Page color"));
    addRow(layout, tr("Pa&ge color:"), {m_pageColor});
    addDuration(layout);
    connect(editor, &Editor::changed, this, &SlideForm::follow);
}

void SlideForm::addText(QFormLayout *layout)
{
    m_text->setTabChangesFocus(true);
    m_text->setUndoRedoEnabled(false); // the window's steps undo typing, too
    m_text->setMaximumHeight(fontMetrics().lineSpacing() * 6);
    layout->addRow(tr("&Text:"), m_text);
    connect(m_text, &QPlainTextEdit::textChanged, this, [this] {
        if (m_text->toPlainText() != m_editor->text(m_slide))
            report(m_editor->setText(m_slide, m_text->toPlainText()));
    });
}

void SlideForm::addTextLooks(QFormLayout *layout)
{
    m_textColor->setAccessibleName(tr("Text color"));
    m_textSize->addItems({tr("Usual size"), tr("Small"), tr("Normal"), tr("Large")});
    m_textSize->setAccessibleName(tr("Text size"));
    addRow(layout, tr("Text looks:"), {m_textColor, m_textSize, m_isTextAbove});
    connect(m_textSize, &QComboBox::activated, this, [this](int index) {
        report(m_editor->setTextSize(m_slide, QString::fromLatin1(textSizes[std::size_t(index)])));
    });
    connect(m_isTextAbove, &QCheckBox::clicked, this,
            [this](bool isAbove) { report(m_editor->setTextAbovePicture(m_slide, isAbove)); });
}

QComboBox *SlideForm::addColors(ColorSetter set)
{
    auto *box = new QComboBox(this);
    box->addItem(tr("Usual color"));
    for (const auto &[value, name] : namedColors) {
        const QColor color(QString::fromLatin1(value));
        box->addItem(sample(color), tr(name), color);
    }
    box->addItem(tr("Other…"));
    connect(box, &QComboBox::activated, this, [this, box, set](int index) {
        QColor color = box->itemData(index).value<QColor>();
        const bool isOther = index == box->count() - 1;
        if (isOther)
            color = QColorDialog::getColor(Qt::white, this);
        if (isOther && !color.isValid())
            return follow();
        report((m_editor->*set)(m_slide, index == 0 ? std::nullopt : std::optional(color)));
    });
    return box;
}

SlideForm::MediaRow SlideForm::addMedia(QFormLayout *layout, const QString &title,
                                        const QString &choose, const QString &kinds,
                                        MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind)
{
    const MediaRow row{new QLabel(this), new QPushButton(choose, this),
                       new QPushButton(tr("Remove"), this)};
    row.name->setTextFormat(Qt::PlainText);
    row.remove->setAccessibleName(kind == SMIL_MEDIA_AUDIO ? tr("Remove the sound")
                                                           : tr("Remove the picture or video"));
    addRow(layout, title, {row.choose, row.remove, row.name});
    connect(row.choose, &QPushButton::clicked, this, [this, choose, kinds, kind] {
        chooseMedia(QString(choose).remove(QLatin1Char('&')), kinds, kind);
    });
    connect(row.remove, &QPushButton::clicked, this, [this, kind] {
        report(m_editor->removeObject(m_slide, m_editor->objectIndex(m_slide, kind)));
    });
    return row;
}

void SlideForm::addDuration(QFormLayout *layout)
{
    m_seconds->setKeyboardTracking(false); // a value is one step, when it is complete
    m_seconds->setRange(0.5, 3600);
    m_seconds->setSingleStep(0.5);
    m_seconds->setDecimals(1);
    m_seconds->setSuffix(tr(" s"));
    m_seconds->setAccessibleName(tr("Duration of the slide in seconds"));
    m_durationText->setTextFormat(Qt::PlainText);
    m_durationText->setWordWrap(true);
    addRow(layout, tr("Duration:"), {m_isFixed, m_seconds});
    layout->addRow(QString(), m_durationText);
    connect(m_isFixed, &QCheckBox::clicked, this, &SlideForm::applyDuration);
    connect(m_seconds, &QDoubleSpinBox::valueChanged, this, &SlideForm::applyDuration);
}

void SlideForm::applyDuration()
{
    constexpr int Second = 1000;
    report(m_editor->setDuration(
        m_slide,
        m_isFixed->isChecked() ? std::optional(int(m_seconds->value() * Second)) : std::nullopt));
}

void SlideForm::setSlide(int slide)
{
    m_editor->endTyping();
    m_slide = slide;
    follow();
}

void SlideForm::chooseMedia(const QString &title, const QString &kinds,
                            MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind)
{
    const bool isSound = kind == SMIL_MEDIA_AUDIO;
    const QLatin1StringView otherType(isSound ? "image/" : "audio/");
    for (const QString &name : m_questions.files(this, title, kinds)) {
        if (!QMimeDatabase().mimeTypeForFile(name).name().startsWith(otherType))
            addFile(m_slide, name);
        else
            report((isSound ? tr("%1 is no sound.") : tr("%1 is neither a picture nor a video."))
                       .arg(QFileInfo(name).fileName()));
    }
}

void SlideForm::addFile(int slide, const QString &fileName)
{
    QByteArray octets;
    QString error;
    if (!readFile(fileName, StandardSizeLimit, &octets, &error))
        return report(error);
    const QString name = QFileInfo(fileName).fileName();
    if (octets.size() > LargePicture)
        offerSmaller(slide, name, octets);
    else
        add(slide, name, octets);
}

void SlideForm::add(int slide, const QString &fileName, const QByteArray &octets)
{
    report(m_editor->addMedia(slide, fileName, octets, Editor::Replace));
}

// Decodes the picture outside the window's thread. The slide takes it when that is done.
void SlideForm::offerSmaller(int slide, const QString &fileName, const QByteArray &octets)
{
    auto *watcher = new QFutureWatcher<std::optional<SmallerPicture>>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [=, this] {
        const std::optional<SmallerPicture> copy = watcher->result();
        watcher->deleteLater();
        emit reading(--m_pictures > 0);
        const Questions::Answer answer =
            copy ? m_questions.takeSmaller(this, octets.size(), *copy) : Questions::Discard;
        if (answer == Questions::Save)
            add(slide, copy->fileName, copy->octets);
        else if (answer == Questions::Discard)
            add(slide, fileName, octets);
    });
    emit reading(++m_pictures > 0);
    watcher->setFuture(QtConcurrent::run(smallerPicture, fileName, octets, UsualPicture));
}

void SlideForm::report(const QString &problem)
{
    if (problem.isEmpty())
        return;
    emit refused(visible(problem));
    follow(); // the controls show what the message has
}

void SlideForm::follow()
{
    if (m_slide >= m_editor->slideCount())
        return;
    const MMS_COMP_SMILTimingContainer &slide = *m_editor->slide(m_slide);
    followText();
    showColor(m_textColor, slide.getTextColor());
    showColor(m_pageColor, slide.getPageColor());
    followMedia(m_picture, SMIL_MEDIA_IMAGE);
    followMedia(m_sound, SMIL_MEDIA_AUDIO);
    followDuration();
}

void SlideForm::followText()
{
    const QString text = m_editor->text(m_slide);
    if (m_text->toPlainText() != text) {
        const QSignalBlocker blocker(m_text);
        m_text->setPlainText(text);
        m_text->moveCursor(QTextCursor::End);
    }
    const MMS_COMP_SMILTimingContainer &slide = *m_editor->slide(m_slide);
    const bool hasText = m_editor->objectIndex(m_slide, SMIL_MEDIA_TEXT) >= 0;
    int size = 0;
    for (std::size_t i = 0; i < textSizes.size(); ++i) {
        if (slide.getTextSize() == QLatin1StringView(textSizes[i]))
            size = int(i);
    }
    m_textSize->setCurrentIndex(size);
    m_textColor->setEnabled(hasText);
    m_textSize->setEnabled(hasText);
    m_isTextAbove->setEnabled(hasText && m_editor->objectIndex(m_slide, SMIL_MEDIA_IMAGE) >= 0);
    m_isTextAbove->setChecked(hasText && !slide.isTextBellowImg());
}

void SlideForm::followMedia(const MediaRow &row, MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind)
{
    const int index = m_editor->objectIndex(m_slide, kind);
    row.remove->setEnabled(index >= 0);
    if (index >= 0) {
        row.choose->setEnabled(true); // replaces it
        row.name->setText(
            visible(m_editor->slide(m_slide)->getMediaObject(unsigned(index))->getSrc()));
        return;
    }
    const QString whyNot = m_editor->whyNotInserted(m_slide, kind);
    row.choose->setEnabled(whyNot.isEmpty());
    row.choose->setToolTip(plainToolTip(whyNot));
    row.name->setText(whyNot);
}

void SlideForm::followDuration()
{
    constexpr double Second = 1000;
    const MMS_COMP_SMILTimingContainer &slide = *m_editor->slide(m_slide);
    const QString whyNot = m_editor->whyNoFixedDuration(m_slide);
    const QSignalBlocker blocker(m_seconds);
    m_isFixed->setEnabled(whyNot.isEmpty());
    m_isFixed->setChecked(whyNot.isEmpty() && slide.getSetDurManually());
    m_seconds->setEnabled(m_isFixed->isChecked());
    if (slide.getDur() > 0)
        m_seconds->setValue(slide.getDur() / Second);
    m_durationText->setText(whyNot);
    m_durationText->setVisible(!whyNot.isEmpty());
}

void SlideForm::showColor(QComboBox *box, const MMS_COMP_COLOR &color)
{
    const int other = box->count() - 1;
    int index = color.isUsable() && color.color.isValid() ? other : 0;
    for (int i = 1; i < other && index != 0; ++i) {
        if (box->itemData(i).value<QColor>().rgb() == color.color.rgb())
            index = i;
    }
    box->setItemIcon(other, index == other ? QIcon(sample(color.color)) : QIcon());
    box->setCurrentIndex(index);
}

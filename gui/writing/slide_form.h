/*
 * The content of one slide: text, picture or video, sound, colors, duration.
 */
#pragma once

#include "writing/questions.h"

#include <qvlsmilparser.h>

#include <QColor>
#include <QWidget>

#include <optional>

class Editor;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QLabel;
class QPlainTextEdit;
class QPushButton;
struct SmallerPicture;

class SlideForm : public QWidget
{
    Q_OBJECT

public:
    /// @p editor must exist as long as the form.
    SlideForm(Editor *editor, Questions questions, QWidget *parent = nullptr);

    /// Shows the slide @p slide, from 0.
    void setSlide(int slide);
    /// Adds the file @p fileName to the slide @p slide, from 0.
    void addFile(int slide, const QString &fileName);

signals:
    /// Something was not possible.
    void refused(const QString &why);
    /// A picture is being read, or no more. Until then, the slides must stay where they are.
    void reading(bool isReading);

private:
    /// The controls of the picture or video, or of the sound.
    struct MediaRow
    {
        QLabel *name;
        QPushButton *choose;
        QPushButton *remove;
    };
    using ColorSetter = QString (Editor::*)(int, const std::optional<QColor> &);

    void addText(QFormLayout *layout);
    void addTextLooks(QFormLayout *layout);
    void addDuration(QFormLayout *layout);
    MediaRow addMedia(QFormLayout *layout, const QString &title, const QString &choose,
                      const QString &kinds, MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind);
    QComboBox *addColors(ColorSetter set);
    void chooseMedia(const QString &title, const QString &kinds,
                     MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind);
    void add(int slide, const QString &fileName, const QByteArray &octets);
    void offerSmaller(int slide, const QString &fileName, const QByteArray &octets);
    void applyDuration();
    void report(const QString &problem);

    void follow();
    void followText();
    void followMedia(const MediaRow &row, MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind);
    void followDuration();
    static void showColor(QComboBox *box, const MMS_COMP_COLOR &color);

    Editor *m_editor;
    Questions m_questions;
    int m_slide = 0;
    int m_pictures = 0; ///< that are being read
    QPlainTextEdit *m_text;
    QComboBox *m_textColor;
    QComboBox *m_textSize;
    QCheckBox *m_isTextAbove;
    MediaRow m_picture;
    MediaRow m_sound;
    QComboBox *m_pageColor;
    QCheckBox *m_isFixed;
    QDoubleSpinBox *m_seconds;
    QLabel *m_durationText;
};

#include "writing/questions.h"

#include "common/plain_box.h"
#include "edit/smaller_picture.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QLocale>
#include <QPushButton>

namespace {

struct QuestionTexts
{
    Q_DECLARE_TR_FUNCTIONS(Questions)
};

int ask(QWidget *parent, const QString &title, const QString &text, const QString &details,
        QMessageBox::StandardButtons buttons, QMessageBox::StandardButton usual)
{
    QMessageBox box(QMessageBox::Question, title, text, buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(details);
    box.setDefaultButton(usual);
    return box.exec();
}

QString saveAs(QWidget *parent, const QString &suggested)
{
    QFileDialog dialog(parent, QuestionTexts::tr("Save Message"), {},
                       QuestionTexts::tr("Multimedia messages (*.mms)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("mms"));
    dialog.selectFile(suggested);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QStringList files(QWidget *parent, const QString &title, const QString &kinds)
{
    return QFileDialog::getOpenFileNames(parent, title, {}, kinds);
}

bool saveWithErrors(QWidget *parent, const QStringList &errors)
{
    return ask(parent, QuestionTexts::tr("Save Message"),
               QuestionTexts::tr(
                   "Receivers will refuse the message or lose something. Save it all the same?"),
               errors.join(QLatin1Char('\n')), QMessageBox::Save | QMessageBox::Cancel,
               QMessageBox::Cancel)
        == QMessageBox::Save;
}

QString sizes(qint64 octets, const QSize &pixels)
{
    return QuestionTexts::tr("%1 x %2 pixels, %3")
        .arg(pixels.width())
        .arg(pixels.height())
        .arg(QLocale().formattedDataSize(octets));
}

Questions::Answer answerOf(int button)
{
    switch (button) {
    case QMessageBox::Save:
    case QMessageBox::Yes:
        return Questions::Save;
    case QMessageBox::Discard:
    case QMessageBox::No:
        return Questions::Discard;
    default:
        return Questions::Cancel;
    }
}

Questions::Answer unsaved(QWidget *parent)
{
    return answerOf(ask(parent, QuestionTexts::tr("Close"),
                        QuestionTexts::tr("The message was not saved. Save it?"), {},
                        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel,
                        QMessageBox::Save));
}

Questions::Answer takeSmaller(QWidget *parent, qint64 octets, const SmallerPicture &copy)
{
    return answerOf(
        ask(parent, QuestionTexts::tr("Large Picture"),
            QuestionTexts::tr("Take a smaller copy of the picture?"),
            QuestionTexts::tr("The picture: %1\nThe smaller copy: %2")
                .arg(sizes(octets, copy.originalSize), sizes(copy.octets.size(), copy.size)),
            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes));
}

Questions::Answer drafts(QWidget *parent, int count)
{
    QMessageBox box(
        QMessageBox::Question, QuestionTexts::tr("Drafts"),
        QuestionTexts::tr("%n message(s) were not saved when the program ended.", nullptr, count),
        QMessageBox::NoButton, parent);
    box.setInformativeText(QuestionTexts::tr("Go on writing?"));
    const QAbstractButton *open =
        box.addButton(QuestionTexts::tr("&Go On"), QMessageBox::AcceptRole);
    const QAbstractButton *discard =
        box.addButton(QuestionTexts::tr("&Discard"), QMessageBox::DestructiveRole);
    box.setEscapeButton(box.addButton(QuestionTexts::tr("&Later"), QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == open   ? Questions::Save
        : box.clickedButton() == discard ? Questions::Discard
                                         : Questions::Cancel;
}

} // namespace

Questions Questions::dialogs()
{
    return {::saveAs, ::files, ::saveWithErrors, ::unsaved, ::takeSmaller, ::drafts, ::warn};
}

#include "writing/questions.h"

#include "common/plain_box.h"
#include "edit/smaller_picture.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QLocale>
#include <QPushButton>

namespace {

struct Text
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
    QFileDialog dialog(parent, Text::tr("Save Message"), {},
                       Text::tr("Multimedia messages (*.mms)"));
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
    return ask(parent, Text::tr("Save Message"),
               Text::tr(
                   "Receivers will refuse the message or lose something. Save it all the same?"),
               errors.join(QLatin1Char('\n')), QMessageBox::Save | QMessageBox::Cancel,
               QMessageBox::Cancel)
        == QMessageBox::Save;
}

Questions::Answer unsaved(QWidget *parent)
{
    switch (ask(parent, Text::tr("Close"), Text::tr("The message was not saved. Save it?"), {},
                QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel,
                QMessageBox::Save)) {
    case QMessageBox::Save:
        return Questions::Save;
    case QMessageBox::Discard:
        return Questions::Discard;
    default:
        return Questions::Cancel;
    }
}

QString sizes(qint64 octets, const QSize &pixels)
{
    return Text::tr("%1 x %2 pixels, %3")
        .arg(pixels.width())
        .arg(pixels.height())
        .arg(QLocale().formattedDataSize(octets));
}

bool takeSmaller(QWidget *parent, qint64 octets, const SmallerPicture &copy)
{
    return ask(parent, Text::tr("Large Picture"), Text::tr("Take a smaller copy of the picture?"),
               Text::tr("The picture: %1\nThe smaller copy: %2")
                   .arg(sizes(octets, copy.originalSize), sizes(copy.octets.size(), copy.size)),
               QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes)
        == QMessageBox::Yes;
}

Questions::Answer drafts(QWidget *parent, int count)
{
    QMessageBox box(
        QMessageBox::Question, Text::tr("Drafts"),
        Text::tr("%n message(s) were not saved when the program ended.", nullptr, count),
        QMessageBox::NoButton, parent);
    box.setInformativeText(Text::tr("Go on writing?"));
    const QAbstractButton *open = box.addButton(Text::tr("&Go On"), QMessageBox::AcceptRole);
    const QAbstractButton *discard =
        box.addButton(Text::tr("&Discard"), QMessageBox::DestructiveRole);
    box.setEscapeButton(box.addButton(Text::tr("&Later"), QMessageBox::RejectRole));
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

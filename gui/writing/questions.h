/*
 * What the window to write in asks the user. Tests answer in the user's place.
 */
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;
struct SmallerPicture;

struct Questions
{
    enum Answer : unsigned char { Save, Discard, Cancel };

    /// A file name to save as; "" for none.
    std::function<QString(QWidget *parent, const QString &suggested)> saveAs;
    /// Files of the given kinds, such as "*.png *.jpg"; empty for none.
    std::function<QStringList(QWidget *parent, const QString &title, const QString &kinds)> files;
    /// Whether to save in spite of these errors.
    std::function<bool(QWidget *parent, const QStringList &errors)> saveWithErrors;
    /// What becomes of unsaved work.
    std::function<Answer(QWidget *parent)> unsaved;
    /// Whether to take the smaller copy of a picture (Save) or the original (Discard); @p octets is
    /// the size of the original.
    std::function<Answer(QWidget *parent, qint64 octets, const SmallerPicture &copy)> takeSmaller;
    /// What becomes of drafts that a crash left: Save opens them, Cancel leaves them for later.
    std::function<Answer(QWidget *parent, int drafts)> drafts;
    /// Says why something is not possible.
    std::function<void(QWidget *parent, const QString &title, const QString &why)> refuse;

    /// Asks with dialogs.
    static Questions dialogs();
};

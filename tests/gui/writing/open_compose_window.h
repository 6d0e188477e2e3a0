/*
 * What the tests of the window to write in share: an open window, and the answers to its questions.
 */
#pragma once

#include "writing/compose_window.h"

#include "edit/beginnings.h"
#include "input/message.h"
#include "pictures.h"
#include "shown_texts.h"
#include "user_folders.h"

#include <QAccessible>
#include <QAction>
#include <QFile>
#include <QPointer>
#include <QTest>

class OpenComposeWindow : public QObject
{
    Q_OBJECT

public:
    static void initMain() { useFoldersOfTheTest(); }

private slots:
    void init();
    void cleanup();

protected:
    QAction *action(const QString &text) const;
    template <typename Control>
    Control *control(const QString &accessibleName) const;
    QString path(const QString &name) const { return m_folder.filePath(name); }
    QString write(const QString &name, const QByteArray &octets) const;
    std::unique_ptr<Message> saved() const;

    QTemporaryDir m_folder;
    QPointer<ComposeWindow> m_window;
    Editor *m_editor = nullptr;

    // Answers
    QString m_saveAs;
    QStringList m_files;
    bool m_savesWithErrors = true;
    Questions::Answer m_unsaved = Questions::Cancel;
    bool m_takesSmaller = false;
    Questions::Answer m_drafts = Questions::Cancel;
    // What was asked
    QStringList m_errors;
    QStringList m_refused;
    int m_unsavedAsked = 0;
    int m_smallerAsked = 0;

    Questions questions();
};

inline Questions OpenComposeWindow::questions()
{
    Questions answers;
    answers.saveAs = [this](QWidget *, const QString &) { return m_saveAs; };
    answers.files = [this](QWidget *, const QString &, const QString &) { return m_files; };
    answers.saveWithErrors = [this](QWidget *, const QStringList &errors) {
        m_errors = errors;
        return m_savesWithErrors;
    };
    answers.unsaved = [this](QWidget *) {
        ++m_unsavedAsked;
        return m_unsaved;
    };
    answers.takeSmaller = [this](QWidget *, qint64, const SmallerPicture &) {
        ++m_smallerAsked;
        return m_takesSmaller ? Questions::Save : Questions::Discard;
    };
    answers.drafts = [this](QWidget *, int) { return m_drafts; };
    answers.refuse = [this](QWidget *, const QString &, const QString &why) { m_refused += why; };
    return answers;
}

inline void OpenComposeWindow::init()
{
    m_saveAs = path(QStringLiteral("saved.mms"));
    QFile::remove(m_saveAs);
    m_files.clear();
    m_savesWithErrors = true;
    m_unsaved = Questions::Cancel;
    m_takesSmaller = false;
    m_errors.clear();
    m_refused.clear();
    m_unsavedAsked = m_smallerAsked = 0;
    m_window = ComposeWindow::open(Beginnings::newMessage(), questions());
    m_editor = &m_window->editor();
}

inline void OpenComposeWindow::cleanup()
{
    if (m_window && m_window->editor().isModified())
        m_unsaved = Questions::Discard;
    if (m_window)
        m_window->close();
    delete m_window;
    m_drafts = Questions::Discard;
    ComposeWindow::offerDrafts(nullptr, questions());
    m_drafts = Questions::Cancel;
}

inline QAction *OpenComposeWindow::action(const QString &text) const
{
    for (QAction *action : m_window->findChildren<QAction *>()) {
        const QString shown = plain(action->text()); // "Undo" names the step
        if (shown == text || (text.endsWith(u"do") && shown.startsWith(text)))
            return action;
    }
    qFatal("no action %s", qPrintable(text));
}

template <typename Control>
Control *OpenComposeWindow::control(const QString &name) const
{
    for (Control *control : m_window->findChildren<Control *>()) {
        QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(control);
        if (control->accessibleName() == name
            || plain(interface->text(QAccessible::Name)).remove(u':') == name)
            return control;
    }
    qFatal("no control %s", qPrintable(name));
}

inline QString OpenComposeWindow::write(const QString &name, const QByteArray &octets) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(octets) != octets.size())
        qFatal("cannot write");
    return path(name);
}

inline std::unique_ptr<Message> OpenComposeWindow::saved() const
{
    QString error;
    std::unique_ptr<Message> message = readMessage(m_saveAs, {}, &error);
    if (!message)
        qFatal("%s", qPrintable(error));
    return message;
}

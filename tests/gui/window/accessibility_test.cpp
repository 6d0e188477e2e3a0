/*
 * Screen readers and keyboards: each control that takes the focus has a name and a role.
 */
#include "user_folders.h"

#include "edit/beginnings.h"
#include "window/main_window.h"
#include "window/settings_dialog.h"
#include "window/shortcuts_dialog.h"
#include "writing/compose_window.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QTest>
#include <QTranslator>

class AccessibilityTest : public QObject
{
    Q_OBJECT

public:
    static void initMain() { useFoldersOfTheTest(); }

private slots:
    void controlsOfTheMainWindowHaveNames_data();
    void controlsOfTheMainWindowHaveNames();
    void controlsOfTheWindowToWriteInHaveNames();
    void controlsOfDialogsHaveNames();
    void menusHaveMnemonics_data() { addLanguages(); }
    void menusHaveMnemonics();
    void mnemonicsOfTheWindowToWriteInAreDifferent_data() { addLanguages(); }
    void mnemonicsOfTheWindowToWriteInAreDifferent();

private:
    static void addLanguages();
};

namespace {

/// The texts of a language, as long as the object exists.
class Language
{
public:
    explicit Language(const QString &language)
    {
        m_isLoaded = m_translator.load(QStringLiteral(QVL_TRANSLATIONS "/qvlmms-gui_") + language)
            && QCoreApplication::installTranslator(&m_translator);
    }
    bool isLoaded() const { return m_isLoaded; }

private:
    QTranslator m_translator; // removes itself
    bool m_isLoaded = false;
};

bool isPartOfAnother(const QWidget &widget)
{
    // Qt names the inner widgets of its own controls, such as the line of a spin box.
    return widget.objectName().startsWith(QStringLiteral("qt_"));
}

/// The class names of the controls without a name or a role.
QStringList controlsWithoutName(const QWidget &window, int *count)
{
    QStringList found;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        const auto *tabs = qobject_cast<const QTabBar *>(widget);
        const bool isUnused = tabs && tabs->count() == 0;
        if (widget->focusPolicy() == Qt::NoFocus || isPartOfAnother(*widget) || isUnused)
            continue;
        QAccessibleInterface *control = QAccessible::queryAccessibleInterface(widget);
        ++*count;
        if (!control || control->text(QAccessible::Name).isEmpty()
            || control->role() == QAccessible::NoRole)
            found += QString::fromLatin1(widget->metaObject()->className()) + u' '
                + QString::fromLatin1(widget->parent()->metaObject()->className());
    }
    return found;
}

void verifyControls(const QWidget &window, int least)
{
    int count = 0;
    const QStringList found = controlsWithoutName(window, &count);
    QVERIFY2(found.isEmpty(), qPrintable(found.join(QStringLiteral(", "))));
    QVERIFY2(count >= least, qPrintable(QString::number(count)));
}

} // namespace

void AccessibilityTest::controlsOfTheMainWindowHaveNames_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"messages/related.mms", "messages/notification.mms",
                             "show/truncated-header.mms", "messages", "messages/none.mms"})
        QTest::newRow(name) << QStringLiteral(QVL_FIXTURES "/") + QString::fromLatin1(name);
}

void AccessibilityTest::controlsOfTheMainWindowHaveNames()
{
    QFETCH(QString, name);
    auto *window = new MainWindow;
    window->setVisible(true);
    window->open({name});
    QTRY_VERIFY(!window->isBusy());
    verifyControls(*window, 12);
    delete window;
}

void AccessibilityTest::controlsOfTheWindowToWriteInHaveNames()
{
    ComposeWindow *window = ComposeWindow::open(Beginnings::newMessage());
    verifyControls(*window, 15);
    delete window;
}

void AccessibilityTest::controlsOfDialogsHaveNames()
{
    verifyControls(SettingsDialog(), 2);
    MainWindow window;
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    verifyControls(ShortcutsDialog(&window), 2);
}

void AccessibilityTest::addLanguages()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << QStringLiteral("en");
    QTest::newRow("German") << QStringLiteral("de");
}

void AccessibilityTest::menusHaveMnemonics()
{
    QFETCH(const QString, language);
    const Language texts(language);
    if (!texts.isLoaded() && !qEnvironmentVariableIsSet("CI"))
        QSKIP("Qt's linguist tools are missing");
    QVERIFY(texts.isLoaded());
    MainWindow window;
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    for (const QAction *menu : window.menuBar()->actions()) {
        QVERIFY2(menu->text().contains(u'&'), qPrintable(menu->text()));
        QVERIFY(menu->menu());
    }
}

void AccessibilityTest::mnemonicsOfTheWindowToWriteInAreDifferent()
{
    QFETCH(const QString, language);
    const Language translated(language);
    if (!translated.isLoaded() && !qEnvironmentVariableIsSet("CI"))
        QSKIP("Qt's linguist tools are missing");
    QVERIFY(translated.isLoaded());
    ComposeWindow *window = ComposeWindow::open(Beginnings::newMessage());
    QMap<QChar, QString> texts;
    QStringList all;
    for (const QAction *menu : window->menuBar()->actions())
        all += menu->text();
    for (const QLabel *label : window->findChildren<QLabel *>())
        all += label->text();
    for (const QAbstractButton *button : window->findChildren<QAbstractButton *>())
        all += button->text();
    for (const QString &text : all) {
        const qsizetype sign = text.indexOf(u'&');
        if (sign < 0)
            continue;
        const QChar letter = text[sign + 1].toLower();
        QVERIFY2(!texts.contains(letter), qPrintable(texts.value(letter) + u' ' + text));
        texts.insert(letter, text);
    }
    QVERIFY(texts.size() > 12);
    delete window;
}

QTEST_MAIN(AccessibilityTest)
#include "accessibility_test.moc"

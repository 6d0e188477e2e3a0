/*
 * qvlmms-gui: looks at multimedia messages and writes them.
 */
#include "convert/child.h"
#include "input/file_name.h"
#include "window/main_window.h"
#include "window/screenshot.h"
#include "writing/compose_window.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QLibraryInfo>
#include <QTranslator>

#include <cstdio>
#include <cstring>

namespace {

constexpr int CannotDo = 2; // as the command
constexpr QLatin1StringView DesktopId("example.qvlsmilparser.window");

// Qt's own list has no octets that are not UTF-8.
QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments += FileName::fromOctets(argv[i]);
    return arguments;
}

void setUpApplication()
{
    QApplication::setOrganizationName(QStringLiteral("qvlsmilparser"));
    QApplication::setApplicationName(QStringLiteral("qvlmms-gui"));
    QApplication::setApplicationVersion(QStringLiteral(QVLMMS_VERSION));
    QApplication::setDesktopFileName(DesktopId);
    QApplication::setWindowIcon(QIcon::fromTheme(DesktopId));
}

bool installTexts(const QLocale &locale, const QString &name, const QString &folder)
{
    auto *translator = new QTranslator(qApp);
    return translator->load(locale, name, QStringLiteral("_"), folder)
        && QApplication::installTranslator(translator);
}

// Texts of Qt's own dialogs come from Qt's package of translations, if that is installed.
void translate()
{
    const QString name = QStringLiteral("qvlmms-gui");
    const QString folder = QStringLiteral(":/translations");
    installTexts(QLocale(), QStringLiteral("qtbase"),
                 QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    if (!installTexts(QLocale(), name, folder))
        installTexts(QLocale(QLocale::English), name, folder); // singular and plural
}

/// The command line; ends the program for --help and --version.
class Options
{
public:
    /// False, with a message on standard error, if it is wrong.
    bool read(const QStringList &arguments)
    {
        m_parser.setApplicationDescription(
            QApplication::translate("main", "Looks at multimedia messages (MMS) and writes them."));
        const QCommandLineOption help = m_parser.addHelpOption();
        const QCommandLineOption version = m_parser.addVersionOption();
        m_parser.addOption(m_screenshot);
        m_parser.addPositionalArgument(QStringLiteral("names"),
                                       QApplication::translate("main", "Files or folders to open"),
                                       QStringLiteral("[FILE|FOLDER...]"));
        if (!m_parser.parse(arguments)) {
            std::fprintf(stderr, "qvlmms-gui: %s\n", qUtf8Printable(m_parser.errorText()));
            return false;
        }
        if (m_parser.isSet(help))
            m_parser.showHelp();
        if (m_parser.isSet(version))
            m_parser.showVersion();
        return true;
    }

    QStringList names() const { return m_parser.positionalArguments(); }
    QString screenshot() const { return m_parser.value(m_screenshot); }

private:
    QCommandLineParser m_parser;
    QCommandLineOption m_screenshot{
        QStringLiteral("screenshot"),
        QApplication::translate("main", "Save a picture of the window as PNG, and end"),
        QStringLiteral("FILE")};
};

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1 && std::strcmp(argv[1], ConvertChild::Argument) == 0)
        return ConvertChild::run(argc - 2, argv + 2);
    QApplication application(argc, argv);
    setUpApplication();
    translate();
    Options options;
    if (!options.read(argumentsOf(argc, argv)))
        return CannotDo;
    auto *window = new MainWindow;
    window->setVisible(true);
    window->open(options.names());
    if (!options.screenshot().isEmpty())
        new Screenshot(window, options.screenshot(), window);
    else
        ComposeWindow::offerDrafts(window);
    return QApplication::exec();
}

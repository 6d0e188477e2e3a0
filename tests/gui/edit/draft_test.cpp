/*
 * Unsaved work: its file, its lock, when it is written and removed, and what a crash leaves.
 */
#include "edit/beginnings.h"
#include "edit/draft_keeper.h"

#include "sample_message.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>

namespace {

/// Elapses when the test says so.
class FakeTimer : public DraftTimer
{
public:
    struct State
    {
        int milliseconds = -1; ///< -1 while it is stopped
        int starts = 0;
        std::function<void()> function;

        void elapse()
        {
            milliseconds = -1;
            function();
        }
    };

    explicit FakeTimer(State *state) : m_state(state) { }
    void start(int milliseconds, const std::function<void()> &function) override
    {
        *m_state = {milliseconds, m_state->starts + 1, function};
    }
    void stop() override { m_state->milliseconds = -1; }

private:
    State *m_state;
};

/// An editor with a draft in a folder of its own.
struct Session
{
    QTemporaryDir root;
    QString folder = root.filePath("data/drafts");
    QString error;
    FakeTimer::State timer;
    std::unique_ptr<Editor> editor = Beginnings::newMessage();
    DraftKeeper keeper{editor.get(), MessageDraft::create(folder, &error),
                       std::make_unique<FakeTimer>(&timer)};

    bool hasFile() const { return QFile::exists(keeper.draft().fileName()); }
};

std::unique_ptr<Message> read(const QString &fileName)
{
    QString error;
    return readMessage(fileName, {}, &error);
}

// The other process: edits, writes its draft, edits again, and waits to be killed.
int editUntilKilled(const QString &folder)
{
    QString error;
    const auto editor = Beginnings::newMessage();
    FakeTimer::State timer;
    DraftKeeper keeper(editor.get(), MessageDraft::create(folder, &error),
                       std::make_unique<FakeTimer>(&timer));
    std::ignore = editor->setText(0, "written");
    timer.elapse();
    std::ignore = editor->setText(0, "not written");
    std::puts("ready");
    std::fflush(stdout);
    return std::getchar();
}

} // namespace

class DraftTest : public QObject
{
    Q_OBJECT

private slots:
    void isWrittenAfterTyping()
    {
        Session session;
        QCOMPARE(session.error, QString());
        QCOMPARE(session.timer.starts, 0);
        QCOMPARE(session.editor->setText(0, "a"), QString());
        QCOMPARE(session.timer.milliseconds, 2000);
        QCOMPARE(session.editor->setText(0, "ab"), QString());
        QCOMPARE(session.timer.starts, 2);
        QVERIFY(!session.hasFile());
        session.timer.elapse();
        QVERIFY(session.hasFile());
        const auto draft = read(session.keeper.draft().fileName());
        QVERIFY(!draft->isRefused());
        QCOMPARE(Beginnings::resume(*draft)->text(0), QStringLiteral("ab"));
    }

    void isForTheUserAlone()
    {
        Session session;
        QCOMPARE(session.editor->setText(0, "a"), QString());
        session.timer.elapse();
        const QString fileName = session.keeper.draft().fileName();
        constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup
            | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
        QVERIFY(!(QFile::permissions(fileName) & (others | QFile::ExeOwner)));
        QVERIFY(!(QFile::permissions(session.folder) & others));
        QCOMPARE(session.editor->setText(0, "b"), QString());
        session.timer.elapse();
        QVERIFY(!(QFile::permissions(fileName) & others));
    }

    void isReplacedAtOnce()
    {
        Session session;
        QCOMPARE(session.editor->setText(0, "a"), QString());
        session.timer.elapse();
        QFile old(session.keeper.draft().fileName());
        QVERIFY(old.open(QIODevice::ReadOnly));
        const QByteArray octets = old.peek(1'000'000);
        QCOMPARE(session.editor->setText(0, "another"), QString());
        session.timer.elapse();
        QCOMPARE(old.readAll(), octets); // a new file has the name
        QCOMPARE(Beginnings::resume(*read(old.fileName()))->text(0), QStringLiteral("another"));
        QCOMPARE(QDir(session.folder).entryList({"*.mms*"}, QDir::Files | QDir::Hidden).size(), 2);
    }

    void isRemovedAfterSaving()
    {
        Session session;
        QCOMPARE(session.editor->setText(0, "a"), QString());
        session.timer.elapse();
        QVERIFY(session.hasFile());
        session.editor->setSaved();
        QVERIFY(!session.hasFile());
        QCOMPARE(session.editor->setText(0, "ab"), QString());
        session.timer.elapse();
        QVERIFY(session.hasFile());
    }

    void isRemovedWhenAllIsUndone()
    {
        Session session;
        QCOMPARE(session.editor->setText(0, "a"), QString());
        session.timer.elapse();
        session.editor->steps()->undo();
        QVERIFY(!session.hasFile());
        QCOMPARE(session.timer.milliseconds, -1);
    }

    void isRemovedWhenDiscarded()
    {
        Session session;
        QCOMPARE(session.editor->setText(0, "a"), QString());
        session.timer.elapse();
        QCOMPARE(session.editor->setText(0, "b"), QString());
        session.keeper.discard();
        QVERIFY(!session.hasFile());
        QCOMPARE(session.timer.milliseconds, -1);
        session.keeper.flush();
        QVERIFY(!session.hasFile());
    }

    void isWrittenAtClose()
    {
        Session session;
        session.keeper.flush();
        QVERIFY(!session.hasFile());
        QCOMPARE(session.editor->setText(0, "a"), QString());
        session.keeper.flush();
        QVERIFY(session.hasFile());
    }

    void saysWhenItCannotBeWritten()
    {
        Session session;
        QSignalSpy failures(&session.keeper, &DraftKeeper::failed);
        QCOMPARE(session.editor->setText(0, "a"), QString());
        QVERIFY(QDir(session.folder).removeRecursively());
        session.timer.elapse();
        QCOMPARE(failures.size(), 1);
        QVERIFY(!failures.first().first().toString().isEmpty());
    }

    void keepsWhatAnIncompleteMessageHas()
    {
        Session session;
        Editor &editor = *session.editor;
        QCOMPARE(editor.addSlide(1), QString());
        QCOMPARE(editor.setPageColor(1, QColor(Qt::red)), QString());
        QCOMPARE(editor.setTextColor(0, QColor(Qt::blue)), QString());
        QCOMPARE(editor.setTextSize(0, "large"), QString());
        QCOMPARE(editor.setDuration(0, 1500), QString());
        session.timer.elapse();
        const auto resumed = Beginnings::resume(*read(session.keeper.draft().fileName()));
        QVERIFY(resumed->isModified());
        QCOMPARE(resumed->slideCount(), 2);
        QCOMPARE(SampleMessage::colorFact(resumed->slide(1)->getPageColor()),
                 QColor(Qt::red).name());
        QCOMPARE(SampleMessage::colorFact(resumed->slide(0)->getTextColor()),
                 QColor(Qt::blue).name());
        QCOMPARE(resumed->slide(0)->getTextSize(), QStringLiteral("large"));
        QCOMPARE(resumed->slide(0)->getDur(), 1500);
        QVERIFY(resumed->slide(0)->getSetDurManually());
    }

    void isLockedWhileItsWindowExists()
    {
        QString fileName;
        QString folder;
        const QTemporaryDir root;
        {
            QString error;
            folder = root.filePath("drafts");
            const auto draft = MessageDraft::create(folder, &error);
            QVERIFY(draft->write("octets", &error));
            fileName = draft->fileName();
            QVERIFY(!MessageDraft::open(fileName));
            QCOMPARE(MessageDraft::abandoned(folder), QStringList());
        }
        QCOMPARE(MessageDraft::abandoned(folder), QStringList(fileName));
        const auto draft = MessageDraft::open(fileName);
        QVERIFY(draft);
        QCOMPARE(MessageDraft::abandoned(folder), QStringList());
        QVERIFY(draft->remove());
    }

    void needsAFolder()
    {
        const QTemporaryDir root;
        QFile file(root.filePath("file"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QString error;
        QVERIFY(!MessageDraft::create(file.fileName() + "/drafts", &error));
        QVERIFY(!error.isEmpty());
        QCOMPARE(MessageDraft::abandoned(root.filePath("none")), QStringList());
    }

    void isOfferedAgainAfterACrash()
    {
        const QTemporaryDir root;
        const QString folder = root.filePath("drafts");
        QProcess other;
        other.start(QCoreApplication::applicationFilePath(), {"--edit", folder});
        QVERIFY(other.waitForReadyRead());
        QCOMPARE(other.readLine().trimmed(), QByteArray("ready"));
        QCOMPARE(QDir(folder).entryList({"*.mms"}).size(), 1);
        QCOMPARE(MessageDraft::abandoned(folder), QStringList());
        other.kill();
        QVERIFY(other.waitForFinished());

        const QStringList left = MessageDraft::abandoned(folder);
        QCOMPARE(left.size(), 1);
        auto draft = MessageDraft::open(left.first());
        QVERIFY(draft);
        const auto editor = Beginnings::resume(*read(left.first()));
        QCOMPARE(editor->text(0), QStringLiteral("written"));
        QVERIFY(editor->isModified());
        FakeTimer::State timer;
        const DraftKeeper keeper(editor.get(), std::move(draft),
                                 std::make_unique<FakeTimer>(&timer));
        editor->setSaved();
        QVERIFY(!editor->isModified());
        QCOMPARE(QDir(folder).entryList({"*.mms"}), QStringList());
    }

    void aCrashBeforeTheFirstWritingLeavesNothing()
    {
        const QTemporaryDir root;
        QFile lock(root.filePath("draft.mms.lock"));
        QVERIFY(lock.open(QIODevice::WriteOnly));
        lock.write("999999999\nqvlmms-gui\n\n");
        lock.close();
        QCOMPARE(MessageDraft::abandoned(root.path()), QStringList());
        QVERIFY(QFile::exists(root.path()));
    }

    void theSystemsTimerCallsLater()
    {
        SystemDraftTimer timer;
        int calls = 0;
        timer.start(0, [&] { calls += 100; });
        timer.start(0, [&] { ++calls; });
        QVERIFY(QTest::qWaitFor([&] { return calls == 1; }));
        timer.start(0, [&] { ++calls; });
        timer.stop();
        QCoreApplication::processEvents();
        QCOMPARE(calls, 1);
    }
};

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("--edit"))
        return editUntilKilled(arguments.value(2));
    DraftTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "draft_test.moc"

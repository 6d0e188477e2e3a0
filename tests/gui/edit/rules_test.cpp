/*
 * What actions of the editor do beyond the library: steps that join, durations, refusals, parts of
 * their own, colors that survive saving, and little memory for many steps.
 */
#include "edit/beginnings.h"

#include "sample_message.h"
#ifdef COUNT_ALLOCATIONS
#include "support/allocations.h"
#endif

#include <QtTest>

using SampleMessage::facts;
using Slide = MMS_COMP_SMILTimingContainer;

namespace {

std::unique_ptr<Message> saved(const Editor &editor)
{
    const Outgoing outgoing = editor.encodeToSave();
    if (!outgoing.problem.isEmpty())
        qWarning("%s", qPrintable(outgoing.problem));
    return decodeMessage(outgoing.pdu);
}

QStringList pageColors(const Message &message)
{
    QStringList colors;
    for (unsigned int i = 0; i < message.slides().getTotalSlidesNum(); ++i)
        colors += SampleMessage::colorFact(message.slides().getSlide(i)->getPageColor());
    return colors;
}

QByteArray contentOf(const Message &message, unsigned int slide, unsigned int object)
{
    const auto *media = message.slides().getMediaObject(slide, object);
    return media && media->getData() ? media->getData()->getBodyData() : QByteArray("nothing");
}

// Two slides that show the same text.
std::unique_ptr<Message> messageWithSharedText()
{
    const QByteArray smil = "<smil><head><layout><root-layout width=\"120\" height=\"160\"/>"
                            "</layout></head><body><par dur=\"2s\"><text src=\"t.txt\"/></par>"
                            "<par><text src=\"t.txt\"/></par></body></smil>";
    auto message = std::make_unique<Message>();
    SampleMessage::beginHeader(&message->header());
    auto *text = new MMS_COMP_SMILMultipartBodypart;
    text->setContentType(QStringLiteral("text"));
    text->setContentSubType(QStringLiteral("plain"));
    text->setContentLocation(QStringLiteral("t.txt"));
    text->setBodyData(QByteArray("both"));
    message->parts().appendBodypart(text);
    std::ignore = MMS_COMP_SMILParser().parse(smil, &message->parts(), &message->slides());
    std::ignore = message->storeSlides();
    QByteArray pdu;
    std::ignore = message->encode(&pdu);
    return decodeMessage(pdu);
}

} // namespace

class RulesTest : public QObject
{
    Q_OBJECT

private slots:
    void typingIsOneStep()
    {
        Editor editor(SampleMessage::create());
        const QStringList before = facts(editor.message());
        for (const char *text : {"o", "on", "ont", "onto"})
            QCOMPARE(editor.setText(0, QString::fromLatin1(text)), QString());
        QCOMPARE(editor.steps()->count(), 1);
        QCOMPARE(editor.text(0), QStringLiteral("onto"));
        editor.steps()->undo();
        QCOMPARE(facts(editor.message()), before);
        editor.steps()->redo();
        QCOMPARE(editor.text(0), QStringLiteral("onto"));
    }

    void typingElsewhereIsAnotherStep()
    {
        Editor editor(SampleMessage::create());
        QCOMPARE(editor.setText(0, "x"), QString());
        QCOMPARE(editor.setText(1, "x"), QString());
        QCOMPARE(editor.setSubject("x"), QString());
        QCOMPARE(editor.setSubject("xy"), QString());
        editor.endTyping();
        QCOMPARE(editor.setSubject("xyz"), QString());
        QCOMPARE(editor.steps()->count(), 4);
    }

    void typingAfterUndoIsAnotherStep()
    {
        Editor editor(SampleMessage::create());
        QCOMPARE(editor.setSubject("a"), QString());
        QCOMPARE(editor.addSlide(0), QString());
        editor.steps()->undo();
        QCOMPARE(editor.setSubject("ab"), QString());
        QCOMPARE(editor.steps()->count(), 2);
    }

    void typingBackLeavesNoStep()
    {
        Editor editor(SampleMessage::create());
        QCOMPARE(editor.setSubject("Sampl"), QString());
        QCOMPARE(editor.setSubject("Sample"), QString());
        QCOMPARE(editor.steps()->count(), 0);
        QVERIFY(!editor.isModified());
    }

    void whatChangesNothingIsNoStep()
    {
        Editor editor(SampleMessage::create());
        QSignalSpy changes(&editor, &Editor::changed);
        QCOMPARE(editor.setSubject("Sample"), QString());
        QCOMPARE(editor.setText(0, "one"), QString());
        QCOMPARE(editor.setPageColor(0, QColor(Qt::darkBlue)), QString());
        QCOMPARE(editor.setDuration(0, {}), QString());
        QCOMPARE(editor.moveSlide(1, 1), QString());
        QCOMPARE(editor.setTextAbovePicture(0, false), QString());
        QCOMPARE(editor.steps()->count(), 0);
        QCOMPARE(changes.size(), 0);
    }

    void modifiedSinceSaving()
    {
        Editor editor(SampleMessage::create());
        QCOMPARE(editor.setSubject("x"), QString());
        editor.setSaved();
        QVERIFY(!editor.isModified());
        QCOMPARE(editor.setSubject("xy"), QString());
        QCOMPARE(editor.steps()->count(), 2);
        QVERIFY(editor.isModified());
        editor.steps()->undo();
        QVERIFY(!editor.isModified());
    }

    void fixedDurationsAreRoundedUp_data()
    {
        QTest::addColumn<int>("given");
        QTest::addColumn<int>("expected");
        QTest::newRow("least") << 1 << 500;
        QTest::newRow("whole step") << 1500 << 1500;
        QTest::newRow("above a step") << 1501 << 2000;
        QTest::newRow("most") << std::numeric_limits<int>::max() << 2147483500;
    }

    void fixedDurationsAreRoundedUp()
    {
        QFETCH(const int, given);
        QFETCH(const int, expected);
        Editor editor(SampleMessage::create());
        QCOMPARE(editor.setDuration(0, given), QString());
        QCOMPARE(editor.slide(0)->getDur(), expected);
        QVERIFY(editor.slide(0)->getSetDurManually());
        QCOMPARE(editor.setDuration(0, {}), QString());
        QCOMPARE(editor.slide(0)->getDur(), int(QvlDuration::Default));
        QVERIFY(!editor.slide(0)->getSetDurManually());
    }

    void clipsSettleTheDuration()
    {
        Editor editor(SampleMessage::create());
        const int soundLength = editor.slide(1)->getDur();
        const int videoLength = editor.slide(2)->getDur();
        QVERIFY(soundLength > 0 && soundLength % 500 == 0);
        QVERIFY(!editor.setDuration(1, 9000).isEmpty());
        QVERIFY(!editor.setDuration(2, 9000).isEmpty());
        QCOMPARE(editor.steps()->count(), 0);

        QCOMPARE(editor.setDuration(0, 9000), QString());
        QCOMPARE(editor.addMedia(0, "s.amr", SampleMessage::clip("sound.amr"), Editor::Insert),
                 QString());
        QCOMPARE(editor.slide(0)->getDur(), soundLength);
        QVERIFY(!editor.slide(0)->getSetDurManually());
        QCOMPARE(editor.addMedia(2, "s.amr", SampleMessage::clip("sound.amr"), Editor::Insert),
                 QString());
        QVERIFY(editor.slide(2)->getDur() >= soundLength + videoLength - 500);
        QVERIFY(editor.slide(2)->getDur() > videoLength);
    }

    void aPictureInPlaceOfAVideoResetsTheDuration()
    {
        Editor editor(SampleMessage::create());
        QCOMPARE(editor.addMedia(2, "p.png", coloredPicture(Qt::red), Editor::Replace), QString());
        QCOMPARE(editor.slide(2)->getDur(), int(QvlDuration::Default));
        QCOMPARE(editor.slide(2)->getMediaObjectCount(), 1U);
    }

    void refusalsSayWhyAndChangeNothing()
    {
        Editor editor(SampleMessage::create());
        const QStringList before = facts(editor.message());
        const QByteArray png = coloredPicture(Qt::red);
        const QStringList reasons{
            editor.addMedia(0, "p.png", png, Editor::Insert),
            editor.addMedia(2, "p.png", png, Editor::Insert),
            editor.addMedia(1, "s.amr", SampleMessage::clip("sound.amr"), Editor::Insert),
            editor.addMedia(0, "notes.txt", "notes", Editor::Replace),
            editor.addMedia(0, "p.png", "no picture", Editor::Replace),
            editor.addMedia(9, "p.png", png, Editor::Insert),
            editor.setRecipients(Recipients::To, {"nobody"}),
            editor.setSubject("two\nlines"),
            editor.setSubject(QString(QChar(0xD800))),
            editor.setPriority(7),
            editor.setExpiry(0),
            editor.setDeliveryTime(QDateTime()),
            editor.setDuration(0, 0),
            editor.setText(9, "x"),
            editor.setTextSize(0, "huge"),
            editor.setTextAbovePicture(2, true),
            editor.deleteSlide(3),
            editor.deleteSlide(-1),
            editor.duplicateSlide(3),
            editor.moveSlide(0, 3),
            editor.removeObject(0, 2),
            editor.removeAttachment(1)};
        for (const QString &reason : reasons)
            QVERIFY2(!reason.isEmpty(), qPrintable(QString::number(reasons.indexOf(reason))));
        QCOMPARE(facts(editor.message()), before);
        QCOMPARE(editor.steps()->count(), 0);
    }

    void aMessageHasRoomForItsSlides()
    {
        Editor editor(SampleMessage::create());
        while (editor.attach("n.txt", "n").isEmpty()) { }
        QCOMPARE(editor.message().parts().getPartCount(), QvlMessage::MostParts - 1);
        QVERIFY(!editor.duplicateSlide(0).isEmpty());
        QVERIFY(!editor.setText(2, "x").isEmpty());
        QCOMPARE(saved(editor)->parts().getPartCount(), int(QvlMessage::MostParts));
    }

    void aDuplicateSurvivesItsOriginal()
    {
        Editor editor(SampleMessage::create());
        const QByteArray text = contentOf(editor.message(), 0, 0);
        const QByteArray picture = contentOf(editor.message(), 0, 1);
        const auto *object = editor.slide(0)->getMediaObject(0);
        const MMS_COMP_SMIL_TIME begin = object->getBegin();
        QCOMPARE(editor.duplicateSlide(0), QString());
        QCOMPARE(editor.slide(1)->getMediaObject(0)->getBegin().timeType, begin.timeType);
        QCOMPARE(editor.deleteSlide(0), QString());
        const auto read = saved(editor);
        QVERIFY(!read->isRefused());
        QCOMPARE(read->slides().getTotalSlidesNum(), 3U);
        QCOMPARE(contentOf(*read, 0, 0), text);
        QCOMPARE(contentOf(*read, 0, 1), picture);
        QCOMPARE(pageColors(*read).first(), QColor(Qt::darkBlue).name());
        QCOMPARE(read->parts().getPartCount(), 7);
    }

    void aDuplicateKeepsBeginAndEnd()
    {
        auto message = SampleMessage::create();
        auto *object = message->slides().getMediaObject(0, 0);
        object->setBeginTimeType(SMIL_TIME_OFFSET);
        object->setBeginTimeLength(1000);
        object->setEndTimeType(SMIL_TIME_OFFSET);
        object->setEndTimeLength(3000);
        Editor editor(std::move(message));
        QCOMPARE(editor.duplicateSlide(0), QString());
        const auto *copy = editor.slide(1)->getMediaObject(0);
        QCOMPARE(copy->getBegin().timeValue, 1000);
        QCOMPARE(copy->getEnd().timeValue, 3000);
        QCOMPARE(copy->getEnd().timeType, SMIL_TIME_OFFSET);
    }

    void aTextThatTwoSlidesShowChangesOnOne()
    {
        const auto editor = Beginnings::editAsNew(*messageWithSharedText());
        QCOMPARE(editor->slideCount(), 2);
        QCOMPARE(editor->setText(0, "first"), QString());
        QCOMPARE(editor->text(1), QStringLiteral("both"));
        QCOMPARE(editor->text(0), QStringLiteral("first"));
        editor->steps()->undo();
        QCOMPARE(editor->deleteSlide(0), QString());
        QCOMPARE(editor->text(0), QStringLiteral("both"));
        QCOMPARE(contentOf(*saved(*editor), 0, 0), QByteArray("both"));
    }

    void pageColorsSurviveSavingTwice()
    {
        auto editor = Beginnings::newMessage();
        QCOMPARE(editor->setRecipients(Recipients::To, {"+1555"}), QString());
        const QList<std::optional<QColor>> colors{QColor("navy"), QColor("red"), {}};
        for (int i = 0; i < 3; ++i) {
            if (i > 0)
                QCOMPARE(editor->addSlide(i), QString());
            QCOMPARE(editor->setText(i, QStringLiteral("text %1").arg(i)), QString());
            QCOMPARE(editor->setPageColor(i, colors[i]), QString());
        }
        const QStringList expected{"#000080", "#ff0000", "none"};
        for (int i = 0; i < 2; ++i) {
            const auto read = saved(*editor);
            QVERIFY(!read->isRefused());
            QCOMPARE(pageColors(*read), expected);
            editor = Beginnings::editAsNew(*read);
            QCOMPARE(pageColors(editor->message()), expected);
        }
        QCOMPARE(editor->setPageColor(0, {}), QString());
        QCOMPARE(pageColors(*saved(*editor)), (QStringList{"none", "#ff0000", "none"}));
    }

    void incompleteMessagesAreNotSaved()
    {
        const auto editor = Beginnings::newMessage();
        QVERIFY(!editor->encodeToSave().problem.isEmpty());
        QCOMPARE(editor->setRecipients(Recipients::To, {"+1555"}), QString());
        QVERIFY(!editor->encodeToSave().problem.isEmpty());
        QCOMPARE(editor->setText(0, "x"), QString());
        QCOMPARE(editor->encodeToSave().problem, QString());
        QCOMPARE(editor->setText(0, ""), QString());
        QVERIFY(!editor->encodeToSave().problem.isEmpty());
        QCOMPARE(editor->setPageColor(0, QColor(Qt::red)), QString());
        QCOMPARE(pageColors(*saved(*editor)), QStringList("#ff0000"));
        QCOMPARE(editor->deleteSlide(0), QString());
        QVERIFY(!editor->encodeToSave().problem.isEmpty());
        QCOMPARE(editor->attach("n.txt", "n"), QString());
        QCOMPARE(saved(*editor)->parts().getPartCount(), 1);
    }

    void theSizeIsThatOfTheSavedMessage()
    {
        Editor editor(SampleMessage::create());
        const qint64 before = editor.size();
        QCOMPARE(before, editor.encodeToSave().pdu.size());
        QCOMPARE(editor.attach("n.txt", QByteArray(1000, 'n')), QString());
        QVERIFY(editor.size() > before + 1000);
        QCOMPARE(editor.size(), editor.encodeToSave().pdu.size());
        editor.steps()->undo();
        QCOMPARE(editor.size(), before);
    }

    void stepsShareTheOctetsOfParts()
    {
        constexpr int Steps = 100;
        auto message = SampleMessage::create();
        const QByteArray large(300 * 1024, 'x');
        message->parts()
            .getBodypartByIndex(message->parts().getPartCount() - 1)
            ->setBodyData(large);
        Editor editor(std::move(message));
#ifdef COUNT_ALLOCATIONS
        const CountedAllocations allocations;
#endif
        QList<EditedState> states;
        for (int i = 0; i < Steps; ++i) {
            QCOMPARE(editor.setSubject(QString::number(i)), QString());
            QCOMPARE(editor.moveSlide(0, 2), QString());
            states += editor.state();
        }
#ifdef COUNT_ALLOCATIONS
        QVERIFY2(allocations.peak() < 50'000'000, qPrintable(QString::number(allocations.peak())));
        QVERIFY(allocations.peak() > 0);
#endif
        QCOMPARE(editor.steps()->count(), 2 * Steps);
        for (const EditedState &state : states)
            QCOMPARE(state.parts.back()->part.getBodyData().constData(), large.constData());
        while (editor.steps()->canUndo())
            editor.steps()->undo();
        const auto &parts = editor.message().parts();
        QCOMPARE(parts.getBodypartByIndex(parts.getPartCount() - 1)->getBodyData().constData(),
                 large.constData());
    }
};

QTEST_MAIN(RulesTest)
#include "rules_test.moc"

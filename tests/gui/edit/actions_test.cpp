/*
 * Every action: it does the same as the library's operations, undo restores the message, and redo
 * does the action again.
 */
#include "edit/editor.h"

#include "sample_message.h"

#include <QtTest>

using SampleMessage::facts;
using Object = MMS_COMP_SMILMediaObject;
using Slide = MMS_COMP_SMILTimingContainer;

namespace {

struct Row
{
    const char *name;
    std::function<QString(Editor &)> act;
    std::function<void(Message &)> actWithLibrary;
};

void addRecipient(Message &message, const QString &phone)
{
    message.header().addToRecipient({QString(), MMS_UTIL_Entry::Plmn, phone});
}

void present(Message &message, unsigned char field)
{
    message.header().addFieldsPresent(headerFieldMask(field));
}

Slide &slideOf(Message &message, unsigned int index)
{
    return *message.slides().getSlide(index);
}

// As updateData() makes new content, in the order of the original.
void duplicateFirstSlide(Message &message)
{
    auto *copy = new Slide(&message.parts());
    message.slides().insertSlide(1, copy);
    copy->setPageColor(slideOf(message, 0).getPageColor());
    for (unsigned int i = 0; i < 2; ++i) {
        const Object &object = *slideOf(message, 0).getMediaObject(i);
        const auto &part = *object.getData();
        copy->updateData(object.getRegionId(),
                         message.slides().createUniqueSrc(part.getContentLocation()),
                         object.getMediaElementType(), part.getSubType(), part.getBodyData(), true,
                         &message.parts());
    }
}

void replacePicture(Message &message)
{
    slideOf(message, 0).removeImgLikeElem();
    SampleMessage::put(&message, 0, SMIL_MEDIA_IMAGE, "new.png", "png", coloredPicture(Qt::green));
}

void attach(Message &message)
{
    auto *part = new MMS_COMP_SMILMultipartBodypart;
    part->setContentType(QStringLiteral("text"));
    part->setContentSubType(QStringLiteral("plain"));
    part->setContentLocation(message.parts().createUniqueLocation("notes.txt"));
    part->setBodyData(QByteArray("notes"));
    message.parts().appendBodypart(part);
}

const QDateTime deliveryTime = QDateTime::fromSecsSinceEpoch(1'800'000'000);

const std::vector<Row> &rows()
{
    static const std::vector<Row> all{
        {"recipients",
         [](Editor &e) {
             return e.setRecipients(Recipients::To, {"+491701234567", " ", "+1555"});
         },
         [](Message &m) { addRecipient(m, "+1555"); }},
        {"no recipients", [](Editor &e) { return e.setRecipients(Recipients::To, {}); },
         [](Message &m) {
             m.header().getToRecipients().clear();
             m.header().setFieldsPresent(m.header().getFieldsPresent()
                                         & ~headerFieldMask(HeaderFieldCode::To));
         }},
        {"copy recipients",
         [](Editor &e) { return e.setRecipients(Recipients::Cc, {"a@example.org"}); },
         [](Message &m) {
             m.header().addCcRecipient({QString(), MMS_UTIL_Entry::Email, "a@example.org"});
             present(m, HeaderFieldCode::Cc);
         }},
        {"hidden recipients",
         [](Editor &e) { return e.setRecipients(Recipients::Bcc, {"a@example.org"}); },
         [](Message &m) {
             m.header().addBccRecipient({QString(), MMS_UTIL_Entry::Email, "a@example.org"});
             present(m, HeaderFieldCode::Bcc);
         }},
        {"subject", [](Editor &e) { return e.setSubject("Lunch"); },
         [](Message &m) { m.header().setSubject("Lunch"); }},
        {"no subject", [](Editor &e) { return e.setSubject({}); },
         [](Message &m) {
             m.header().setSubject({});
             m.header().setFieldsPresent(m.header().getFieldsPresent()
                                         & ~headerFieldMask(HeaderFieldCode::Subject));
         }},
        {"priority", [](Editor &e) { return e.setPriority(QvlPriority::High); },
         [](Message &m) {
             m.header().setPriority(QvlPriority::High);
             present(m, HeaderFieldCode::Priority);
         }},
        {"delivery report", [](Editor &e) { return e.setDeliveryReport(true); },
         [](Message &m) {
             m.header().setDeliveryReport(true);
             present(m, HeaderFieldCode::DeliveryReport);
         }},
        {"read report", [](Editor &e) { return e.setReadReport(true); },
         [](Message &m) {
             m.header().setReadReply(true);
             present(m, HeaderFieldCode::ReadReply);
         }},
        {"expiry", [](Editor &e) { return e.setExpiry(3600); },
         [](Message &m) {
             m.header().setExpiry(3600);
             present(m, HeaderFieldCode::Expiry);
         }},
        {"delivery time", [](Editor &e) { return e.setDeliveryTime(deliveryTime); },
         [](Message &m) {
             m.header().setDeliveryTime(deliveryTime);
             present(m, HeaderFieldCode::DeliveryTime);
         }},
        {"add a slide", [](Editor &e) { return e.addSlide(1); },
         [](Message &m) { m.slides().insertSlide(1, new Slide(&m.parts())); }},
        {"add a last slide", [](Editor &e) { return e.addSlide(99); },
         [](Message &m) { m.slides().appendSlide(unsigned(QvlDuration::Default)); }},
        {"delete a slide", [](Editor &e) { return e.deleteSlide(1); },
         [](Message &m) { delete m.slides().takeSlide(1); }},
        {"duplicate a slide", [](Editor &e) { return e.duplicateSlide(0); }, duplicateFirstSlide},
        {"move a slide back", [](Editor &e) { return e.moveSlide(2, 0); },
         [](Message &m) { m.slides().insertSlide(0, m.slides().takeSlide(2)); }},
        {"move a slide on", [](Editor &e) { return e.moveSlide(0, 1); },
         [](Message &m) { m.slides().insertSlide(1, m.slides().takeSlide(0)); }},
        {"page color", [](Editor &e) { return e.setPageColor(1, QColor(Qt::red)); },
         [](Message &m) { slideOf(m, 1).setPageColor(SampleMessage::color(Qt::red)); }},
        {"no page color", [](Editor &e) { return e.setPageColor(0, {}); },
         [](Message &m) {
             slideOf(m, 0).setPageColor({SMIL_COLOR_INVALID, QString(), QColor()});
         }},
        {"fixed duration", [](Editor &e) { return e.setDuration(0, 1200); },
         [](Message &m) {
             slideOf(m, 0).setDur(1200);
             slideOf(m, 0).setSetDurManually(true);
             slideOf(m, 0).rectifyDur();
         }},
        {"change a text", [](Editor &e) { return e.setText(0, "on\u20AC"); },
         [](Message &m) {
             slideOf(m, 0).updateData("text", "a.txt", SMIL_MEDIA_TEXT, "plain", "on\xE2\x82\xAC",
                                      true, &m.parts());
         }},
        {"add a text", [](Editor &e) { return e.setText(2, "three"); },
         [](Message &m) {
             SampleMessage::put(&m, 2, SMIL_MEDIA_TEXT, "slide3.txt", "plain", "three");
         }},
        {"text color", [](Editor &e) { return e.setTextColor(0, QColor(Qt::red)); },
         [](Message &m) { slideOf(m, 0).setTextColor(SampleMessage::color(Qt::red)); }},
        {"text size", [](Editor &e) { return e.setTextSize(0, "large"); },
         [](Message &m) { slideOf(m, 0).setTextSize("large"); }},
        {"text above picture", [](Editor &e) { return e.setTextAbovePicture(0, true); },
         [](Message &m) { slideOf(m, 0).insert(0, slideOf(m, 0).getTextElem(true)); }},
        {"add a picture",
         [](Editor &e) {
             return e.addMedia(1, "/tmp/new.png", coloredPicture(Qt::green), Editor::Insert);
         },
         [](Message &m) {
             SampleMessage::put(&m, 1, SMIL_MEDIA_IMAGE, "new.png", "png",
                                coloredPicture(Qt::green));
         }},
        {"add a sound",
         [](Editor &e) {
             return e.addMedia(0, "s.amr", SampleMessage::clip("sound.amr"), Editor::Insert);
         },
         [](Message &m) {
             SampleMessage::put(&m, 0, SMIL_MEDIA_AUDIO, "s.amr", "amr",
                                SampleMessage::clip("sound.amr"));
         }},
        {"replace a picture",
         [](Editor &e) {
             return e.addMedia(0, "new.png", coloredPicture(Qt::green), Editor::Replace);
         },
         replacePicture},
        {"remove a text", [](Editor &e) { return e.removeObject(1, 0); },
         [](Message &m) { slideOf(m, 1).removeTextElem(); }},
        {"remove a sound",
         [](Editor &e) { return e.removeObject(1, e.objectIndex(1, SMIL_MEDIA_AUDIO)); },
         [](Message &m) { slideOf(m, 1).remove(1); }},
        {"remove a video",
         [](Editor &e) { return e.removeObject(2, e.objectIndex(2, SMIL_MEDIA_IMAGE)); },
         [](Message &m) { slideOf(m, 2).removeImgLikeElem(); }},
        {"attach", [](Editor &e) { return e.attach("/tmp/notes.txt", "notes"); }, attach},
        {"remove an attachment", [](Editor &e) { return e.removeAttachment(0); },
         [](Message &m) { m.parts().deletePart(m.parts().getPartCount() - 1); }},
    };
    return all;
}

} // namespace

class ActionsTest : public QObject
{
    Q_OBJECT

private slots:
    void doWhatTheLibraryDoes_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(rows().size()); ++i)
            QTest::newRow(rows()[std::size_t(i)].name) << i;
    }

    void doWhatTheLibraryDoes()
    {
        QFETCH(const int, index);
        const Row &row = rows()[std::size_t(index)];
        const auto expected = SampleMessage::create();
        const QStringList before = facts(*expected);
        row.actWithLibrary(*expected);
        const QStringList after = facts(*expected);
        QVERIFY(before != after);

        Editor editor(SampleMessage::create());
        const QByteArray draft = editor.encodeDraft().pdu;
        QVERIFY(!draft.isEmpty());
        QCOMPARE(facts(editor.message()), before);
        QCOMPARE(row.act(editor), QString());
        QCOMPARE(facts(editor.message()), after);
        QCOMPARE(editor.steps()->count(), 1);

        editor.steps()->undo();
        QCOMPARE(facts(editor.message()), before);
        QCOMPARE(editor.encodeDraft().pdu, draft);
        editor.steps()->redo();
        QCOMPARE(facts(editor.message()), after);
    }

    void areUndoneOneByOne()
    {
        Editor editor(SampleMessage::create());
        QList<QStringList> states;
        QList<QByteArray> drafts;
        for (const Row &row : rows()) {
            states += facts(editor.message());
            drafts += editor.encodeDraft().pdu;
            std::ignore = row.act(editor); // some are not possible after others
            editor.endTyping();
            if (facts(editor.message()) == states.last()) {
                states.removeLast();
                drafts.removeLast();
            }
        }
        QCOMPARE(editor.steps()->count(), states.size());
        QVERIFY(states.size() > 25);
        while (!states.isEmpty()) {
            editor.steps()->undo();
            QCOMPARE(facts(editor.message()), states.takeLast());
            QCOMPARE(editor.encodeDraft().pdu, drafts.takeLast());
        }
        QVERIFY(!editor.steps()->canUndo());
    }
};

QTEST_MAIN(ActionsTest)
#include "actions_test.moc"

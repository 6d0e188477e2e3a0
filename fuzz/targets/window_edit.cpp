/*
 * Edits a message as the window does: random actions with undo and redo. After undoing all of them
 * the message is equal: the same PDU, the same order of parts, and the same of what no PDU holds.
 *
 * The whole input is the message, and its last octets are the actions.
 */
#include "edit/beginnings.h"

#include "support/input.h"
#include "support/invariant.h"

#include <QDataStream>
#include <QIODevice>

#include <array>
#include <cstdint>
#include <memory>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;

constexpr int MostActions = 40;
constexpr qsizetype MostOctets = 256 * 1024;

// An empty text, whether or not it is null.
QString stored(const QString &text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

// What the library can store of a message, and what it cannot.
QByteArray recordOf(const Message &message)
{
    QByteArray record;
    QDataStream stream(&record, QIODevice::WriteOnly);
    for (int i = 0; i < message.parts().getPartCount(); ++i) {
        const Part &part = *message.parts().getBodypartByIndex(i);
        part.writeToStream(stream);
        stream << part.getRefCount();
    }
    for (unsigned int i = 0; i < message.slides().getTotalSlidesNum(); ++i) {
        const Slide &slide = *message.slides().getSlide(i);
        slide.writeToStream(stream);
        stream << slide.getSetDurManually() << stored(slide.getTextSize());
        for (const MMS_COMP_COLOR &color : {slide.getPageColor(), slide.getTextColor()})
            stream << color.kind << stored(color.name) << color.color;
    }
    return record;
}

std::unique_ptr<Editor> begin(const Message &message, Input *choices)
{
    if (!Beginnings::canForward(message))
        return Beginnings::replyToAll(message, QString());
    return choices->boolean() ? Beginnings::editAsNew(message) : Beginnings::forward(message);
}

class Session
{
public:
    Session(const QByteArray &pdu, Input *choices)
        : m_choices(choices), m_message(decodeMessage(pdu))
    {
    }

    void run();

private:
    QString act();
    QString actOnHeader();
    QString actOnSlide();
    QString actOnMedia();
    void step();
    int slide() { return m_choices->number(-1, m_editor->slideCount()); }
    QString word();
    QByteArray octets();
    std::optional<QColor> color();

    Input *m_choices;
    std::unique_ptr<Message> m_message;
    std::unique_ptr<Editor> m_editor;
};

QString Session::word()
{
    constexpr std::array words{"",    "a.png",     "a.png",   "\xE2\x80\xAE", "b&c.mp4",
                               "x\n", "+15551234", "a@b.org", "large",        "a.txt"};
    return QString::fromUtf8(m_choices->oneOf(words));
}

QByteArray Session::octets()
{
    const auto &parts = m_message->parts();
    const Part *part = parts.getBodypartByIndex(m_choices->number(-1, parts.getPartCount()));
    return part ? part->getBodyData() : QByteArray("octets");
}

std::optional<QColor> Session::color()
{
    return m_choices->boolean() ? std::optional(QColor::fromRgb(m_choices->number(0U, 0xFFFFFFU)))
                                : std::nullopt;
}

QString Session::actOnHeader()
{
    switch (m_choices->number(0, 6)) {
    case 0:
        return m_editor->setSubject(word());
    case 1:
        return m_editor->setRecipients(Recipients(m_choices->number(0, 2)), {word(), word()});
    case 2:
        return m_editor->setPriority(m_choices->number<unsigned char>(127, 131));
    case 3:
        return m_editor->setDeliveryReport(m_choices->boolean());
    case 4:
        return m_editor->setReadReport(m_choices->boolean());
    case 5:
        return m_editor->setExpiry(m_choices->number(-1, 1'000'000));
    default:
        return m_editor->setDeliveryTime(
            QDateTime::fromSecsSinceEpoch(m_choices->number<qint64>(-1, 1LL << 32)));
    }
}

QString Session::actOnSlide()
{
    switch (m_choices->number(0, 6)) {
    case 0:
        return m_editor->addSlide(slide());
    case 1:
        return m_editor->deleteSlide(slide());
    case 2:
        return m_editor->duplicateSlide(slide());
    case 3:
        return m_editor->moveSlide(slide(), slide());
    case 4:
        return m_editor->setPageColor(slide(), color());
    case 5:
        return m_editor->setDuration(slide(), m_choices->number(-1, 100'000));
    default:
        return m_editor->setDuration(slide(), std::nullopt);
    }
}

QString Session::actOnMedia()
{
    const int index = slide();
    switch (m_choices->number(0, 7)) {
    case 0:
        return m_editor->setText(index, word());
    case 1:
        return m_editor->setTextColor(index, color());
    case 2:
        return m_editor->setTextSize(index, word());
    case 3:
        return m_editor->setTextAbovePicture(index, m_choices->boolean());
    case 4:
        return m_editor->addMedia(index, word(), octets(),
                                  m_choices->boolean() ? Editor::Insert : Editor::Replace);
    case 5:
        return m_editor->removeObject(index, m_choices->number(-1, 3));
    case 6:
        return m_editor->attach(word(), octets());
    default:
        return m_editor->removeAttachment(m_choices->number(-1, 3));
    }
}

QString Session::act()
{
    switch (m_choices->number(0, 3)) {
    case 0:
        return actOnHeader();
    case 1:
        return actOnSlide();
    default:
        return actOnMedia();
    }
}

void Session::step()
{
    const int choice = m_choices->number(0, 15);
    if (choice == 0)
        return m_editor->steps()->undo();
    if (choice == 1)
        return m_editor->steps()->redo();
    if (choice == 2)
        return m_editor->endTyping();
    const EditedState before = m_editor->state();
    const QString problem = act();
    require(problem.isEmpty() || m_editor->state() == before, "a refused action changes nothing");
}

void Session::run()
{
    m_editor = begin(*m_message, m_choices);
    const EditedState state = m_editor->state();
    const QByteArray record = recordOf(m_editor->message());
    const Outgoing draft = m_editor->encodeDraft();
    require(draft.problem.isEmpty(), "a copy of any message has a form");
    require(!decodeMessage(draft.pdu)->isRefused(), "a draft can be read");
    require(recordOf(m_editor->message()) == record, "encoding changes nothing");

    for (int i = 0; i < MostActions && !m_choices->isAtEnd(); ++i) {
        step();
        require(EditedState::of(m_editor->message()) == m_editor->state(), "the state is known");
    }
    const Outgoing last = m_editor->encodeDraft();
    const QByteArray lastRecord = recordOf(m_editor->message());
    require(last.problem.isEmpty(), "an edited message has a form");
    require(!decodeMessage(last.pdu)->isRefused(), "an edited draft can be read");
    const Outgoing saved = m_editor->encodeToSave();
    require(saved.problem.isEmpty() != saved.pdu.isEmpty(), "there is a message or a problem");

    const int steps = m_editor->steps()->index();
    m_editor->steps()->setIndex(0);
    require(m_editor->state() == state, "undoing all restores the state");
    require(recordOf(m_editor->message()) == record, "undoing all restores parts and slides");
    require(m_editor->encodeDraft().pdu == draft.pdu, "undoing all restores the PDU");
    m_editor->steps()->setIndex(steps);
    require(recordOf(m_editor->message()) == lastRecord, "redoing restores parts and slides");
    require(m_editor->encodeDraft().pdu == last.pdu, "redoing restores the PDU");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto length = qsizetype(size);
    if (length > MostOctets)
        return 0;
    Input choices(data, size);
    Session(QByteArray(reinterpret_cast<const char *>(data), length), &choices).run();
    return 0;
}

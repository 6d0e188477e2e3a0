#include "edit/outgoing.h"

#include "compose/new_message.h"
#include "compose/read_back.h"
#include "input/message.h"

#include <QCoreApplication>

namespace {

using Slide = MMS_COMP_SMILTimingContainer;

struct OutgoingTexts
{
    Q_DECLARE_TR_FUNCTIONS(Outgoing)
};

std::unique_ptr<Message> copyOf(const EditedState &state)
{
    auto message = std::make_unique<Message>();
    state.restore(message.get());
    return message;
}

bool hasRecipient(const MMS_UA_UAMsg &header)
{
    return !header.getToRecipients().isEmpty() || !header.getCcRecipients().isEmpty()
        || !header.getBccRecipients().isEmpty();
}

QString whyIncomplete(const Message &message)
{
    if (!hasRecipient(message.header()))
        return OutgoingTexts::tr("The message has no recipient.");
    const unsigned int slides = message.slides().getTotalSlidesNum();
    if (slides == 0 && message.parts().getPartCount() == 0)
        return OutgoingTexts::tr("The message has no content.");
    for (unsigned int i = 0; i < slides; ++i) {
        if (message.slides().getMediaObjectCount(i) == 0)
            return OutgoingTexts::tr(
                       "Slide %1 has no text, picture or sound. Add one, or delete the slide.")
                .arg(i + 1);
    }
    return {};
}

// Gives @p slide an empty text, which holds what belongs to the slide itself.
void addEmptyText(Slide *slide, Message *message)
{
    if (message->parts().getPartCount() + 1 >= QvlMessage::MostParts) // one is for the SMIL
        return;
    MMS_COMP_SMILData &slides = message->slides();
    slide->updateData(regionOf(slides, SMIL_MEDIA_TEXT),
                      slides.createUniqueSrc(QStringLiteral("slide.txt")), SMIL_MEDIA_TEXT,
                      QStringLiteral("plain"), QByteArray(), true, &message->parts());
}

template <typename Needs>
void addEmptyTexts(Message *message, Needs needs)
{
    for (unsigned int i = 0; i < message->slides().getTotalSlidesNum(); ++i) {
        Slide *slide = message->slides().getSlide(i);
        if (!slide->getTextElem(false) && needs(*slide))
            addEmptyText(slide, message);
    }
}

// A page color alone is content: an empty text holds it.
bool hasOnlyColor(const Slide &slide)
{
    return slide.getMediaObjectCount() == 0 && slide.getPageColor().isUsable();
}

bool losesSomething(const Slide &slide)
{
    return slide.getMediaObjectCount() == 0 || slide.getTextColor().isUsable()
        || !slide.getTextSize().isEmpty();
}

QString encode(Message *message)
{
    MMS_COMP_SMILData &slides = message->slides();
    if (slides.getTotalSlidesNum() == 0)
        message->parts().setSubType(QStringLiteral("vnd.wap.multipart.mixed"));
    else if (!message->storeSlides())
        return OutgoingTexts::tr("There is not enough memory.");
    if (message->parts().getPartCount() > QvlMessage::MostParts)
        return OutgoingTexts::tr("The message has %1 parts. It can have %2.")
            .arg(message->parts().getPartCount())
            .arg(QvlMessage::MostParts);
    const QvlMessage::Result result = message->encode(&message->octets);
    return result.isOk() ? QString()
                         : OutgoingTexts::tr("The message cannot be written: %1.")
                               .arg(QLatin1String(result.meaning()));
}

void leaveOutEmptyTexts(Message *message)
{
    message->slides().removeEmptyTextBeforeSend();
    addEmptyTexts(message, hasOnlyColor);
}

} // namespace

Outgoing encodeToSave(const EditedState &state)
{
    const auto message = copyOf(state);
    leaveOutEmptyTexts(message.get());
    if (const QString problem = whyIncomplete(*message); !problem.isEmpty())
        return {{}, problem};
    if (const QString problem = encode(message.get()); !problem.isEmpty())
        return {{}, problem};
    const QString changed = whatChanges(*message);
    if (!changed.isEmpty())
        return {{},
                OutgoingTexts::tr("%1 would read back differently. Change it, or remove it.")
                    .arg(changed)};
    return {message->octets, {}};
}

Outgoing encodeDraft(const EditedState &state)
{
    const auto message = copyOf(state);
    if (message->slides().getTotalSlidesNum() == 0 && message->parts().getPartCount() == 0)
        message->slides().appendSlide(unsigned(QvlDuration::Default)); // for a body
    addEmptyTexts(message.get(), losesSomething);
    const QString problem = encode(message.get());
    return {message->octets, problem};
}

qint64 encodedSize(const EditedState &state)
{
    const auto message = copyOf(state);
    leaveOutEmptyTexts(message.get());
    std::ignore = encode(message.get()); // without octets when it has no form
    return message->octets.size();
}

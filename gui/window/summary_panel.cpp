#include "window/summary_panel.h"

#include "input/message.h"
#include "view/terminal_text.h"

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace {

using TerminalText::visible;

/// What a message of one type is.
struct Kind
{
    unsigned char type;
    const char *title;
    const char *explanation;
};

constexpr std::array kinds{
    Kind{QvlMessageType::SendConf, QT_TRANSLATE_NOOP("SummaryPanel", "Answer to a sent message"),
         QT_TRANSLATE_NOOP("SummaryPanel", "The relay says whether it took a message.")},
    Kind{QvlMessageType::NotificationInd, QT_TRANSLATE_NOOP("SummaryPanel", "Notification"),
         QT_TRANSLATE_NOOP("SummaryPanel", "A message waits at the relay until it expires.")},
    Kind{QvlMessageType::NotifyRespInd,
         QT_TRANSLATE_NOOP("SummaryPanel", "Answer to a notification"),
         QT_TRANSLATE_NOOP("SummaryPanel", "A handset says what it does with a message.")},
    Kind{QvlMessageType::AcknowledgeInd, QT_TRANSLATE_NOOP("SummaryPanel", "Acknowledgment"),
         QT_TRANSLATE_NOOP("SummaryPanel", "A handset received a message.")},
    Kind{QvlMessageType::DeliveryInd, QT_TRANSLATE_NOOP("SummaryPanel", "Delivery report"),
         QT_TRANSLATE_NOOP("SummaryPanel", "The relay says what became of a sent message.")},
    Kind{QvlMessageType::ReadRecInd, QT_TRANSLATE_NOOP("SummaryPanel", "Read report"),
         QT_TRANSLATE_NOOP("SummaryPanel", "A recipient says whether a message was read.")},
    Kind{QvlMessageType::ReadOrigInd, QT_TRANSLATE_NOOP("SummaryPanel", "Read report"),
         QT_TRANSLATE_NOOP("SummaryPanel", "A recipient says whether a message was read.")},
};

// Labels that wrap their lines take long to lay out.
constexpr qsizetype MostRows = 60;
constexpr qsizetype LongestText = 500; // characters

QString shortened(const QString &text)
{
    return text.size() > LongestText ? text.left(LongestText) + QChar(0x2026) : text;
}

QLabel *plainLabel(QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

} // namespace

SummaryPanel::SummaryPanel(QWidget *parent)
    : QWidget(parent), m_title(plainLabel(this)), m_explanation(plainLabel(this)),
      m_fields(new QFormLayout)
{
    QFont font = m_title->font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    m_title->setFont(font);
    m_title->setAccessibleName(tr("Kind of message"));
    m_explanation->setAccessibleName(tr("Explanation"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_title);
    layout->addWidget(m_explanation);
    layout->addLayout(m_fields);
    layout->addStretch();
    setWelcome();
}

void SummaryPanel::setMessage(const Message &message, const QList<FieldView> &header)
{
    const auto kind = std::ranges::find(kinds, message.header().getMessageType(), &Kind::type);
    if (message.isRefused())
        setTexts(tr("Refused"), tr("Receivers refuse the message. Below is what was read of it."));
    else if (kind != kinds.end())
        setTexts(tr(kind->title), tr(kind->explanation));
    else
        setTexts(tr("No slides"),
                 message.parts().getPartCount() > 0
                     ? tr("The message has no slides. The panel Parts lists what it has.")
                     : tr("The message has no slides and no parts."));
    for (const FieldView &field : header.first(std::min(header.size(), MostRows)))
        addRow(field.name, shortened(field.text));
    if (header.size() > MostRows)
        addRow(tr("and more"), tr("The panel Details shows them."));
}

void SummaryPanel::setError(const QString &error)
{
    setTexts(tr("The file cannot be read"), error);
}

void SummaryPanel::setWelcome()
{
    setTexts(tr("Multimedia messages"),
             tr("Open a message or a folder of messages, or drop it here."));
}

void SummaryPanel::setTexts(const QString &title, const QString &explanation)
{
    m_title->setText(title);
    m_explanation->setText(visible(explanation));
    while (m_fields->rowCount() > 0)
        m_fields->removeRow(0);
}

void SummaryPanel::addRow(const QString &name, const QString &text)
{
    QLabel *value = plainLabel(this);
    value->setText(visible(text));
    value->setAccessibleName(visible(name));
    auto *title = new QLabel(visible(name), this);
    title->setTextFormat(Qt::PlainText);
    m_fields->addRow(title, value);
}

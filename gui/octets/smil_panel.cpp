#include "octets/smil_panel.h"

#include "common/visible_lines.h"
#include "input/message.h"

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QStringDecoder>
#include <QTextBlock>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr qsizetype MostOctets = 1 << 20; // more would take long to lay out

QString shown(const QByteArray &smil)
{
    const auto encoding = QStringConverter::encodingForData(smil);
    QStringDecoder decoder(encoding.value_or(QStringConverter::Utf8));
    return visibleLines(decoder(smil.first(std::min(smil.size(), MostOctets))));
}

} // namespace

SmilPanel::SmilPanel(QWidget *parent) : QWidget(parent), m_text(new QPlainTextEdit(this))
{
    m_text->setReadOnly(true);
    setFocusProxy(m_text);
    m_text->setAccessibleName(tr("SMIL"));
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_text);
}

void SmilPanel::setMessage(const Message *message)
{
    m_text->setPlaceholderText(
        message ? tr("The message has no SMIL. Its parts determine the slides.") : QString());
    m_text->setPlainText(message ? shown(message->smil) : QString());
}

void SmilPanel::markLine(int line)
{
    const QTextBlock block = m_text->document()->findBlockByNumber(line - 1);
    if (!block.isValid())
        return;
    QTextCursor cursor(block);
    cursor.select(QTextCursor::LineUnderCursor);
    m_text->setTextCursor(cursor);
    m_text->centerCursor();
}

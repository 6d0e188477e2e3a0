/*
 * A page with all messages, written message by message.
 */
#pragma once

#include "check/findings.h"
#include "html/draft.h"
#include "html/media.h"
#include "html/page.h"
#include "output/report.h"

class OnePage
{
public:
    /// @p mayHaveIndex is false when there cannot be several messages.
    explicit OnePage(bool mayHaveIndex);

    /// Adds @p message, with the media @p media. False, with the reason in @p error, if that fails.
    bool add(const Message &message, const Check::Findings &findings, PageMedia *media,
             QString *error);
    /// Writes the page to the file @p fileName and reports it. The same when that fails.
    bool write(const QString &fileName, Report *report, QString *error);
    /// Messages that were added.
    int count() const { return m_count; }

private:
    int writeTo(int file);

    const bool m_mayHaveIndex;
    const PageFrame m_frame;
    Draft m_index;
    Draft m_messages;
    int m_count = 0;
};

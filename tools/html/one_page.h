/*
 * One page with all messages.
 */
#pragma once

#include "html/draft.h"
#include "html/page.h"
#include "html/pages.h"

class OnePage : public Pages
{
public:
    /// Writes to the file @p fileName when everything is within @p limit. @p mayHaveIndex is false
    /// when there cannot be several messages.
    OnePage(QString fileName, PageLimit limit, bool mayHaveIndex);

    bool add(const Message &message, const Check::Findings &findings, PageMedia *media,
             QString *error) override;
    bool finish(Report *report, QString *error) override;

private:
    PageFrame frame() const;
    qint64 size() const;
    int writeTo(int file);

    const QString m_fileName;
    const PageLimit m_limit;
    const bool m_mayHaveIndex;
    QString m_title; ///< of the first message
    Draft m_index;
    Draft m_messages;
};

/*
 * Where messages become pages, message by message.
 */
#pragma once

#include "check/findings.h"
#include "html/media.h"
#include "output/report.h"

#include <QString>

/// The largest page unless the user sets another limit, and the largest limit.
constexpr int StandardPageLimit = 50; // MB
constexpr int LargestPageLimit = 1'000'000; // MB

/// A limit on the size of a page.
struct PageLimit
{
    int megabytes = StandardPageLimit;

    qint64 octets() const { return qint64(megabytes) << 20; }
    QString text() const { return QStringLiteral("%1 MB").arg(megabytes); }
};

class Pages
{
public:
    virtual ~Pages() = default;
    Q_DISABLE_COPY_MOVE(Pages)

    /// Adds @p message, with the media @p media. False, with the reason in @p error, if that fails.
    virtual bool add(const Message &message, const Check::Findings &findings, PageMedia *media,
                     QString *error) = 0;
    /// Writes what is not written yet, and reports it. False, with the reason in @p error, if that
    /// fails.
    virtual bool finish(Report *report, QString *error) = 0;
    /// Messages that were added.
    int count() const { return m_count; }

protected:
    Pages() = default;

    QString countText() const
    {
        return m_count == 1 ? QStringLiteral("1 message")
                            : QStringLiteral("%1 messages").arg(m_count);
    }

    int m_count = 0;
};

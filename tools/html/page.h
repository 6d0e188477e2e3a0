/*
 * The frame of a self-contained page, with its style and its script.
 */
#pragma once

#include <QByteArray>
#include <QString>

/// The octets of a page before and after its content.
struct PageFrame
{
    QByteArray before;
    QByteArray after;

    qsizetype size() const { return before.size() + after.size(); }
};

/// The frame of a page named @p title, which begins with @p heading.
PageFrame pageFrame(const QString &title, const QString &heading);

/*
 * Texts of controls and actions, as a person reads them.
 */
#pragma once

#include <QChar>
#include <QString>

/// @p text without the marks of shortcuts, and without what announces a question.
inline QString plain(QString text)
{
    return text.remove(u'&').remove(QChar(0x2026));
}

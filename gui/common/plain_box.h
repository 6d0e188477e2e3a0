/*
 * Message boxes whose texts may come from messages.
 */
#pragma once

#include "common/visible_lines.h"

#include <QMessageBox>

/// Says @p text, in which nothing is markup.
inline void warn(QWidget *parent, const QString &title, const QString &text)
{
    QMessageBox box(QMessageBox::Warning, title, visibleLines(text), QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

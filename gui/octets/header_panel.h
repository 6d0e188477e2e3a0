/*
 * The header of a message: all fields, and what was left out or rewritten to read them.
 */
#pragma once

#include "octets/header_lines.h"

#include <QWidget>

class QTreeWidget;

class HeaderPanel : public QWidget
{
    Q_OBJECT

public:
    explicit HeaderPanel(QWidget *parent = nullptr);

    /// Shows what headerLines() returned.
    void setLines(const QList<FieldView> &lines);

private:
    void copy() const;

    QTreeWidget *m_fields;
};

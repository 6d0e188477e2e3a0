/*
 * Finds out where a SMIL text is not well-formed. The library reports only that it is not; another
 * parser finds the place.
 */
#pragma once

#include <QByteArray>
#include <QString>

/**
 * Where and why @p smil is not well-formed, such as "line 3, column 7: ..."; "" if it is. Also ""
 * if it declares entities or attributes, because expanding them may take long.
 */
QString whyNotWellFormed(const QByteArray &smil);

/*
 * Why a SMIL text is not well-formed. The library only says that it is not; this file looks for the
 * place with another parser.
 */
#pragma once

#include <QByteArray>
#include <QString>

/**
 * Where and why @p smil is not well-formed, such as "line 3, column 7: ..."; "" when it is. Also ""
 * when it declares entities or attributes, because expanding those may take long.
 */
QString whyNotWellFormed(const QByteArray &smil);

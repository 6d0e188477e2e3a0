/*
 * What every new message has: the header of an m-send-req, and regions for its media.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QString>

/// Sets the fields of a message to send: a new transaction id, version 1.0 and the current date.
void beginHeader(MMS_UA_UAMsg *header);

/// The region of @p slides for media of @p kind; empty for sounds.
QString regionOf(const MMS_COMP_SMILData &slides, MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind);

/*
 * The slides of a page: the handset's page as it would be shown, and players of sounds below it.
 */
#pragma once

#include "html/html_writer.h"
#include "html/media.h"

/// Writes each slide as an item of a list.
void writeSlides(HtmlWriter *html, const MMS_COMP_SMILData &slides, PageMedia *media);

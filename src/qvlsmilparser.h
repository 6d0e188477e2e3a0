/** @file
 * Umbrella header: includes everything that the library publishes.
 *
 * QvlMessage holds a whole message: it receives, presents and encodes one. The operations that it
 * uses are public, too. MMS_UA_Decoder decodes the header into a MMS_UA_UAMsg,
 * MMS_COMP_SMILMultipartParser::parse() the body into a MMS_COMP_SMILMultipart, and
 * MMS_COMP_SMILParser::parse() the presentation into a MMS_COMP_SMILData. convertToSMILLang(),
 * assembleBody() and MMS_UA_Encoder encode them.
 */
#pragma once

#include "base/durations.h"
#include "base/export.h"
#include "base/ptr_list.h"
#include "base/qt_names.h"
#include "base/version.h"
#include "document/limits.h"
#include "message/message.h"
#include "message/multipart_parser.h"
#include "multipart/body_part.h"
#include "multipart/liveness.h"
#include "multipart/multipart.h"
#include "multipart/multipart_result.h"
#include "platform/comp_util.h"
#include "platform/debug_log.h"
#include "platform/email_util.h"
#include "platform/entry.h"
#include "platform/mime_codes.h"
#include "platform/msg_header_base.h"
#include "platform/player_engine.h"
#include "platform/setting.h"
#include "presentation/color.h"
#include "presentation/handset.h"
#include "presentation/layout.h"
#include "presentation/media_element_type.h"
#include "presentation/media_kinds.h"
#include "presentation/media_object.h"
#include "presentation/media_params.h"
#include "presentation/presentation.h"
#include "presentation/slide.h"
#include "presentation/smil_result.h"
#include "presentation/smil_time.h"
#include "smil/smil_parser.h"
#include "wire/address.h"
#include "wire/content_type.h"
#include "wire/expiry.h"
#include "wire/field_base.h"
#include "wire/field_codecs.h"
#include "wire/header_decoder.h"
#include "wire/header_encoder.h"
#include "wire/header_fields.h"
#include "wire/header_record.h"
#include "wire/header_values.h"
#include "wire/linear_buffer.h"
#include "wire/message_types.h"
#include "wire/multipart_codec.h"
#include "wire/multipart_entry.h"
#include "wire/primitive_values.h"
#include "wire/wire_result.h"

/** @file
 * Umbrella header: everything that the library publishes.
 *
 * A received message goes through MMS_UA_Decoder into a MMS_UA_UAMsg, through
 * MMS_COMP_SMILMultipartParser::parse() into a MMS_COMP_SMILMultipart, and through
 * MMS_COMP_SMILParser::parse() into a MMS_COMP_SMILData. A message to be sent goes the other way,
 * through convertToSMILLang(), assembleBody() and MMS_UA_Encoder.
 */
#pragma once

#include "base/durations.h"
#include "base/export.h"
#include "base/ptr_list.h"
#include "base/qt_names.h"
#include "base/version.h"
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
#include "presentation/layout.h"
#include "presentation/media_element_type.h"
#include "presentation/media_object.h"
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

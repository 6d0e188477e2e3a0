/*
 * Encodes a body into the caller's array, so that assembling a message needs no copy of it.
 */
#pragma once

class LinearBuffer;
class MMS_COMP_SMILMultipart;

namespace MultipartWriter {

/// Size in octets of the array that write() needs for @p multipart; 0 when it exceeds an int.
[[nodiscard]] int capacityFor(const MMS_COMP_SMILMultipart &multipart);

/**
 * Appends the body of @p multipart to a buffer of capacityFor() octets. Returns
 * WireResult::Written, or WireResult::CannotWrite when the data of a part does not fit. If the
 * buffer is full afterwards, it may have dropped octets.
 */
[[nodiscard]] unsigned char write(LinearBuffer *buffer, const MMS_COMP_SMILMultipart &multipart);

} // namespace MultipartWriter

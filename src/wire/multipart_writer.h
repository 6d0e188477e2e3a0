/*
 * Encoding of a body into an array of the caller's choice, for those who want its octets elsewhere
 * than in an array of their own.
 */
#pragma once

class LinearBuffer;
class MMS_COMP_SMILMultipart;

namespace MultipartWriter {

/// Octets that the content type and the headers of one entry may take together.
inline constexpr int LongestEntryHeaders = 1024;

/// Size in octets of the array that a body of @p multipart is written to; 0 when that is no int.
[[nodiscard]] int capacityFor(const MMS_COMP_SMILMultipart &multipart);

/**
 * Appends the body of @p multipart to a buffer of capacityFor() octets. WireResult::Written, or
 * WireResult::CannotWrite when the data of a part does not fit. A buffer that is full to its end
 * then may have dropped something.
 */
[[nodiscard]] unsigned char write(LinearBuffer *buffer, const MMS_COMP_SMILMultipart &multipart);

} // namespace MultipartWriter

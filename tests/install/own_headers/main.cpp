/*
 * Headers of the application are found even if they share their names with headers of the library.
 * The library's headers are found through the umbrella header.
 */
#include "base/export.h"
#include "multipart/liveness.h"
#include "wire/linear_buffer.h"

#include <qvlsmilparser.h>

#if !defined(OWN_BASE_EXPORT) || !defined(OWN_MULTIPART_LIVENESS) \
    || !defined(OWN_WIRE_LINEAR_BUFFER)
#error "a header of the library stands in for one of the application"
#endif

int main()
{
    const MMS_UA_UAMsg header;
    return header.getFieldsPresent() == 0 ? 0 : 1;
}

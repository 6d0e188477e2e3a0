#include "check/check.h"

#include "input/message.h"

namespace Check {

Findings checkMessage(Message &message, const Limits &limits)
{
    Findings findings;
    checkHeader(message, &findings);
    if (message.headerResult != WireResult::Read)
        return findings;
    checkParts(message, limits, &findings);
    checkContent(message, &findings);
    checkPresentation(message, &findings);
    return findings;
}

} // namespace Check

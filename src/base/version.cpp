#include "base/version.h"

#define QVL_TEXT_OF(macro) QVL_TEXT(macro)
#define QVL_TEXT(tokens) #tokens

const char *qvlVersion()
{
    return QVL_TEXT_OF(QVL_VERSION_MAJOR) "." QVL_TEXT_OF(QVL_VERSION_MINOR) "." QVL_TEXT_OF(
        QVL_VERSION_PATCH);
}

#include "edit/part_name.h"

#include "compose/values.h"
#include "extract/extract.h"

QString partLocation(const QString &name)
{
    return ComposeValues::locationFor(safeFileName(name, QStringLiteral("part")));
}

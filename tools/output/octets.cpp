#include "output/octets.h"

#include <QByteArrayView>

#include <cerrno>

#include <unistd.h>

int writeOctets(int file, const QByteArray &octets)
{
    for (QByteArrayView rest = octets; !rest.isEmpty();) {
        const ssize_t count = ::write(file, rest.data(), size_t(rest.size()));
        if (count < 0 && errno != EINTR)
            return errno;
        if (count > 0)
            rest = rest.sliced(count);
    }
    return 0;
}

WriteTo writerOf(const QByteArray &octets)
{
    return [&octets](int file) { return writeOctets(file, octets); };
}

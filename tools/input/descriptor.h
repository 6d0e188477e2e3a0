/*
 * Owns an open file of the system.
 */
#pragma once

#include <QtGlobal>

#include <unistd.h>

class Descriptor
{
public:
    /// Takes @p number, which is negative if no file was opened.
    explicit Descriptor(int number = -1) : m_number(number) { }
    ~Descriptor() { reset(-1); }
    Q_DISABLE_COPY_MOVE(Descriptor)

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }
    /// Closes the file, and takes @p number instead.
    void reset(int number)
    {
        if (isOpen())
            ::close(m_number);
        m_number = number;
    }

private:
    int m_number;
};

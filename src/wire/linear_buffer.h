/** @file
 * The cursor through which every wire codec reads and writes: the one place that indexes octets.
 *
 * A buffer over octets that came from outside is made with forReading(): what stands behind its end
 * then reads as zero, so that a text without its terminator ends there.
 */
#pragma once

#include "../base/export.h"

#include <QByteArrayView>

#include <optional>

/**
 * Cursor over an array of fixed size that belongs to the caller, who also frees it.
 *
 * Reading and writing share the one cursor. Positions and sizes are in octets.
 */
class QVL_EXPORT LinearBuffer
{
public:
    /// A cursor at position 0 of the @p size octets at @p data. A size below 0 counts as 0.
    LinearBuffer(unsigned char *data, int size);

    /**
     * A cursor for reading only, which no read takes out of bounds: every octet behind the end of
     * the array is zero and is not taken from memory. It refuses every write, so the array may be
     * constant.
     */
    static LinearBuffer forReading(const unsigned char *data, int size);

    /// True while the cursor stands before the end.
    bool hasMore() const { return m_position < m_size; }

    /// Sets all octets of the array to 0 unless it is for reading only; the cursor stays.
    void zerolize();

    /// Copies @p count octets to the cursor; false, and nothing written, when they do not fit or
    /// the array is for reading only.
    bool appendData(const unsigned char *octets, int count);

    /// Stores @p octet at the cursor; false, and nothing written, when it does not fit or the array
    /// is for reading only.
    bool appendByte(unsigned char octet)
    {
        if (m_readOnly || !hasMore())
            return false;
        m_data[m_position++] = octet;
        return true;
    }

    /// The octet at the cursor, which moves on. Nothing is checked: the caller knows that it is
    /// there.
    unsigned char readByte()
    {
        const int at = m_position++;
        return m_readOnly && at >= m_size ? 0 : m_data[at];
    }

    /**
     * Reads the octet at the cursor into @p octet. False only when the cursor is already past the
     * end: reading at the end succeeds once and yields the octet just behind the array. Kept: the
     * codecs rely on it for texts whose terminator was cut off.
     */
    bool readByte(unsigned char *octet)
    {
        if (m_position > m_size)
            return false;
        *octet = readByte();
        return true;
    }

    /// Copies the next @p count octets to @p octets; false, and nothing read, when there are fewer.
    bool readData(unsigned char *octets, int count);

    /// The next @p count octets in place, passed over; nothing, and nothing read, when there are
    /// fewer.
    std::optional<QByteArrayView> readView(int count);

    /**
     * The octets up to the next zero, in place; the zero is passed over and is not part of them.
     * Nothing is checked, as with readByte().
     */
    QByteArrayView readUntilZero();

    /// Moves the cursor back by @p count octets, not before the start.
    void rewind(int count);

    /// Moves the cursor on by @p count octets; where that reaches the end, to the last octet.
    void forward(int count);

    /// Octets from the start of the array to the cursor. Reads can take it past the end.
    int getPosition() const { return m_position; }
    /// Count of octets of the array.
    int getSize() const { return m_size; }
    /// The array itself, which stays the caller's; not to be written to when it is for reading
    /// only.
    unsigned char *getData() const { return m_data; }

private:
    unsigned char *m_data;
    int m_position = 0;
    int m_size;
    bool m_readOnly = false; ///< made with forReading()
};

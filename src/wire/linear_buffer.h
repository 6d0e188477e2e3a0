/** @file
 * The cursor that every wire codec reads and writes through: the only place that indexes octets.
 *
 * Use forReading() for input: octets after its end read as zero, so a text without its terminator
 * ends there.
 */
#pragma once

#include "../base/export.h"

#include <QByteArrayView>

#include <optional>

/**
 * Cursor over an array of fixed size. The caller owns the array.
 *
 * Reading and writing share one cursor. Positions and sizes are in octets.
 */
class QVL_EXPORT LinearBuffer
{
public:
    /// A cursor at position 0 of the @p size octets at @p data. A size below 0 counts as 0.
    LinearBuffer(unsigned char *data, int size);

    /**
     * A read-only cursor that never reads out of bounds: octets after the end of the array read as
     * zero without touching memory. Refuses every write, so the array may be constant.
     */
    static LinearBuffer forReading(const unsigned char *data, int size);

    /// True while the cursor is before the end.
    bool hasMore() const { return m_position < m_size; }

    /// Sets all octets of the array to 0 unless it is read-only; the cursor stays.
    void zerolize();

    /// Copies @p count octets to the cursor and moves it. False, and nothing written, when they do
    /// not fit or the array is read-only.
    bool appendData(const unsigned char *octets, int count);

    /// Stores @p octet at the cursor and moves it. False, and nothing written, when it does not fit
    /// or the array is read-only.
    bool appendByte(unsigned char octet)
    {
        if (m_readOnly || !hasMore())
            return false;
        m_data[m_position++] = octet;
        return true;
    }

    /// Reads the octet at the cursor and moves on. Unchecked: the caller knows that there is one.
    unsigned char readByte()
    {
        const int at = m_position++;
        return m_readOnly && at >= m_size ? 0 : m_data[at];
    }

    /**
     * Reads the octet at the cursor into @p octet. False only when the cursor is already past the
     * end: reading at the end succeeds once and yields the octet just after the array. Kept: the
     * codecs rely on it for texts whose terminator is missing.
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

    /// Returns the next @p count octets in place and moves past them; nothing, without moving, when
    /// there are fewer.
    std::optional<QByteArrayView> readView(int count);

    /**
     * Returns the octets up to the next zero in place and moves past the zero. Unchecked, like
     * readByte().
     */
    QByteArrayView readUntilZero();

    /// Moves the cursor back by @p count octets, at most to the start.
    void rewind(int count);

    /// Moves the cursor forward by @p count octets, at most to the last octet.
    void forward(int count);

    /// Octets from the start of the array to the cursor. Reads can move it past the end.
    int getPosition() const { return m_position; }
    /// Count of octets of the array.
    int getSize() const { return m_size; }
    /// The array itself, owned by the caller; do not write to a read-only one.
    unsigned char *getData() const { return m_data; }

private:
    unsigned char *m_data;
    int m_position = 0;
    int m_size;
    bool m_readOnly = false; ///< made with forReading()
};

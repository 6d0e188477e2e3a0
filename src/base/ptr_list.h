/** @file
 * The pointer list of the published interfaces: an ordered list that deletes its items when
 * auto-delete is on. Message, slide and layout own their children through it.
 */
#pragma once

#include <QVarLengthArray>

#include <algorithm>
#include <memory>
#include <tuple>
#include <utility>

/**
 * Ordered list of pointers to T. Owns them when autoDelete() is on; it starts off.
 *
 * Not copyable, so that two lists never own the same object. It stores null pointers, so code that
 * walks a list has to check for them. Indexes count from 0. Insertions and removals are linear in
 * the items after their place.
 */
template <typename T>
class QPtrList
{
public:
    /// An empty list that owns nothing.
    QPtrList() = default;
    QPtrList(const QPtrList &) = delete;
    QPtrList &operator=(const QPtrList &) = delete;
    /// Empties the list as clear() does.
    ~QPtrList() { clear(); }

    /// Whether remove(), clear() and the destructor delete the items that they remove.
    void setAutoDelete(bool on) { m_autoDelete = on; }
    /// @copydoc setAutoDelete
    bool autoDelete() const { return m_autoDelete; }

    /// Count of items, null pointers included.
    int count() const { return static_cast<int>(m_items.size()); }
    /// True when there is no item.
    bool isEmpty() const { return m_items.isEmpty(); }

    /// The pointer at @p index, or null when the index is out of range.
    T *at(int index) const { return holds(index) ? m_items[index] : nullptr; }

    /// Adds @p item at the end. With auto-delete the list owns it from then on, and deletes it when
    /// there is no memory to add it.
    void append(T *item) { put(count(), item); }

    /// Adds @p item at the front, owned as by append().
    void prepend(T *item) { put(0, item); }

    /// Inserts @p item, owned as by append(), before the item at @p index. False, and nothing taken
    /// over, unless 0 <= index <= count().
    bool insert(int index, T *item)
    {
        if (index < 0 || index > count())
            return false;
        put(index, item);
        return true;
    }

    /// Removes the item at @p index, and deletes it with auto-delete; false out of range.
    bool remove(int index)
    {
        if (!holds(index))
            return false;
        dispose(take(index));
        return true;
    }

    /// Removes the item at @p index without deleting it and returns it; null out of range.
    T *take(int index)
    {
        if (!holds(index))
            return nullptr;
        T *item = m_items[index];
        m_items.erase(m_items.begin() + index);
        return item;
    }

    /// Removes all items, and deletes them with auto-delete.
    void clear()
    {
        if (m_items.isEmpty())
            return;
        for (T *item : std::exchange(m_items, {}))
            dispose(item);
    }

    /// The first item; invalid once the list changes.
    auto begin() const { return m_items.begin(); }
    /// The end of the list; invalid once the list changes.
    auto end() const { return m_items.end(); }

private:
    // A list with two items usually gets more.
    void makeRoom()
    {
        constexpr qsizetype firstBlock = 8;
        if (m_items.size() == m_items.capacity())
            m_items.reserve(std::max(firstBlock, 2 * m_items.size()));
    }

    void put(int index, T *item)
    {
        std::unique_ptr<T> owner(m_autoDelete ? item : nullptr);
        makeRoom();
        m_items.insert(m_items.begin() + index, item);
        std::ignore = owner.release();
    }

    bool holds(int index) const { return index >= 0 && index < count(); }

    void dispose(T *item) const
    {
        if (m_autoDelete)
            delete item;
    }

    QVarLengthArray<T *, 1> m_items; // most messages have one recipient
    bool m_autoDelete = false;
};

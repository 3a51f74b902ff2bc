// Which slot belongs to an id: an open table of hashes. The ids themselves stay with
// the entries, so a cell weighs eight bytes.
#pragma once

#include <QtGlobal>

#include <vector>

class SearchIndexIds
{
public:
    // For `count` more without growing in between.
    void reserve(int count);
    void clear();

    // The first slot with that hash for which `isIt(slot)` is true, else -1.
    template <class IsIt> int find(uint hash, IsIt &&isIt) const
    {
        if (m_cells.empty())
            return -1;
        for (size_t i = hash & mask();; i = (i + 1) & mask()) {
            if (m_cells[i].slot < 0)
                return -1;
            if (m_cells[i].hash == hash && isIt(m_cells[i].slot))
                return m_cells[i].slot;
        }
    }
    // Has the processor bring what is looked at soon, at no cost when it is there.
    void fetch(uint hash) const { fetch(m_cells.data() + (hash & mask())); }
    static void fetch(const void *address)
    {
#if defined(Q_CC_GNU) || defined(Q_CC_CLANG)
        __builtin_prefetch(address);
#else
        Q_UNUSED(address)
#endif
    }
    void insert(uint hash, int slot);
    void erase(uint hash, int slot); // has to be there

private:
    struct Cell
    {
        uint hash = 0;
        int slot = -1;
    };

    size_t mask() const
    {
        return m_cells.size() - 1;
    }
    void grow(size_t cells);
    void place(const Cell &cell);

    std::vector<Cell> m_cells; // a power of two, at most three quarters in use
    int m_used = 0;
};

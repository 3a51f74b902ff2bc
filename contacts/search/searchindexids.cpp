#include "contacts/search/searchindexids.h"

#include <utility>

namespace {
constexpr size_t FewestCells = 64;

bool isTooFull(size_t used, size_t cells)
{
    return used * 4 > cells * 3;
}
} // namespace

void SearchIndexIds::reserve(int count)
{
    size_t cells = qMax(FewestCells, m_cells.size());
    while (isTooFull(size_t(m_used + count), cells))
        cells *= 2;
    if (cells != m_cells.size())
        grow(cells);
}

void SearchIndexIds::clear()
{
    m_cells = {};
    m_used = 0;
}

void SearchIndexIds::insert(uint hash, int slot)
{
    reserve(1);
    place({hash, slot});
    ++m_used;
}

void SearchIndexIds::erase(uint hash, int slot)
{
    size_t hole = hash & mask();
    while (m_cells[hole].slot != slot)
        hole = (hole + 1) & mask();
    // What was pushed on by the one that goes moves back.
    for (size_t i = (hole + 1) & mask(); m_cells[i].slot >= 0; i = (i + 1) & mask()) {
        const size_t home = m_cells[i].hash & mask();
        if (((i - home) & mask()) >= ((i - hole) & mask())) {
            m_cells[hole] = m_cells[i];
            hole = i;
        }
    }
    m_cells[hole] = Cell();
    --m_used;
}

void SearchIndexIds::grow(size_t cells)
{
    const std::vector<Cell> old = std::exchange(m_cells, std::vector<Cell>(cells));
    for (const Cell &cell : old) {
        if (cell.slot >= 0)
            place(cell);
    }
}

void SearchIndexIds::place(const Cell &cell)
{
    size_t i = cell.hash & mask();
    while (m_cells[i].slot >= 0)
        i = (i + 1) & mask();
    m_cells[i] = cell;
}

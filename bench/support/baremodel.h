// The least that a list on screen can be: texts in a vector, told where each row
// goes, in the toolkit's own view.
#pragma once

#include <QAbstractListModel>
#include <QApplication>
#include <QTreeView>

#include <algorithm>
#include <vector>

class BareModel : public QAbstractListModel
{
public:
    int rowCount(const QModelIndex &parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : int(m_rows.size());
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(m_rows[size_t(index.row())]) : QVariant();
    }

    void append(const QString &text)
    {
        const int row = int(m_rows.size());
        beginInsertRows(QModelIndex(), row, row);
        m_rows.push_back(text);
        endInsertRows();
    }
    // Moves a row, not the last one, behind all others.
    void moveToEnd(int row)
    {
        const int count = int(m_rows.size());
        if (!beginMoveRows(QModelIndex(), row, row, QModelIndex(), count))
            return;
        std::rotate(m_rows.begin() + row, m_rows.begin() + row + 1, m_rows.end());
        endMoveRows();
    }

private:
    std::vector<QString> m_rows;
};

struct ShownBareModel
{
    ShownBareModel()
    {
        view.setUniformRowHeights(true);
        view.setModel(&model);
        view.resize(360, 640);
        view.show();
        QApplication::processEvents();
    }

    BareModel model; // outlives the view
    QTreeView view;
};

#include "reportgridmodel.h"

ReportGridModel::ReportGridModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

void ReportGridModel::setGrid(const ReportGrid &grid)
{
    beginResetModel();
    m_grid = grid;
    endResetModel();
}

int ReportGridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : qMax(0, m_grid.rowCount() - 1);
}

int ReportGridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_grid.columnCount();
}

QVariant ReportGridModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole)
        return m_grid.text(index.row() + 1, index.column());
    if (role == Qt::TextAlignmentRole)
        return index.column() == 0 ? QVariant(Qt::AlignLeft | Qt::AlignVCenter) : QVariant(Qt::AlignCenter);
    return {};
}

QVariant ReportGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return QAbstractTableModel::headerData(section, orientation, role);
    if (role == Qt::DisplayRole)
        return m_grid.text(0, section);
    if (role == Qt::TextAlignmentRole)
        return section == 0 ? QVariant(Qt::AlignLeft | Qt::AlignVCenter) : QVariant(Qt::AlignCenter);
    return {};
}

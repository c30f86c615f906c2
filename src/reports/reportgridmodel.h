#pragma once
#include "reportgrid.h"

#include <QAbstractTableModel>

// Shows a ReportGrid in a table view: grid row 0 becomes the column headings and the other rows the
// table's rows. Period columns are centred, column 0 (the row labels) is left aligned. Read-only.
class ReportGridModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit ReportGridModel(QObject *parent = nullptr);

    const ReportGrid &grid() const { return m_grid; }
    void setGrid(const ReportGrid &grid);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    ReportGrid m_grid;
};

#include "reportgrid.h"

#include <cmath>

ReportGrid::ReportGrid(int rows, int columns)
    : m_columns(qMax(columns, 0))
{
    for (int r = 0; r < rows; ++r) {
        QStringList row;
        row.reserve(m_columns);
        for (int c = 0; c < m_columns; ++c)
            row << QString();
        m_cells << row;
    }
}

QString ReportGrid::text(int row, int column) const
{
    if (row < 0 || row >= m_cells.size() || column < 0 || column >= m_columns)
        return {};
    return m_cells.at(row).at(column);
}

void ReportGrid::setText(int row, int column, const QString &text)
{
    if (row < 0 || row >= m_cells.size() || column < 0 || column >= m_columns)
        return;
    m_cells[row][column] = text;
}

namespace ReportText {

QString centred(const QString &text, int width, bool *fits)
{
    const int spare = width - int(text.size());
    if (fits)
        *fits = spare >= 0;
    if (spare < 0)
        return text;
    const int before = spare / 2;
    return QString(before, QLatin1Char(' ')) + text + QString(spare - before, QLatin1Char(' '));
}

QString field(const QString &text, int width)
{
    return text.left(width).leftJustified(width, QLatin1Char(' '));
}

QString centredLine(const QString &line, int width)
{
    const int column = qMax(1, int(std::lround((width - line.size()) / 2.0)));
    return QString(column - 1, QLatin1Char(' ')) + line;
}

}

#pragma once
#include <QList>
#include <QString>
#include <QStringList>

// The text cells of a report grid as the screen shows them: row 0 holds the headings, column 0 the row
// labels, and a report may keep codes in trailing columns that are never shown. Text files and sheets are
// written from this, so a report needs no window to be printed or exported.
class ReportGrid
{
public:
    ReportGrid() = default;
    ReportGrid(int rows, int columns);

    int rowCount() const { return int(m_cells.size()); }
    int columnCount() const { return m_columns; }
    // Empty text outside the grid, so that a short row reads as blanks.
    QString text(int row, int column) const;
    void setText(int row, int column, const QString &text);

private:
    QList<QStringList> m_cells;
    int m_columns = 0;
};

// Fixed-width text pieces of the report files and cells.
namespace ReportText {

// `text` with (width - length) / 2 blanks before it and the rest after it. A text longer than `width`
// cannot be centred: it is returned unchanged and *fits (when given) is set false.
QString centred(const QString &text, int width, bool *fits = nullptr);
// `text` cut or padded with blanks to exactly `width` characters.
QString field(const QString &text, int width);
// A heading line started at column round((width - length) / 2), never left of column 1.
QString centredLine(const QString &line, int width);

}

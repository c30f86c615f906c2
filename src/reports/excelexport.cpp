#include "excelexport.h"
#include "routines.h"
#include "session.h"
#include "storeerror.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QSet>

#include <xlsxwriter.h>

namespace {

// Sheet rows above the grid: three heading lines of the school, the title and the subtitle.
constexpr int headerRows = 5;

struct Merge
{
    int firstRow;
    int firstCol;
    int lastRow;
    int lastCol;
};

// Texts and merges of the sheet, laid out before anything is written so that a merged range is written
// once, with the text of its first cell.
struct Sheet
{
    QList<QStringList> texts;
    QList<Merge> merges;
    int lastGridRow = 0;
    int lastCol = 0;
};

struct SheetError
{
    QString cause;
};

enum StyleFlag : int { HCentre = 1, VCentre = 2, Wrap = 4, Border = 8 };

// The spreadsheet swallows one leading apostrophe of a typed entry, so a text that starts with one gets
// another in front.
QString withApostropheKept(const QString &text)
{
    return text.startsWith(QLatin1Char('\'')) ? QLatin1Char('\'') + text : text;
}

int styleOf(const Sheet &sheet, int row, int col)
{
    int style = 0;
    if (row <= 3 || (row >= headerRows && col >= 1))
        style |= HCentre;
    if (col == 0 && row <= sheet.lastGridRow + headerRows - 1)
        style |= VCentre;
    if (col >= 1)
        style |= Wrap;
    if (row >= headerRows)
        style |= Border;
    return style;
}

void addDayBands(Sheet &sheet, const SchoolCalendar &calendar)
{
    if (sheet.lastGridRow >= 1) {
        sheet.texts[headerRows + 1][0].clear();
        sheet.merges << Merge{headerRows, 0, headerRows + 1, 0};
    }
    const int perDay = calendar.periodsPerDay;
    if (perDay <= 1)
        return;
    for (int day = 0; day < calendar.noOfWorkingDays; ++day) {
        const int first = perDay * day + 1;
        int last = perDay * (day + 1);
        if (day == calendar.noOfWorkingDays - 1 && calendar.periodsOnLastWorkingDay != perDay)
            last = first + calendar.periodsOnLastWorkingDay - 1;
        last = qMin(last, sheet.lastCol);
        if (first > sheet.lastCol)
            break;
        for (int col = first + 1; col <= last; ++col)
            sheet.texts[headerRows][col].clear();
        if (last > first)
            sheet.merges << Merge{headerRows, first, headerRows, last};
    }
}

Sheet layOut(const SchoolHeading &heading, const ReportGrid &grid, int lastRow, int lastCol,
             const QString &title, const QString &subtitle)
{
    Sheet sheet;
    sheet.lastGridRow = lastRow;
    sheet.lastCol = lastCol;
    const QStringList header{heading.schoolName, heading.address, heading.place, title, subtitle};
    for (int row = 0; row < headerRows; ++row) {
        QStringList line(lastCol + 1);
        line[0] = withApostropheKept(header.at(row));
        sheet.texts << line;
        if (lastCol > 0)
            sheet.merges << Merge{row, 0, row, lastCol};
    }
    for (int r = 0; r <= lastRow; ++r) {
        QStringList line;
        for (int c = 0; c <= lastCol; ++c) {
            const QString text = grid.text(r, c);
            const QString trimmed = text.trimmed();
            line << (trimmed.startsWith(QLatin1Char('\'')) ? withApostropheKept(trimmed) : text);
        }
        sheet.texts << line;
    }
    return sheet;
}

// Widths as the spreadsheet's own fitting would choose them: the longest text of each column, leaving out
// merged cells, which fitting ignores.
QList<int> fittedWidths(const Sheet &sheet)
{
    QList<int> widths(sheet.lastCol + 1, 0);
    QSet<quint64> merged;
    for (const Merge &m : sheet.merges)
        for (int r = m.firstRow; r <= m.lastRow; ++r)
            for (int c = m.firstCol; c <= m.lastCol; ++c)
                merged.insert(quint64(r) << 32 | quint32(c));
    for (int r = 0; r < sheet.texts.size(); ++r)
        for (int c = 0; c <= sheet.lastCol; ++c)
            if (!merged.contains(quint64(r) << 32 | quint32(c)))
                widths[c] = qMax(widths[c], int(sheet.texts[r][c].size()));
    return widths;
}

class SheetWriter
{
public:
    SheetWriter(const QString &path, const QString &tempFolder)
        : m_path(path.toUtf8()), m_tmp(QDir::toNativeSeparators(tempFolder).toUtf8())
    {
        lxw_workbook_options options{};
        options.tmpdir = m_tmp.data();
        m_book = workbook_new_opt(m_path.constData(), &options);
        if (!m_book)
            throw SheetError{QStringLiteral("the workbook could not be created")};
        m_sheet = workbook_add_worksheet(m_book, nullptr);
        if (!m_sheet) {
            workbook_close(m_book);
            throw SheetError{QStringLiteral("the worksheet could not be added")};
        }
    }
    ~SheetWriter()
    {
        if (m_book) // left open only when writing failed half-way: free it, the file is no use
            workbook_close(m_book);
    }

    void write(const Sheet &sheet)
    {
        QSet<quint64> covered;
        for (const Merge &m : sheet.merges) {
            const QByteArray text = sheet.texts[m.firstRow][m.firstCol].toUtf8();
            check(worksheet_merge_range(m_sheet, m.firstRow, m.firstCol, m.lastRow, m.lastCol, text.constData(),
                                        format(styleOf(sheet, m.firstRow, m.firstCol))),
                  "merge_range");
            for (int r = m.firstRow; r <= m.lastRow; ++r)
                for (int c = m.firstCol; c <= m.lastCol; ++c)
                    covered.insert(quint64(r) << 32 | quint32(c));
        }
        for (int r = 0; r < sheet.texts.size(); ++r) {
            for (int c = 0; c <= sheet.lastCol; ++c) {
                if (covered.contains(quint64(r) << 32 | quint32(c)))
                    continue;
                lxw_format *cellFormat = format(styleOf(sheet, r, c));
                const QString &text = sheet.texts[r][c];
                if (text.isEmpty())
                    check(worksheet_write_blank(m_sheet, r, c, cellFormat), "write_blank");
                else
                    check(worksheet_write_string(m_sheet, r, c, text.toUtf8().constData(), cellFormat),
                          "write_string");
            }
        }
        const QList<int> widths = fittedWidths(sheet);
        for (int c = 0; c < widths.size(); ++c)
            if (widths[c] > 0)
                check(worksheet_set_column(m_sheet, c, c, widths[c] + 1, nullptr), "set_column");
    }

    // The file is written only here; a folder that cannot be written shows up now.
    void close()
    {
        const lxw_error error = workbook_close(m_book);
        m_book = nullptr;
        check(error, "workbook_close");
    }

private:
    lxw_format *format(int style)
    {
        if (lxw_format *known = m_formats.value(style))
            return known;
        lxw_format *made = workbook_add_format(m_book);
        if (!made)
            throw SheetError{QStringLiteral("a cell format could not be added")};
        format_set_num_format_index(made, 49); // the built-in "@": every cell stays text
        if (style & HCentre)
            format_set_align(made, LXW_ALIGN_CENTER);
        if (style & VCentre)
            format_set_align(made, LXW_ALIGN_VERTICAL_CENTER);
        if (style & Wrap)
            format_set_text_wrap(made);
        if (style & Border)
            format_set_border(made, LXW_BORDER_THIN);
        m_formats.insert(style, made);
        return made;
    }

    static void check(lxw_error error, const char *step)
    {
        if (error != LXW_NO_ERROR)
            throw SheetError{QStringLiteral("%1: %2").arg(QLatin1String(step), QString::fromUtf8(lxw_strerror(error)))};
    }

    QByteArray m_path;
    QByteArray m_tmp;
    lxw_workbook *m_book = nullptr;
    lxw_worksheet *m_sheet = nullptr;
    QHash<int, lxw_format *> m_formats;
};

// A new name each time: an earlier sheet may still be open in the spreadsheet program, and it is the user's.
QString newSheetPath(const QString &folder, const QString &title)
{
    QString stem = title.trimmed();
    stem.replace(QRegularExpression(QStringLiteral("[^A-Za-z0-9 _-]")), QStringLiteral("_"));
    if (stem.isEmpty())
        stem = QStringLiteral("Report");
    const QDir dir(folder);
    for (int n = 1;; ++n) {
        const QString path = dir.filePath(QStringLiteral("%1 %2.xlsx").arg(stem).arg(n));
        if (!QFile::exists(path))
            return path;
    }
}

}

ReportFile writeGridSheet(const QString &path, const SchoolHeading &heading, const SchoolCalendar &calendar,
                          const ReportGrid &grid, int lastRow, int lastCol, const QString &title,
                          const QString &subtitle, bool dayBands)
{
    ReportFile result;
    try {
        if (lastRow < 0 || lastCol < 0)
            throw SheetError{QStringLiteral("nothing to export")};
        Sheet sheet = layOut(heading, grid, lastRow, lastCol, title, subtitle);
        if (dayBands)
            addDayBands(sheet, calendar);
        SheetWriter writer(path, QFileInfo(path).absolutePath());
        writer.write(sheet);
        writer.close();
        result.path = path;
    } catch (const SheetError &error) {
        qWarning() << "Export failed:" << error.cause;
        result.error = exportFailedText();
        QFile::remove(path);
    }
    return result;
}

ReportFile ExportGridToExcel(const AppContext &ctx, const ReportGrid &grid, int lastRow, int lastCol,
                             const QString &title, const QString &subtitle, bool dayBands)
{
    const QString folder = ctx.tempFolder.isEmpty() ? QDir::tempPath() : ctx.tempFolder;
    if (!QDir().mkpath(folder)) {
        qWarning() << "Export failed: cannot make the folder" << folder;
        return {QString(), exportFailedText()};
    }
    try {
        return writeGridSheet(newSheetPath(folder, title), LoadSchoolHeading(ctx.db()), ctx.session.calendar, grid,
                              lastRow, lastCol, title, subtitle, dayBands);
    } catch (const StoreError &error) {
        qWarning() << "Export failed:" << error.text();
        return {QString(), exportFailedText()};
    }
}

#include "gridtextfile.h"

#include <QDir>
#include <QSaveFile>
#include <QTextStream>

namespace {

constexpr int labelWidth = 12;
constexpr int cellWidth = 7;

// A cell of the week grid is "class+division centred in 8" then "subject centred in 3": the first field
// takes the class part back by position, the second the subject.
QString firstField(const QString &cell)
{
    return ReportText::centred(cell.left(cellWidth).trimmed(), cellWidth);
}

QString secondField(const QString &cell)
{
    return ReportText::centred(cell.right(3).trimmed(), cellWidth);
}

QString tableLine(const QString &label, const QStringList &fields)
{
    QString line = QLatin1Char('|') + ReportText::field(label, labelWidth) + QLatin1Char('|');
    for (const QString &text : fields)
        line += ReportText::field(text, cellWidth) + QLatin1Char('|');
    return line;
}

}

namespace GridTextFile {

int separatorWidth(int periodColumns)
{
    return (cellWidth + 1) * periodColumns + labelWidth + 1;
}

QStringList weekLines(const SchoolHeading &heading, const QString &title, const QString &nameLine,
                      const ReportGrid &grid, int lastColumn, QString *error)
{
    const int width = separatorWidth(lastColumn);
    const QString separator(width, QLatin1Char('-'));
    QStringList lines;
    for (const QString &line : {heading.schoolName, heading.address, heading.place, title})
        lines << ReportText::centredLine(line, width);
    lines << nameLine.trimmed().toUpper() << separator;

    for (int row = 0; row < grid.rowCount(); ++row) {
        QStringList first;
        QStringList second;
        for (int column = 1; column <= lastColumn; ++column) {
            const QString cell = grid.text(row, column);
            if (row == 0) {
                bool fits = true;
                first << ReportText::centred(cell.trimmed(), cellWidth, &fits);
                if (!fits) {
                    if (error)
                        *error = QStringLiteral("The period name \"%1\" is longer than the %2 characters a "
                                                "column of the text file holds.")
                                     .arg(cell.trimmed())
                                     .arg(cellWidth);
                    return {};
                }
                second << QString();
            } else {
                first << firstField(cell);
                second << secondField(cell);
            }
        }
        lines << tableLine(grid.text(row, 0), first) << tableLine(QString(), second) << separator;
    }
    return lines;
}

ReportFile write(const QString &folder, const QString &baseName, const QStringList &lines)
{
    ReportFile result;
    const QString fileName = baseName + QStringLiteral(".txt");
    result.path = folder + QLatin1Char('/') + fileName;
    if (fileName.contains(QLatin1Char('/')) || fileName.contains(QLatin1Char('\\'))
        || fileName.contains(QChar(0))) {
        result.error = QStringLiteral("\"%1\" is not a legal file name.").arg(fileName);
        return result;
    }
    return writeTo(result.path, lines);
}

ReportFile writeTo(const QString &path, const QStringList &lines)
{
    ReportFile result;
    result.path = path;
    QSaveFile file(result.path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        result.error = QStringLiteral("Cannot write %1: %2").arg(QDir::toNativeSeparators(result.path),
                                                                  file.errorString());
        return result;
    }
    QTextStream out(&file);
    for (const QString &line : lines)
        out << line << '\n';
    out.flush();
    if (out.status() != QTextStream::Ok || !file.commit())
        result.error = QStringLiteral("Cannot write %1: %2").arg(QDir::toNativeSeparators(result.path),
                                                                  file.errorString());
    return result;
}

}

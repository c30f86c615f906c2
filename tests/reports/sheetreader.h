#pragma once
#include <QHash>
#include <QProcess>
#include <QStringList>
#include <QXmlStreamReader>

// Reads back what a spreadsheet program would see in an .xlsx: cell texts and styles, merged ranges and
// column widths, taken from the package's XML with `unzip -p`.
struct SheetXml
{
    struct Style
    {
        int numFmtId = 0;
        bool thinBorder = false;
        QString horizontal;
        QString vertical;
        bool wrap = false;
    };
    struct Cell
    {
        QString text;
        int style = 0;
    };

    QHash<QString, Cell> cells; // by reference, "B7"
    QStringList merges;         // "A1:E1"
    QHash<int, double> widths;  // by 0-based column
    QList<Style> styles;
    QString error;

    QString text(const QString &ref) const { return cells.value(ref).text; }
    Style style(const QString &ref) const { return styles.value(cells.value(ref).style); }

    static QByteArray part(const QString &file, const QString &name, QString *error)
    {
        QProcess unzip;
        unzip.start(QStringLiteral("unzip"), {QStringLiteral("-p"), file, name});
        if (!unzip.waitForFinished(10000) || unzip.exitCode() != 0)
            *error = QStringLiteral("unzip of %1 failed: %2").arg(name, QString::fromLocal8Bit(unzip.readAllStandardError()));
        return unzip.readAllStandardOutput();
    }

    static SheetXml read(const QString &file)
    {
        SheetXml sheet;
        QStringList shared;
        QXmlStreamReader strings(part(file, QStringLiteral("xl/sharedStrings.xml"), &sheet.error));
        while (!strings.atEnd()) {
            strings.readNext();
            if (strings.isStartElement() && strings.name() == QLatin1String("si"))
                shared << QString();
            else if (strings.isStartElement() && strings.name() == QLatin1String("t"))
                shared.last() += strings.readElementText();
        }

        QXmlStreamReader styles(part(file, QStringLiteral("xl/styles.xml"), &sheet.error));
        QList<bool> borders;
        QString section;
        while (!styles.atEnd()) {
            styles.readNext();
            if (!styles.isStartElement())
                continue;
            const auto name = styles.name();
            const auto attr = styles.attributes();
            if (name == QLatin1String("borders") || name == QLatin1String("cellXfs") || name == QLatin1String("cellStyleXfs"))
                section = name.toString();
            else if (name == QLatin1String("border"))
                borders << false;
            else if (section == QLatin1String("borders") && name == QLatin1String("left"))
                borders.last() = attr.value(QLatin1String("style")) == QLatin1String("thin");
            else if (section == QLatin1String("cellXfs") && name == QLatin1String("xf")) {
                Style style;
                style.numFmtId = attr.value(QLatin1String("numFmtId")).toInt();
                style.thinBorder = borders.value(attr.value(QLatin1String("borderId")).toInt());
                sheet.styles << style;
            } else if (section == QLatin1String("cellXfs") && name == QLatin1String("alignment")) {
                sheet.styles.last().horizontal = attr.value(QLatin1String("horizontal")).toString();
                sheet.styles.last().vertical = attr.value(QLatin1String("vertical")).toString();
                sheet.styles.last().wrap = attr.value(QLatin1String("wrapText")) == QLatin1String("1");
            }
        }

        QXmlStreamReader xml(part(file, QStringLiteral("xl/worksheets/sheet1.xml"), &sheet.error));
        QString ref;
        bool sharedText = false;
        while (!xml.atEnd()) {
            xml.readNext();
            if (!xml.isStartElement())
                continue;
            const auto attr = xml.attributes();
            if (xml.name() == QLatin1String("c")) {
                ref = attr.value(QLatin1String("r")).toString();
                sharedText = attr.value(QLatin1String("t")) == QLatin1String("s");
                sheet.cells[ref].style = attr.value(QLatin1String("s")).toInt();
            } else if (xml.name() == QLatin1String("v")) {
                const QString value = xml.readElementText();
                sheet.cells[ref].text = sharedText ? shared.value(value.toInt()) : value;
            } else if (xml.name() == QLatin1String("mergeCell")) {
                sheet.merges << attr.value(QLatin1String("ref")).toString();
            } else if (xml.name() == QLatin1String("col")) {
                for (int c = attr.value(QLatin1String("min")).toInt(); c <= attr.value(QLatin1String("max")).toInt(); ++c)
                    sheet.widths.insert(c - 1, attr.value(QLatin1String("width")).toDouble());
            }
        }
        return sheet;
    }
};

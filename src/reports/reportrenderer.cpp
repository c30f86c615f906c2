#include "reportrenderer.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

namespace {

constexpr double BodyPoints = 9.0;
constexpr double SchoolPoints = 13.0;
constexpr double TitlePoints = 11.0;
constexpr double MarginMillimetres = 12.0;
constexpr int RowNumberWidth = 5;

QString rowNumberCaption() { return QStringLiteral("Sr. No."); }

// The page width a column takes, in points: its characters in the body font and the cell's padding.
double columnPoints(int characters)
{
    return characters * BodyPoints * 0.55 + 8.0;
}

double contentPoints(const QPageSize &size, QPageLayout::Orientation orientation)
{
    const QPageLayout layout(size, orientation, QMarginsF(), QPageLayout::Millimeter);
    return layout.fullRect(QPageLayout::Point).width() - 2 * MarginMillimetres * 72.0 / 25.4;
}

// The columns printed side by side on one run of pages, and the bands among them.
struct Section
{
    QList<int> columns;
    QList<ReportBand> bands;
};

double widthOf(const ReportDocument &document, const QList<int> &columns)
{
    double points = document.rowNumbers ? columnPoints(RowNumberWidth) : 0.0;
    for (int column : columns)
        points += columnPoints(document.columns.at(column).width);
    return points;
}

QList<int> allColumns(const ReportDocument &document)
{
    QList<int> columns;
    for (int column = 0; column < document.columns.size(); ++column)
        columns << column;
    return columns;
}

// Whole bands fill a section while they fit beside the fixed columns; a band wider than the page stands alone.
QList<Section> sectionsFor(const ReportDocument &document, double pagePoints)
{
    if (document.bands.isEmpty() || widthOf(document, allColumns(document)) <= pagePoints)
        return {Section{allColumns(document), document.bands}};
    QList<int> fixed;
    for (int column = 0; column < document.fixedColumns; ++column)
        fixed << column;
    QList<Section> sections;
    Section current{fixed, {}};
    int next = document.fixedColumns;
    for (const ReportBand &band : document.bands) {
        QList<int> bandColumns;
        for (int i = 0; i < band.columns && next < document.columns.size(); ++i)
            bandColumns << next++;
        if (!current.bands.isEmpty() && widthOf(document, current.columns + bandColumns) > pagePoints) {
            sections << current;
            current = Section{fixed, {}};
        }
        current.columns += bandColumns;
        current.bands << band;
    }
    sections << current;
    return sections;
}

QTextCharFormat boldFormat()
{
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    return format;
}

void writeCell(QTextTable *table, int row, int column, const QString &text, Qt::Alignment alignment,
               const QTextCharFormat &format = {})
{
    QTextCursor cursor = table->cellAt(row, column).firstCursorPosition();
    QTextBlockFormat block;
    block.setAlignment(alignment);
    cursor.setBlockFormat(block);
    cursor.insertText(text, format);
}

void addParagraph(QTextCursor &cursor, const QString &text, bool pageBreakBefore)
{
    QTextBlockFormat block;
    block.setTopMargin(6);
    block.setBottomMargin(3);
    if (pageBreakBefore)
        block.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    cursor.insertBlock(block);
    cursor.insertText(text, boldFormat());
}

void addTable(QTextCursor &cursor, const ReportDocument &document, const Section &section, const ReportGroup &group,
              bool pageBreakBefore, double rulePixels)
{
    const int numberColumns = document.rowNumbers ? 1 : 0;
    const int columnCount = numberColumns + int(section.columns.size());
    const int headerRows = section.bands.isEmpty() ? 1 : 2;
    QTextTableFormat format;
    format.setHeaderRowCount(headerRows);
    format.setCellPadding(3);
    format.setCellSpacing(0);
    format.setBorder(rulePixels);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(QColor(90, 90, 90));
    format.setBorderCollapse(true);
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    if (pageBreakBefore)
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QList<QTextLength> widths;
    const double total = widthOf(document, section.columns);
    if (document.rowNumbers)
        widths << QTextLength(QTextLength::PercentageLength, 100.0 * columnPoints(RowNumberWidth) / total);
    for (int column : section.columns)
        widths << QTextLength(QTextLength::PercentageLength,
                              100.0 * columnPoints(document.columns.at(column).width) / total);
    format.setColumnWidthConstraints(widths);

    QTextTable *table = cursor.insertTable(headerRows + int(group.rows.size()), columnCount, format);
    if (headerRows == 2) {
        // The band captions stand over their columns; the fixed columns span both heading rows.
        int at = numberColumns + (int(section.columns.size()) - [&] {
                     int banded = 0;
                     for (const ReportBand &band : section.bands)
                         banded += band.columns;
                     return banded;
                 }());
        for (int column = 0; column < at; ++column)
            table->mergeCells(0, column, 2, 1);
        for (const ReportBand &band : section.bands) {
            if (band.columns > 1)
                table->mergeCells(0, at, 1, band.columns);
            writeCell(table, 0, at, band.caption, Qt::AlignHCenter, boldFormat());
            at += band.columns;
        }
    }
    QTextTableCellFormat shaded;
    shaded.setBackground(QColor(230, 230, 230));
    for (int row = 0; row < headerRows; ++row)
        for (int column = 0; column < columnCount; ++column)
            table->cellAt(row, column).setFormat(shaded);
    const int captionRow = headerRows - 1;
    const int captionTop = headerRows == 2 ? 0 : captionRow; // merged fixed cells start in row 0
    if (document.rowNumbers)
        writeCell(table, captionTop, 0, rowNumberCaption(), Qt::AlignHCenter, boldFormat());
    for (int i = 0; i < section.columns.size(); ++i) {
        const ReportColumn &column = document.columns.at(section.columns.at(i));
        const bool fixed = headerRows == 2 && section.columns.at(i) < document.fixedColumns;
        writeCell(table, fixed ? captionTop : captionRow, numberColumns + i, column.caption, column.alignment,
                  boldFormat());
    }
    for (int row = 0; row < group.rows.size(); ++row) {
        const QStringList &cells = group.rows.at(row);
        if (document.rowNumbers)
            writeCell(table, headerRows + row, 0, QString::number(row + 1), Qt::AlignHCenter);
        for (int i = 0; i < section.columns.size(); ++i) {
            const int column = section.columns.at(i);
            writeCell(table, headerRows + row, numberColumns + i, cells.value(column),
                      document.columns.at(column).alignment);
        }
    }
    cursor.movePosition(QTextCursor::End);
}

QStringList headingLines(const ReportDocument &document)
{
    QStringList lines;
    for (const QString &line : {document.school.schoolName, document.school.address, document.school.place})
        if (!line.trimmed().isEmpty())
            lines << line.trimmed();
    return lines;
}

}

int ReportDocument::rowCount() const
{
    int rows = 0;
    for (const ReportGroup &group : groups)
        rows += int(group.rows.size());
    return rows;
}

ReportRenderer::ReportRenderer(ReportDocument document)
    : m_document(std::move(document))
{
}

QPageLayout::Orientation ReportRenderer::orientationFor(const QPageSize &pageSize) const
{
    const double needed = widthOf(m_document, allColumns(m_document));
    return needed <= contentPoints(pageSize, QPageLayout::Portrait) ? QPageLayout::Portrait : QPageLayout::Landscape;
}

void ReportRenderer::prepare(QPagedPaintDevice *device) const
{
    QPageLayout layout = device->pageLayout();
    if (!layout.pageSize().isValid())
        layout.setPageSize(QPageSize(QPageSize::A4));
    layout.setOrientation(orientationFor(layout.pageSize()));
    layout.setUnits(QPageLayout::Millimeter);
    layout.setMargins(QMarginsF(MarginMillimetres, MarginMillimetres, MarginMillimetres, MarginMillimetres));
    device->setPageLayout(layout);
}

int ReportRenderer::paint(QPagedPaintDevice *device) const
{
    const QPageLayout layout = device->pageLayout();
    const QRectF area(QPointF(0, 0), layout.paintRectPixels(device->logicalDpiX()).size());
    const double pagePoints = layout.paintRect(QPageLayout::Point).width();

    QFont body;
    body.setPointSizeF(BodyPoints);
    QFont school = body;
    school.setPointSizeF(SchoolPoints);
    school.setBold(true);
    QFont title = body;
    title.setPointSizeF(TitlePoints);
    title.setBold(true);
    const QFontMetricsF bodyMetrics(body, device);
    const QFontMetricsF schoolMetrics(school, device);
    const QFontMetricsF titleMetrics(title, device);

    const QStringList school_lines = headingLines(m_document);
    double headerHeight = 0;
    for (int i = 0; i < school_lines.size(); ++i)
        headerHeight += (i == 0 ? schoolMetrics : bodyMetrics).lineSpacing();
    headerHeight += titleMetrics.lineSpacing() * (m_document.title.isEmpty() ? 0 : 1);
    headerHeight += bodyMetrics.lineSpacing() * m_document.subtitles.size();
    headerHeight += bodyMetrics.lineSpacing() * 0.8;
    const double footerHeight = bodyMetrics.lineSpacing() * 1.6;

    const double rulePixels = qMax(1.0, device->logicalDpiX() / 200.0);
    QTextDocument doc;
    doc.setUndoRedoEnabled(false);
    doc.setDefaultFont(body);
    doc.setDocumentMargin(0);
    QTextCursor cursor(&doc);
    cursor.beginEditBlock(); // one layout at the end, not one per cell
    const QList<Section> sections = sectionsFor(m_document, pagePoints);
    bool first = true;
    for (const Section &section : sections) {
        bool sectionStart = !first;
        for (const ReportGroup &group : m_document.groups) {
            if (!group.heading.isEmpty()) {
                addParagraph(cursor, group.heading, sectionStart);
                sectionStart = false;
            } else if (first) {
                cursor.insertBlock();
            }
            addTable(cursor, m_document, section, group, sectionStart, rulePixels);
            sectionStart = false;
            if (!group.footer.isEmpty())
                addParagraph(cursor, group.footer, false);
            first = false;
        }
        first = false;
    }
    cursor.endEditBlock();
    doc.documentLayout()->setPaintDevice(device);
    doc.setPageSize(QSizeF(area.width(), area.height() - headerHeight - footerHeight));

    const int pages = qMax(1, doc.pageCount());
    const double bodyHeight = doc.pageSize().height();
    QPainter painter(device);
    if (!painter.isActive())
        return 0;
    for (int page = 0; page < pages; ++page) {
        if (page > 0)
            device->newPage();
        double y = 0;
        const auto line = [&](const QString &text, const QFont &font, const QFontMetricsF &metrics) {
            painter.setFont(font);
            painter.drawText(QRectF(0, y, area.width(), metrics.lineSpacing()), Qt::AlignHCenter | Qt::AlignTop,
                             text);
            y += metrics.lineSpacing();
        };
        for (int i = 0; i < school_lines.size(); ++i)
            line(school_lines.at(i), i == 0 ? school : body, i == 0 ? schoolMetrics : bodyMetrics);
        if (!m_document.title.isEmpty())
            line(m_document.title, title, titleMetrics);
        for (const QString &subtitle : m_document.subtitles)
            line(subtitle, body, bodyMetrics);

        painter.save();
        painter.translate(0, headerHeight - page * bodyHeight);
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = QRectF(0, page * bodyHeight, area.width(), bodyHeight);
        painter.setClipRect(context.clip);
        doc.documentLayout()->draw(&painter, context);
        painter.restore();

        painter.setFont(body);
        const QRectF foot(0, area.height() - bodyMetrics.lineSpacing(), area.width(), bodyMetrics.lineSpacing());
        painter.drawLine(QPointF(0, foot.top() - 2), QPointF(area.width(), foot.top() - 2));
        painter.drawText(foot, Qt::AlignLeft | Qt::AlignBottom,
                         QStringLiteral("Printed On ") + m_document.printedOn.toString(QStringLiteral("dd/MM/yyyy")));
        painter.drawText(foot, Qt::AlignRight | Qt::AlignBottom,
                         QStringLiteral("Page %1 of %2").arg(page + 1).arg(pages));
    }
    return pages;
}

bool ReportRenderer::writePdf(const QString &path, QString *error) const
{
    int pages = 0;
    {
        QPdfWriter writer(path);
        writer.setTitle(m_document.title);
        writer.setCreator(QStringLiteral("Zarlo-TimeTable"));
        writer.setResolution(300);
        prepare(&writer);
        pages = paint(&writer);
    }
    if (pages > 0 && QFileInfo(path).size() > 0)
        return true;
    if (error)
        *error = QStringLiteral("%1 Cannot Be Written").arg(path);
    return false;
}

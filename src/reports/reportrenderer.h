#pragma once
#include "reportdocument.h"

#include <QPageLayout>
#include <QString>

class QPagedPaintDevice;

// The one printed-report renderer of the program: every report's preview, print and PDF goes through it.
// Each page carries the school heading, the title and subtitles, the column headings of its table, and a
// foot line with the date printed and "Page n of m". The page turns landscape when the columns need it; a
// grid with bands that is too wide even then is split by bands, each part starting on a new page.
class ReportRenderer
{
public:
    explicit ReportRenderer(ReportDocument document);

    // The orientation the report's columns need on `pageSize`.
    QPageLayout::Orientation orientationFor(const QPageSize &pageSize) const;
    // Paints every page on `device` (a printer or a PDF writer); its page layout is used as it is, so set the
    // orientation first (`prepare`). Answers the number of pages.
    int paint(QPagedPaintDevice *device) const;
    // Sets `device` to A4 (unless it has a size) in the orientation the report needs.
    void prepare(QPagedPaintDevice *device) const;
    // Writes the report as a PDF file; false with *error when the file cannot be written.
    bool writePdf(const QString &path, QString *error = nullptr) const;

    const ReportDocument &document() const { return m_document; }

private:
    ReportDocument m_document;
};

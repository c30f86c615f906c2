#include "reportpreview.h"
#include "reportrenderer.h"

#include <QPrintPreviewDialog>
#include <QPrinter>

namespace ReportPreview {

void show(const ReportDocument &document, QWidget *parent)
{
    const ReportRenderer renderer(document);
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(document.title);
    renderer.prepare(&printer);
    QPrintPreviewDialog preview(&printer, parent);
    preview.setWindowTitle(document.title.isEmpty() ? QStringLiteral("Print Preview") : document.title);
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&renderer](QPrinter *target) { renderer.paint(target); });
    preview.resize(900, 700);
    preview.exec();
}

}

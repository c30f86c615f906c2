#pragma once
#include "reportdocument.h"

class QWidget;

// A printed report on the screen and on paper: every screen's Print of a `dr...` report and every grid's
// Preview open the same preview window, from which the user prints or saves a PDF.
namespace ReportPreview {

// Shows the report in a print preview window (modal) whose Print button prints it.
void show(const ReportDocument &document, QWidget *parent);

}

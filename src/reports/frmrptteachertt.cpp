#include "frmrptteachertt.h"
#include "codecombo.h"
#include "excelexport.h"
#include "gridtextfile.h"
#include "launcher.h"
#include "messageservice.h"
#include "reportgridmodel.h"
#include "reportoutput.h"
#include "routines.h"
#include "screen.h"
#include "session.h"
#include "teachertimetable.h"

#include <QApplication>
#include <QComboBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QFontMetrics>
#include <QTableView>
#include <QVBoxLayout>

frmrptTeacherTT::frmrptTeacherTT(AppContext &ctx, QWidget *parent)
    : QWidget(parent), m_ctx(ctx), m_launcher(Launcher::instance())
{
    setObjectName(QStringLiteral("frmrptTeacherTT"));
    setWindowTitle(QStringLiteral("Teacher Time Table"));
    buildLayout();
    loadTeachers();
    showTeacher();
    connect(m_cboTeacher, &QComboBox::currentIndexChanged, this, &frmrptTeacherTT::showTeacher);
    connect(m_cmdPrint, &QPushButton::clicked, this, &frmrptTeacherTT::print);
    connect(m_cmdExport, &QPushButton::clicked, this, &frmrptTeacherTT::exportSheet);
    connect(m_cmdCancel, &QPushButton::clicked, this, &frmrptTeacherTT::cancel);
    connect(m_cmdExit, &QPushButton::clicked, this, &frmrptTeacherTT::exitScreen);
    Screen::applyConventions(this, ctx, 23);
}

void frmrptTeacherTT::buildLayout()
{
    m_cboTeacher = new QComboBox(this);
    m_cboTeacher->setObjectName(QStringLiteral("cboTeacher"));
    m_cboTeacher->setMinimumContentsLength(30);

    m_model = new ReportGridModel(this);
    m_msgTeacher = new QTableView(this);
    m_msgTeacher->setObjectName(QStringLiteral("msgTeacher"));
    m_msgTeacher->setModel(m_model);
    m_msgTeacher->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_msgTeacher->setSelectionMode(QAbstractItemView::SingleSelection);
    m_msgTeacher->verticalHeader()->hide();
    // Cell texts are spaced for a fixed pitch: class and division centred in 8, the subject in 3.
    m_msgTeacher->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_msgTeacher->setMinimumSize(640, 260);

    m_cmdPrint = Screen::button(this, "cmdPrint", QStringLiteral("&Print"));
    m_cmdPrint->setToolTip(QStringLiteral("View In NOTEPAD Editor"));
    m_cmdExport = Screen::button(this, "cmdExport", QStringLiteral("&Export"));
    m_cmdExport->setToolTip(QStringLiteral("Export To EXCEL"));
    m_cmdCancel = Screen::button(this, "cmdCancel", QStringLiteral("&Cancel"));
    m_cmdExit = Screen::button(this, "cmdExit", QStringLiteral("E&xit"));

    auto *selection = new QFormLayout;
    selection->addRow(QStringLiteral("Teacher Name :"), m_cboTeacher);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton *push : {m_cmdPrint, m_cmdExport, m_cmdCancel, m_cmdExit})
        buttons->addWidget(push);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(selection);
    layout->addWidget(m_msgTeacher, 1);
    layout->addLayout(buttons);
}

void frmrptTeacherTT::loadTeachers()
{
    Screen::guarded(m_ctx, [this] { CodeCombo::fill(m_cboTeacher, TeacherTimeTable::teachers(m_ctx.db()), false); });
}

// Rebuilds the empty week and fills it for the chosen teacher; Export needs at least one period to show.
void frmrptTeacherTT::showTeacher()
{
    int placed = 0;
    Screen::guarded(m_ctx, [&] {
        ReportGrid grid = TeacherTimeTable::frame(m_ctx.db(), m_ctx.session.calendar);
        if (!m_cboTeacher->currentText().trimmed().isEmpty())
            placed = TeacherTimeTable::fill(m_ctx.db(), m_cboTeacher->currentData().toInt(), grid);
        m_model->setGrid(grid);
    });
    const int codeColumn = m_model->columnCount() - 1;
    for (int column = 0; column < m_model->columnCount(); ++column)
        m_msgTeacher->setColumnHidden(column, column == codeColumn);
    m_msgTeacher->resizeColumnsToContents();
    // Wide enough for a full cell ("XIIAB" and a short name) before any teacher is chosen, so that the
    // window opens at the size it will need.
    int periodWidth = QFontMetrics(m_msgTeacher->font()).horizontalAdvance(QString(12, QLatin1Char('X'))) + 8;
    for (int column = 1; column < codeColumn; ++column)
        periodWidth = qMax(periodWidth, m_msgTeacher->columnWidth(column));
    for (int column = 1; column < codeColumn; ++column)
        m_msgTeacher->setColumnWidth(column, periodWidth);
    // The whole week stands without a scroll bar.
    int width = 2 * m_msgTeacher->frameWidth();
    for (int column = 0; column < codeColumn; ++column)
        width += m_msgTeacher->columnWidth(column);
    m_msgTeacher->setMinimumWidth(qMax(640, width + 4));
    m_cmdExport->setEnabled(placed > 0);
}

void frmrptTeacherTT::print()
{
    if (m_cboTeacher->currentData().toInt() <= 0) {
        m_ctx.messages->information(QStringLiteral("Select Teacher Name"));
        m_cboTeacher->setFocus();
        return;
    }
    const ReportGrid &grid = m_model->grid();
    Screen::guarded(m_ctx, [&] {
        QString error;
        const QStringList lines = GridTextFile::weekLines(LoadSchoolHeading(m_ctx.db()), TeacherTimeTable::title(),
                                                          m_cboTeacher->currentText(), grid,
                                                          grid.columnCount() - 2, &error);
        if (!error.isEmpty()) {
            m_ctx.messages->critical(error);
            return;
        }
        ReportOutput::show(GridTextFile::write(m_ctx.dataFolder, m_cboTeacher->currentText(), lines),
                           ReportOutput::Kind::TextFile, m_launcher, *m_ctx.messages);
    });
}

void frmrptTeacherTT::exportSheet()
{
    const ReportGrid &grid = m_model->grid();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const ReportFile sheet = ExportGridToExcel(m_ctx, grid, grid.rowCount() - 1, grid.columnCount() - 2,
                                               TeacherTimeTable::title(),
                                               TeacherTimeTable::subtitle(m_cboTeacher->currentText()), false);
    QApplication::restoreOverrideCursor();
    ReportOutput::show(sheet, ReportOutput::Kind::Sheet, m_launcher, *m_ctx.messages);
}

void frmrptTeacherTT::cancel()
{
    const bool wasBlank = m_cboTeacher->currentData().toInt() == 0;
    Screen::ClearControls(this);
    if (wasBlank) // no change of teacher, so the grid was not rebuilt by the combo
        showTeacher();
    m_cboTeacher->setFocus();
}

void frmrptTeacherTT::exitScreen()
{
    if (Screen::ConfirmExit(m_ctx, windowTitle()))
        Screen::closeScreen(this);
}

#include "frmworkallotmententry.h"
#include "codecombo.h"
#include "messageservice.h"
#include "privileges.h"
#include "screen.h"
#include "session.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

using namespace AllotmentColumn;

namespace {

const QString FormName = QStringLiteral("frmWorkAllotmentEntry");
constexpr int HelpScreenNo = 12;

QLabel *valueLabel(const char *name, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setFrameShape(QFrame::StyledPanel);
    label->setMinimumWidth(70);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

}

frmWorkAllotmentEntry::frmWorkAllotmentEntry(AppContext &ctx, QWidget *parent)
    : QWidget(parent), m_ctx(ctx), m_allotment(ctx.db())
{
    setObjectName(FormName);
    setWindowTitle(QStringLiteral("Work Allotment Entry"));
    buildControls();
    buildLayout();
    connectControls();
    Screen::applyConventions(this, ctx, HelpScreenNo);
    // A master opened from here may have added a teacher, class or subject by the time the user comes back.
    Screen::onComeForward(this, [this] {
        if (m_listsStale) {
            m_listsStale = false;
            reloadLists();
        }
    });
    // Installed after the conventions so that it sees Enter first: in a cell editor Enter confirms the cell,
    // on the grid it opens the current cell.
    const QList<QWidget *> keyed = {m_cboTeacher, m_cboClass, m_cboDivision, m_cboSubject, m_txtPeriods, m_msgDetails};
    for (QWidget *control : keyed)
        control->installEventFilter(this);
    cancel();
}

void frmWorkAllotmentEntry::buildControls()
{
    m_fraMain = new QGroupBox(this);
    m_fraMain->setObjectName(QStringLiteral("fraMain"));
    m_cboTeacher = new AllotmentGrid::CellCombo(m_fraMain);
    m_cboTeacher->setObjectName(QStringLiteral("cboTeacher"));
    m_cboTeacher->setMinimumContentsLength(30);
    m_lblTeacherShortName = valueLabel("lblTeacherShortName", m_fraMain);
    m_lblNoOfPeriods = valueLabel("lblNoOfPeriods", m_fraMain);
    m_lblAllotedPeriods = valueLabel("lblAllotedPeriods", m_fraMain);

    m_cmdAddTeacherName = Screen::button(m_fraMain, "cmdAddTeacherName", QStringLiteral("Add &Teacher..."));
    m_cmdAddClassName = Screen::button(m_fraMain, "cmdAddClassName", QStringLiteral("Add Cl&ass..."));
    m_cmdAddSubjectName = Screen::button(m_fraMain, "cmdAddSubjectName", QStringLiteral("Add S&ubject..."));
    m_cmdAddTeacherName->setToolTip(QStringLiteral("Opens Teacher Master (Insert key in the teacher list)"));
    m_cmdAddClassName->setToolTip(QStringLiteral("Opens Class Division Entry (Insert key in the class list)"));
    m_cmdAddSubjectName->setToolTip(QStringLiteral("Opens Subject Master (Insert key in the subject list)"));

    m_msgDetails = new AllotmentGrid(m_fraMain);
    m_msgDetails->setObjectName(QStringLiteral("msgDetails"));
    QWidget *cells = m_msgDetails->viewport();
    const auto cellCombo = [cells](const char *name) {
        auto *combo = new AllotmentGrid::CellCombo(cells);
        combo->setObjectName(QString::fromLatin1(name));
        combo->hide();
        return combo;
    };
    m_cboClass = cellCombo("cboClass");
    m_cboDivision = cellCombo("cboDivision");
    m_cboSubject = cellCombo("cboSubject");
    m_txtPeriods = new QLineEdit(cells);
    m_txtPeriods->setObjectName(QStringLiteral("txtPeriods"));
    m_txtPeriods->setAlignment(Qt::AlignCenter);
    m_txtPeriods->hide();
    Screen::DigitsOnly(m_txtPeriods, 3);
    m_msgDetails->setItemDelegate(new AllotmentGrid::EditorDelegate(
        {{ClassName, m_cboClass}, {DivisionName, m_cboDivision}, {SubjectName, m_cboSubject}, {Periods, m_txtPeriods}},
        m_msgDetails));

    // The stored rows as the last load or Save found them; never shown.
    m_msgDisplay = AllotmentGrid::makeSnapshotGrid(this);
    m_msgDisplay->setObjectName(QStringLiteral("msgDisplay"));
    m_msgDisplay->hide();

    m_Frame3 = new QGroupBox(this);
    m_Frame3->setObjectName(QStringLiteral("Frame3"));
    m_txtDeleteSlNo = new QLineEdit(m_Frame3);
    m_txtDeleteSlNo->setObjectName(QStringLiteral("txtDeleteSlNo"));
    m_txtDeleteSlNo->setMaximumWidth(60);
    Screen::DigitsOnly(m_txtDeleteSlNo, 4);
    m_cmdDeleteRow = Screen::button(m_Frame3, "cmdDeleteRow", QStringLiteral("Delete &Row"));

    m_cmdNew = Screen::button(this, "cmdNew", QStringLiteral("&New"));
    m_cmdEdit = Screen::button(this, "cmdEdit", QStringLiteral("&Edit"));
    m_cmdDelete = Screen::button(this, "cmdDelete", QStringLiteral("&Delete"));
    m_cmdSave = Screen::button(this, "cmdSave", QStringLiteral("&Save"));
    m_cmdCancel = Screen::button(this, "cmdCancel", QStringLiteral("&Cancel"));
    m_cmdExit = Screen::button(this, "cmdExit", QStringLiteral("E&xit"));
}

void frmWorkAllotmentEntry::buildLayout()
{
    auto *main = new QGridLayout(m_fraMain);
    auto *teacherLabel = new QLabel(QStringLiteral("Teacher &Name :"), m_fraMain);
    teacherLabel->setBuddy(m_cboTeacher);
    main->addWidget(teacherLabel, 0, 0);
    auto *teacherRow = new QHBoxLayout;
    teacherRow->addWidget(m_cboTeacher, 1);
    teacherRow->addWidget(m_cmdAddTeacherName);
    main->addLayout(teacherRow, 0, 1);

    auto *figures = new QHBoxLayout;
    const auto figure = [this, figures](const char *caption, QLabel *value) {
        figures->addWidget(new QLabel(QString::fromLatin1(caption), m_fraMain));
        figures->addWidget(value);
        figures->addSpacing(24);
    };
    figure("Teacher Short Name :", m_lblTeacherShortName);
    figure("No. Of Working Periods :", m_lblNoOfPeriods);
    figure("Allotted Periods :", m_lblAllotedPeriods);
    figures->addStretch();
    main->addLayout(figures, 1, 0, 1, 2);
    main->addWidget(m_msgDetails, 2, 0, 1, 2);

    auto *under = new QHBoxLayout;
    auto *hint = new QLabel(
        QStringLiteral("Click a cell to fill it in; Enter confirms it and moves to the next cell."), m_fraMain);
    hint->setEnabled(false);
    under->addWidget(hint);
    under->addStretch();
    under->addWidget(m_cmdAddClassName);
    under->addWidget(m_cmdAddSubjectName);
    main->addLayout(under, 3, 0, 1, 2);
    main->setColumnStretch(1, 1);
    main->setRowStretch(2, 1);

    auto *removal = new QHBoxLayout(m_Frame3);
    removal->addWidget(new QLabel(QStringLiteral("Sl.No. :"), m_Frame3));
    removal->addWidget(m_txtDeleteSlNo);
    removal->addWidget(m_cmdDeleteRow);

    auto *bottom = new QHBoxLayout;
    bottom->addWidget(m_Frame3);
    bottom->addStretch();
    for (QPushButton *push : {m_cmdNew, m_cmdEdit, m_cmdDelete, m_cmdSave, m_cmdCancel, m_cmdExit})
        bottom->addWidget(push);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_fraMain, 1);
    layout->addWidget(m_msgDisplay);
    layout->addLayout(bottom);
    resize(900, 560);
}

void frmWorkAllotmentEntry::connectControls()
{
    connect(m_cboTeacher, &QComboBox::currentIndexChanged, this, &frmWorkAllotmentEntry::teacherChosen);
    connect(m_cboTeacher, &QComboBox::activated, this, [this] {
        if (!m_cboTeacher->browsing())
            focusAfterLoad();
    });
    const QList<QPair<AllotmentGrid::CellCombo *, int>> lists = {
        {m_cboClass, AllotmentColumn::ClassName},
        {m_cboDivision, AllotmentColumn::DivisionName},
        {m_cboSubject, AllotmentColumn::SubjectName}};
    for (const auto &[combo, column] : lists) {
        connect(combo, &QComboBox::activated, this, [this, combo = combo, column = column] {
            if (combo->browsing())
                return;
            if (column == AllotmentColumn::ClassName)
                confirmClass();
            else
                confirmUnique(column);
        });
    }
    connect(m_msgDetails, &QTableWidget::cellClicked, this, &frmWorkAllotmentEntry::cellClicked);
    connect(m_cmdDeleteRow, &QPushButton::clicked, this, &frmWorkAllotmentEntry::deleteRow);
    const QList<QPair<QPushButton *, QString>> masters = {{m_cmdAddTeacherName, QStringLiteral("frmTeacherMaster")},
                                                          {m_cmdAddClassName, QStringLiteral("frmClassSectionEntry")},
                                                          {m_cmdAddSubjectName, QStringLiteral("frmSubjectMaster")}};
    for (const auto &[add, formName] : masters)
        connect(add, &QPushButton::clicked, this, [this, formName = formName] { openMaster(formName); });
    connect(m_cmdNew, &QPushButton::clicked, this, &frmWorkAllotmentEntry::newEntry);
    connect(m_cmdEdit, &QPushButton::clicked, this, &frmWorkAllotmentEntry::editEntry);
    connect(m_cmdDelete, &QPushButton::clicked, this, &frmWorkAllotmentEntry::deleteEntry);
    connect(m_cmdSave, &QPushButton::clicked, this, &frmWorkAllotmentEntry::save);
    connect(m_cmdCancel, &QPushButton::clicked, this, &frmWorkAllotmentEntry::cancel);
    connect(m_cmdExit, &QPushButton::clicked, this, &frmWorkAllotmentEntry::exitScreen);
}

void frmWorkAllotmentEntry::setMode(Mode mode)
{
    m_mode = mode;
    m_fraMain->setEnabled(mode != Mode::Idle);
    m_Frame3->setEnabled(editing());
    m_cmdNew->setEnabled(mode == Mode::Idle);
    m_cmdEdit->setEnabled(mode == Mode::Showing);
    m_cmdDelete->setEnabled(mode == Mode::Showing);
    m_cmdSave->setEnabled(editing());
}

void frmWorkAllotmentEntry::reloadLists()
{
    Screen::guarded(m_ctx, [this] {
        CodeCombo::fill(m_cboTeacher, m_allotment.teachers(), false, teacherCode());
        CodeCombo::fill(m_cboClass, m_allotment.classes(), false, CodeCombo::code(m_cboClass));
        CodeCombo::fill(m_cboSubject, m_allotment.subjects(), false, CodeCombo::code(m_cboSubject));
        if (m_openColumn == DivisionName)
            CodeCombo::fill(m_cboDivision, m_allotment.divisions(m_msgDetails->code(m_openRow, ClassCode)), false,
                            CodeCombo::code(m_cboDivision));
    });
}

int frmWorkAllotmentEntry::teacherCode() const
{
    return CodeCombo::code(m_cboTeacher);
}

void frmWorkAllotmentEntry::teacherChosen()
{
    closeCell();
    clearLabels();
    m_msgDetails->reset(true);
    m_msgDisplay->setRowCount(0);
    if (teacherCode() > 0)
        loadTeacher(teacherCode());
    else if (m_mode != Mode::Idle)
        setMode(Mode::New);
}

void frmWorkAllotmentEntry::loadTeacher(int teacher)
{
    WorkAllotment::TeacherLoad load;
    QList<AllotmentRow> rows;
    QList<StoredAllotment> stored;
    if (!Screen::guarded(m_ctx, [&] {
            load = m_allotment.teacher(teacher);
            rows = m_allotment.rowsOf(teacher);
            stored = m_allotment.snapshot(teacher);
        }))
        return;
    m_lblTeacherShortName->setText(load.shortName);
    m_lblNoOfPeriods->setText(QString::number(load.workingPeriods));
    m_msgDetails->showRows(rows);
    AllotmentGrid::showSnapshot(m_msgDisplay, stored);
    m_txtDeleteSlNo->clear();
    setMode(rows.isEmpty() ? Mode::New : Mode::Showing);
    refreshAllottedPeriods();
}

void frmWorkAllotmentEntry::clearLabels()
{
    m_lblTeacherShortName->clear();
    m_lblNoOfPeriods->clear();
    m_lblAllotedPeriods->clear();
}

void frmWorkAllotmentEntry::newEntry()
{
    if (!AllowedOrSay(m_ctx, FormName, Privileges::New))
        return;
    setMode(Mode::New);
    m_msgDetails->reset(true);
    m_cboTeacher->setFocus();
}

void frmWorkAllotmentEntry::editEntry()
{
    if (!AllowedOrSay(m_ctx, FormName, Privileges::Edit))
        return;
    setMode(Mode::Edit);
    m_cmdSave->setFocus();
}

void frmWorkAllotmentEntry::save()
{
    if (!commitPendingPeriods())
        return;
    closeCell();
    const int teacher = teacherCode();
    if (teacher <= 0) {
        m_ctx.messages->information(QStringLiteral("Select Teacher Name"));
        m_cboTeacher->setFocus();
        return;
    }
    const QList<AllotmentRow> rows = m_msgDetails->rows();
    AllotmentRefusal refusal;
    QList<StoredAllotment> stored;
    if (!Screen::guarded(m_ctx, [&] {
            refusal = m_allotment.checkSave(teacher, rows, m_msgDetails->currentRow(), &stored);
        }))
        return;
    if (refusal) {
        AllotmentGrid::showSnapshot(m_msgDisplay, stored);
        m_ctx.messages->information(refusal.text);
        using Kind = AllotmentRefusal::Kind;
        if (refusal.discardsEdit()) {
            cancel();
        } else if (refusal.kind == Kind::NoDetails) {
            openCell(0, ClassName);
        } else if (refusal.kind == Kind::IncompleteRow) {
            openCell(refusal.row, rows.at(refusal.row).hasKey() ? Periods : ClassName);
        } else if (refusal.kind == Kind::Duplicate) {
            m_msgDetails->setText(refusal.row, SubjectName, QString());
            m_msgDetails->setText(refusal.row, Periods, QString());
            m_msgDetails->setText(refusal.row, SubjectCode, QStringLiteral("0"));
            refreshAllottedPeriods(false);
            openCell(refusal.row, ClassName);
        }
        return;
    }
    if (!Screen::guarded(m_ctx, [&] { m_allotment.save(teacher, rows, m_mode == Mode::Edit); }))
        return;
    m_ctx.messages->information(m_mode == Mode::Edit ? Texts::recordUpdated() : Texts::recordSaved());
    cancel();
}

void frmWorkAllotmentEntry::deleteEntry()
{
    if (!AllowedOrSay(m_ctx, FormName, Privileges::Delete))
        return;
    const int teacher = teacherCode();
    QString refusal;
    if (teacher <= 0 || !Screen::guarded(m_ctx, [&] { refusal = m_allotment.deleteRefusal(teacher); }))
        return;
    if (!refusal.isEmpty()) {
        m_ctx.messages->information(refusal);
        return;
    }
    if (!m_ctx.messages->question(AllotmentTexts::deleteWholeListQuestion()))
        return;
    if (!Screen::guarded(m_ctx, [&] { m_allotment.deleteAll(teacher); }))
        return;
    m_ctx.messages->information(Texts::recordDeleted());
    cancel();
}

void frmWorkAllotmentEntry::cancel()
{
    closeCell();
    clearLabels();
    {
        const QSignalBlocker silent(m_cboTeacher);
        m_cboTeacher->setCurrentIndex(-1);
        reloadLists();
        m_cboTeacher->setCurrentIndex(0);
    }
    m_msgDetails->reset(false);
    m_msgDisplay->setRowCount(0);
    m_txtDeleteSlNo->clear();
    setMode(Mode::Idle);
    m_cmdNew->setFocus();
}

void frmWorkAllotmentEntry::exitScreen()
{
    if (Screen::ConfirmExit(m_ctx, windowTitle()))
        Screen::closeScreen(this);
}

void frmWorkAllotmentEntry::openMaster(const QString &formName)
{
    if (!m_ctx.host)
        return;
    m_listsStale = true;
    m_ctx.host->openScreen(formName);
}

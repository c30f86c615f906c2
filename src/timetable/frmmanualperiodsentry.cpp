#include "frmmanualperiodsentry.h"
#include "manuallists.h"
#include "manualwidgets.h"
#include "messageservice.h"
#include "screen.h"
#include "session.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

namespace {

const QString FormName = QStringLiteral("frmManualPeriodsEntry");
constexpr int HelpScreenNo = 17;

QLabel *freeSlotsLabel(const QString &name, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(name);
    label->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

}

frmManualPeriodsEntry::frmManualPeriodsEntry(AppContext &ctx, QWidget *parent) : QWidget(parent), m_ctx(ctx)
{
    setObjectName(FormName);
    setWindowTitle(QStringLiteral("Manual Periods Entry"));
    buildLayout();
    connectControls();
    Screen::guarded(m_ctx, [this] {
        m_calendar.load(m_ctx.db());
        m_layout = ManualWeek(m_ctx.db(), m_calendar).layout();
        loadClasses();
    });
    cancel();
    Screen::applyConventions(this, ctx, HelpScreenNo);
}

void frmManualPeriodsEntry::buildLayout()
{
    m_msgClass = new WeekTable(QStringLiteral("msgClass"), QColor(235, 215, 235), this);
    m_msgTeacher = new WeekTable(QStringLiteral("msgTeacher"), QColor(200, 235, 255), this);
    auto *grids = new QHBoxLayout;
    for (auto [grid, title] : {std::pair{m_msgClass, "Class TimeTable"}, std::pair{m_msgTeacher, "Teacher TimeTable"}}) {
        auto *frame = new QGroupBox(QString::fromLatin1(title), this);
        auto *inside = new QVBoxLayout(frame);
        inside->addWidget(grid);
        inside->addStretch();
        grids->addWidget(frame);
    }

    m_cmdTeachersFree = Screen::button(this, "cmdTeachersFree", QStringLiteral("Teachers &Free"));
    m_cmdTeachersClassesFree =
        Screen::button(this, "cmdTeachersClassesFree", QStringLiteral("Teachers - C&lasses Free"));
    m_cmdPeriodsToBeFilled =
        Screen::button(this, "cmdPeriodsToBeFilled", QStringLiteral("&Periods To Be Filled"));
    m_cmdTeachersTimeTable = Screen::button(this, "cmdTeachersTimeTable", QStringLiteral("&Teachers TimeTable"));
    m_cmdCancel = Screen::button(this, "cmdCancel", QStringLiteral("&Cancel"));
    m_cmdExit = Screen::button(this, "cmdExit", QStringLiteral("E&xit"));
    auto *buttons = new QHBoxLayout;
    for (QPushButton *push : {m_cmdTeachersFree, m_cmdTeachersClassesFree, m_cmdPeriodsToBeFilled})
        buttons->addWidget(push);
    buttons->addStretch();
    for (QPushButton *push : {m_cmdTeachersTimeTable, m_cmdCancel, m_cmdExit})
        buttons->addWidget(push);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(buildSelection());
    layout->addLayout(grids);
    layout->addWidget(buildPanels());
    layout->addStretch();
    layout->addLayout(buttons);
}

QWidget *frmManualPeriodsEntry::buildSelection()
{
    auto *frame = new QGroupBox(this);
    auto *grid = new QGridLayout(frame);
    const auto combo = [frame](QComboBox *&box, const char *name) {
        box = new QComboBox(frame);
        box->setObjectName(QString::fromLatin1(name));
        box->setMinimumContentsLength(14);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    };
    combo(m_cboClass, "cboClass");
    combo(m_cboDivision, "cboDivision");
    combo(m_cboSubject, "cboSubject");
    m_cboSubject->setMinimumContentsLength(22);
    const auto value = [frame](const char *name) {
        auto *label = new QLabel(frame);
        label->setObjectName(QString::fromLatin1(name));
        QFont bold = label->font();
        bold.setBold(true);
        label->setFont(bold);
        return label;
    };
    m_lblTeacherName = value("lblTeacherName");
    m_lblAllotedPeriods = value("lblAllotedPeriods");
    m_lblOccupiedPeriods = value("lblOccupiedPeriods");
    m_lblAllotedPeriods->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("000")));
    m_lblOccupiedPeriods->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("000")));

    m_cmdCS = Screen::button(frame, "cmdCS", QStringLiteral("CS"));
    m_cmdCS->setToolTip(QStringLiteral("Click To View Combined Subject Details"));
    m_cmdCC = Screen::button(frame, "cmdCC", QStringLiteral("CC"));
    m_cmdCC->setToolTip(QStringLiteral("Click To View Combined Class Details"));
    m_cmdCT = Screen::button(frame, "cmdCT", QStringLiteral("CT"));
    m_cmdCT->setToolTip(QStringLiteral("Click To View Combined Teacher Details"));
    auto *groups = new QHBoxLayout;
    for (QPushButton *push : {m_cmdCS, m_cmdCC, m_cmdCT}) {
        push->setMaximumWidth(push->fontMetrics().horizontalAdvance(QStringLiteral("MMMM")) + 16);
        groups->addWidget(push);
    }

    const auto caption = [frame](const char *text, QWidget *buddy) {
        auto *label = new QLabel(QString::fromLatin1(text), frame);
        label->setBuddy(buddy);
        return label;
    };
    grid->addWidget(caption("C&lass :", m_cboClass), 0, 0);
    grid->addWidget(m_cboClass, 0, 1);
    grid->addWidget(caption("&Division :", m_cboDivision), 0, 2);
    grid->addWidget(m_cboDivision, 0, 3);
    grid->addWidget(caption("&Subject :", m_cboSubject), 0, 4);
    grid->addWidget(m_cboSubject, 0, 5);
    grid->addLayout(groups, 0, 6);
    grid->addWidget(caption("Teacher :", m_lblTeacherName), 1, 0);
    grid->addWidget(m_lblTeacherName, 1, 1, 1, 3);
    auto *counters = new QHBoxLayout;
    counters->addWidget(caption("Allotted Periods :", m_lblAllotedPeriods));
    counters->addWidget(m_lblAllotedPeriods);
    counters->addSpacing(24);
    counters->addWidget(caption("Occupied Periods :", m_lblOccupiedPeriods));
    counters->addWidget(m_lblOccupiedPeriods);
    counters->addStretch();
    grid->addLayout(counters, 1, 4, 1, 3);
    grid->setColumnStretch(7, 1);
    return frame;
}

QWidget *frmManualPeriodsEntry::buildPanels()
{
    auto *holder = new QWidget(this);
    auto *row = new QHBoxLayout(holder);
    row->setContentsMargins(0, 0, 0, 0);

    m_msgCombined = makeListGrid(QStringLiteral("msgCombined"),
                                 {QStringLiteral("Teacher Name"), QStringLiteral("Class"), QStringLiteral("Division"),
                                  QStringLiteral("Subject"), QStringLiteral("Period")},
                                 holder);
    m_msgCombinedClass = makeListGrid(QStringLiteral("msgCombinedClass"),
                                      {QStringLiteral("Class Name"), QStringLiteral("Division Name")}, holder);
    m_msgCombinedTeacher = makeListGrid(QStringLiteral("msgCombinedTeacher"),
                                        {QStringLiteral("Teacher Name"), QStringLiteral("Subject Name")}, holder);
    m_msgPeriodsToBeFilled = makeListGrid(QStringLiteral("msgPeriodsToBeFilled"),
                                          {QStringLiteral("Subject Name"), QStringLiteral("Allotted Periods"),
                                           QStringLiteral("Filled Periods"), QStringLiteral("Balance Periods"),
                                           QStringLiteral("SubjectCode")},
                                          holder);
    m_msgPeriodsToBeFilled->setColumnHidden(4, true);
    m_lblTeachersFree = freeSlotsLabel(QStringLiteral("lblTeachersFree"), holder);
    m_lblTeachersClassesFree = freeSlotsLabel(QStringLiteral("lblTeachersClassesFree"), holder);

    m_fraCombined = new ManualPanel(QStringLiteral("Combined Subject"), QStringLiteral("fraCombined"), m_msgCombined);
    m_fraCombinedClass =
        new ManualPanel(QStringLiteral("Combined Class"), QStringLiteral("fraCombinedClass"), m_msgCombinedClass);
    m_fraCombinedTeacher =
        new ManualPanel(QStringLiteral("Combined Teacher"), QStringLiteral("fraCombinedTeacher"), m_msgCombinedTeacher);
    m_fraTeachersFree =
        new ManualPanel(QStringLiteral("Teachers Free"), QStringLiteral("fraTeachersFree"), m_lblTeachersFree);
    m_fraTeachersClassesFree = new ManualPanel(QStringLiteral("Teachers - Classes Free"),
                                               QStringLiteral("fraTeachersClassesFree"), m_lblTeachersClassesFree);
    m_fraPeriodsToBeFilled = new ManualPanel(QStringLiteral("Periods To Be Filled"),
                                             QStringLiteral("fraPeriodsToBeFilled"), m_msgPeriodsToBeFilled);
    m_fraCombined->setOpener(m_cmdCS);
    m_fraCombinedClass->setOpener(m_cmdCC);
    m_fraCombinedTeacher->setOpener(m_cmdCT);
    m_fraTeachersFree->setOpener(m_cmdTeachersFree);
    m_fraTeachersClassesFree->setOpener(m_cmdTeachersClassesFree);
    m_fraPeriodsToBeFilled->setOpener(m_cmdPeriodsToBeFilled);
    for (ManualPanel *panel : {m_fraCombined, m_fraCombinedClass, m_fraCombinedTeacher, m_fraTeachersFree,
                               m_fraTeachersClassesFree, m_fraPeriodsToBeFilled})
        row->addWidget(panel, 0, Qt::AlignTop);
    row->addStretch();
    return holder;
}

void frmManualPeriodsEntry::connectControls()
{
    connect(m_cboClass, &QComboBox::currentIndexChanged, this, &frmManualPeriodsEntry::classChosen);
    connect(m_cboDivision, &QComboBox::currentIndexChanged, this, &frmManualPeriodsEntry::divisionChosen);
    connect(m_cboSubject, &QComboBox::currentIndexChanged, this, &frmManualPeriodsEntry::subjectChosen);
    connect(m_msgTeacher, &QTableWidget::cellClicked, this, &frmManualPeriodsEntry::teacherCellClicked);
    connect(m_msgClass, &QTableWidget::cellClicked, this, &frmManualPeriodsEntry::classCellClicked);
    connect(m_cmdCS, &QPushButton::clicked, this, &frmManualPeriodsEntry::showCombinedSubject);
    connect(m_cmdCC, &QPushButton::clicked, this, &frmManualPeriodsEntry::showCombinedClass);
    connect(m_cmdCT, &QPushButton::clicked, this, &frmManualPeriodsEntry::showCombinedTeacher);
    connect(m_cmdTeachersFree, &QPushButton::clicked, this, &frmManualPeriodsEntry::showTeachersFree);
    connect(m_cmdTeachersClassesFree, &QPushButton::clicked, this, &frmManualPeriodsEntry::showTeachersClassesFree);
    connect(m_cmdPeriodsToBeFilled, &QPushButton::clicked, this, &frmManualPeriodsEntry::showPeriodsToBeFilled);
    connect(m_cmdTeachersTimeTable, &QPushButton::clicked, this, &frmManualPeriodsEntry::openTeachersTimeTable);
    connect(m_cmdCancel, &QPushButton::clicked, this, &frmManualPeriodsEntry::cancel);
    connect(m_cmdExit, &QPushButton::clicked, this, &frmManualPeriodsEntry::exitScreen);
}

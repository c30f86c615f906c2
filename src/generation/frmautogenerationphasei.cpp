#include "frmautogenerationphasei.h"
#include "codecombo.h"
#include "completionrun.h"
#include "generationengine.h"
#include "generationscreens.h"
#include "messageservice.h"
#include "privileges.h"
#include "random.h"
#include "runprogress.h"
#include "screen.h"
#include "session.h"
#include "settingsgrid.h"
#include "sql.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSqlQuery>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {
const QString FormName = QStringLiteral("frmAutoGenerationPhaseI");
constexpr int HelpScreenNo = 18;
// Row number 8 of the teacher grid and 4 of the subject grid, counting the heading as row 0, take no clicks.
constexpr int TeacherDeadRow = 7;
constexpr int SubjectDeadRow = 3;

QTableWidget *grid(QWidget *parent, const char *name)
{
    auto *g = new QTableWidget(parent);
    g->setObjectName(QString::fromLatin1(name));
    g->setAlternatingRowColors(true);
    return g;
}

QLabel *legend(QWidget *parent, const char *name, const QString &text, const QColor &colour)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setAutoFillBackground(true);
    QPalette palette = label->palette();
    palette.setColor(QPalette::Window, colour);
    palette.setColor(QPalette::WindowText, Qt::black);
    label->setPalette(palette);
    label->setMargin(3);
    return label;
}
}

frmAutoGenerationPhaseI::frmAutoGenerationPhaseI(AppContext &ctx, QWidget *parent) : QWidget(parent), m_ctx(ctx)
{
    setObjectName(FormName);
    setWindowTitle(QStringLiteral("Auto Generation - Phase I"));
    buildLayout();
    connectControls();
    m_run = new RunProgress(this, m_prgDisplay, m_lblProgress, m_lblAchieved, m_cmdCancelRun);
    Screen::guarded(m_ctx, [this] {
        // The opening rebuilds each teacher's free-period type from the week and the teacher's load.
        GenerationEngine engine(m_ctx.db(), ProgramRandom());
        engine.openPhaseOne();
        fillLists();
    });
    comeForward();
    Screen::applyConventions(this, ctx, HelpScreenNo);
    Screen::onComeForward(this, [this] { comeForward(); });
    m_teachers->takeEnter();
    m_subjects->takeEnter();
}

void frmAutoGenerationPhaseI::buildLayout()
{
    m_frame1 = new QGroupBox(this);
    m_frame1->setObjectName(QStringLiteral("Frame1"));
    m_cboUniformPeriod = new QComboBox(m_frame1);
    m_cboUniformPeriod->setObjectName(QStringLiteral("cboUniformPeriod"));
    m_cboUniformPeriod->addItems({QStringLiteral("NO"), QStringLiteral("YES")});
    m_cboUniformPeriod->setCurrentIndex(-1);
    auto *uniform = new QHBoxLayout(m_frame1);
    uniform->addWidget(new QLabel(QStringLiteral("Uniform Period Required :"), m_frame1));
    uniform->addWidget(m_cboUniformPeriod);
    uniform->addStretch();

    m_frame4 = new QWidget(this);
    m_frame4->setObjectName(QStringLiteral("Frame4"));
    m_cmdNew = Screen::button(m_frame4, "cmdNew", QStringLiteral("&New"));
    m_cmdEdit = Screen::button(m_frame4, "cmdEdit", QStringLiteral("&Edit"));
    m_cmdSave = Screen::button(m_frame4, "cmdSave", QStringLiteral("&Save"));
    m_cmdCancel = Screen::button(m_frame4, "cmdCancel", QStringLiteral("&Cancel"));
    m_cmdDelete = Screen::button(m_frame4, "cmdDelete", QStringLiteral("&Delete"));
    m_cmdProcess = Screen::button(m_frame4, "cmdProcess", QStringLiteral("&Process"));
    m_cmdExit = Screen::button(m_frame4, "cmdExit", QStringLiteral("E&xit"));
    m_cmdShow = Screen::button(m_frame4, "cmdShow", QStringLiteral("S&how"));
    m_cmdCheckBeforeGeneration =
        Screen::button(m_frame4, "cmdCheckBeforeGeneration", QStringLiteral("Chec&k Before Generation"));
    m_cmdCheckBeforeGeneration->setToolTip(QStringLiteral("Lists What Makes A Complete TimeTable Impossible"));
    auto *entry = new QHBoxLayout(m_frame4);
    entry->setContentsMargins(0, 0, 0, 0);
    for (QPushButton *b : {m_cmdNew, m_cmdEdit, m_cmdSave, m_cmdCancel, m_cmdDelete, m_cmdProcess, m_cmdShow, m_cmdCheckBeforeGeneration, m_cmdExit})
        entry->addWidget(b);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_frame1);
    layout->addWidget(buildSettings(), 1);
    layout->addWidget(buildValidity(), 1);
    layout->addWidget(buildRun());
    layout->addWidget(m_frame4);
    m_lblExit = new QLabel(Texts::escCloses(), this);
    m_lblExit->setObjectName(QStringLiteral("lblExit"));
    layout->addWidget(m_lblExit);
    m_fraValidity->hide();
}

QWidget *frmAutoGenerationPhaseI::buildSettings()
{
    auto *box = new QWidget(this);
    // A name is typed or picked; only the names of the list are taken.
    const auto nameCombo = [](QWidget *parent, const char *name) {
        auto *combo = new QComboBox(parent);
        combo->setObjectName(QString::fromLatin1(name));
        combo->setEditable(true);
        combo->setInsertPolicy(QComboBox::NoInsert);
        return combo;
    };
    m_frame3 = new QGroupBox(QStringLiteral("Teacher Setting - Teacher Free Periods"), box);
    m_frame3->setObjectName(QStringLiteral("Frame3"));
    m_msgTeacherDetails = grid(m_frame3, "msgTeacherDetails");
    m_cboTeacher = nameCombo(m_frame3, "cboTeacher");
    m_teachers = new SettingsGrid(m_msgTeacherDetails, m_cboTeacher, PhaseOneSettings::Kind::Teacher, TeacherDeadRow);
    (new QVBoxLayout(m_frame3))->addWidget(m_msgTeacherDetails);

    m_frame2 = new QGroupBox(QStringLiteral("Subject Setting - Subject Free Period"), box);
    m_frame2->setObjectName(QStringLiteral("Frame2"));
    m_msgSubjectDetails = grid(m_frame2, "msgSubjectDetails");
    m_cboSubject = nameCombo(m_frame2, "cboSubject");
    m_subjects = new SettingsGrid(m_msgSubjectDetails, m_cboSubject, PhaseOneSettings::Kind::Subject, SubjectDeadRow);
    m_msgSubjectTeacherCheck = grid(m_frame2, "msgSubjectTeacherCheck");
    m_msgSubjectTeacherCheck->setColumnCount(3);
    m_msgSubjectTeacherCheck->setHorizontalHeaderLabels(
        {QStringLiteral("Subject Name"), QStringLiteral("Teacher Name"), QStringLiteral("Periods")});
    m_msgSubjectTeacherCheck->verticalHeader()->hide();
    m_msgSubjectTeacherCheck->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_msgSubjectTeacherCheck->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    auto *subjects = new QVBoxLayout(m_frame2);
    subjects->addWidget(m_msgSubjectDetails, 3);
    subjects->addWidget(m_msgSubjectTeacherCheck, 2);

    // The work list of a run, kept for the program's own use.
    m_msgAutoGen1Details = grid(box, "msgAutoGen1Details");
    m_msgAutoGen1Details->hide();

    auto *layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_frame3, 3);
    layout->addWidget(m_frame2, 2);
    return box;
}

QWidget *frmAutoGenerationPhaseI::buildValidity()
{
    m_fraValidity = new QGroupBox(QStringLiteral("Teachers Free Periods"), this);
    m_fraValidity->setObjectName(QStringLiteral("fraValidity"));
    m_msgValidity = grid(m_fraValidity, "msgValidity");
    m_msgValidity->setAlternatingRowColors(false);
    m_msgValidity->verticalHeader()->hide();
    m_msgValidity->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_cmdClose = Screen::button(m_fraValidity, "cmdClose", QStringLiteral("Close"));
    auto *heading = new QLabel(
        QStringLiteral("If You See The Below Color In Any Of The Above Cells Then You Cannot Proceed For Auto Generation"),
        m_fraValidity);
    heading->setWordWrap(true);
    auto *legends = new QVBoxLayout;
    legends->addWidget(heading);
    legends->addWidget(legend(m_fraValidity, "lblColor",
                              QStringLiteral("Different Or Same Teacher Gets Clashed For The Same Period"), QColor(225, 255, 225)));
    legends->addWidget(legend(m_fraValidity, "lblColorRed",
                              QStringLiteral("Number Of Uniform Periods To Be Allotted Is Lesser Than Available Free Periods"),
                              QColor(255, 200, 200)));
    legends->addWidget(legend(m_fraValidity, "lblColorYellow",
                              QStringLiteral("Class Teacher Gets Clashed With A 'Combined Class/Combined Subject' In The Same Class"),
                              QColor(255, 255, 225)));
    legends->addStretch();
    legends->addWidget(m_cmdClose, 0, Qt::AlignRight);
    auto *layout = new QHBoxLayout(m_fraValidity);
    layout->addWidget(m_msgValidity, 3);
    layout->addLayout(legends, 2);
    return m_fraValidity;
}

QWidget *frmAutoGenerationPhaseI::buildRun()
{
    auto *box = new QGroupBox(this);
    m_cmdFixBalancePeriods = Screen::button(box, "cmdFixBalancePeriods", QStringLiteral("Fix Balance Periods"));
    m_cmdPendingPeriods =
        Screen::button(box, "cmdPendingPeriods", QStringLiteral("Auto Generation Phase &1 Pending Periods"));
    m_cmdTimeTablePercentage =
        Screen::button(box, "cmdTimeTablePercentage", QStringLiteral("&TimeTable Generated in %age"));
    m_cmdClasswiseWorkingDays =
        Screen::button(box, "cmdClasswiseWorkingDays", QStringLiteral("Classwise-Working Days"));
    m_cmdCancelRun = Screen::button(box, "cmdCancelRun", QStringLiteral("Ca&ncel Run"));
    m_cmdCompletePeriods = Screen::button(box, "cmdCompletePeriods", QStringLiteral("Complete By &Moving Periods"));
    m_cmdCompletePeriods->setToolTip(QStringLiteral("Places The Periods Not Filled By Moving Periods Placed By The Generation"));
    m_prgDisplay = new QProgressBar(box);
    m_prgDisplay->setObjectName(QStringLiteral("prgDisplay"));
    m_prgDisplay->setTextVisible(false);
    m_prgDisplay->setValue(0);
    m_lblProgress = new QLabel(box);
    m_lblProgress->setObjectName(QStringLiteral("lblProgress"));
    m_lblProgress->setMinimumWidth(48);
    m_lblAchieved = new QLabel(box);
    m_lblAchieved->setObjectName(QStringLiteral("lblAchieved"));
    m_lblAchieved->setMinimumWidth(48);

    auto *layout = new QGridLayout(box);
    layout->addWidget(new QLabel(QStringLiteral("Current Progress :"), box), 0, 0);
    layout->addWidget(m_prgDisplay, 0, 1);
    layout->addWidget(m_lblProgress, 0, 2);
    layout->addWidget(m_cmdCancelRun, 0, 3);
    layout->addWidget(new QLabel(QStringLiteral("Total Achieved :"), box), 1, 0);
    layout->addWidget(m_lblAchieved, 1, 1, 1, 2);
    auto *buttons = new QHBoxLayout;
    for (QPushButton *b : {m_cmdPendingPeriods, m_cmdTimeTablePercentage, m_cmdClasswiseWorkingDays, m_cmdFixBalancePeriods,
                           m_cmdCompletePeriods})
        buttons->addWidget(b);
    buttons->addStretch();
    layout->addLayout(buttons, 2, 0, 1, 4);
    layout->setColumnStretch(1, 1);
    return box;
}

void frmAutoGenerationPhaseI::connectControls()
{
    connect(m_cmdNew, &QPushButton::clicked, this, &frmAutoGenerationPhaseI::newEntry);
    connect(m_cmdEdit, &QPushButton::clicked, this, &frmAutoGenerationPhaseI::editEntry);
    connect(m_cmdSave, &QPushButton::clicked, this, &frmAutoGenerationPhaseI::save);
    connect(m_cmdCancel, &QPushButton::clicked, this, &frmAutoGenerationPhaseI::cancel);
    connect(m_cmdDelete, &QPushButton::clicked, this, &frmAutoGenerationPhaseI::deleteEntry);
    connect(m_cmdProcess, &QPushButton::clicked, this, &frmAutoGenerationPhaseI::process);
    connect(m_cmdExit, &QPushButton::clicked, this, &frmAutoGenerationPhaseI::exitScreen);
    connect(m_cmdShow, &QPushButton::clicked, this, [this] { showValidity(true); });
    connect(m_cmdClose, &QPushButton::clicked, this, [this] { showValidity(false); });
    connect(m_cmdPendingPeriods, &QPushButton::clicked, this, &frmAutoGenerationPhaseI::pendingPeriods);
    connect(m_cmdTimeTablePercentage, &QPushButton::clicked, this, &frmAutoGenerationPhaseI::totalAchieved);
    connect(m_cmdClasswiseWorkingDays, &QPushButton::clicked, this, [this] {
        if (m_ctx.host)
            m_ctx.host->openScreen(QStringLiteral("frmClasswiseWorkingDaysSetup"));
    });
    // The Phase I screen carries the Fix Balance Periods button of Phase II without its work.
    connect(m_cmdCompletePeriods, &QPushButton::clicked, this, [this] {
        CompletionRun::Run(m_ctx, *m_run, CompletionStage::PhaseOne);
        fillWorkList();
        comeForward();
    });
    connect(m_cmdCheckBeforeGeneration, &QPushButton::clicked, this, [this] { CompletionRun::ShowImpossibilities(m_ctx); });

    connect(m_cboUniformPeriod, &QComboBox::activated, this, &frmAutoGenerationPhaseI::uniformAnswered);
    for (SettingsGrid *settings : {m_teachers, m_subjects}) {
        connect(settings, &SettingsGrid::nameCellClicked, settings, &SettingsGrid::placeCombo);
        connect(settings, &SettingsGrid::periodCellClicked, this,
                [this, settings](int row, int period) { periodClicked(settings, row, period); });
        connect(settings->combo(), &QComboBox::activated, this, [this, settings] { nameChosen(settings); });
        connect(settings, &SettingsGrid::nameEntered, this, [this, settings] { nameChosen(settings); });
    }
}

void frmAutoGenerationPhaseI::fillLists()
{
    const Sql sql(m_ctx.db());
    // No entry is chosen until the user picks one.
    auto fill = [&sql](QComboBox *combo, const QString &statement) {
        QList<CodeName> entries;
        QSqlQuery q = sql.run(statement);
        while (q.next())
            entries.append({q.value(0).toInt(), q.value(1).toString()});
        CodeCombo::fill(combo, entries, false);
        Screen::WidenDropDown(combo);
    };
    fill(m_cboTeacher, QStringLiteral("SELECT TeacherCode, TeacherName FROM TeacherMaster WHERE TeacherCode > 0 ORDER BY TeacherName"));
    fill(m_cboSubject, QStringLiteral("SELECT SubjectCode, SubjectName FROM SubjectMaster WHERE SubjectCode > 0 ORDER BY SubjectName"));
    const QStringList periods = SchoolCalendar::periodNames(m_ctx.db()).mid(0, m_ctx.session.calendar.periodsPerDay);
    m_teachers->setPeriods(periods);
    m_subjects->setPeriods(periods);
}

void frmAutoGenerationPhaseI::exitScreen()
{
    if (m_run->running())
        return;
    if (m_pendingWindow)
        ClosePendingWindow(m_pendingWindow);
    if (Screen::ConfirmExit(m_ctx, windowTitle()))
        Screen::closeScreen(this);
}

// The modes, the settings grids' clicks and the run of the Phase I screen.
#include "frmautogenerationphasei.h"
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

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTableWidget>

using PhaseOneSettings::SettingRow;

namespace {
const QString FormName = QStringLiteral("frmAutoGenerationPhaseI");

// The hourglass for the length of a scope.
struct BusyCursor
{
    BusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QApplication::restoreOverrideCursor(); }
};
}

void frmAutoGenerationPhaseI::comeForward()
{
    // A screen in the middle of New or Edit, or of a run, keeps what it shows.
    if (m_mode != Mode::Idle || (m_run && m_run->running()))
        return;
    Screen::guarded(m_ctx, [this] { loadData(); });
}

void frmAutoGenerationPhaseI::loadData()
{
    const QSqlDatabase db = m_ctx.db();
    const PhaseOneSettings::Settings settings = PhaseOneSettings::Load(db, m_ctx.session.calendar);
    setFramesOpen(false, false);
    m_teachers->placeCombo(-1);
    m_subjects->placeCombo(-1);
    m_cmdSave->setEnabled(false);
    if (!settings.saved) {
        m_cboUniformPeriod->setCurrentIndex(-1);
        m_teachers->setRows({});
        m_subjects->setRows({});
        m_subjectChecks.clear();
        fillSubjectChecks();
        m_cmdNew->setEnabled(true);
        for (QPushButton *b : {m_cmdEdit, m_cmdDelete, m_cmdProcess})
            b->setEnabled(false);
        return;
    }
    m_cboUniformPeriod->setCurrentIndex(m_cboUniformPeriod->findText(settings.uniform, Qt::MatchFixedString));
    m_answer = m_cboUniformPeriod->currentText();
    m_teachers->setRows(settings.teachers);
    m_subjects->setRows(settings.subjects);
    m_subjectChecks = settings.subjectTeachers;
    fillSubjectChecks();
    m_cmdNew->setEnabled(false);
    m_cmdEdit->setEnabled(true);
    m_cmdDelete->setEnabled(true);
    m_cmdProcess->setEnabled(true);
    // Once Phase I has run its settings stand until its records are deleted.
    if (Sql(db).exists(QStringLiteral("SELECT 1 FROM TTCode WHERE PIStatus = 'Y'"))) {
        for (QPushButton *b : {m_cmdProcess, m_cmdEdit, m_cmdDelete})
            b->setEnabled(false);
    }
}

void frmAutoGenerationPhaseI::setFramesOpen(bool uniform, bool settings)
{
    m_frame1->setEnabled(uniform);
    m_frame2->setEnabled(settings);
    m_frame3->setEnabled(settings);
}

void frmAutoGenerationPhaseI::newEntry()
{
    if (!AllowedOrSay(m_ctx, FormName, Privileges::New))
        return;
    if (!Screen::guarded(m_ctx, [this] {
            PhaseOneChecks::SyncClasswiseWorkingDays(m_ctx.db(), m_ctx.session.calendar);
        }))
        return;
    m_mode = Mode::New;
    m_validityBuilt = false;
    m_cboUniformPeriod->setCurrentIndex(-1);
    m_answer.clear();
    m_teachers->setRows({});
    m_subjects->setRows({});
    m_subjectChecks.clear();
    fillSubjectChecks();
    setFramesOpen(true, false);
    m_cmdNew->setEnabled(false);
    m_cmdSave->setEnabled(true);
    for (QPushButton *b : {m_cmdEdit, m_cmdDelete, m_cmdProcess})
        b->setEnabled(false);
    m_cboUniformPeriod->setFocus();
}

void frmAutoGenerationPhaseI::editEntry()
{
    if (!AllowedOrSay(m_ctx, FormName, Privileges::Edit))
        return;
    m_mode = Mode::Edit;
    setFramesOpen(true, true);
    for (QPushButton *b : {m_cmdEdit, m_cmdDelete, m_cmdProcess})
        b->setEnabled(false);
    m_cmdSave->setEnabled(true);
    m_cmdSave->setFocus();
}

void frmAutoGenerationPhaseI::save()
{
    if (m_cboUniformPeriod->currentText().trimmed().isEmpty()) {
        m_ctx.messages->information(QStringLiteral("Select Whether Uniform Period Is Required Or Not"));
        m_cboUniformPeriod->setFocus();
        return;
    }
    PhaseOneSettings::Settings settings;
    settings.uniform = m_cboUniformPeriod->currentText();
    settings.teachers = m_teachers->namedRows();
    settings.subjects = m_subjects->namedRows();
    settings.subjectTeachers = m_subjectChecks;
    const bool edit = m_mode == Mode::Edit;
    bool saved = false;
    {
        BusyCursor busy;
        saved = Screen::guarded(m_ctx, [&] {
            PhaseOneSettings::Save(m_ctx.db(), m_ctx.session.calendar, settings, edit);
        });
    }
    if (!saved)
        return;
    m_ctx.messages->information(edit ? Texts::recordUpdated() : Texts::recordSaved());
    m_mode = Mode::Idle;
    comeForward();
}

void frmAutoGenerationPhaseI::cancel()
{
    Screen::ClearControls(this);
    m_mode = Mode::Idle;
    m_cannotProceed = false;
    m_validityBuilt = false;
    m_frame4->setEnabled(true);
    showValidity(false);
    fillLists();
    comeForward();
}

void frmAutoGenerationPhaseI::deleteEntry()
{
    if (!AllowedOrSay(m_ctx, FormName, Privileges::Delete))
        return;
    if (!m_ctx.messages->question(QStringLiteral("Do You Want To Delete This Record ?")))
        return;
    if (!Screen::guarded(m_ctx, [this] { PhaseOneSettings::Delete(m_ctx.db()); }))
        return;
    cancel();
    m_ctx.messages->information(Texts::recordDeleted());
}

void frmAutoGenerationPhaseI::uniformAnswered()
{
    const QString answer = m_cboUniformPeriod->currentText();
    const bool yes = answer == QLatin1String("YES");
    if (yes && (!m_teachers->namedRows().isEmpty() || !m_subjects->namedRows().isEmpty())) {
        if (!m_ctx.messages->question(QStringLiteral("All Teacher And Subject Setting Will Be Cleared And You Have To Make New Settings.")
                                      + QLatin1Char('\n') + QStringLiteral("Do You Want To Proceed ?"))) {
            m_cboUniformPeriod->setCurrentIndex(m_cboUniformPeriod->findText(m_answer));
            return;
        }
        m_teachers->cutBack();
        m_subjects->cutBack();
        m_subjectChecks.clear();
        fillSubjectChecks();
    }
    m_answer = answer;
    m_validityBuilt = false;
    if (yes) {
        buildValidityGrid();
        if (m_cannotProceed) {
            // The coloured cells must be read before anything else: only Esc leaves the screen now.
            m_teachers->placeCombo(-1);
            m_subjects->placeCombo(-1);
            setFramesOpen(false, false);
            m_frame4->setEnabled(false);
            showValidity(true);
            return;
        }
        m_frame4->setEnabled(true);
    }
    setFramesOpen(true, true);
    m_teachers->placeCombo(0);
}

void frmAutoGenerationPhaseI::buildValidityGrid()
{
    Screen::guarded(m_ctx, [this] {
        BusyCursor busy;
        SchoolSnapshot snapshot;
        snapshot.load(m_ctx.db());
        const AllotmentIndex index(snapshot.allotments);
        m_validity = PhaseOneChecks::BuildValidityGrid(m_ctx.db(), snapshot, index);
        m_validityBuilt = true;
    });
    m_cannotProceed = m_validityBuilt && m_validity.cannotProceed;
    const QStringList periods = SchoolCalendar::periodNames(m_ctx.db()).mid(0, m_ctx.session.calendar.periodsPerDay);
    m_msgValidity->clear();
    m_msgValidity->setColumnCount(int(periods.size()) + 2);
    m_msgValidity->setHorizontalHeaderLabels(QStringList{QStringLiteral("Teacher Name")} + periods + QStringList{QStringLiteral("TeacherCode")});
    m_msgValidity->setColumnHidden(int(periods.size()) + 1, true);
    m_msgValidity->setRowCount(int(m_validity.rows.size()));
    for (int r = 0; r < m_validity.rows.size(); ++r) {
        const PhaseOneChecks::ValidityRow &row = m_validity.rows[r];
        m_msgValidity->setItem(r, 0, new QTableWidgetItem(row.name));
        for (int c = 0; c < row.cells.size() && c < periods.size(); ++c) {
            const PhaseOneChecks::ValidityCell &cell = row.cells[c];
            auto *item = new QTableWidgetItem(cell.value ? QString::number(cell.value) : QString());
            item->setTextAlignment(Qt::AlignCenter);
            if (cell.colour == PhaseOneChecks::ValidityCell::Colour::Clash)
                item->setBackground(QColor(225, 255, 225));
            else if (cell.colour == PhaseOneChecks::ValidityCell::Colour::NoRoom)
                item->setBackground(QColor(255, 200, 200));
            m_msgValidity->setItem(r, c + 1, item);
        }
        m_msgValidity->setItem(r, int(periods.size()) + 1, new QTableWidgetItem(QString::number(row.teacher)));
    }
    m_msgValidity->resizeColumnsToContents();
}

void frmAutoGenerationPhaseI::showValidity(bool show)
{
    m_fraValidity->setVisible(show);
    m_lblExit->setVisible(!show);
    // With every frame locked no control can hold the focus, and the screen takes it so that Esc still leaves.
    if (!show && !m_frame4->isEnabled())
        setFocus();
}

// A name chosen in a grid's combo, by the list or by Enter. A subject also brings its teachers' periods into
// the check grid.
void frmAutoGenerationPhaseI::nameChosen(SettingsGrid *settings)
{
    const bool teacher = settings->kind() == PhaseOneSettings::Kind::Teacher;
    const int row = settings->comboRow();
    if (row < 0)
        return;
    QComboBox *combo = settings->combo();
    const QString name = combo->currentText().trimmed();
    const QString before = settings->row(row).name;
    if (name.isEmpty()) {
        settings->setRow(row, SettingRow());
        if (!teacher) {
            removeSubjectChecks(before);
            fillSubjectChecks();
        }
        return;
    }
    const int item = combo->findText(name, Qt::MatchFixedString);
    if (item < 0)
        return;
    if (settings->otherRowNamed(name, row) >= 0) {
        m_ctx.messages->information(teacher ? QStringLiteral("Teacher Already Selected")
                                            : QStringLiteral("Subject Already Selected"));
        return;
    }
    SettingRow chosen;
    chosen.name = combo->itemText(item);
    chosen.code = combo->itemData(item).toInt();
    QList<PhaseOneSettings::SubjectTeacherRow> teachers;
    if (!Screen::guarded(m_ctx, [&] {
            if (teacher)
                chosen.noOfPeriods = PhaseOneSettings::TeacherPeriods(m_ctx.db(), chosen.code);
            else
                teachers = PhaseOneSettings::TeachersOfSubject(m_ctx.db(), chosen.code, chosen.name);
        }))
        return;
    if (!teacher) {
        removeSubjectChecks(before);
        m_subjectChecks.append(teachers);
        fillSubjectChecks();
    }
    settings->setRow(row, chosen);
    settings->placeCombo(row + 1);
}

void frmAutoGenerationPhaseI::removeSubjectChecks(const QString &subject)
{
    if (subject.isEmpty())
        return;
    m_subjectChecks.removeIf([&subject](const PhaseOneSettings::SubjectTeacherRow &check) {
        return check.subjectName.compare(subject, Qt::CaseInsensitive) == 0;
    });
}

void frmAutoGenerationPhaseI::fillSubjectChecks()
{
    m_msgSubjectTeacherCheck->setRowCount(int(m_subjectChecks.size()));
    for (int r = 0; r < m_subjectChecks.size(); ++r) {
        const PhaseOneSettings::SubjectTeacherRow &check = m_subjectChecks[r];
        m_msgSubjectTeacherCheck->setItem(r, 0, new QTableWidgetItem(check.subjectName));
        m_msgSubjectTeacherCheck->setItem(r, 1, new QTableWidgetItem(check.teacherName));
        auto *total = new QTableWidgetItem(QString::number(check.total));
        total->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        m_msgSubjectTeacherCheck->setItem(r, 2, total);
    }
}

// A click on a period cell of either grid: a "No" goes after a question, a new one after the checks of its
// grid's kind.
void frmAutoGenerationPhaseI::periodClicked(SettingsGrid *settings, int row, int period)
{
    SettingRow setting = settings->row(row);
    const SchoolCalendar &calendar = m_ctx.session.calendar;
    if (period <= setting.free.size() && setting.free[period - 1]) {
        if (m_ctx.messages->question(QStringLiteral("Do You Want To Remove The Entry ?"))) {
            PhaseOneSettings::SetFree(calendar, setting, period, false);
            settings->setRow(row, setting);
        }
        return;
    }
    QString refusal;
    const bool yes = m_cboUniformPeriod->currentText() == QLatin1String("YES");
    if (!Screen::guarded(m_ctx, [&] {
            if (settings->kind() == PhaseOneSettings::Kind::Teacher)
                refusal = PhaseOneSettings::TeacherFreeRefusal(m_ctx.db(), calendar, setting, period, yes,
                                                               m_validityBuilt ? &m_validity : nullptr);
            else
                refusal = PhaseOneSettings::SubjectFreeRefusal(m_ctx.db(), calendar, setting, period, yes,
                                                               m_subjectChecks);
        }))
        return;
    if (!refusal.isEmpty()) {
        m_ctx.messages->information(refusal);
        return;
    }
    PhaseOneSettings::SetFree(calendar, setting, period, true);
    settings->setRow(row, setting);
}

void frmAutoGenerationPhaseI::process()
{
    GenerationEngine engine(m_ctx.db(), ProgramRandom());
    GenerationResult result;
    const GenerationSettings settings = m_run->start();
    const bool ran = Screen::guarded(m_ctx, [&] { result = engine.processPhaseOne(*m_ctx.messages, settings); });
    m_run->finish();
    if (!ran)
        return;
    fillWorkList();
    comeForward();
    if (result.nothingToPlace) {
        m_cmdProcess->setEnabled(false);
        m_cmdEdit->setFocus();
    }
    if (result.openBlankPeriods && m_ctx.host)
        m_ctx.host->openScreen(QStringLiteral("frmBlankPeriods"));
    if (result.openPending)
        m_pendingWindow = OpenPendingWindow(m_ctx, PendingView::PhaseOne);
}

void frmAutoGenerationPhaseI::pendingPeriods()
{
    {
        BusyCursor busy;
        if (!Screen::guarded(m_ctx, [this] {
                GenerationEngine engine(m_ctx.db(), ProgramRandom());
                engine.load();
                engine.refreshPhaseOneBalance();
            }))
            return;
        fillWorkList();
    }
    m_pendingWindow = OpenPendingWindow(m_ctx, PendingView::PhaseOne);
    totalAchieved();
}

void frmAutoGenerationPhaseI::fillWorkList()
{
    Screen::guarded(m_ctx, [this] {
        FillWorkListGrid(m_msgAutoGen1Details, m_ctx.db(), QStringLiteral("AutoGenPhase1"));
    });
}

void frmAutoGenerationPhaseI::totalAchieved()
{
    Screen::guarded(m_ctx, [this] { RunProgress::showTotalAchieved(m_lblAchieved, StoredTotalAchieved(m_ctx.db())); });
}

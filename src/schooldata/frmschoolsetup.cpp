#include "frmschoolsetup.h"
#include "messageservice.h"
#include "perioddetailspanel.h"
#include "privileges.h"
#include "schoolsetupframe.h"
#include "screen.h"
#include "session.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace {
const QString FormName = QStringLiteral("frmSchoolSetup");

int valueOf(const QLineEdit *field)
{
    return field->text().trimmed().toInt();
}

// A leave check runs once per change: Enter and the loss of focus that follows both report the end of an
// edit, and a value the check puts back needs no second look.
bool takeChange(QLineEdit *field)
{
    if (!field->isModified())
        return false;
    field->setModified(false);
    return true;
}
}

frmSchoolSetup::frmSchoolSetup(AppContext &ctx, QWidget *parent)
    : QWidget(parent), m_ctx(ctx), m_service(ctx.db())
{
    setObjectName(FormName);
    setWindowTitle(QStringLiteral("School Setup"));
    buildLayout();
    connectChecks();

    connect(m_cmdNew, &QPushButton::clicked, this, &frmSchoolSetup::newEntry);
    connect(m_cmdEdit, &QPushButton::clicked, this, &frmSchoolSetup::edit);
    connect(m_cmdSave, &QPushButton::clicked, this, &frmSchoolSetup::save);
    connect(m_cmdCancel, &QPushButton::clicked, this, &frmSchoolSetup::cancel);
    connect(m_cmdExit, &QPushButton::clicked, this, &frmSchoolSetup::exit);
    connect(m_fraMain->cmdPeriodDetails(), &QPushButton::clicked, this, [this] { openPeriodDetails(0); });
    connect(m_fraPeriodDetails, &PeriodDetailsPanel::closed, this, [this] { setPeriodDetailsOpen(false); });
    connect(m_fraMain->dbcStateName(), &QComboBox::currentIndexChanged, this, [this] {
        Screen::guarded(m_ctx, [this] { m_fraMain->fillCities(m_fraMain->dbcStateName()->currentData().toInt()); });
    });
    // The masters open beside this screen; what they add shows up when the office comes back here.
    connect(m_fraMain->cmdAddState(), &QPushButton::clicked, this, [this] {
        if (m_ctx.host)
            m_ctx.host->openScreen(QStringLiteral("frmStateMaster"));
    });
    connect(m_fraMain->cmdAddCityName(), &QPushButton::clicked, this, [this] {
        if (m_ctx.host)
            m_ctx.host->openScreen(QStringLiteral("frmCityMaster"));
    });

    cancel();
    Screen::applyConventions(this, ctx, 6);
    Screen::onComeForward(this, [this] { refreshLists(); });
}

frmSchoolSetup::~frmSchoolSetup()
{
    // A field that loses focus while the screen goes down reports the end of its edit: nobody is listening.
    for (QObject *child : findChildren<QObject *>())
        disconnect(child, nullptr, this, nullptr);
}

void frmSchoolSetup::buildLayout()
{
    m_fraMain = new SchoolSetupFrame(m_service, this);
    m_fraPeriodDetails = new PeriodDetailsPanel(*m_ctx.messages, this);
    m_fraPeriodDetails->hide();

    m_buttonRow = new QWidget(this);
    m_cmdNew = Screen::button(m_buttonRow, "cmdNew", QStringLiteral("&New"));
    m_cmdEdit = Screen::button(m_buttonRow, "cmdEdit", QStringLiteral("&Edit"));
    m_cmdSave = Screen::button(m_buttonRow, "cmdSave", QStringLiteral("&Save"));
    m_cmdCancel = Screen::button(m_buttonRow, "cmdCancel", QStringLiteral("&Cancel"));
    m_cmdExit = Screen::button(m_buttonRow, "cmdExit", QStringLiteral("E&xit"));
    auto *buttons = new QHBoxLayout(m_buttonRow);
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->addStretch();
    for (QPushButton *push : {m_cmdNew, m_cmdEdit, m_cmdSave, m_cmdCancel, m_cmdExit})
        buttons->addWidget(push);

    auto *layout = new QGridLayout(this);
    layout->addWidget(m_fraMain, 0, 0);
    layout->addWidget(m_fraPeriodDetails, 0, 0);
    layout->addWidget(m_buttonRow, 1, 0);
}

void frmSchoolSetup::connectChecks()
{
    connect(m_fraMain->txtNoOfWorkingDays(), &QLineEdit::textEdited, this, &frmSchoolSetup::daysTyped);
    connect(m_fraMain->txtNoOfWorkingDays(), &QLineEdit::editingFinished, this, &frmSchoolSetup::daysLeft);
    connect(m_fraMain->txtPeriodsPerDay(), &QLineEdit::editingFinished, this, &frmSchoolSetup::periodsLeft);
    connect(m_fraMain->txtPeriodsOnLastWorkingDay(), &QLineEdit::editingFinished, this,
            &frmSchoolSetup::lastDayLeft);
    connect(m_fraMain->txtPeriodsInMorningSession(), &QLineEdit::textEdited, this, &frmSchoolSetup::morningTyped);
}

void frmSchoolSetup::closeEvent(QCloseEvent *event)
{
    // The frame's close button keeps the Exit rule: leaving with no school set up means quitting.
    bool schoolExists = true;
    if (!property("ttExitConfirmed").toBool())
        Screen::guarded(m_ctx, [this, &schoolExists] { schoolExists = m_service.exists(); });
    if (schoolExists) {
        event->accept();
        return;
    }
    if (!mayLeaveWithoutSchool()) {
        event->ignore();
        return;
    }
    event->accept();
    endProgram();
}

void frmSchoolSetup::refreshLists()
{
    Screen::guarded(m_ctx, [this] { m_fraMain->refreshLists(); });
}

void frmSchoolSetup::cancel()
{
    m_fraPeriodDetails->dismiss();
    setPeriodDetailsOpen(false);
    Screen::ClearControls(this);
    m_editing = false;
    m_saved.reset();
    Screen::guarded(m_ctx, [this] {
        m_fraMain->refreshLists();
        m_saved = m_service.load();
        if (m_saved)
            m_fraMain->showRecord(*m_saved);
        m_fraPeriodDetails->setPeriods(m_service.periods());
        m_ctx.session.calendar.load(m_ctx.db());
    });
    // There is one school: once it is set up it is edited, never entered again.
    const Screen::EntryButtons buttons{m_fraMain, m_cmdNew, m_cmdEdit, nullptr, m_cmdSave};
    buttons.setState(m_saved ? Screen::EntryState::Chosen : Screen::EntryState::Idle);
    m_cmdNew->setEnabled(!m_saved);
    if (m_saved)
        m_cmdEdit->setFocus();
}

void frmSchoolSetup::newEntry()
{
    if (!AllowedOrSay(m_ctx, FormName, Privileges::New))
        return;
    m_editing = false;
    Screen::EntryButtons{m_fraMain, m_cmdNew, m_cmdEdit, nullptr, m_cmdSave}.setState(Screen::EntryState::New);
    Screen::guarded(m_ctx, [this] {
        // Monday starts the week unless timetable rows already count their days from another first day.
        const bool locked = m_service.firstDayLocked();
        m_fraMain->selectFirstDay(locked ? m_service.currentFirstDay() : 1);
        m_fraMain->cboFirstDayOfTheWeek()->setEnabled(!locked);
    });
    m_fraMain->txtSchoolName()->setFocus();
}

void frmSchoolSetup::edit()
{
    if (!AllowedOrSay(m_ctx, FormName, Privileges::Edit))
        return;
    m_editing = true;
    Screen::EntryButtons{m_fraMain, m_cmdNew, m_cmdEdit, nullptr, m_cmdSave}.setState(Screen::EntryState::Edit);
    Screen::guarded(m_ctx, [this] { m_fraMain->cboFirstDayOfTheWeek()->setEnabled(!m_service.firstDayLocked()); });
    m_fraMain->txtSchoolName()->setFocus();
}

void frmSchoolSetup::save()
{
    const SchoolSetupRecord record = m_fraMain->record();
    QList<PeriodRow> periods = m_fraPeriodDetails->periods();
    bool saved = false;
    Screen::guarded(m_ctx, [&] {
        const SetupCheck check =
            m_service.validate(record, periods, m_editing ? m_saved : std::nullopt, *m_ctx.messages);
        if (periods.size() != m_fraPeriodDetails->periods().size())
            m_fraPeriodDetails->setPeriods(periods);
        if (!check.passed())
            return applyRefusal(check);
        m_service.save(record, periods, check.deleteSubstitutes);
        saved = true;
    });
    if (!saved)
        return;
    m_ctx.messages->information(m_editing ? Texts::recordUpdated() : Texts::recordSaved());
    cancel();
}

void frmSchoolSetup::exit()
{
    bool schoolExists = true;
    Screen::guarded(m_ctx, [this, &schoolExists] { schoolExists = m_service.exists(); });
    if (schoolExists) {
        if (Screen::ConfirmExit(m_ctx, windowTitle()))
            Screen::closeScreen(this);
        return;
    }
    if (!mayLeaveWithoutSchool())
        return;
    Screen::closeScreen(this);
    endProgram();
}

bool frmSchoolSetup::mayLeaveWithoutSchool()
{
    m_ctx.messages->information(QStringLiteral("Without Entering School Setup, You Cannot Proceed Further"));
    return m_ctx.messages->question(QStringLiteral("Do You Want To Quit Zarlo-TimeTable"));
}

void frmSchoolSetup::endProgram()
{
    emit programEndRequested();
    QCoreApplication::exit(0);
}

void frmSchoolSetup::openPeriodDetails(int row)
{
    QLineEdit *periodsField = m_fraMain->txtPeriodsPerDay();
    const int count = valueOf(periodsField);
    if (count <= 0) {
        m_ctx.messages->information(QStringLiteral("Enter 'Periods Per Day'"));
        periodsField->setFocus();
        return;
    }
    QList<PeriodRow> periods = m_fraPeriodDetails->periods();
    SchoolSetupService::resizePeriods(periods, count);
    m_fraPeriodDetails->setPeriods(periods);
    setPeriodDetailsOpen(true);
    m_fraPeriodDetails->openAt(row);
}

// The panel takes the place of the fields while it is open, so the week cannot change under it.
void frmSchoolSetup::setPeriodDetailsOpen(bool open)
{
    const bool wasOpen = !m_buttonRow->isEnabled();
    m_buttonRow->setEnabled(!open);
    m_fraMain->setVisible(!open);
    m_fraPeriodDetails->setVisible(open);
    if (wasOpen && !open)
        m_cmdSave->setFocus();
}

void frmSchoolSetup::daysTyped()
{
    QLineEdit *field = m_fraMain->txtNoOfWorkingDays();
    if (valueOf(field) <= 7)
        return;
    m_ctx.messages->information(SchoolSetupService::daysAboveSevenText());
    field->clear();
}

void frmSchoolSetup::daysLeft()
{
    QLineEdit *field = m_fraMain->txtNoOfWorkingDays();
    const int days = valueOf(field);
    if (!takeChange(field) || !m_editing || !m_saved || days <= 0 || days >= m_saved->noOfWorkingDays)
        return;
    Screen::guarded(m_ctx, [&] {
        if (const QString refusal = m_service.dayReductionRefusal(days); !refusal.isEmpty()) {
            m_ctx.messages->information(refusal);
            restoreSaved(field, m_saved->noOfWorkingDays);
        }
    });
}

void frmSchoolSetup::periodsLeft()
{
    QLineEdit *field = m_fraMain->txtPeriodsPerDay();
    const int periods = valueOf(field);
    if (!takeChange(field) || periods <= 0)
        return;
    Screen::guarded(m_ctx, [&] {
        if (const QString refusal = m_service.periodReductionRefusal(periods); !refusal.isEmpty()) {
            m_ctx.messages->information(refusal);
            restoreSaved(field, savedValueOf(SetupField::PeriodsPerDay));
        }
    });
}

void frmSchoolSetup::lastDayLeft()
{
    QLineEdit *field = m_fraMain->txtPeriodsOnLastWorkingDay();
    const int lastDay = valueOf(field);
    if (!takeChange(field) || lastDay <= 0)
        return;
    const int days = valueOf(m_fraMain->txtNoOfWorkingDays());
    const int periodsPerDay = valueOf(m_fraMain->txtPeriodsPerDay());
    Screen::guarded(m_ctx, [&] {
        if (const QString refusal = m_service.lastDayReductionRefusal(days, lastDay); !refusal.isEmpty()) {
            m_ctx.messages->information(refusal);
            restoreSaved(field, savedValueOf(SetupField::PeriodsOnLastWorkingDay));
        } else if (periodsPerDay > 0 && lastDay > periodsPerDay) {
            m_ctx.messages->information(SchoolSetupService::lastDayAbovePeriodsText());
            field->clear();
        }
    });
}

void frmSchoolSetup::morningTyped()
{
    QLineEdit *field = m_fraMain->txtPeriodsInMorningSession();
    const int morning = valueOf(field);
    Screen::guarded(m_ctx, [&] {
        // A generated timetable spread each teacher's free periods over the sessions as they stood.
        if (m_editing && m_saved && morning != m_saved->periodsInMorningSession && m_service.autoGenerated()) {
            restoreSaved(field, m_saved->periodsInMorningSession);
            m_ctx.messages->information(SchoolSetupService::morningLockedText());
            return;
        }
        const int periodsPerDay = valueOf(m_fraMain->txtPeriodsPerDay());
        if (periodsPerDay > 0 && morning > periodsPerDay) {
            m_ctx.messages->information(SchoolSetupService::morningAbovePeriodsText());
            field->clear();
        }
    });
}

void frmSchoolSetup::applyRefusal(const SetupCheck &check)
{
    if (check.stopped)
        return;
    m_ctx.messages->information(check.text);
    if (check.field == SetupField::PeriodDetails)
        return openPeriodDetails(check.periodRow);
    QWidget *widget = m_fraMain->widgetOf(check.field);
    if (auto *field = qobject_cast<QLineEdit *>(widget)) {
        if (check.fix == SetupCheck::Fix::Empty)
            field->clear();
        else if (check.fix == SetupCheck::Fix::Restore)
            restoreSaved(field, savedValueOf(check.field));
    }
    if (widget)
        widget->setFocus();
}

void frmSchoolSetup::restoreSaved(QLineEdit *field, int savedValue)
{
    field->setText(savedValue > 0 ? QString::number(savedValue) : QString());
}

int frmSchoolSetup::savedValueOf(SetupField field) const
{
    if (!m_saved)
        return 0;
    switch (field) {
    case SetupField::NoOfWorkingDays: return m_saved->noOfWorkingDays;
    case SetupField::PeriodsPerDay: return m_saved->periodsPerDay;
    case SetupField::PeriodsOnLastWorkingDay: return m_saved->periodsOnLastWorkingDay;
    case SetupField::PeriodsInMorningSession: return m_saved->periodsInMorningSession;
    default: return 0;
    }
}

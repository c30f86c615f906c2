#include "frmteachermaster.h"
#include "frmteachersearch.h"
#include "messageservice.h"
#include "privileges.h"
#include "session.h"
#include "teacherdetailsframe.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {
const QString FormName = QStringLiteral("frmTeacherMaster");
constexpr int HelpScreenNo = 10;
}

frmTeacherMaster::frmTeacherMaster(AppContext &ctx, QWidget *parent)
    : QWidget(parent), m_ctx(ctx), m_service(ctx.db())
{
    setObjectName(FormName);
    setWindowTitle(QStringLiteral("Teacher Master"));
    m_fraMain = new TeacherDetailsFrame(ctx, m_service, this);
    buildButtons();
    m_entryButtons = {m_fraMain, m_cmdNew, m_cmdEdit, m_cmdDelete, m_cmdSave};

    connect(m_fraMain, &TeacherDetailsFrame::masterWanted, this, &frmTeacherMaster::openMaster);
    connect(m_fraMain, &TeacherDetailsFrame::periodsTyped, this, &frmTeacherMaster::periodsTyped);
    connect(m_fraMain, &TeacherDetailsFrame::periodsLeft, this, &frmTeacherMaster::periodsLeft);
    connect(m_fraMain, &TeacherDetailsFrame::dateOfBirthEdited, this, &frmTeacherMaster::dateOfBirthEdited);

    refreshLists();
    setState(Screen::EntryState::Idle);
    Screen::applyConventions(this, ctx, HelpScreenNo);
    Screen::onComeForward(this, [this] { refreshLists(); });
}

void frmTeacherMaster::buildButtons()
{
    const auto button = [this](const char *name, const QString &caption) {
        QPushButton *push = Screen::button(this, name, caption);
        push->setMinimumWidth(84);
        return push;
    };
    m_cmdNew = button("cmdNew", QStringLiteral("&New"));
    m_cmdEdit = button("cmdEdit", QStringLiteral("&Edit"));
    m_cmdDelete = button("cmdDelete", QStringLiteral("&Delete"));
    m_cmdSave = button("cmdSave", QStringLiteral("&Save"));
    m_cmdCancel = button("cmdCancel", QStringLiteral("&Cancel"));
    m_cmdSearch = button("cmdSearch", QStringLiteral("Sea&rch"));
    m_cmdExit = button("cmdExit", QStringLiteral("E&xit"));

    connect(m_cmdNew, &QPushButton::clicked, this, &frmTeacherMaster::newEntry);
    connect(m_cmdEdit, &QPushButton::clicked, this, &frmTeacherMaster::edit);
    connect(m_cmdDelete, &QPushButton::clicked, this, &frmTeacherMaster::deleteTeacher);
    connect(m_cmdSave, &QPushButton::clicked, this, &frmTeacherMaster::save);
    connect(m_cmdCancel, &QPushButton::clicked, this, &frmTeacherMaster::cancel);
    connect(m_cmdSearch, &QPushButton::clicked, this, &frmTeacherMaster::openSearch);
    connect(m_cmdExit, &QPushButton::clicked, this, &frmTeacherMaster::exitScreen);

    auto *row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton *push : {m_cmdNew, m_cmdEdit, m_cmdDelete, m_cmdSave, m_cmdCancel, m_cmdSearch, m_cmdExit})
        row->addWidget(push);
    row->addStretch();
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_fraMain);
    layout->addLayout(row);
}

void frmTeacherMaster::refreshLists()
{
    Screen::guardedOnce(m_ctx, m_refreshFailed, [this] { m_fraMain->refreshLists(); });
}

void frmTeacherMaster::setState(Screen::EntryState state)
{
    m_entryButtons.setState(state);
}

void frmTeacherMaster::clearEntry()
{
    m_fraMain->clear();
    m_loaded = Teacher{};
    m_allottedPeriods = 0;
    m_editing = false;
}

bool frmTeacherMaster::showTeacher(int code)
{
    bool shown = false;
    Screen::guarded(m_ctx, [&] {
        const std::optional<Teacher> teacher = m_service.load(code);
        if (!teacher) {
            m_ctx.messages->information(QStringLiteral("Record Has Been Deleted In Master Screen"));
            return;
        }
        const int allotted = m_service.allottedPeriods(code);
        clearEntry();
        m_fraMain->display(*teacher);
        m_loaded = *teacher;
        m_allottedPeriods = allotted;
        shown = true;
    });
    if (!shown)
        return false;
    setState(Screen::EntryState::Chosen);
    m_cmdEdit->setFocus();
    return true;
}

void frmTeacherMaster::newEntry()
{
    if (!AllowedOrSay(m_ctx, FormName, Privileges::New))
        return;
    clearEntry();
    setState(Screen::EntryState::New);
    m_fraMain->focusField(TeacherRefusal::Field::Salutation);
}

void frmTeacherMaster::edit()
{
    if (m_loaded.code <= 0 || !AllowedOrSay(m_ctx, FormName, Privileges::Edit))
        return;
    m_editing = true;
    setState(Screen::EntryState::Edit);
    m_fraMain->focusField(TeacherRefusal::Field::TeacherName);
}

void frmTeacherMaster::save()
{
    const Teacher teacher = m_fraMain->entered(m_loaded);
    const TeacherSaveContext context{m_editing, m_ctx.session.calendar.periodsPerWeek, m_allottedPeriods,
                                     QDate::currentDate()};
    bool saved = false;
    Screen::guarded(m_ctx, [&] {
        if (const std::optional<TeacherRefusal> refusal = m_service.validate(teacher, context)) {
            m_ctx.messages->information(refusal->text);
            if (refusal->field == TeacherRefusal::Field::NoOfPeriods && teacher.noOfPeriods > 0)
                m_fraMain->clearPeriods(); // beyond the week or below the allotment
            else if (refusal->field == TeacherRefusal::Field::DateOfBirth)
                m_fraMain->setDateOfBirth(context.today);
            m_fraMain->focusField(refusal->field);
            return;
        }
        m_service.save(teacher, m_editing);
        saved = true;
    });
    if (!saved)
        return;
    m_ctx.messages->information(m_editing ? Texts::recordUpdated() : Texts::recordSaved());
    cancel();
}

void frmTeacherMaster::deleteTeacher()
{
    if (m_loaded.code <= 0 || !AllowedOrSay(m_ctx, FormName, Privileges::Delete))
        return;
    bool removed = false;
    Screen::guarded(m_ctx, [&] {
        const QString refusal = m_service.deleteRefusal(m_loaded.code);
        if (!refusal.isEmpty()) {
            m_ctx.messages->information(refusal);
            return;
        }
        if (!m_ctx.messages->question(QStringLiteral("Do You Want To Delete This Teacher ?")))
            return;
        m_service.remove(m_loaded.code);
        removed = true;
    });
    if (!removed)
        return;
    m_ctx.messages->information(Texts::recordDeleted());
    cancel();
}

void frmTeacherMaster::cancel()
{
    clearEntry();
    refreshLists();
    setState(Screen::EntryState::Idle);
}

void frmTeacherMaster::exitScreen()
{
    if (!Screen::ConfirmExit(m_ctx, windowTitle()))
        return;
    if (m_search)
        m_search->close();
    Screen::closeScreen(this);
}

void frmTeacherMaster::openSearch()
{
    if (!m_search) {
        m_search = new frmTeacherSearch(m_ctx, this);
        // A companion of this screen: it stays above it and goes when the screen goes.
        m_search->setWindowFlag(Qt::Dialog);
        m_search->setWindowModality(Qt::WindowModal);
        m_search->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_search, &frmTeacherSearch::teacherChosen, this, &frmTeacherMaster::showTeacher);
    }
    m_search->show();
    m_search->raise();
    m_search->activateWindow();
}

void frmTeacherMaster::openMaster(const QString &formName)
{
    if (m_ctx.host)
        m_ctx.host->openScreen(formName);
}

void frmTeacherMaster::periodsTyped(const QString &text)
{
    const int periodsPerWeek = m_ctx.session.calendar.periodsPerWeek;
    if (text.isEmpty() || text.toInt() <= periodsPerWeek)
        return;
    m_ctx.messages->information(TeacherService::periodsAboveWeekText(periodsPerWeek));
    m_fraMain->clearPeriods();
}

void frmTeacherMaster::periodsLeft()
{
    const QString text = m_fraMain->periodsText();
    if (!m_editing || m_allottedPeriods <= 0 || text.isEmpty() || text.toInt() >= m_allottedPeriods)
        return;
    m_ctx.messages->information(TeacherService::periodsBelowAllottedText(m_allottedPeriods));
    m_fraMain->clearPeriods();
    m_fraMain->focusField(TeacherRefusal::Field::NoOfPeriods);
    // Enter moves on once this signal has been handled: take the focus back after that.
    QTimer::singleShot(0, m_fraMain, [frame = m_fraMain] { frame->focusField(TeacherRefusal::Field::NoOfPeriods); });
}

void frmTeacherMaster::dateOfBirthEdited(const QDate &date)
{
    if (date >= QDate::currentDate())
        m_ctx.messages->information(QStringLiteral("'Date Of Birth' Should Be Lesser Than 'Current Date'"));
}

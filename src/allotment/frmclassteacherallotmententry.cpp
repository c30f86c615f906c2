#include "frmclassteacherallotmententry.h"
#include "messageservice.h"
#include "privileges.h"
#include "screen.h"
#include "session.h"
#include "storeerror.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHash>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

const QString FormName = QStringLiteral("frmClassTeacherAllotmentEntry");
constexpr int HelpScreenNo = 13;
constexpr int AllocationNo = 0;
constexpr int AllocationYes = 1;

// A list with the blank row first. Refills never count as the user's choice, so the combo stays silent.
void fill(QComboBox *combo, const QList<ClassTeacherAllotment::Item> &items)
{
    const QSignalBlocker silent(combo);
    combo->clear();
    combo->addItem(QString(), 0);
    for (const ClassTeacherAllotment::Item &item : items)
        combo->addItem(item.name, item.code);
    combo->setCurrentIndex(0);
}

int codeOf(const QComboBox *combo)
{
    return combo->currentIndex() < 0 ? 0 : combo->currentData().toInt();
}

// Shows the row with `code`; a stored entry whose row has left the list since is added, so it can still
// be seen and deleted.
void select(QComboBox *combo, int code, const QString &name = {})
{
    const QSignalBlocker silent(combo);
    int index = combo->findData(code);
    if (index < 0 && code > 0) {
        combo->addItem(name, code);
        index = combo->count() - 1;
    }
    combo->setCurrentIndex(qMax(index, 0));
}

}

frmClassTeacherAllotmentEntry::frmClassTeacherAllotmentEntry(AppContext &ctx, QWidget *parent)
    : QWidget(parent), m_ctx(ctx)
{
    setObjectName(FormName);
    setWindowTitle(QStringLiteral("Class Teacher Allotment Entry"));
    buildLayout();
    connectControls();
    cancel();
    Screen::applyConventions(this, ctx, HelpScreenNo);
}

void frmClassTeacherAllotmentEntry::buildLayout()
{
    m_fraMain = new QFrame(this);
    m_fraMain->setObjectName(QStringLiteral("fraMain"));
    m_fraMain->setFrameShape(QFrame::StyledPanel);

    auto *grid = new QGridLayout(m_fraMain);
    const auto addRow = [this, grid](QComboBox *&combo, const char *name, const char *caption, bool mandatory) {
        const int row = grid->rowCount();
        combo = new QComboBox(m_fraMain);
        combo->setObjectName(QString::fromLatin1(name));
        combo->setMinimumContentsLength(24);
        auto *label = new QLabel(QString::fromLatin1(caption), m_fraMain);
        label->setBuddy(combo);
        grid->addWidget(label, row, 0);
        grid->addWidget(combo, row, 1);
        if (mandatory) {
            auto *star = new QLabel(QStringLiteral("*"), m_fraMain);
            star->setStyleSheet(QStringLiteral("color: red;"));
            grid->addWidget(star, row, 2);
        }
    };
    addRow(m_cboClass, "cboClass", "Class Name :", true);
    addRow(m_cboDivision, "cboDivision", "Division Name :", true);
    addRow(m_cboTeacher, "cboTeacher", "Teacher Name :", true);
    addRow(m_cboSubject, "cboSubject", "Subject Name :", true);
    addRow(m_cboUniformPeriodAllocation, "cboUniformPeriodAllocation", "Uniform Period Allocation :", true);
    addRow(m_cboUniformPeriodName, "cboUniformPeriodName", "Uniform Period Name :", false);
    m_cboUniformPeriodAllocation->addItem(QStringLiteral("NO"), AllocationNo);
    m_cboUniformPeriodAllocation->addItem(QStringLiteral("YES"), AllocationYes);

    m_lblAstrik = new QLabel(QStringLiteral("* Mandatory Fields"), m_fraMain);
    m_lblAstrik->setObjectName(QStringLiteral("lblAstrik"));
    m_lblAstrik->setStyleSheet(QStringLiteral("color: red;"));
    grid->addWidget(m_lblAstrik, grid->rowCount(), 1, 1, 2);
    grid->setColumnStretch(1, 1);

    const auto button = [this](const char *caption, const char *name) {
        auto *push = new QPushButton(QString::fromLatin1(caption), this);
        push->setObjectName(QString::fromLatin1(name));
        return push;
    };
    m_cmdNew = button("&New", "cmdNew");
    m_cmdEdit = button("&Edit", "cmdEdit");
    m_cmdDelete = button("&Delete", "cmdDelete");
    m_cmdSave = button("&Save", "cmdSave");
    m_cmdCancel = button("&Cancel", "cmdCancel");
    m_cmdExit = button("E&xit", "cmdExit");

    auto *buttons = new QHBoxLayout;
    for (QPushButton *push : {m_cmdNew, m_cmdEdit, m_cmdDelete, m_cmdSave, m_cmdCancel, m_cmdExit})
        buttons->addWidget(push);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_fraMain);
    layout->addLayout(buttons);
}

void frmClassTeacherAllotmentEntry::connectControls()
{
    connect(m_cmdNew, &QPushButton::clicked, this, &frmClassTeacherAllotmentEntry::newEntry);
    connect(m_cmdEdit, &QPushButton::clicked, this, &frmClassTeacherAllotmentEntry::editEntry);
    connect(m_cmdDelete, &QPushButton::clicked, this, &frmClassTeacherAllotmentEntry::deleteEntry);
    connect(m_cmdSave, &QPushButton::clicked, this, &frmClassTeacherAllotmentEntry::save);
    connect(m_cmdCancel, &QPushButton::clicked, this, &frmClassTeacherAllotmentEntry::cancel);
    connect(m_cmdExit, &QPushButton::clicked, this, &frmClassTeacherAllotmentEntry::exitScreen);
    connect(m_cboClass, &QComboBox::currentIndexChanged, this, &frmClassTeacherAllotmentEntry::classChosen);
    connect(m_cboDivision, &QComboBox::currentIndexChanged, this, &frmClassTeacherAllotmentEntry::divisionChosen);
    connect(m_cboTeacher, &QComboBox::currentIndexChanged, this, &frmClassTeacherAllotmentEntry::teacherChosen);
    connect(m_cboUniformPeriodAllocation, &QComboBox::currentIndexChanged, this,
            &frmClassTeacherAllotmentEntry::allocationChosen);
}

// A loaded entry is only looked at until Edit; in Edit its class division stays fixed.
void frmClassTeacherAllotmentEntry::updateControls()
{
    const bool editing = m_mode == Mode::Edit;
    const bool viewing = m_mode == Mode::New && m_loaded;
    m_fraMain->setEnabled(m_mode != Mode::Idle);
    m_cmdNew->setEnabled(m_mode == Mode::Idle);
    m_cmdEdit->setEnabled(viewing);
    m_cmdDelete->setEnabled(viewing);
    m_cmdSave->setEnabled(m_mode != Mode::Idle && !viewing);
    m_cboClass->setEnabled(!editing);
    m_cboDivision->setEnabled(!editing);
    m_cboTeacher->setEnabled(!viewing);
    m_cboSubject->setEnabled(!viewing);
    m_cboUniformPeriodAllocation->setEnabled(!viewing);
    m_cboUniformPeriodName->setEnabled(!viewing && codeOf(m_cboUniformPeriodAllocation) == AllocationYes);
}

ClassTeacherAllotment frmClassTeacherAllotmentEntry::rules() const
{
    return ClassTeacherAllotment(m_ctx.db());
}

template<typename Action>
bool frmClassTeacherAllotmentEntry::guarded(Action action)
{
    try {
        action();
        return true;
    } catch (const StoreError &error) {
        m_ctx.messages->critical(error.text());
        return false;
    }
}

ClassTeacherAllotment::Choice frmClassTeacherAllotmentEntry::choice() const
{
    ClassTeacherAllotment::Choice chosen;
    chosen.classCode = codeOf(m_cboClass);
    chosen.division = codeOf(m_cboDivision);
    chosen.teacher = codeOf(m_cboTeacher);
    chosen.subject = codeOf(m_cboSubject);
    chosen.uniformPeriod = codeOf(m_cboUniformPeriodAllocation) == AllocationYes;
    chosen.period = codeOf(m_cboUniformPeriodName);
    return chosen;
}

void frmClassTeacherAllotmentEntry::newEntry()
{
    if (!AllowedOrSay(m_ctx, FormName, Privileges::New))
        return;
    m_mode = Mode::New;
    m_loaded = false;
    m_loadedTeacher = 0;
    updateControls();
    m_cboClass->setFocus();
}

void frmClassTeacherAllotmentEntry::editEntry()
{
    if (!AllowedOrSay(m_ctx, FormName, Privileges::Edit))
        return;
    m_mode = Mode::Edit;
    updateControls();
    m_cmdSave->setFocus();
}

void frmClassTeacherAllotmentEntry::deleteEntry()
{
    if (!AllowedOrSay(m_ctx, FormName, Privileges::Delete))
        return;
    if (!m_ctx.messages->question(ClassTeacherAllotment::deleteQuestion()))
        return;
    if (!guarded([this] { rules().remove(m_loadedTeacher); }))
        return;
    m_ctx.messages->information(Texts::recordDeleted());
    cancel();
}

void frmClassTeacherAllotmentEntry::save()
{
    using Outcome = ClassTeacherAllotment::SaveResult::Outcome;
    ClassTeacherAllotment::SaveResult result;
    if (!guarded([&] { result = rules().save(choice(), m_loadedTeacher, m_mode == Mode::Edit, *m_ctx.messages); }))
        return;
    switch (result.outcome) {
    case Outcome::Saved:
    case Outcome::Updated:
        m_ctx.messages->information(result.outcome == Outcome::Updated ? Texts::recordUpdated()
                                                                       : Texts::recordSaved());
        cancel();
        break;
    case Outcome::Refused:
        focusField(result.focus);
        break;
    case Outcome::ShowOtherEntry:
        viewEntry(result.other);
        break;
    case Outcome::ClearTeacher:
        clearTeacher();
        break;
    case Outcome::AllotmentGone:
        reloadTeachersAndSubjects();
        m_cboTeacher->setFocus();
        break;
    }
}

void frmClassTeacherAllotmentEntry::cancel()
{
    const QList<QComboBox *> combos = findChildren<QComboBox *>();
    for (QComboBox *combo : combos)
        combo->blockSignals(true);
    Screen::ClearControls(this);
    for (QComboBox *combo : combos)
        combo->blockSignals(false);
    m_mode = Mode::Idle;
    m_loaded = false;
    m_loadedTeacher = 0;
    guarded([this] {
        const ClassTeacherAllotment allotment = rules();
        fill(m_cboClass, allotment.classes());
        fill(m_cboUniformPeriodName, allotment.periods());
    });
    fill(m_cboDivision, {});
    fill(m_cboTeacher, {});
    fill(m_cboSubject, {});
    select(m_cboUniformPeriodAllocation, AllocationNo);
    updateControls();
    m_cmdNew->setFocus();
}

void frmClassTeacherAllotmentEntry::exitScreen()
{
    if (Screen::ConfirmExit(m_ctx, windowTitle()))
        Screen::closeScreen(this);
}

void frmClassTeacherAllotmentEntry::classChosen()
{
    const int classCode = codeOf(m_cboClass);
    QList<ClassTeacherAllotment::Item> divisions;
    if (classCode > 0)
        guarded([&] { divisions = rules().divisions(classCode); });
    fill(m_cboDivision, divisions);
    divisionChosen();
}

void frmClassTeacherAllotmentEntry::divisionChosen()
{
    m_loaded = false;
    m_loadedTeacher = 0;
    select(m_cboUniformPeriodAllocation, AllocationNo);
    select(m_cboUniformPeriodName, 0);
    reloadTeachersAndSubjects();
    if (!loadClassTeacher())
        updateControls();
}

void frmClassTeacherAllotmentEntry::teacherChosen()
{
    using Check = ClassTeacherAllotment::TeacherCheck;
    ClassTeacherAllotment::Entry other;
    Check check = Check::Free;
    if (!guarded([&] { check = rules().checkTeacher(codeOf(m_cboTeacher), m_loadedTeacher, *m_ctx.messages, &other); }))
        return;
    switch (check) {
    case Check::ShowOtherEntry:
        viewEntry(other);
        break;
    case Check::ClearTeacher:
        clearTeacher();
        break;
    case Check::Free:
        reloadSubjects();
        break;
    }
}

void frmClassTeacherAllotmentEntry::allocationChosen()
{
    if (codeOf(m_cboUniformPeriodAllocation) != AllocationYes)
        select(m_cboUniformPeriodName, 0);
    updateControls();
}

// Shows the chosen class division's class teacher, if it has one, ready for Edit or Delete.
bool frmClassTeacherAllotmentEntry::loadClassTeacher()
{
    const int classCode = codeOf(m_cboClass);
    const int division = codeOf(m_cboDivision);
    if (classCode <= 0 || division <= 0)
        return false;
    std::optional<ClassTeacherAllotment::Entry> entry;
    if (!guarded([&] { entry = rules().entryOfClassDivision(classCode, division); }) || !entry)
        return false;
    select(m_cboTeacher, entry->teacher, entry->teacherName);
    reloadSubjects();
    select(m_cboSubject, entry->subject, entry->subjectName);
    select(m_cboUniformPeriodAllocation, entry->period > 0 ? AllocationYes : AllocationNo);
    select(m_cboUniformPeriodName, entry->period, entry->periodName);
    m_loaded = true;
    m_loadedTeacher = entry->teacher;
    m_mode = Mode::New;
    updateControls();
    m_cmdEdit->setFocus();
    return true;
}

void frmClassTeacherAllotmentEntry::viewEntry(const ClassTeacherAllotment::Entry &entry)
{
    select(m_cboClass, entry.classCode, entry.className);
    QList<ClassTeacherAllotment::Item> divisions;
    guarded([&] { divisions = rules().divisions(entry.classCode); });
    fill(m_cboDivision, divisions);
    select(m_cboDivision, entry.division, entry.divisionName);
    divisionChosen();
}

void frmClassTeacherAllotmentEntry::clearTeacher()
{
    select(m_cboTeacher, 0);
    reloadSubjects();
    m_cboTeacher->setFocus();
}

void frmClassTeacherAllotmentEntry::reloadTeachersAndSubjects()
{
    const int classCode = codeOf(m_cboClass);
    const int division = codeOf(m_cboDivision);
    QList<ClassTeacherAllotment::Item> teachers;
    if (classCode > 0 && division > 0)
        guarded([&] { teachers = rules().teachers(classCode, division); });
    fill(m_cboTeacher, teachers);
    reloadSubjects();
}

// The subject already chosen stays when the new teacher also takes it.
void frmClassTeacherAllotmentEntry::reloadSubjects()
{
    const int classCode = codeOf(m_cboClass);
    const int division = codeOf(m_cboDivision);
    const int subject = codeOf(m_cboSubject);
    QList<ClassTeacherAllotment::Item> subjects;
    if (classCode > 0 && division > 0)
        guarded([&] { subjects = rules().subjects(classCode, division, codeOf(m_cboTeacher)); });
    fill(m_cboSubject, subjects);
    const int index = m_cboSubject->findData(subject);
    if (subject > 0 && index >= 0)
        select(m_cboSubject, subject);
}

void frmClassTeacherAllotmentEntry::focusField(ClassTeacherAllotment::Field field)
{
    using Field = ClassTeacherAllotment::Field;
    const QHash<Field, QComboBox *> fields = {
        {Field::Class, m_cboClass},     {Field::Division, m_cboDivision},
        {Field::Teacher, m_cboTeacher}, {Field::Subject, m_cboSubject},
        {Field::UniformPeriodName, m_cboUniformPeriodName},
    };
    if (QComboBox *combo = fields.value(field))
        combo->setFocus();
}

#include "frmclassteacherallotmententry.h"
#include "codecombo.h"
#include "messageservice.h"
#include "privileges.h"
#include "screen.h"
#include "session.h"

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

// Shows the row with `code`; a stored entry whose row has left the list since is added, so it can still
// be seen and deleted.
void select(QComboBox *combo, int code, const QString &name = {})
{
    const QSignalBlocker silent(combo);
    if (code > 0 && combo->findData(code) < 0)
        combo->addItem(name, code);
    CodeCombo::select(combo, code);
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

    m_cmdNew = Screen::button(this, "cmdNew", QStringLiteral("&New"));
    m_cmdEdit = Screen::button(this, "cmdEdit", QStringLiteral("&Edit"));
    m_cmdDelete = Screen::button(this, "cmdDelete", QStringLiteral("&Delete"));
    m_cmdSave = Screen::button(this, "cmdSave", QStringLiteral("&Save"));
    m_cmdCancel = Screen::button(this, "cmdCancel", QStringLiteral("&Cancel"));
    m_cmdExit = Screen::button(this, "cmdExit", QStringLiteral("E&xit"));

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
    m_cboUniformPeriodName->setEnabled(!viewing && CodeCombo::code(m_cboUniformPeriodAllocation) == AllocationYes);
}

ClassTeacherAllotment frmClassTeacherAllotmentEntry::rules() const
{
    return ClassTeacherAllotment(m_ctx.db());
}

ClassTeacherAllotment::Choice frmClassTeacherAllotmentEntry::choice() const
{
    ClassTeacherAllotment::Choice chosen;
    chosen.classCode = CodeCombo::code(m_cboClass);
    chosen.division = CodeCombo::code(m_cboDivision);
    chosen.teacher = CodeCombo::code(m_cboTeacher);
    chosen.subject = CodeCombo::code(m_cboSubject);
    chosen.uniformPeriod = CodeCombo::code(m_cboUniformPeriodAllocation) == AllocationYes;
    chosen.period = CodeCombo::code(m_cboUniformPeriodName);
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
    if (!Screen::guarded(m_ctx, [this] { rules().remove(m_loadedTeacher); }))
        return;
    m_ctx.messages->information(Texts::recordDeleted());
    cancel();
}

void frmClassTeacherAllotmentEntry::save()
{
    using Outcome = ClassTeacherAllotment::SaveResult::Outcome;
    ClassTeacherAllotment::SaveResult result;
    if (!Screen::guarded(m_ctx, [&] {
            result = rules().save(choice(), m_loadedTeacher, m_mode == Mode::Edit, *m_ctx.messages);
        }))
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
    Screen::guarded(m_ctx, [this] {
        const ClassTeacherAllotment allotment = rules();
        CodeCombo::fill(m_cboClass, allotment.classes(), true);
        CodeCombo::fill(m_cboUniformPeriodName, allotment.periods(), true);
    });
    CodeCombo::fill(m_cboDivision, {}, true);
    CodeCombo::fill(m_cboTeacher, {}, true);
    CodeCombo::fill(m_cboSubject, {}, true);
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
    const int classCode = CodeCombo::code(m_cboClass);
    QList<CodeName> divisions;
    if (classCode > 0)
        Screen::guarded(m_ctx, [&] { divisions = rules().divisions(classCode); });
    CodeCombo::fill(m_cboDivision, divisions, true);
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
    if (!Screen::guarded(m_ctx, [&] {
            check = rules().checkTeacher(CodeCombo::code(m_cboTeacher), m_loadedTeacher, *m_ctx.messages, &other);
        }))
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
    if (CodeCombo::code(m_cboUniformPeriodAllocation) != AllocationYes)
        select(m_cboUniformPeriodName, 0);
    updateControls();
}

// Shows the chosen class division's class teacher, if it has one, ready for Edit or Delete.
bool frmClassTeacherAllotmentEntry::loadClassTeacher()
{
    const int classCode = CodeCombo::code(m_cboClass);
    const int division = CodeCombo::code(m_cboDivision);
    if (classCode <= 0 || division <= 0)
        return false;
    std::optional<ClassTeacherAllotment::Entry> entry;
    if (!Screen::guarded(m_ctx, [&] { entry = rules().entryOfClassDivision(classCode, division); }) || !entry)
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
    QList<CodeName> divisions;
    Screen::guarded(m_ctx, [&] { divisions = rules().divisions(entry.classCode); });
    CodeCombo::fill(m_cboDivision, divisions, true);
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
    const int classCode = CodeCombo::code(m_cboClass);
    const int division = CodeCombo::code(m_cboDivision);
    QList<CodeName> teachers;
    if (classCode > 0 && division > 0)
        Screen::guarded(m_ctx, [&] { teachers = rules().teachers(classCode, division); });
    CodeCombo::fill(m_cboTeacher, teachers, true);
    reloadSubjects();
}

// The subject already chosen stays when the new teacher also takes it.
void frmClassTeacherAllotmentEntry::reloadSubjects()
{
    const int classCode = CodeCombo::code(m_cboClass);
    const int division = CodeCombo::code(m_cboDivision);
    const int subject = CodeCombo::code(m_cboSubject);
    QList<CodeName> subjects;
    if (classCode > 0 && division > 0)
        Screen::guarded(m_ctx, [&] {
            subjects = rules().subjects(classCode, division, CodeCombo::code(m_cboTeacher));
        });
    CodeCombo::fill(m_cboSubject, subjects, true);
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

#pragma once
#include "classteacherallotment.h"

#include <QWidget>

class QComboBox;
class QFrame;
class QLabel;
class QPushButton;
struct AppContext;

// Names the class teacher of a class division, the subject the teacher takes there and the uniform period.
class frmClassTeacherAllotmentEntry : public QWidget
{
    Q_OBJECT
public:
    explicit frmClassTeacherAllotmentEntry(AppContext &ctx, QWidget *parent = nullptr);

private:
    enum class Mode { Idle, New, Edit };

    void buildLayout();
    void connectControls();
    void updateControls();

    void newEntry();
    void editEntry();
    void deleteEntry();
    void save();
    void cancel();
    void exitScreen();

    void classChosen();
    void divisionChosen();
    void teacherChosen();
    void allocationChosen();

    bool loadClassTeacher();
    void viewEntry(const ClassTeacherAllotment::Entry &entry);
    void clearTeacher();
    void reloadTeachersAndSubjects();
    void reloadSubjects();
    void focusField(ClassTeacherAllotment::Field field);
    ClassTeacherAllotment::Choice choice() const;
    ClassTeacherAllotment rules() const;

    AppContext &m_ctx;
    Mode m_mode = Mode::Idle;
    bool m_loaded = false;  // the class division's present entry is on the screen
    int m_loadedTeacher = 0; // its teacher: choosing that teacher again needs no question

    QFrame *m_fraMain = nullptr;
    QComboBox *m_cboClass = nullptr;
    QComboBox *m_cboDivision = nullptr;
    QComboBox *m_cboTeacher = nullptr;
    QComboBox *m_cboSubject = nullptr;
    QComboBox *m_cboUniformPeriodAllocation = nullptr;
    QComboBox *m_cboUniformPeriodName = nullptr;
    QLabel *m_lblAstrik = nullptr;
    QPushButton *m_cmdNew = nullptr;
    QPushButton *m_cmdEdit = nullptr;
    QPushButton *m_cmdDelete = nullptr;
    QPushButton *m_cmdSave = nullptr;
    QPushButton *m_cmdCancel = nullptr;
    QPushButton *m_cmdExit = nullptr;
};

#pragma once
#include "screen.h"
#include "teacherservice.h"

#include <QPointer>
#include <QWidget>

class QPushButton;
class TeacherDetailsFrame;
class frmTeacherSearch;
struct AppContext;

// Teacher Master: a teacher's personal data and, what the timetable needs, the name, short name and the
// periods a week. frmTeacherSearch finds the teacher to show; the class-teacher duty is left as it is.
class frmTeacherMaster : public QWidget
{
    Q_OBJECT
public:
    explicit frmTeacherMaster(AppContext &ctx, QWidget *parent = nullptr);

    // Shows the teacher (chosen in the search) with Edit and Delete open; false when the row is gone.
    bool showTeacher(int code);
    // Reloads the lists, keeping what is chosen: the masters may have changed while this screen was away.
    void refreshLists();

private:
    void buildButtons();
    void setState(Screen::EntryState state);
    void clearEntry();

    void newEntry();
    void edit();
    void save();
    void deleteTeacher();
    void cancel();
    void exitScreen();
    void openSearch();
    void openMaster(const QString &formName);
    void periodsTyped(const QString &text);
    void periodsLeft();
    void dateOfBirthEdited(const QDate &date);

    AppContext &m_ctx;
    TeacherService m_service;
    Screen::EntryButtons m_entryButtons;
    bool m_editing = false;
    Teacher m_loaded;          // the row being shown: its code and class-teacher duty
    int m_allottedPeriods = 0; // the teacher's work allotment, the floor of its periods
    bool m_refreshFailed = false;
    QPointer<frmTeacherSearch> m_search;

    TeacherDetailsFrame *m_fraMain = nullptr;
    QPushButton *m_cmdNew = nullptr;
    QPushButton *m_cmdEdit = nullptr;
    QPushButton *m_cmdDelete = nullptr;
    QPushButton *m_cmdSave = nullptr;
    QPushButton *m_cmdCancel = nullptr;
    QPushButton *m_cmdSearch = nullptr;
    QPushButton *m_cmdExit = nullptr;
};

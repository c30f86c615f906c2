#pragma once
#include "schoolsetupservice.h"

#include <QFrame>

class QComboBox;
class QLineEdit;
class QPushButton;

// The fields of School Setup (fraMain): the school's name and address on the left, its week on the right.
// Moves a SchoolSetupRecord in and out of the fields and keeps the state, city and weekday lists.
class SchoolSetupFrame : public QFrame
{
    Q_OBJECT
public:
    SchoolSetupFrame(const SchoolSetupService &service, QWidget *parent = nullptr);

    // Reloads the states and cities and keeps what was chosen. Throws StoreError.
    void refreshLists();
    // The cities of the state, with `cityCode` chosen when it is among them. Throws StoreError.
    void fillCities(int stateCode, int cityCode = 0);
    void showRecord(const SchoolSetupRecord &record);
    SchoolSetupRecord record() const;
    void selectFirstDay(int originalDayCode);
    // The control a refused Save sends the focus to; none for the period panel.
    QWidget *widgetOf(SetupField field) const;

    QLineEdit *txtSchoolName() const { return m_txtSchoolName; }
    QLineEdit *txtAddress1() const { return m_txtAddress1; }
    QComboBox *dbcStateName() const { return m_dbcStateName; }
    QComboBox *dbcCityName() const { return m_dbcCityName; }
    QLineEdit *txtPincode() const { return m_txtPincode; }
    QLineEdit *txtNoOfWorkingDays() const { return m_txtNoOfWorkingDays; }
    QLineEdit *txtPeriodsPerDay() const { return m_txtPeriodsPerDay; }
    QLineEdit *txtPeriodsOnLastWorkingDay() const { return m_txtPeriodsOnLastWorkingDay; }
    QLineEdit *txtPeriodsInMorningSession() const { return m_txtPeriodsInMorningSession; }
    QComboBox *cboFirstDayOfTheWeek() const { return m_cboFirstDayOfTheWeek; }
    QPushButton *cmdAddState() const { return m_cmdAddState; }
    QPushButton *cmdAddCityName() const { return m_cmdAddCityName; }
    QPushButton *cmdPeriodDetails() const { return m_cmdPeriodDetails; }

private:
    void buildFields();
    void buildLayout();

    const SchoolSetupService &m_service;
    QLineEdit *m_txtSchoolName = nullptr;
    QLineEdit *m_txtAddress1 = nullptr;
    QLineEdit *m_txtAddress2 = nullptr;
    QComboBox *m_dbcStateName = nullptr;
    QPushButton *m_cmdAddState = nullptr;
    QComboBox *m_dbcCityName = nullptr;
    QPushButton *m_cmdAddCityName = nullptr;
    QLineEdit *m_txtPincode = nullptr;
    QLineEdit *m_txtNoOfWorkingDays = nullptr;
    QLineEdit *m_txtPeriodsPerDay = nullptr;
    QLineEdit *m_txtPeriodsOnLastWorkingDay = nullptr;
    QLineEdit *m_txtPeriodsInMorningSession = nullptr;
    QComboBox *m_cboFirstDayOfTheWeek = nullptr;
    QPushButton *m_cmdPeriodDetails = nullptr;
};

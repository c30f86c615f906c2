#pragma once
#include "teacherservice.h"

#include <QGroupBox>

class OptionalDateEdit;
class QComboBox;
class QGridLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;
struct AppContext;

// The data frame (fraMain) of the teacher master: every field of a teacher with its limits and lists.
// It shows and reads a Teacher; the screen around it holds the rules that need messages.
class TeacherDetailsFrame : public QGroupBox
{
    Q_OBJECT
public:
    TeacherDetailsFrame(AppContext &ctx, const TeacherService &service, QWidget *parent = nullptr);

    // Reloads every list, keeping what is chosen. Throws StoreError.
    void refreshLists();
    void display(const Teacher &teacher);
    // The entry as typed, over `base`, which gives the code and the class-teacher duty.
    Teacher entered(const Teacher &base) const;
    void clear();
    void focusField(TeacherRefusal::Field field);

    QString periodsText() const;
    void clearPeriods();
    void setDateOfBirth(const QDate &date);

signals:
    void periodsTyped(const QString &text);
    void periodsLeft();
    void dateOfBirthEdited(const QDate &date);
    // An add button: the master with this form name should open beside the screen.
    void masterWanted(const QString &formName);

private:
    void buildNameAndAddress(QGridLayout *grid);
    void buildPersonal(QGridLayout *grid);
    void loadCities(int keepCityCode);

    AppContext &m_ctx;
    const TeacherService &m_service;
    bool m_showing = false; // fields are being filled by the program, not typed

    QComboBox *m_dbcSalutationName = nullptr;
    QLineEdit *m_txtTeacherName = nullptr;
    QLineEdit *m_txtTeacherShortName = nullptr;
    QLineEdit *m_txtFHName = nullptr;
    QLineEdit *m_txtAddress1 = nullptr;
    QLineEdit *m_txtAddress2 = nullptr;
    QComboBox *m_dbcStateName = nullptr;
    QComboBox *m_dbcCityName = nullptr;
    QLineEdit *m_txtPincode = nullptr;
    OptionalDateEdit *m_dtpDOB = nullptr;
    QRadioButton *m_optMarried = nullptr;
    QRadioButton *m_optSingle = nullptr;
    OptionalDateEdit *m_dtpWedding = nullptr;
    OptionalDateEdit *m_dtpJoining = nullptr;
    QLineEdit *m_txtTelephone = nullptr;
    QComboBox *m_dbcBloodGroup = nullptr;
    QLineEdit *m_txtQualification = nullptr;
    QLineEdit *m_txtNoOfPeriods = nullptr;
    QLineEdit *m_txtSeniorityNo = nullptr;
    QPushButton *m_cmdAddSalutationName = nullptr;
    QPushButton *m_cmdAddStateName = nullptr;
    QPushButton *m_cmdAddCityName = nullptr;
    QPushButton *m_cmdAddBloodGroup = nullptr;
};

#pragma once
#include "codename.h"

#include <QDate>
#include <QList>
#include <QSqlDatabase>
#include <QString>

#include <optional>

// One TeacherMaster row as the screens see it. Codes are 0 when a reference is left blank; an invalid
// date is a date left unset (NULL in the store).
struct Teacher
{
    int code = 0;
    int salutationCode = 0;
    QString name;
    QString shortName;
    QDate dob;
    QString maritalStatus; // "M", "S" or empty
    QDate weddingDate;
    QDate joiningDate;
    QString fhName;
    QString address1;
    QString address2;
    int stateCode = 0; // not stored: follows from the city
    int cityCode = 0;
    QString pincode;
    QString telephone;
    int bloodGroupCode = 0;
    QString qualification;
    int noOfPeriods = 0;
    int seniorityNo = 0;
    // The class-teacher duty belongs to the class teacher allotment; a Save here never changes it.
    int classCode = 0;
    int divisionCode = 0;
    int subjectCode = 0;
    int periodCode = 0;
};

// A Save refused by a check: the text to show and the field that gets focus.
struct TeacherRefusal
{
    enum class Field {
        Salutation,
        TeacherName,
        ShortName,
        City,
        NoOfPeriods,
        JoiningDate,
        WeddingDate,
        DateOfBirth
    };
    QString text;
    Field field;
};

// What a Save is checked against besides the entry itself.
struct TeacherSaveContext
{
    bool editing = false;
    int periodsPerWeek = 0;
    int allottedPeriods = 0; // the teacher's WorkAllotmentEntry periods, kept at load
    QDate today = QDate::currentDate();
};

// Keeps the TeacherMaster rows: the lists the teacher screens choose from, the load of one teacher, the
// checks of a Save in their fixed order, the Save itself (with a rename carried into the Phase I settings)
// and the refusals of a Delete. Store failures throw StoreError.
class TeacherService
{
public:
    explicit TeacherService(const QSqlDatabase &db) : m_db(db) {}

    QList<CodeName> salutations() const;
    QList<CodeName> states() const;
    QList<CodeName> cities(int stateCode) const;
    QList<CodeName> bloodGroups() const;

    // The teacher with this code, with the state of its city; nothing when the row is gone.
    std::optional<Teacher> load(int code) const;
    // Periods already allotted to the teacher in WorkAllotmentEntry (0 when none).
    int allottedPeriods(int code) const;

    // The limit texts the screen also shows while the periods are typed and left.
    static QString periodsAboveWeekText(int periodsPerWeek);
    static QString periodsBelowAllottedText(int allottedPeriods);

    // The first check the entry fails, in the order the office is used to; nothing when it may be saved.
    std::optional<TeacherRefusal> validate(const Teacher &teacher, const TeacherSaveContext &context) const;
    // Writes the teacher in one transaction and returns its code. A rename in Edit is carried into the
    // Phase I teacher and subject settings, which find teachers by name.
    int save(const Teacher &teacher, bool editing) const;

    // Why the teacher may not be deleted yet (two lines), or empty when nothing stands in the way.
    QString deleteRefusal(int code) const;
    // Deletes the teacher in one transaction; a row still used elsewhere is refused with the table's name.
    void remove(int code) const;

private:
    QList<CodeName> list(const QString &statement, const QVariantList &values = {}) const;
    std::optional<TeacherRefusal> duplicateRefusal(const Teacher &teacher, bool editing) const;

    QSqlDatabase m_db;
};

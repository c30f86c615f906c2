#include "schema.h"

// Column order is part of the design: rows are read by position in several places, so each table keeps its
// columns in the documented order. Text compares without case, as the school office has always expected.
// Foreign keys are deferred to the end of a transaction, so a Save may delete and re-insert rows that are
// referenced, as long as the whole Save leaves nothing orphaned.

namespace {
const char *const MainTables = R"SQL(
CREATE TABLE SchoolSetup (
    SchoolName TEXT COLLATE NOCASE,
    Address1 TEXT COLLATE NOCASE,
    Address2 TEXT COLLATE NOCASE,
    CityCode INTEGER REFERENCES CityMaster (CityCode) DEFERRABLE INITIALLY DEFERRED,
    Pincode TEXT COLLATE NOCASE,
    NoOfWorkingDays INTEGER,
    PeriodsPerDay INTEGER,
    PeriodsOnLastWorkingDay INTEGER,
    PeriodsInMorningSession INTEGER,
    DayCode INTEGER);
CREATE TABLE PeriodDuration (
    PeriodCode INTEGER PRIMARY KEY,
    PeriodName TEXT COLLATE NOCASE,
    Minutes INTEGER);
CREATE TABLE DayMaster (
    OriginalDayCode INTEGER PRIMARY KEY,
    DayName TEXT COLLATE NOCASE,
    DayCode INTEGER);
CREATE TABLE StateMaster (
    StateCode INTEGER PRIMARY KEY,
    StateName TEXT COLLATE NOCASE);
CREATE TABLE CityMaster (
    CityCode INTEGER PRIMARY KEY,
    StateCode INTEGER REFERENCES StateMaster (StateCode) DEFERRABLE INITIALLY DEFERRED,
    CityName TEXT COLLATE NOCASE);
CREATE TABLE BloodGroupMaster (
    BloodGroupCode INTEGER PRIMARY KEY,
    BloodGroupName TEXT COLLATE NOCASE);
CREATE TABLE SalutationMaster (
    SalutationCode INTEGER PRIMARY KEY,
    SalutationName TEXT COLLATE NOCASE);
CREATE TABLE ClassDivisionMaster (
    ClassCode INTEGER PRIMARY KEY,
    ClassName TEXT COLLATE NOCASE,
    NoOfDivisions INTEGER,
    ClassOrder INTEGER);
CREATE TABLE ClassDivisionDetails (
    ClassCode INTEGER REFERENCES ClassDivisionMaster (ClassCode) DEFERRABLE INITIALLY DEFERRED,
    DivisionName TEXT COLLATE NOCASE,
    DivisionCode INTEGER,
    UNIQUE (ClassCode, DivisionCode));
CREATE TABLE ClasswiseNoOfWorkingDays (
    ClassCode INTEGER PRIMARY KEY REFERENCES ClassDivisionMaster (ClassCode) DEFERRABLE INITIALLY DEFERRED,
    NoOfWorkingDays INTEGER);
CREATE TABLE SubjectMaster (
    SubjectCode INTEGER PRIMARY KEY,
    SubjectName TEXT COLLATE NOCASE,
    SubjectShortName TEXT COLLATE NOCASE);
CREATE TABLE TeacherMaster (
    TeacherCode INTEGER PRIMARY KEY,
    SalutationCode INTEGER REFERENCES SalutationMaster (SalutationCode) DEFERRABLE INITIALLY DEFERRED,
    TeacherName TEXT COLLATE NOCASE,
    TeacherShortName TEXT COLLATE NOCASE,
    DOB TEXT,
    MaritalStatus TEXT COLLATE NOCASE,
    WeddingDate TEXT,
    JoiningDate TEXT,
    FHName TEXT COLLATE NOCASE,
    Address1 TEXT COLLATE NOCASE,
    Address2 TEXT COLLATE NOCASE,
    CityCode INTEGER REFERENCES CityMaster (CityCode) DEFERRABLE INITIALLY DEFERRED,
    Pincode TEXT COLLATE NOCASE,
    Telephone TEXT COLLATE NOCASE,
    BloodGroupCode INTEGER REFERENCES BloodGroupMaster (BloodGroupCode) DEFERRABLE INITIALLY DEFERRED,
    Qualification TEXT COLLATE NOCASE,
    NoOfPeriods INTEGER,
    SeniorityNo INTEGER,
    ClassCode INTEGER REFERENCES ClassDivisionMaster (ClassCode) DEFERRABLE INITIALLY DEFERRED,
    DivisionCode INTEGER,
    SubjectCode INTEGER REFERENCES SubjectMaster (SubjectCode) DEFERRABLE INITIALLY DEFERRED,
    PeriodCode INTEGER);
CREATE TABLE WorkAllotmentEntry (
    TeacherCode INTEGER REFERENCES TeacherMaster (TeacherCode) DEFERRABLE INITIALLY DEFERRED,
    ClassCode INTEGER,
    DivisionCode INTEGER,
    SubjectCode INTEGER REFERENCES SubjectMaster (SubjectCode) DEFERRABLE INITIALLY DEFERRED,
    NoOfSectionPeriods INTEGER,
    CP TEXT COLLATE NOCASE,
    CC TEXT COLLATE NOCASE,
    CT TEXT COLLATE NOCASE,
    CPGroupNo INTEGER,
    CCGroupNo INTEGER,
    CTGroupNo INTEGER,
    CCSystem TEXT COLLATE NOCASE,
    CTSystem TEXT COLLATE NOCASE,
    FOREIGN KEY (ClassCode, DivisionCode) REFERENCES ClassDivisionDetails (ClassCode, DivisionCode)
        DEFERRABLE INITIALLY DEFERRED);
CREATE TABLE TimeTable (
    ClassCode INTEGER,
    DivisionCode INTEGER,
    DayCode INTEGER,
    PeriodCode INTEGER,
    SubjectCode INTEGER REFERENCES SubjectMaster (SubjectCode) DEFERRABLE INITIALLY DEFERRED,
    TeacherCode INTEGER REFERENCES TeacherMaster (TeacherCode) DEFERRABLE INITIALLY DEFERRED,
    Manual TEXT COLLATE NOCASE,
    Spare TEXT COLLATE NOCASE,
    CC TEXT COLLATE NOCASE,
    CT TEXT COLLATE NOCASE,
    FOREIGN KEY (ClassCode, DivisionCode) REFERENCES ClassDivisionDetails (ClassCode, DivisionCode)
        DEFERRABLE INITIALLY DEFERRED);
CREATE TABLE AutoGenPhase1 (
    groupno INTEGER,
    ID INTEGER,
    ClassCode INTEGER,
    DivisionCode INTEGER,
    TeacherCode INTEGER,
    SubjectCode INTEGER,
    PeriodCode INTEGER,
    P1Insert INTEGER,
    P2Insert INTEGER,
    Work1 INTEGER,
    Work2 INTEGER,
    CCSystem TEXT COLLATE NOCASE,
    CTSystem TEXT COLLATE NOCASE,
    Spare TEXT COLLATE NOCASE);
CREATE TABLE AutoGenPhase2 (
    ID INTEGER,
    ClassCode INTEGER,
    DivisionCode INTEGER,
    TeacherCode INTEGER,
    SubjectCode INTEGER,
    PeriodCode INTEGER,
    P1Insert INTEGER,
    P2Insert INTEGER,
    Work1 INTEGER,
    Work2 INTEGER,
    CCSystem TEXT COLLATE NOCASE,
    CTSystem TEXT COLLATE NOCASE,
    Spare TEXT COLLATE NOCASE);
CREATE TABLE AGP1Master (
    UniformPeriodRequired TEXT COLLATE NOCASE);
CREATE TABLE AGP1SubjectTeacherDetails (
    SubjectName TEXT COLLATE NOCASE,
    TeacherName TEXT COLLATE NOCASE,
    TotalPeriods INTEGER);
CREATE TABLE FreePeriodDetails (
    TeacherCode INTEGER,
    FreeType INTEGER,
    FreePeriodsPerWeek INTEGER,
    MorningFreePerDay INTEGER,
    AfternoonFreePerDay INTEGER,
    FreePerDay INTEGER,
    TeacherSetting TEXT COLLATE NOCASE);
CREATE TABLE TTCode (
    PIStatus TEXT COLLATE NOCASE);
CREATE TABLE SubstituteAllotment (
    SACode INTEGER PRIMARY KEY,
    LeaveDate TEXT,
    TeacherCode INTEGER REFERENCES TeacherMaster (TeacherCode) DEFERRABLE INITIALLY DEFERRED,
    DayCode INTEGER,
    LeaveCode INTEGER,
    PeriodCode INTEGER,
    ClassCode INTEGER,
    DivisionCode INTEGER,
    SubjectCode INTEGER REFERENCES SubjectMaster (SubjectCode) DEFERRABLE INITIALLY DEFERRED,
    SubstituteScope TEXT COLLATE NOCASE,
    AssignedTeacherCode INTEGER REFERENCES TeacherMaster (TeacherCode) DEFERRABLE INITIALLY DEFERRED,
    FOREIGN KEY (ClassCode, DivisionCode) REFERENCES ClassDivisionDetails (ClassCode, DivisionCode)
        DEFERRABLE INITIALLY DEFERRED);
CREATE TABLE TempSubstituteAllotment (
    TeacherCode INTEGER,
    TeacherName TEXT COLLATE NOCASE,
    FreePeriods INTEGER,
    AvailableFreePeriods INTEGER,
    NoOfPeriodsSoForSubstituted INTEGER,
    SubstituteAssigned INTEGER,
    Allot TEXT COLLATE NOCASE,
    AllotedColor TEXT COLLATE NOCASE);
CREATE TABLE UserMaster (
    UserCode INTEGER PRIMARY KEY,
    UserName TEXT COLLATE NOCASE,
    CreatedBy INTEGER);
CREATE TABLE UserPrivilegeMaster (
    UserCode INTEGER,
    LoginId TEXT COLLATE NOCASE,
    Password TEXT COLLATE NOCASE,
    Block TEXT COLLATE NOCASE,
    CreatedBy INTEGER);
CREATE TABLE UserPrivilegeDetails (
    FormName TEXT COLLATE NOCASE NOT NULL CHECK (FormName <> ''),
    ButtonName TEXT COLLATE NOCASE,
    UserCode INTEGER);
CREATE TABLE Options (
    ConfirmExit TEXT COLLATE NOCASE);
CREATE TABLE ControlFileMaster (
    ID TEXT COLLATE NOCASE PRIMARY KEY,
    NextNo INTEGER);
CREATE TABLE ExamBoardMaster (
    BoardCode INTEGER,
    BoardNo INTEGER,
    Status TEXT COLLATE NOCASE);

CREATE INDEX TimeTableByClassDivision ON TimeTable (ClassCode, DivisionCode, DayCode, PeriodCode);
CREATE INDEX TimeTableByTeacher ON TimeTable (TeacherCode, DayCode, PeriodCode);
CREATE INDEX TimeTableBySubject ON TimeTable (SubjectCode);
CREATE INDEX WorkAllotmentByTeacher ON WorkAllotmentEntry (TeacherCode);
CREATE INDEX WorkAllotmentByClassDivision ON WorkAllotmentEntry (ClassCode, DivisionCode);
CREATE INDEX WorkAllotmentBySubject ON WorkAllotmentEntry (SubjectCode);
CREATE INDEX TeacherByCity ON TeacherMaster (CityCode);
CREATE INDEX TeacherBySalutation ON TeacherMaster (SalutationCode);
CREATE INDEX TeacherByBloodGroup ON TeacherMaster (BloodGroupCode);
CREATE INDEX TeacherByClass ON TeacherMaster (ClassCode);
CREATE INDEX TeacherBySubject ON TeacherMaster (SubjectCode);
CREATE INDEX CityByState ON CityMaster (StateCode);
CREATE INDEX SchoolByCity ON SchoolSetup (CityCode);
CREATE INDEX SubstituteByTeacher ON SubstituteAllotment (TeacherCode);
CREATE INDEX SubstituteByAssignedTeacher ON SubstituteAllotment (AssignedTeacherCode);
CREATE INDEX SubstituteBySubject ON SubstituteAllotment (SubjectCode);
CREATE INDEX SubstituteByClassDivision ON SubstituteAllotment (ClassCode, DivisionCode);
CREATE INDEX PrivilegesByUser ON UserPrivilegeDetails (UserCode, FormName, ButtonName);
)SQL";

// Code 0 stands for "none": joins on an unset reference still find this partner row.
const char *const MainSeed = R"SQL(
INSERT INTO StateMaster VALUES (0, '-Nil-');
INSERT INTO CityMaster VALUES (0, 0, '-Nil-');
INSERT INTO BloodGroupMaster VALUES (0, '-Nil-');
INSERT INTO SalutationMaster VALUES (0, '');
INSERT INTO SubjectMaster VALUES (0, '', '');
INSERT INTO ClassDivisionMaster VALUES (0, '', 0, 0);
INSERT INTO TeacherMaster VALUES (0, 0, '', '', NULL, '', NULL, NULL, '', '', '', 0, '', '', 0, '', 0, 0, 0, 0, 0, 0);
INSERT INTO PeriodDuration VALUES (0, '', 0);
INSERT INTO DayMaster VALUES (1, 'Monday', 1);
INSERT INTO DayMaster VALUES (2, 'Tuesday', 2);
INSERT INTO DayMaster VALUES (3, 'Wednesday', 3);
INSERT INTO DayMaster VALUES (4, 'Thursday', 4);
INSERT INTO DayMaster VALUES (5, 'Friday', 5);
INSERT INTO DayMaster VALUES (6, 'Saturday', 6);
INSERT INTO DayMaster VALUES (7, 'Sunday', 7);
INSERT INTO ControlFileMaster VALUES ('CP', 1);
INSERT INTO ControlFileMaster VALUES ('CC', 1);
INSERT INTO ControlFileMaster VALUES ('CT', 1);
INSERT INTO TTCode VALUES ('N');
INSERT INTO Options VALUES ('N');
INSERT INTO UserMaster VALUES (0, '', 0);
)SQL";

const char *const BackupTables = R"SQL(
CREATE TABLE BackupDatabase (
    BackupCode INTEGER PRIMARY KEY,
    FilePath TEXT COLLATE NOCASE,
    BackupDate TEXT);
CREATE TABLE RestoreDatabase (
    RestoreCode INTEGER PRIMARY KEY,
    FilePath TEXT COLLATE NOCASE,
    RestoreDate TEXT);
)SQL";

const char *const HelpTables = R"SQL(
CREATE TABLE HelpDetails (
    Scrno INTEGER PRIMARY KEY,
    ScreenName TEXT COLLATE NOCASE,
    Details TEXT COLLATE NOCASE);
)SQL";
}

namespace Schema {

QString fileName(StoreFile file)
{
    switch (file) {
    case StoreFile::Main:
        return QStringLiteral("TimeTable.mdb");
    case StoreFile::BackupHistory:
        return QStringLiteral("BackupRestoreDetails.mdb");
    case StoreFile::Help:
        return QStringLiteral("TimeTablehelp.mdb");
    }
    return {};
}

int applicationId(StoreFile file)
{
    switch (file) {
    case StoreFile::Main:
        return 0x5A54544D; // "ZTTM"
    case StoreFile::BackupHistory:
        return 0x5A545442; // "ZTTB"
    case StoreFile::Help:
        return 0x5A545448; // "ZTTH"
    }
    return 0;
}

QString keyTable(StoreFile file)
{
    switch (file) {
    case StoreFile::Main:
        return QStringLiteral("SchoolSetup");
    case StoreFile::BackupHistory:
        return QStringLiteral("BackupDatabase");
    case StoreFile::Help:
        return QStringLiteral("HelpDetails");
    }
    return {};
}

QString upgradeScript(StoreFile, int)
{
    return {}; // version 1 is the first: no older store exists yet
}

QString creationScript(StoreFile file)
{
    switch (file) {
    case StoreFile::Main:
        return QString::fromUtf8(MainTables) + QString::fromUtf8(MainSeed);
    case StoreFile::BackupHistory:
        return QString::fromUtf8(BackupTables);
    case StoreFile::Help:
        return QString::fromUtf8(HelpTables);
    }
    return {};
}

}

#include "mainmenu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace MainMenu {

const QList<MenuEntry> &entries()
{
    static const QList<MenuEntry> list = {
        {0, "mnuMasters", "&Masters", "", false, ""},
        {1, "mnufrmStateMaster", "&State Master", "frmStateMaster", false, ""},
        {1, "mnufrmCityMaster", "&City Master", "frmCityMaster", false, ""},
        {1, "mnufrmBloodGroupMaster", "&Blood Group Master", "frmBloodGroupMaster", false, ""},
        {1, "mnufrmSchoolSetup", "&School Setup", "frmSchoolSetup", false, ""},
        {1, "mnufrmClassSectionEntry", "C&lass Division Entry", "frmClassSectionEntry", false, ""},
        {1, "mnufrmSubjectMaster", "S&ubject Master", "frmSubjectMaster", false, ""},
        {1, "mnufrmSalutationMaster", "S&alutation Master", "frmSalutationMaster", false, ""},
        {1, "mnufrmTeacherMaster", "&Teacher Master", "frmTeacherMaster", false, ""},
        {0, "mnuTimeTableEntry", "&Time Table Entry", "", false, ""},
        {1, "mnufrmrptWorkAllotmentEntryFormat", "Work Allotment Entry &Format", "frmrptWorkAllotmentEntryFormat",
         false, ""},
        {1, "mnufrmWorkAllotmentEntry", "&Work Allotment Entry", "frmWorkAllotmentEntry", false, ""},
        {1, "mnufrmClassTeacherAllotmentEntry", "&Class Teacher Allotment Entry", "frmClassTeacherAllotmentEntry",
         false, ""},
        {1, "mnusep2", "-", "", false, ""},
        {1, "mnufrmCombinedSubjectEntry", "Combined &Subject Entry", "frmCombinedSubjectEntry", false, ""},
        {1, "mnufrmCombinedClassEntry", "Combined C&lass Entry", "frmCombinedClassEntry", false, ""},
        {1, "mnufrmCombinedTeacherEntry", "Combined &Teacher Entry", "frmCombinedTeacherEntry", false, ""},
        {1, "mnusep4", "-", "", false, ""},
        {1, "mnufrmManualPeriodsEntry", "&Manual Periods Entry", "frmManualPeriodsEntry", false, ""},
        {1, "mnuSep5", "-", "", false, ""},
        {1, "mnufrmAutoGenerationPhaseI", "A&uto Generation - Phase I", "frmAutoGenerationPhaseI", false, ""},
        {1, "Sep11", "-", "", false, ""},
        {1, "mnufrmAutoGenerationPhaseII", "Auto &Generation - Phase II", "frmAutoGenerationPhaseII", false, ""},
        {1, "mnusep21", "-", "", false, ""},
        {1, "mnufrmSubstituteAllotment", "Su&bstitute Allotment", "frmSubstituteAllotment", false, ""},
        {0, "mnuReports", "&Reports", "", false, ""},
        {1, "mnufrmrptWorkAllottmentDetails", "&Work Allotment Details", "frmrptWorkAllottmentDetails", false, ""},
        {1, "mnufrmrptWorkAllotmentNonTalliedClasses", "Work Allotment &Non Tallied Classes",
         "frmrptWorkAllotmentNonTalliedclasses", false, ""},
        {1, "mnusep3", "-", "", false, ""},
        {1, "mnufrmrptTeacherTT", "&Teacher Time Table", "frmrptTeacherTT", false, ""},
        {1, "mnufrmrptClassTT", "&Class Time Table", "frmrptClassTT", false, ""},
        {1, "mnufrmrptClassTeacherTT", "C&lass - Teacher Time Table", "frmrptClassTeacherTT", false, ""},
        {1, "mnuSep1", "-", "", false, ""},
        {1, "mnufrmrptAllTeacherTT", "All T&eachers Time Table", "frmrptAllTeacherTT", false, ""},
        {1, "mnufrmrptAllClassesTT", "All Classes Ti&me Table", "frmrptAllClassesTT", false, ""},
        {1, "mnufrmrptFreeTeacherTT", "&Free Teachers Time Table", "frmrptFreeTeacherTT", false, ""},
        {1, "mnusep25", "-", "", false, ""},
        {1, "mnufrmrptTeacherwiseWorkingHours", "Teacherwise Working &Hours", "frmrptTeacherwiseWorkingHours",
         false, ""},
        {1, "mnufrmrptFreePeriodTeacherList", "Free &Period Teacher List", "frmrptFreePeriodTeacherList", false,
         ""},
        {1, "mnusep6", "-", "", false, ""},
        {1, "mnufrmrptConditionalPeriodsDisplay", "C&onditional Periods Display", "frmrptConditionalPeriodsDisplay",
         false, ""},
        {1, "mnuSep10", "-", "", false, ""},
        {1, "mnufrmrptClassTeachersList", "Class Teachers L&ist", "frmrptClassTeachersList", false, ""},
        {1, "mnusep20", "-", "", false, ""},
        {1, "mnufrmrptSubjectList", "&Subject List", "frmrptSubjectList", false, ""},
        {1, "mnufrmrptTeachersList", "T&eachers List", "frmrptTeachersList", false, ""},
        {1, "mnufrmrptTeachersDetails", "Teacher &Details", "frmrptTeachersDetails", false, ""},
        {1, "mnusep11", "-", "", false, ""},
        {1, "mnufrmrptLeaveList", "Lea&ve List", "frmrptLeaveList", false, ""},
        {1, "mnufrmrptSubstituteList", "Su&bstitute List", "frmrptSubstituteList", false, ""},
        {1, "mnufrmrptSubstituteHistory", "Substitute &History", "frmrptSubstituteHistory", false, ""},
        {0, "mnuUtilities", "&Utilities", "", true, ""},
        {1, "mnuTimeTableUtility", "&TimeTable Utility", "", false, ""},
        {2, "mnuDeleteWorkAllotmentEntries", "Delete &Work Allotment Entries", "mnuDeleteWorkAllotmentEntries",
         false, "Delete WorkAllotment Entries"},
        {2, "mnuDeleteManualTimeTableEntries", "Delete &Manual TimeTable Entries", "mnuDeleteManualTimeTableEntries",
         false, "Delete Manual TimeTable Entries"},
        {2, "mnuDeleteAutoGenerationPhase1Entries", "Delete &Auto Generation Phase1 Entries",
         "mnuDeleteAutoGenerationPhase1Entries", false, "Delete AutoGeneration Phase 1 Entries"},
        {2, "mnuDeleteAutoGenerationPhase2Entries", "Delete A&uto Generation Phase2 Entries",
         "mnuDeleteAutoGenerationPhase2Entries", false, "Delete AutoGeneration Phase 2 Entries"},
        {2, "mnuDeleteAllClassTeacherEntries", "Delete All Class &Teacher Entries", "mnuDeleteAllClassTeacherEntries",
         false, "Delete All Class Teacher Entries"},
        {2, "mnuDeleteSubstituteHistory", "Delete &Substitute History", "mnuDeleteSubstituteHistory", false,
         "Delete Subsitute History Entries"},
        {1, "mnufrmUtilUserMaster", "&User Master", "frmUtilUserMaster", false, ""},
        {1, "mnufrmUtilUserPrivilegeMaster", "User &Privileges", "frmUtilUserPrivilegeMaster", false, ""},
        {1, "mnufrmFileBackupRestore", "Database &Backup / Database Restore", "frmFileBackupRestore", false, ""},
        {1, "mnufrmCompactDatabase", "&Compress Database Size", "frmCompactDatabase", false, ""},
        {1, "Sep13", "-", "", false, ""},
        {1, "mnufrmOptions", "&Options", "frmOptions", false, ""},
        {0, "mnuHelp", "&Help", "", true, ""},
        {1, "mnuTimeTableHelp", "TimeTable Help", "frmHelp", true, ""},
        {1, "mnuAboutUs", "About Us", "frmAboutUs", true, ""},
        {0, "mnuWindows", "&Windows", "", true, ""},
        {0, "mnuLock", "Loc&k", "mnuLock", true, ""},
        {0, "mnuClose", "Cl&ose", "mnuClose", true, ""},
    };
    return list;
}

void build(QMenuBar *bar)
{
    QMenu *menus[3] = {nullptr, nullptr, nullptr};
    const QList<MenuEntry> &list = entries();
    for (qsizetype i = 0; i < list.size(); ++i) {
        const MenuEntry &entry = list.at(i);
        const QString name = QString::fromLatin1(entry.name);
        const QString caption = QString::fromLatin1(entry.caption);
        const bool isSubMenu = QByteArray(entry.opens).isEmpty() && caption != QLatin1String("-");
        QAction *action = nullptr;
        if (isSubMenu) {
            QMenu *menu = entry.level == 0 ? bar->addMenu(caption) : menus[entry.level - 1]->addMenu(caption);
            menu->setObjectName(name);
            menus[entry.level] = menu;
            action = menu->menuAction();
        } else if (caption == QLatin1String("-")) {
            action = menus[entry.level - 1]->addSeparator();
        } else {
            action = entry.level == 0 ? bar->addAction(caption) : menus[entry.level - 1]->addAction(caption);
            action->setData(QString::fromLatin1(entry.opens));
        }
        action->setObjectName(name);
        action->setEnabled(entry.enabled);
    }
}

}

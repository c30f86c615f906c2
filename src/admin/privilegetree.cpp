#include "privilegetree.h"
#include "privileges.h"

#include <QHash>

namespace {

struct Builder
{
    QList<PrivilegeNode> nodes;

    int add(int parent, const QString &text, const QString &key, QChar button = Privileges::Display)
    {
        nodes.append({parent, text, key, button});
        return int(nodes.size()) - 1;
    }
    // A screen node with the buttons its screen asks about.
    void screen(int parent, const char *text, const char *key, std::initializer_list<QChar> buttons = {})
    {
        const int at = add(parent, QString::fromLatin1(text), QString::fromLatin1(key));
        for (QChar code : buttons) {
            for (const Privileges::ButtonNode &button : Privileges::buttonNodes()) {
                if (button.code == code)
                    add(at, QString::fromLatin1(button.text), QString::fromLatin1(key) + QLatin1String(button.keySuffix),
                        code);
            }
        }
    }
};

const QChar N = Privileges::New;
const QChar E = Privileges::Edit;
const QChar X = Privileges::Delete;

QList<PrivilegeNode> build()
{
    Builder b;
    const int masters = b.add(-1, QStringLiteral("Masters"), QStringLiteral("Masters"));
    b.screen(masters, "State Master", "frmStateMaster", {N, E, X});
    b.screen(masters, "City Master", "frmCityMaster", {N, E, X});
    b.screen(masters, "Blood Group Master", "frmBloodGroupMaster", {N, E, X});
    b.screen(masters, "School Setup", "frmSchoolSetup", {N, E});
    b.screen(masters, "Class Division Entry", "frmClassSectionEntry", {N, E});
    b.screen(masters, "Subject Master", "frmSubjectMaster", {N, E, X});
    b.screen(masters, "Salutation Master", "frmSalutationMaster", {N, E, X});
    b.screen(masters, "Teacher Master", "frmTeacherMaster", {N, E, X});

    const int entry = b.add(-1, QStringLiteral("TimeTable Entry"), QStringLiteral("TimeTableEntry"));
    b.screen(entry, "Work Allotment Entry Format", "frmrptWorkAllotmentEntryFormat");
    b.screen(entry, "Work Allotment Entry", "frmWorkAllotmentEntry", {N, E, X});
    b.screen(entry, "Class Teacher Allotment Entry", "frmClassTeacherAllotmentEntry", {N, E, X});
    b.screen(entry, "Combined Subject Entry", "frmCombinedSubjectEntry", {N, E, X});
    b.screen(entry, "Combined Class Entry", "frmCombinedClassEntry", {N, E, X});
    b.screen(entry, "Combined Teacher Entry", "frmCombinedTeacherEntry", {N, E, X});
    b.screen(entry, "Manual Periods Entry", "frmManualPeriodsEntry");
    b.screen(entry, "Auto Generation Phase I", "frmAutoGenerationPhaseI", {N, E, X});
    b.screen(entry, "Auto Generation Phase II", "frmAutoGenerationPhaseII");
    b.screen(entry, "Substitute Allotment", "frmSubstituteAllotment");

    const int reports = b.add(-1, QStringLiteral("Reports"), QStringLiteral("Reports"));
    static const char *const Reports[][2] = {
        {"Work Allotment Details", "frmrptWorkAllottmentDetails"},
        {"Work Allotment Non Tallied Classes", "frmrptWorkAllotmentNonTalliedclasses"},
        {"Teacher TimeTable", "frmrptTeacherTT"},
        {"Class TimeTable", "frmrptClassTT"},
        {"Class - Teacher TimeTable", "frmrptClassTeacherTT"},
        {"All Teachers TimeTable", "frmrptAllTeacherTT"},
        {"All Classes TimeTable", "frmrptAllClassesTT"},
        {"Free Teachers TimeTable", "frmrptFreeTeacherTT"},
        {"Teacherwise Working Hours", "frmrptTeacherwiseWorkingHours"},
        {"Free Period Teacher List", "frmrptFreePeriodTeacherList"},
        {"Conditional Periods Display", "frmrptConditionalPeriodsDisplay"},
        {"Class Teachers List", "frmrptClassTeachersList"},
        {"Subject List", "frmrptSubjectList"},
        {"Teachers List", "frmrptTeachersList"},
        {"Teacher Details", "frmrptTeachersDetails"},
        {"Leave List", "frmrptLeaveList"},
        {"Substitute List", "frmrptSubstituteList"},
        {"Substitute History", "frmrptSubstituteHistory"},
    };
    for (const auto &report : Reports)
        b.screen(reports, report[0], report[1]);

    const int utilities = b.add(-1, QStringLiteral("Utilities"), QStringLiteral("Utilities"));
    const int utility = b.add(utilities, QStringLiteral("TimeTable Utility"), QStringLiteral("TimeTableUtility"));
    static const char *const Deletions[][2] = {
        {"Delete Work Allotment Entries", "DeleteWorkAllotmentEntries"},
        {"Delete Manual TimeTable Entries", "DeleteManualTimeTableEntries"},
        {"Delete Auto Generation Phase 1 Entries", "DeleteAutoGenerationPhase1Entries"},
        {"Delete Auto Generation Phase 2 Entries ", "DeleteAutoGenerationPhase2Entries"},
        {"Delete All Class Teacher Entries", "DeleteAllClassTeacherEntries"},
        {"Delete Substitute History", "DeleteSubstituteHistory"},
    };
    for (const auto &deletion : Deletions)
        b.screen(utility, deletion[0], deletion[1]);
    b.screen(utilities, "User Master", "frmUtilUserMaster", {N, E, X});
    b.screen(utilities, "User Privileges", "frmUtilUserPrivilegeMaster", {N, E, Privileges::Copy});
    b.screen(utilities, "Database Backup / Database Restore", "frmFileBackupRestore",
             {Privileges::Backup, Privileges::Restore});
    b.screen(utilities, "Compress Database Size", "frmCompactDatabase");
    b.screen(utilities, "Options", "frmOptions", {Privileges::Save});
    return b.nodes;
}

bool isButton(const PrivilegeNode &node)
{
    return node.button != Privileges::Display;
}

}

namespace PrivilegeTree {

const QList<PrivilegeNode> &nodes()
{
    static const QList<PrivilegeNode> tree = build();
    return tree;
}

void setSubtree(QList<bool> &checked, int index, bool on)
{
    checked[index] = on;
    const QList<PrivilegeNode> &tree = nodes();
    for (int i = index + 1; i < tree.size(); ++i) {
        int up = tree[i].parent;
        while (up > index)
            up = tree[up].parent;
        if (up != index)
            break; // a subtree's nodes follow their root without a gap
        checked[i] = on;
    }
}

QList<PrivilegeRow> rowsFor(const QList<bool> &checked)
{
    const QList<PrivilegeNode> &tree = nodes();
    QList<PrivilegeRow> rows;
    for (int i = 0; i < tree.size(); ++i) {
        if (!checked.value(i))
            continue;
        const PrivilegeNode &node = tree[i];
        if (!isButton(node))
            rows.append({node.key, Privileges::Display});
        else
            rows.append({checked.value(node.parent) ? tree[node.parent].key : QString(), node.button});
    }
    return rows;
}

QList<bool> checkedFor(const QList<PrivilegeRow> &rows)
{
    const QList<PrivilegeNode> &tree = nodes();
    QHash<QString, int> byKey;
    for (int i = 0; i < tree.size(); ++i)
        byKey.insert(tree[i].key.toLower(), i);
    QList<bool> checked(tree.size(), false);
    for (const PrivilegeRow &row : rows) {
        QString key = row.formName.trimmed();
        if (row.button == QLatin1Char('A') || row.button == QLatin1Char('M')) {
            key = Privileges::applicationDateKey(row.button);
        } else if (row.button != Privileges::Display) {
            for (const Privileges::ButtonNode &button : Privileges::buttonNodes())
                if (button.code == row.button.toUpper())
                    key += QLatin1String(button.keySuffix);
        }
        const auto found = byKey.constFind(key.toLower());
        if (found != byKey.constEnd())
            checked[found.value()] = true;
    }
    return checked;
}

bool keepsAdministration(const QList<bool> &checked)
{
    for (int node : {UtilitiesNode, UserPrivilegesNode, UserPrivilegesNewNode, UserPrivilegesEditNode})
        if (!checked.value(node - 1))
            return false;
    return true;
}

QList<bool> allChecked()
{
    return QList<bool>(nodes().size(), true);
}

}

#pragma once
#include <QChar>
#include <QList>
#include <QString>

// One granted node as UserPrivilegeDetails stores it.
struct PrivilegeRow
{
    QString formName;
    QChar button;

    bool operator==(const PrivilegeRow &other) const = default;
};

// One node of the privilege tree: a menu, a screen, or one of a screen's buttons.
struct PrivilegeNode
{
    int parent = -1; // index of the parent node, -1 for a top node
    QString text;
    QString key;
    QChar button; // the button code of a button node; 'D' for a menu or screen node
};

// The privilege tree of the User Privileges screen: 101 nodes in a fixed order, and the translation between
// checked nodes and UserPrivilegeDetails rows. Position matters: the checks below address nodes by it.
namespace PrivilegeTree {

// Node numbers (1-based, as a user counts them) that the rule of the last administrator names.
constexpr int UtilitiesNode = 80;
constexpr int UserPrivilegesNode = 92;
constexpr int UserPrivilegesNewNode = 93;
constexpr int UserPrivilegesEditNode = 94;

const QList<PrivilegeNode> &nodes();
// Checks `index` and every node below it, or clears them: a child never checks its parent.
void setSubtree(QList<bool> &checked, int index, bool on);
// The rows of a checked tree, first node to last. A button node stores its parent's key, so a checked button
// under an unchecked screen gives a row with an empty form name, which the store refuses.
QList<PrivilegeRow> rowsFor(const QList<bool> &checked);
// The tree a user's rows check; rows that name no node are passed over.
QList<bool> checkedFor(const QList<PrivilegeRow> &rows);
// True when the nodes the last administrator must keep (Utilities, User Privileges, its New and Edit) are checked.
bool keepsAdministration(const QList<bool> &checked);
// Every node checked.
QList<bool> allChecked();

}

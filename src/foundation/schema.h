#pragma once
#include <QString>

// The three store files of the program and what a fresh copy of each holds.
enum class StoreFile { Main, BackupHistory, Help };

namespace Schema {
// Version written to `user_version`; raised whenever a table or column changes.
constexpr int Version = 1;

QString fileName(StoreFile file);
// The `application_id` that marks a file as ours (a restore checks it before it copies a file in).
int applicationId(StoreFile file);
// The table every file of the kind holds from its creation on; a file without it is not a store of ours.
QString keyTable(StoreFile file);
// Statements that bring a file of the kind from `version` to the next; empty when no such step exists.
QString upgradeScript(StoreFile file, int version);
// Statements that create every table, index and seed row of a fresh file, separated by ';'.
QString creationScript(StoreFile file);
}

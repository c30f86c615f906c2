#pragma once
// Stable library headers only: an own header here would rebuild everything on each edit.
#include <QList>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlError>
#include <functional>
#include <memory>
#include <vector>

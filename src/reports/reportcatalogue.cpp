#include "reportcatalogue.h"

namespace ReportCatalogue {

const QList<ReportEntry> &all()
{
    static const QList<ReportEntry> entries = [] {
        QList<ReportEntry> list;
        // Each group of reports adds its own entries here, in the order of the Reports menu.
        return list;
    }();
    return entries;
}

const ReportEntry *find(const QString &name)
{
    for (const ReportEntry &entry : all())
        if (entry.name.compare(name, Qt::CaseInsensitive) == 0)
            return &entry;
    return nullptr;
}

}

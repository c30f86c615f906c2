#include "helpbook.h"
#include "sql.h"
#include "store.h"

#include <QSqlQuery>

QList<HelpPage> HelpBook::pages() const
{
    const QString connection = QStringLiteral("help");
    QList<HelpPage> list;
    {
        const QSqlDatabase db = Store::open(StoreFile::Help, m_dataFolder, connection);
        QSqlQuery query = Sql(db).run(QStringLiteral("SELECT Scrno, ScreenName, Details FROM HelpDetails "
                                                     "ORDER BY Scrno"));
        while (query.next())
            list.append({query.value(0).toInt(), query.value(1).toString(), query.value(2).toString()});
    }
    Store::close(connection);
    return list;
}

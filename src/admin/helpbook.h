#pragma once
#include <QList>
#include <QString>

// The help pages kept in TimeTablehelp.mdb, read through a short-lived connection of their own.
struct HelpPage
{
    int scrno = 0;
    QString screenName;
    QString details;
};

class HelpBook
{
public:
    explicit HelpBook(const QString &dataFolder) : m_dataFolder(dataFolder) {}

    // Every page in screen-number order; StoreError when the file cannot be read.
    QList<HelpPage> pages() const;

private:
    QString m_dataFolder;
};

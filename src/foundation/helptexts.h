#pragma once
#include <QList>
#include <QString>

// One help page of the help screen: its screen number, the screen's caption and the text.
struct HelpText {
    int scrno;
    QString screenName;
    QString details;
};

// Every help page, in screen-number order. Page 4 serves frmCityMaster and frmClasswiseWorkingDaysSetup.
const QList<HelpText> &helpTexts();

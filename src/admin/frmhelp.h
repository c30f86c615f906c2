#pragma once
#include "helpbook.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QTextEdit;
class QTreeWidget;
class QTreeWidgetItem;
struct AppContext;

// The help screen: the page of the screen from which F1 was pressed, and a list of every page.
class frmHelp : public QWidget
{
    Q_OBJECT
public:
    explicit frmHelp(AppContext &ctx, QWidget *parent = nullptr);

    // Shows the page with this screen number; an unknown number leaves the text empty.
    void showScreen(int scrno);

private:
    void showPage(const HelpPage &page);
    void nodeClicked(QTreeWidgetItem *item);

    AppContext &m_ctx;
    QList<HelpPage> m_pages;
    QTreeWidget *m_tvwDisplay = nullptr;
    QLabel *m_lblName = nullptr;
    QTextEdit *m_txtDetail = nullptr;
    QPushButton *m_cmdExit = nullptr;
};

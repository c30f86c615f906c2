#pragma once
#include "generationengine.h"

#include <QPointer>
#include <QSqlDatabase>
#include <QWidget>

class QTableWidget;
class ScreenRegistry;
struct AppContext;

void registerGenerationScreens(ScreenRegistry &registry);

// The pending window lists the balance its opener chose: one view for the whole program, set just before
// the window opens or comes forward.
void SetPendingView(PendingView view);
PendingView CurrentPendingView();
// Sets the view and opens the pending window (or brings it forward, refreshed); returns it for the opener's
// pending-window mark, so that the opener's exit can close it first.
QWidget *OpenPendingWindow(AppContext &ctx, PendingView view);
// Shows a work list table (AutoGenPhase1 or AutoGenPhase2) as it stands, row for row, in a screen's grid.
void FillWorkListGrid(QTableWidget *grid, const QSqlDatabase &db, const QString &table);

// Closes the pending window through its own Exit, as the generator screens do when they leave.
void ClosePendingWindow(QPointer<QWidget> &window);

#include "frmstartlock.h"
#include "artwork.h"
#include "frmstartunlock.h"
#include "messageservice.h"
#include "session.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPainterPath>
#include <QRegion>
#include <QVBoxLayout>

frmStartLock::frmStartLock(AppContext &ctx, QWidget *parent)
    : QDialog(parent, Qt::FramelessWindowHint | Qt::Dialog), m_ctx(ctx)
{
    setObjectName(QStringLiteral("frmStartLock"));
    setWindowTitle(QStringLiteral("Locked"));
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(true);
    auto *picture = new QLabel(this);
    picture->setObjectName(QStringLiteral("imgLock"));
    picture->setPixmap(Artwork::lockPicture());
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(picture);
    setFixedSize(244, 133);
    // The rounded window: from (3, 3) to (241, 130) with corners of 20.
    QPainterPath outline;
    outline.addRoundedRect(QRectF(3, 3, 238, 127), 10, 10);
    setMask(QRegion(outline.toFillPolygon().toPolygon()));
}

void frmStartLock::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F10) {
        showUnlock();
    } else if (event->key() == Qt::Key_Escape) {
        if (m_ctx.messages->question(QStringLiteral("Do You Want To Close 'Zarlo-TimeTable' ?")))
            emit closeProgramRequested();
    }
    event->accept(); // no other key reaches the screens below
}

void frmStartLock::showUnlock()
{
    auto *unlock = new frmStartUnlock(m_ctx, this);
    connect(unlock, &frmStartUnlock::unlocked, this, [this] {
        emit unlocked();
        close();
    });
    unlock->open();
}

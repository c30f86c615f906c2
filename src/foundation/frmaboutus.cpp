#include "frmaboutus.h"
#include "artwork.h"
#include "session.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QVBoxLayout>

frmAboutUs::frmAboutUs(AppContext &ctx, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("frmAboutUs"));
    setWindowTitle(QStringLiteral("About Us"));
    setAttribute(Qt::WA_DeleteOnClose);
    const QPixmap picture = Artwork::splash();
    if (!ctx.tempFolder.isEmpty())
        Artwork::exportPicture(picture, 1005, ctx.tempFolder);

    auto *image = new QLabel(this);
    image->setPixmap(picture);
    auto *text = new QLabel(this);
    text->setObjectName(QStringLiteral("lblAbout"));
    text->setAlignment(Qt::AlignCenter);
    text->setText(QStringLiteral("<b>Zarlo-TimeTable</b> %1<br>The weekly timetable of a school: classes, "
                                 "teachers, work allotment,<br>generation in two phases, substitutes and "
                                 "reports.<br><br>The school is kept in %2")
                      .arg(QCoreApplication::applicationVersion(),
                           QDir::toNativeSeparators(ctx.dataFolder).toHtmlEscaped()));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(image);
    layout->addWidget(text);
    layout->addWidget(buttons);
}

void frmAboutUs::mousePressEvent(QMouseEvent *)
{
    accept();
}

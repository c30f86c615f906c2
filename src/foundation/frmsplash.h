#pragma once
#include <QWidget>

struct AppContext;

// The splash: makes the temp folder fresh and shows the program's picture for a moment, then reports the
// end of its "movie" with ("quit", "enter"); Esc or a click on the close box leaves with ("quit", "true").
class frmSplash : public QWidget
{
    Q_OBJECT
public:
    explicit frmSplash(AppContext &ctx, QWidget *parent = nullptr);
    // How long the picture stands before the program goes on.
    static constexpr int ShowMilliseconds = 1200;

signals:
    void movieCommand(const QString &command, const QString &argument);

protected:
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    AppContext &m_ctx;
    bool m_started = false;
};

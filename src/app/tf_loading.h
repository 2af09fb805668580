#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;

namespace jxc {

/// What is shown while the program starts: three stages, a tick apart.
class TF_Loading : public QWidget {
    Q_OBJECT
public:
    explicit TF_Loading(int tickMilliseconds = 1000);

    /// Shows the window and starts the stages.
    void FormActivate();
    /// One stage further; after the third the window closes.
    void Timer1Timer();

    [[nodiscard]] int loadingStage() const { return m_stage; }
    [[nodiscard]] QString statusText() const;

Q_SIGNALS:
    void finished();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QTimer m_timer;
    QLabel *m_status;
    int m_stage = 0;
};

} // namespace jxc

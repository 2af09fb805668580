#include "ui/progress.h"

#include <QCoreApplication>

namespace jxc {

Progress::Progress(const QString &what, qsizetype steps, QWidget *parent)
    : m_dialog(what, QStringLiteral("停止"), 0, static_cast<int>(steps), parent) {
    m_dialog.setWindowTitle(QStringLiteral("请稍候"));
    m_dialog.setWindowModality(Qt::ApplicationModal);
    m_dialog.setMinimumDuration(400);
    m_dialog.setAutoClose(false);
    m_dialog.setAutoReset(false);
}

bool Progress::reach(qsizetype step) {
    m_dialog.setValue(static_cast<int>(step));
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return !m_dialog.wasCanceled();
}

void Progress::finish() {
    m_dialog.close();
}

} // namespace jxc

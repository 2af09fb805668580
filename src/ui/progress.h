#pragma once

#include <QProgressDialog>

namespace jxc {

/// Long work, shown with a way to stop it. It appears only when the work really is long.
class Progress {
public:
    Progress(const QString &what, qsizetype steps, QWidget *parent);

    /// False when the user wants to stop.
    [[nodiscard]] bool reach(qsizetype step);
    void finish();

private:
    QProgressDialog m_dialog;
};

} // namespace jxc

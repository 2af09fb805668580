#pragma once

#include "core/session.h"
#include "ui/form.h"

#include <QTimer>

class QCheckBox;
class QLabel;
class QProgressBar;
class QSpinBox;
class QTabWidget;

namespace jxc {

class PathField;

/// Backup and its settings on one page, restore on the other.
class TF_Backup : public Form {
    Q_OBJECT
public:
    explicit TF_Backup(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;
    /// Backs up, or restores, by the page that is shown.
    void btnOKClick();

Q_SIGNALS:
    /// The settings were stored, or a backup was made.
    void changed();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QWidget *makeBackupPage();
    QWidget *makeRestorePage();
    [[nodiscard]] BackupSettings settings() const;
    void backUp();
    void restore();
    /// While something long runs, and until it is told how it went.
    void setBusy(bool isBusy, const QString &text = {});

    QTabWidget *m_pages;
    PathField *m_folder, *m_file;
    QCheckBox *m_automatic, *m_onExit;
    QSpinBox *m_hours, *m_days;
    QProgressBar *m_progress;
    QLabel *m_state;
};

} // namespace jxc

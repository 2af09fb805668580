#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace jxc {

/// The line at the foot of the main window.
class StatusPanes : public QFrame {
    Q_OBJECT
public:
    explicit StatusPanes(QWidget *parent = nullptr);

    void setOperator(const QString &name);
    void setAccountSet(const QString &name);
    void setSlogan(const QString &text);
    void setBackup(const QString &text, bool isOverdue);

    [[nodiscard]] QStringList texts() const;

Q_SIGNALS:
    void operatorClicked();
    void backupClicked();

private:
    QLabel *m_product, *m_accountSet, *m_slogan, *m_help;
    QPushButton *m_operator, *m_backup;
};

} // namespace jxc

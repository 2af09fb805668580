#pragma once

#include <QDialog>
#include <functional>

class QFormLayout;
class QLineEdit;

namespace jxc {

/// A dialog of a note and a few fields; Enter is OK and Esc leaves.
class SmallDialog : public QDialog {
    Q_OBJECT
public:
    SmallDialog(const QString &title, const QString &note, QWidget *parent);

    void addRow(const QString &caption, QWidget *field);
    /// What is typed is shown as dots.
    QLineEdit *addPassword(const QString &caption);
    /// Runs `check` at OK and closes when it is content. Without leave there is no other way out.
    void addButtons(bool mayLeave, std::function<bool()> check);

    void reject() override;

private:
    QFormLayout *m_form;
    bool m_mayLeave = true;
};

} // namespace jxc

#pragma once

#include "ui/form.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace jxc {

/// The operator's login. Whether somebody is in stands in the session (`loginOk`) when it closes.
class TF_Login : public Form {
    Q_OBJECT
public:
    /// What opened it: `callerWord` "hb" for a change of operator in the running program, which may
    /// be cancelled without ending it; `modeWord` "PosLogin" for the counter, which loads what it
    /// needs itself and writes no log line.
    TF_Login(const FormContext &context, const QString &callerWord, const QString &modeWord = {},
             QWidget *parent = nullptr);

    void FormActivate() override;

    void comAdminPropertiesChange();
    void btnOKClick();
    void btnCancelClick();

    void reject() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool login();
    QWidget *makePicture();
    QWidget *makeFields();

    QString m_callerWord, m_modeWord;
    QWidget *m_upperPanel;
    QComboBox *m_operator;
    QLineEdit *m_password;
    QLabel *m_hint;
};

} // namespace jxc

#pragma once

#include "ui/list_form.h"

namespace jxc {

class PlainEditor;

/// 现金银行: the accounts at the left, the journal of one or all of them.
class TF_Xjyh : public ListForm {
    Q_OBJECT
public:
    explicit TF_Xjyh(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;
    [[nodiscard]] Grid &accounts() { return *m_accounts; }

public Q_SLOTS:
    void btnCkClick();
    void btnJkClick();
    void btnZzClick();
    void btnModiClick();
    void btnDeleClick();
    void btnCheckClick();
    void btnCancelClick();

protected:
    Rows read(const QString &search) override;

private:
    void addEntryActions();
    void addAccountsButton();
    void showAccounts();
    [[nodiscard]] QString account() const;
    void enter(const QString &code);
    void openEditor(PlainEditor *editor);

    PeriodBar *m_period;
    Grid *m_accounts;
};

} // namespace jxc

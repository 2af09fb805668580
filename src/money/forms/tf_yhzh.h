#pragma once

#include "ui/list_form.h"

namespace jxc {

/// 银行账户: where the money is kept, and what each account began with.
class TF_Yhzh : public ListForm {
    Q_OBJECT
public:
    explicit TF_Yhzh(const FormContext &context, QWidget *parent = nullptr);

public Q_SLOTS:
    void btnAddClick();
    void btnModiClick();
    void btnDeleClick();
    void btnQcjzClick();

protected:
    Rows read(const QString &search) override;

private:
    void openEditor(class PlainEditor *editor);
};

} // namespace jxc

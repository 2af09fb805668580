#pragma once

#include "core/roles.h"
#include "ui/list_form.h"

namespace jxc {

/// The roles that operators have.
class TF_Role : public ListForm {
    Q_OBJECT
public:
    explicit TF_Role(const FormContext &context, QWidget *parent = nullptr);

    void btnAddClick();
    void btnModiClick();
    void btnDeleClick();

protected:
    Rows read(const QString &search) override;

private:
    void edit(const Role *role);

    std::vector<Role> m_roles;
};

} // namespace jxc

#pragma once

#include "core/roles.h"
#include "ui/form.h"

namespace jxc {

class PlainTable;

/// The roles that operators have.
class TF_Role : public Form {
    Q_OBJECT
public:
    explicit TF_Role(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;

    void btnAddClick();
    void btnModiClick();
    void btnDeleClick();

private:
    [[nodiscard]] const Role *current() const;
    void edit(const Role *role);

    PlainTable *m_table;
    std::vector<Role> m_roles;
};

} // namespace jxc

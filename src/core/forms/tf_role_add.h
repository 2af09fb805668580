#pragma once

#include "core/roles.h"
#include "ui/plain_editor.h"

class QLineEdit;
class QTreeWidget;

namespace jxc {

/// A role's name and its rights, as a tree of the eight groups.
class TF_Role_Add : public PlainEditor {
    Q_OBJECT
public:
    /// Without a role one is added.
    TF_Role_Add(const FormContext &context, const Role *role, QWidget *parent);

    /// The checked rights, in the tree's shape.
    [[nodiscard]] GrantedRights rights() const;

protected:
    bool save() override;
    [[nodiscard]] QStringList content() const override;

private:
    void fillTree(const GrantedRights &rights);
    /// Grants (or takes) every right of the group that the chosen line belongs to.
    void setGroup(Qt::CheckState state);

    qint64 m_id;
    QLineEdit *m_name;
    QTreeWidget *m_tree;
};

} // namespace jxc

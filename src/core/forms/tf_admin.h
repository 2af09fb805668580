#pragma once

#include "core/operators.h"
#include "ui/form.h"

class QToolButton;

namespace jxc {

class PlainTable;

/// Who may log in.
class TF_Admin : public Form {
    Q_OBJECT
public:
    explicit TF_Admin(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;

    void btnAddClick();
    void btnModiClick();
    void btnDeleClick();
    void btnCopyClick();
    void btnPasteClick();

private:
    [[nodiscard]] const Operator *current() const;
    void edit(qint64 id);

    PlainTable *m_table;
    std::vector<Operator> m_operators;
    std::optional<OperatorInput> m_copied;
    QList<QToolButton *> m_forAdministrator;
};

} // namespace jxc

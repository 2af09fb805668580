#pragma once

#include "core/operators.h"
#include "ui/list_form.h"

namespace jxc {

/// Who may log in.
class TF_Admin : public ListForm {
    Q_OBJECT
public:
    explicit TF_Admin(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;

    void btnAddClick();
    void btnModiClick();
    void btnDeleClick();
    void btnCopyClick();
    void btnPasteClick();

protected:
    Rows read(const QString &search) override;

private:
    void addActions();
    [[nodiscard]] qint64 currentId() const;
    void edit(qint64 id);

    std::optional<OperatorInput> m_copied;
    QList<QAction *> m_forAdministrator;
};

} // namespace jxc

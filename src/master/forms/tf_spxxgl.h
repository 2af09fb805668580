#pragma once

#include "ui/master_form.h"

namespace jxc {

class ClassTree;

/// The goods, with their classes at the left.
class TF_Spxxgl : public MasterForm {
    Q_OBJECT
public:
    TF_Spxxgl(const FormContext &context, QWidget *parent);

    [[nodiscard]] ClassTree &classes() const { return *m_classes; }
    void FormActivate() override;

public Q_SLOTS:
    void btnCopyClick();
    void btnBulkClick();

protected:
    [[nodiscard]] std::vector<ListFilter> filters() const override;
    void prepareNew(RecordEditor &editor) override;
    void deleted(const QString &code) override;

private:
    QCheckBox *addSwitch(const char16_t *name, const QString &caption);

    ClassTree *m_classes;
    QCheckBox *m_inStock = nullptr, *m_restricted = nullptr;
};

} // namespace jxc

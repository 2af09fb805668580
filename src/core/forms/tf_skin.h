#pragma once

#include "ui/form.h"

class QRadioButton;

namespace jxc {

/// The operator's shade, light or dark; seen at once.
class TF_Skin : public Form {
    Q_OBJECT
public:
    explicit TF_Skin(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;
    void choose(const QString &name);

private:
    QList<QRadioButton *> m_choices;
};

} // namespace jxc

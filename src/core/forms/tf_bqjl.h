#pragma once

#include "ui/form.h"

class QPlainTextEdit;

namespace jxc {

/// The operator's own slip of notes, kept on leaving.
class TF_Bqjl : public Form {
    Q_OBJECT
public:
    explicit TF_Bqjl(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;
    bool mayLeave() override;

private:
    QPlainTextEdit *m_text;
    QString m_stored;
};

} // namespace jxc

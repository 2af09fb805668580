#pragma once

#include "ui/form.h"

#include <QDate>

class QDateEdit;
class QLabel;
class QLineEdit;
class QToolButton;

namespace jxc {

class LogModel;

/// The operation log: searched, and cleared by who may.
class TF_ViewLog : public Form {
    Q_OBJECT
public:
    explicit TF_ViewLog(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;

    void btnFindClick();
    void btnAllTimeClick();
    void btnClearClick();

private:
    QWidget *makeBar();
    void setRange(QDate from, QDate to);

    LogModel *m_model;
    QDateEdit *m_from, *m_to;
    QLineEdit *m_text;
    QLabel *m_count;
    QToolButton *m_clear = nullptr;
};

} // namespace jxc

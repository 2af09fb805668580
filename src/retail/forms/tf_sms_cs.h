#pragma once

#include "retail/sms_settings.h"
#include "ui/plain_editor.h"

class QLineEdit;
class QPlainTextEdit;

namespace jxc {

/// 短信参数: the account at the provider, its address, and the texts that are sent by themselves.
class TF_Sms_Cs : public PlainEditor {
    Q_OBJECT
public:
    TF_Sms_Cs(const FormContext &context, QWidget *parent);

protected:
    bool save() override;
    [[nodiscard]] QStringList content() const override;

private:
    [[nodiscard]] SmsSettings settings() const;

    QLineEdit *m_host, *m_user, *m_password, *m_sign;
    QPlainTextEdit *m_recharge, *m_purchase;
};

} // namespace jxc

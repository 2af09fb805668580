#pragma once

#include "db/row.h"
#include "ui/form.h"

class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTabWidget;

namespace jxc {

class KeptTicks;
class ListPage;
class MemberFilterBar;
class PeriodBar;
class TF_Sms_Send;
struct SmsBatch;
struct SmsReport;

/// 短信: messages to chosen members, and what was sent.
class TF_Sms : public Form {
    Q_OBJECT
public:
    explicit TF_Sms(const FormContext &context, QWidget *parent = nullptr);

    /// Ticks these members (hy_sn), and shows only them.
    void setMembers(const QStringList &members);
    void FormActivate() override;
    bool mayLeave() override;
    [[nodiscard]] TF_Sms_Send &sender() { return *m_sender; }

public Q_SLOTS:
    /// Sends what is typed to the ticked members, without any to the current one.
    void btnOKClick();
    /// Sends the current message once more.
    void btn_SendClick();
    /// Sends what could not be sent yet.
    void btnWaitingClick();
    void btnSettingsClick();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QWidget *makeSendPage();
    QWidget *makeTextPanel();
    QWidget *makeSentPage();
    [[nodiscard]] Rows readMembers(const QString &search) const;
    void showText();
    void setBusy(bool isBusy);
    void tell(const SmsReport &report);
    [[nodiscard]] QStringList chosenMembers() const;

    TF_Sms_Send *m_sender;
    QTabWidget *m_pages;
    ListPage *m_members, *m_sent;
    PeriodBar *m_period = nullptr;
    MemberFilterBar *m_conditions;
    KeptTicks *m_ticks = nullptr;
    QCheckBox *m_onlyTicked;
    QPlainTextEdit *m_text;
    QLabel *m_count, *m_preview, *m_state;
    QProgressBar *m_progress;
    QPushButton *m_ok, *m_stop;
    int m_withoutMobile = 0; ///< of the batch that is being sent
};

} // namespace jxc

#pragma once

#include "retail/counter_goods.h"
#include "retail/counter_member.h"
#include "ui/form.h"

#include <QHash>

class QLineEdit;
class QTimer;

namespace jxc {

class CounterPrinting;
class CounterScreen;

/// 收银台: goods are scanned or typed into one line that always has the keys; everything else is a
/// key of jxc_gnb.
class TF_Posxs : public Form {
    Q_OBJECT
public:
    explicit TF_Posxs(const FormContext &context, QWidget *parent = nullptr);

    void FormActivate() override;
    bool mayLeave() override;

    [[nodiscard]] const Receipt &receipt() const { return m_receipt; }
    [[nodiscard]] CounterPrinting &printing() { return *m_printing; }

    // What the keys do.
    void enterInput();
    void btnPayClick();
    void btnDiscountClick();
    void btnQuantityClick();
    void btnPriceClick();
    void btnDeleteClick();
    void btnDeleteAllClick();
    void btnMemberClick();
    void btnDrawerClick();
    void btnHoldClick();
    void btnRecallClick();
    void btnLockClick();
    void btnPictureClick();
    void btnGiftClick();
    void btnReturnClick();
    void btnReprintClick();
    void btnShiftClick();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    /// A function of the counter and what runs it.
    using Functions = QHash<QString, void (TF_Posxs::*)()>;
    [[nodiscard]] static const Functions &functions();

    void fillHints();
    void offerRunning();
    void takeInput(const QString &typed);
    void takeLine(const CounterFind &found, const GoodsHit &hit);
    bool chooseHit(CounterFind &found);
    void takeMember(const QString &key);
    void startAnew();
    void changed();
    void refresh();
    void say(const QString &text, bool isFault);
    [[nodiscard]] PriceBuyer buyer() const;
    [[nodiscard]] ReceiptLine *currentLine();
    bool runKey(QKeyEvent &event);
    bool runControlKey(int key);
    bool runFixedKey(const QKeyEvent &event);
    [[nodiscard]] bool isPaidByWallet();

    CounterSettings m_settings;
    Receipt m_receipt;
    std::optional<CounterMember> m_member;
    CounterPrinting *m_printing;
    CounterScreen *m_screen;
    QLineEdit &m_input;
    QTimer *m_keep; ///< stores the running receipt once the keys rest
    int m_line = -1;
};

} // namespace jxc

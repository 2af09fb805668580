#pragma once

#include "ui/master_form.h"

namespace jxc {

class KeptTicks;
class MemberFilterBar;
struct Member;

/// 会员管理: the members, and everything that is done to a card.
class TF_Hygl : public MasterForm {
    Q_OBJECT
public:
    TF_Hygl(const FormContext &context, QWidget *parent);

    [[nodiscard]] MemberFilterBar &conditions() const { return *m_conditions; }

public Q_SLOTS:
    void btnHyxfClick();
    void btnXfjlClick();
    void btnSmsClick();
    /// 挂失, or 解挂 of a card that is reported lost.
    void btnLostClick();

protected:
    Rows read(const QString &search) override;

private:
    void addCardActions();
    void addFigureActions();
    void addMemberLists();
    void addConditions();
    void showCurrent();
    /// Does something to the member of the current row, as it stands in the books now.
    void withMember(const std::function<void(const Member &)> &run);
    template<class Dialog>
    void addDialog(const char *name, const QString &caption, const QString &key);

    MemberFilterBar *m_conditions;
    KeptTicks *m_ticks;
    QAction *m_lost = nullptr, *m_clear = nullptr;
};

} // namespace jxc

#pragma once

#include "db/row.h"
#include "retail/member.h"
#include "ui/column.h"
#include "ui/form.h"

#include <functional>

class QTabWidget;

namespace jxc {

class CounterPrinting;
class ListPage;
class PeriodBar;

/// 消费记录 of one member: receipts, goods, recharges, and what went between cards.
class TF_Hygl_Xfjl : public Form {
    Q_OBJECT
public:
    TF_Hygl_Xfjl(const FormContext &context, const Member &member, QWidget *parent);

    void FormActivate() override;
    [[nodiscard]] ListPage &page(int at) const;
    [[nodiscard]] CounterPrinting &printing() const { return *m_printing; }

private:
    void addReceipts();
    void addGoods();
    void addRecharges();
    void addTransfers();
    ListPage *addPage(const QString &caption, const QString &layoutName, ColumnSpecs columns,
                      const std::function<Rows(const QString &from, const QString &to)> &read);
    void addReprint(ListPage *page, void (CounterPrinting::*print)(const QString &, bool));
    void showCurrent();

    Member m_member;
    PeriodBar *m_period;
    QTabWidget *m_pages;
    CounterPrinting *m_printing;
};

} // namespace jxc

#include "retail/forms/counter_choices.h"

#include "core/prompter.h"
#include "retail/member_search.h"
#include "ui/grid_msg.h"
#include "ui/row_list.h"

#include <QLabel>
#include <QPixmap>
#include <QScreen>
#include <QVBoxLayout>

namespace jxc {

bool chooseGoods(const FormContext &context, CounterFind &found, QWidget *parent) {
    RowList list(
        {u"no", u"g_sn", u"g_name", u"gg_name", u"dw_name", u"g_sccs", u"kc_sl", u"g_lsj"});
    qint64 no = 0;
    for (const GoodsHit &hit : found.hits)
        list.add({no++, hit.code, hit.name, hit.specification, hit.unit, hit.maker, hit.stock,
                  hit.retailPrice});
    TF_GridMsg choice(context, QStringLiteral("TF_Posxs_Sele"), QStringLiteral("选择商品"),
                      {text(u"g_sn", u"商品编号", 110), text(u"g_name", u"商品名称", 204),
                       text(u"gg_name", u"规格", 110), text(u"dw_name", u"单位", 56),
                       text(u"g_sccs", u"生产厂商", 150),
                       column(u"kc_sl", u"库存", ValueKind::quantity, 90),
                       column(u"g_lsj", u"零售价", ValueKind::price, 90)},
                      list.take(), parent);
    if (!choice.choose())
        return false;
    const auto chosen = static_cast<size_t>(choice.chosen().front()->integer(u"no"));
    found.hits = {found.hits[chosen]};
    return true;
}

QString chooseHeld(const FormContext &context, const std::vector<HeldReceipt> &held,
                   QWidget *parent) {
    RowList list({u"gl_djh", u"ls_xsrq", u"a_name", u"g_name", u"ls_sl", u"ls_zje"});
    for (const HeldReceipt &one : held)
        list.add({one.number, one.time, one.operatorName, one.firstGoods, one.lines, one.total});
    TF_GridMsg choice(context, QStringLiteral("TF_Posxs_Jg"), QStringLiteral("解挂"),
                      {text(u"gl_djh", u"单号", 140), text(u"ls_xsrq", u"时间", 170),
                       text(u"a_name", u"操作员", 90), text(u"g_name", u"商品", 200),
                       column(u"ls_sl", u"行数", ValueKind::integer, 60),
                       column(u"ls_zje", u"金额", ValueKind::amount, 100)},
                      list.take(), parent);
    return choice.choose() ? choice.chosen().front()->text(u"gl_djh") : QString();
}

QString chooseMember(const FormContext &context, const QString &typed, QWidget *parent) {
    constexpr int most = 100;
    Rows found = findMembers(context.session, typed, most);
    if (found.empty()) {
        context.prompter.inform(QStringLiteral("没有找到会员“%1”！").arg(typed), informCaption);
        return {};
    }
    if (found.size() == 1)
        return found.front().text(u"hy_sn");
    TF_GridMsg choice(context, QStringLiteral("TF_Posxs_Hyxz"), QStringLiteral("选择会员"),
                      {text(u"hy_bh", u"会员编号", 100), text(u"hy_name", u"姓名", 120),
                       text(u"hy_mobile", u"手机", 120), text(u"hl_name", u"级别", 100),
                       column(u"hy_zhje", u"余额", ValueKind::amount, 100),
                       column(u"hy_jf", u"积分", ValueKind::integer, 80)},
                      std::move(found), parent);
    return choice.choose() ? choice.chosen().front()->text(u"hy_sn") : QString();
}

void showPicture(const QString &title, const QString &file, QWidget *parent) {
    const QPixmap picture(file);
    if (picture.isNull())
        return;
    QDialog dialog(parent);
    dialog.setWindowTitle(title);
    auto *label = new QLabel(&dialog);
    const QSize most = parent->screen()->availableSize() * 3 / 4;
    label->setPixmap(picture.size().boundedTo(most) == picture.size()
                         ? picture
                         : picture.scaled(most, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    auto *column = new QVBoxLayout(&dialog);
    column->addWidget(label);
    dialog.exec();
}

} // namespace jxc

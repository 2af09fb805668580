#include "retail/forms/tf_hygl.h"

#include "core/session.h"
#include "retail/forms/member_card_dialogs.h"
#include "retail/forms/member_figure_dialogs.h"
#include "retail/forms/member_filter_bar.h"
#include "retail/forms/member_transfer_dialogs.h"
#include "retail/forms/tf_hygl_xfjl.h"
#include "retail/forms/tf_hyxf.h"
#include "retail/forms/tf_sms.h"
#include "retail/member_card.h"
#include "retail/member_query.h"
#include "retail/member_search.h"
#include "ui/kept_ticks.h"

#include <QAction>

namespace jxc {

namespace {

/// All of it stands on a small screen.
ColumnSpecs memberColumns(const MasterKind &kind) {
    const QHash<QString, int> widths{
        {QStringLiteral("hy_bh"), 104},   {QStringLiteral("hy_name"), 88},
        {QStringLiteral("hy_jm"), 72},    {QStringLiteral("hl_name"), 88},
        {QStringLiteral("hh_name"), 104}, {QStringLiteral("hy_mobile"), 112},
        {QStringLiteral("hy_jf"), 80},    {QStringLiteral("hy_zjf"), 80},
        {QStringLiteral("hy_zhje"), 88},  {QStringLiteral("hy_zje"), 88},
        {QStringLiteral("hy_cs"), 80},    {QStringLiteral("hy_jrrq"), 96},
        {QStringLiteral("hy_dqrq"), 96},  {QStringLiteral("hy_status"), 56},
        {QStringLiteral("hy_note"), 104}};
    ColumnSpecs columns = masterColumns(kind);
    for (ColumnSpec &column : columns)
        column.width = widths.value(column.field, column.width);
    return columns;
}

} // namespace

TF_Hygl::TF_Hygl(const FormContext &context, QWidget *parent)
    : MasterForm(context, masterKind(u"jxc_hyxx"), parent)
    , m_conditions(new MemberFilterBar(*this))
    , m_ticks(new KeptTicks(grid(), QStringLiteral("hy_sn"))) {
    setWindowTitle(QStringLiteral("会员管理"));
    grid().setTitle(QStringLiteral("会员管理"));
    setColumns(memberColumns(kind()), QStringLiteral("id"));
    addRowActions();
    addCardActions();
    addFigureActions();
    addListActions();
    addMemberLists();
    addConditions();
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：卡号、姓名、电话"));
    searchBox().setToolTip(QStringLiteral("卡号、姓名、简码、电话、证件号码"));
    grid().model().setTone([today = session().today()](const Row &row, const ColumnSpec &) {
        if (row.flag(u"hy_status"))
            return Tone::danger;
        const bool isOver =
            row.flag(u"hy_qx") && !row.text(u"hy_dqrq").isEmpty() && row.text(u"hy_dqrq") < today;
        return isOver ? Tone::quiet : Tone::plain;
    });
    connect(&grid(), &Grid::currentChanged, this, &TF_Hygl::showCurrent);
}

template<class Dialog>
void TF_Hygl::addDialog(const char *name, const QString &caption, const QString &key) {
    addAction(
        QString::fromLatin1(name), caption, QKeySequence(key),
        [this] {
            withMember([this](const Member &member) {
                if (Dialog(this->context(), member, this).runModal())
                    refresh();
            });
        },
        true);
}

void TF_Hygl::addCardActions() {
    addAction(QStringLiteral("btnHyxf"), QStringLiteral("充值"), Qt::Key_F6,
              [this] { btnHyxfClick(); });
    addAction(
        QStringLiteral("btnXfjl"), QStringLiteral("消费记录"), Qt::Key_F7,
        [this] { btnXfjlClick(); }, true);
    addLink(u"btnDhzp", QStringLiteral("积分兑换"), Qt::Key_F8, QStringLiteral("TF_Dhzp"));
    addAction(QStringLiteral("btnSms"), QStringLiteral("短信"), Qt::Key_F9,
              [this] { btnSmsClick(); });
    addAction(QStringLiteral("btnGjcx"), QStringLiteral("高级查询"), Qt::Key_F10,
              [this] { m_conditions->choose(); });
    m_clear = addAction(QStringLiteral("btnClear"), QStringLiteral("清除条件"), Qt::Key_F11,
                        [this] { m_conditions->clear(); });
    m_lost = addAction(
        QStringLiteral("btnLost"), QStringLiteral("挂失"), QKeySequence(QStringLiteral("Ctrl+L")),
        [this] { btnLostClick(); }, true);
    addDialog<TF_Hygl_Hk>("btnHk", QStringLiteral("换卡"), QStringLiteral("Ctrl+K"));
    addDialog<TF_Hygl_Pwd>("btnPwd", QStringLiteral("密码"), QStringLiteral("Ctrl+P"));
    addDialog<TF_Hygl_Mobile>("btnMobile", QStringLiteral("手机"), QStringLiteral("Ctrl+M"));
}

void TF_Hygl::addFigureActions() {
    addDialog<TF_Hygl_Zz>("btnZz", QStringLiteral("转账"), QStringLiteral("Ctrl+T"));
    addDialog<TF_Hygl_Zz2>("btnZz2", QStringLiteral("积分转移"), QStringLiteral("Ctrl+Y"));
    addDialog<TF_Hygl_Jf>("btnJf", QStringLiteral("积分"), QStringLiteral("Ctrl+J"));
    addDialog<TF_Hygl_Je>("btnJe", QStringLiteral("消费金额"), QStringLiteral("Ctrl+G"));
}

void TF_Hygl::addMemberLists() {
    addToLists(QStringLiteral("会员级别"), QStringLiteral("TF_Hyfl"));
    addToLists(QStringLiteral("优惠方式"), QStringLiteral("TF_Hyyh"));
    addToLists(QStringLiteral("充值赠送"), QStringLiteral("TF_Hyzs"));
    addToLists(QStringLiteral("会员设置"), QStringLiteral("TF_Hyksz"));
}

void TF_Hygl::addConditions() {
    addFilter(m_conditions);
    m_clear->setVisible(false);
    connect(m_conditions, &MemberFilterBar::changed, this, [this] {
        const QString words = m_conditions->words();
        m_clear->setVisible(!words.isEmpty());
        grid().setNotes(words.isEmpty() ? QStringList() : QStringList{words});
        refresh();
    });
}

Rows TF_Hygl::read(const QString &search) {
    return listMembers(session(), m_conditions->filter(search));
}

void TF_Hygl::showCurrent() {
    const Row *row = grid().current();
    m_lost->setText(row != nullptr && row->flag(u"hy_status") ? QStringLiteral("解挂")
                                                              : QStringLiteral("挂失"));
}

void TF_Hygl::withMember(const std::function<void(const Member &)> &run) {
    if (const auto member = findMember(db(), grid().currentText(u"hy_sn"))) {
        run(*member);
        return;
    }
    prompter().inform(recordChangedMeanwhile().text(), informCaption);
    refresh();
}

void TF_Hygl::btnHyxfClick() {
    const QString member = grid().currentText(u"hy_sn");
    Form *form = context().stage.openForm(QStringLiteral("TF_Hyxf"), {});
    if (form == nullptr)
        return;
    connect(form, &QDialog::finished, this, &ListForm::refresh, Qt::UniqueConnection);
    auto *recharge = qobject_cast<TF_Hyxf *>(form);
    if (recharge != nullptr && !member.isEmpty() && member != noMember)
        recharge->setMember(member);
}

void TF_Hygl::btnXfjlClick() {
    withMember([this](const Member &member) { TF_Hygl_Xfjl(context(), member, this).runModal(); });
}

/// Those that are ticked; without any, all that the list shows.
void TF_Hygl::btnSmsClick() {
    QStringList members = m_ticks->keys();
    if (members.isEmpty())
        for (int line = 0; line < grid().model().rowCount(); ++line)
            members << grid().model().at(line).text(u"hy_sn");
    members.removeAll(noMember);
    auto *sms = qobject_cast<TF_Sms *>(context().stage.openForm(QStringLiteral("TF_Sms"), {}));
    if (sms != nullptr && !members.isEmpty())
        sms->setMembers(members);
}

void TF_Hygl::btnLostClick() {
    withMember([this](const Member &member) {
        const QString question = member.lost
                                     ? QStringLiteral("您的操作将解挂会员卡：%1，%2，确认吗？")
                                     : QStringLiteral("您的操作将挂失会员卡：%1，%2，确认吗？");
        if (!prompter().confirm(question.arg(member.number, member.name), confirmCaption))
            return;
        if (show(setMemberLost(session(), prompter(), member.key, !member.lost)))
            refresh();
    });
}

} // namespace jxc

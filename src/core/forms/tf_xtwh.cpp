#include "core/forms/tf_xtwh.h"

#include "core/prompter.h"
#include "core/rights.h"
#include "core/session.h"
#include "ui/icons.h"

#include <QGridLayout>
#include <QPushButton>

namespace jxc {

namespace {

MaintenanceService forAdministrator(QStringView caption, QStringView icon, QStringView formClass) {
    return {caption.toString(), icon.toString(), formClass.toString(), {}, 0, {}, true};
}

MaintenanceService guarded(QStringView caption, QStringView icon, QStringView formClass,
                           QStringView group, int right, QStringView refusal) {
    return {caption.toString(),
            icon.toString(),
            formClass.toString(),
            group.toString(),
            right,
            refusal.toString(),
            false};
}

} // namespace

const std::vector<MaintenanceService> &maintenanceServices() {
    static const std::vector<MaintenanceService> services = {
        forAdministrator(u"设置向导", u"guide", u"TF_Guide"),
        forAdministrator(u"数据清理", u"broom", u"TF_Sjql"),
        forAdministrator(u"年终结转", u"year-end", u"TF_Nzjs"),
        forAdministrator(u"分店管理", u"branches", u"TF_Fdsz"),
        guarded(u"备份恢复", u"backup", u"TF_Backup", u"qtcz", 13, u"备份/恢复数据库！"),
        guarded(u"查看日志", u"log", u"TF_ViewLog", u"qtcz", 14, u"查看日志！"),
        guarded(u"报表设计", u"summary", u"TF_Bbsj", u"qtcz", 18, u"报表设计！"),
        guarded(u"帐套管理", u"database", u"TF_Ztgl", u"qtcz", 19, u"帐套管理！"),
        guarded(u"POS功能键", u"keyboard", u"TF_Gnb", u"qtcz", 12, u"POS功能键！"),
        guarded(u"提醒设置", u"bell", u"TF_Sjtx", u"", 0, u""),
        guarded(u"数据核对", u"verify", u"TF_Kchd", u"kcgl", 17, u"数据核对！")};
    return services;
}

TF_Xtwh::TF_Xtwh(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Xtwh"), QStringLiteral("系统维护"), parent) {
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(24, 24, 24, 24);
    grid->setSpacing(12);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    int index = 0;
    for (const MaintenanceService &service : maintenanceServices()) {
        grid->addWidget(makeButton(service), index / 3, index % 3);
        ++index;
    }
}

QPushButton *TF_Xtwh::makeButton(const MaintenanceService &service) {
    auto *button =
        new QPushButton(themedIcon(service.icon), QStringLiteral("  ") + service.caption);
    button->setObjectName(service.formClass);
    button->setIconSize(QSize(24, 24));
    button->setAutoDefault(false);
    button->setStyleSheet(QStringLiteral("text-align: left; min-width: 136px; min-height: 48px;"));
    if (!context().stage.isKnown(service.formClass)) {
        button->setEnabled(false);
        button->setToolTip(QStringLiteral("尚未提供"));
    }
    connect(button, &QPushButton::clicked, this, [this, &service] { click(service); });
    return button;
}

void TF_Xtwh::click(const MaintenanceService &service) {
    if (service.isAdministrators && session().currentRoleNo != administratorNo)
        prompter().inform(QStringLiteral("只有系统管理员才能进行此操作！"), informCaption);
    else if (service.right > 0 && !hasRight(session(), service.rightGroup, service.right))
        showNoRightMessage(prompter(), service.refusal);
    else
        context().stage.openForm(service.formClass, {});
}

} // namespace jxc

#include "retail/forms/tf_posprinset.h"

#include "core/action.h"
#include "core/session.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPrinterInfo>
#include <QPushButton>
#include <QShortcut>
#include <QSpinBox>

namespace jxc {

TF_PosPrinSet::TF_PosPrinSet(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_PosPrinSet"), QStringLiteral("打印设置"), parent) {
    setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    build();
}

QLineEdit *TF_PosPrinSet::addText(QFormLayout *form, const QString &caption, const QString &name) {
    auto *field = new QLineEdit(this);
    field->setObjectName(name);
    field->setMaxLength(64);
    form->addRow(caption, field);
    return field;
}

QCheckBox *TF_PosPrinSet::addSwitch(QBoxLayout *column, const QString &caption,
                                    const QString &name) {
    auto *box = new QCheckBox(caption, this);
    box->setObjectName(name);
    column->addWidget(box);
    return box;
}

void TF_PosPrinSet::build() {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 16);
    column->setSpacing(12);
    auto *form = new QFormLayout;
    form->setSpacing(8);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    const auto choice = [&](const QString &caption, const QString &name, const QStringList &items) {
        auto *box = new QComboBox(this);
        box->setObjectName(name);
        box->addItems(items);
        form->addRow(caption, box);
        return box;
    };
    m_way = choice(QStringLiteral("打印方式："), QStringLiteral("pp_dyfs"),
                   {QStringLiteral("普通打印机"), QStringLiteral("小票打印机（ESC/POS）")});
    m_printer = choice(QStringLiteral("选择打印机："), QStringLiteral("pp_dyj"), {});
    m_width = choice(QStringLiteral("纸张宽度："), QStringLiteral("pp_kd"),
                     {QStringLiteral("58mm"), QStringLiteral("80mm")});
    m_title1 = addText(form, QStringLiteral("销售单标题1："), QStringLiteral("pp_bt1"));
    m_title2 = addText(form, QStringLiteral("销售单标题2："), QStringLiteral("pp_bt2"));
    m_foot1 = addText(form, QStringLiteral("销售单脚注1："), QStringLiteral("pp_jz1"));
    m_foot2 = addText(form, QStringLiteral("销售单脚注2："), QStringLiteral("pp_jz2"));
    const auto number = [&](const QString &caption, const QString &name, int least, int most) {
        auto *box = new QSpinBox(this);
        box->setObjectName(name);
        box->setRange(least, most);
        form->addRow(caption, box);
        return box;
    };
    m_lines = number(QStringLiteral("小票空行数："), QStringLiteral("pp_khs"), 0, 20);
    m_copies = number(QStringLiteral("默认打印小票份数："), QStringLiteral("pp_fs"), 1, 9);
    column->addLayout(form);
    m_after = addSwitch(column, QStringLiteral("结账后打印销售单"), QStringLiteral("pp_bzxx"));
    m_preview = addSwitch(column, QStringLiteral("小票打印之前先预览"), QStringLiteral("pp_zjdy"));
    m_cuts =
        addSwitch(column, QStringLiteral("POS小票打印完毕后自动切纸"), QStringLiteral("pp_zdqz"));
    m_drawer = addSwitch(column, QStringLiteral("自动打开钱箱"), QStringLiteral("pp_dkqx"));
    m_member =
        addSwitch(column, QStringLiteral("打印会员消费、积分信息"), QStringLiteral("pp_xfjf"));
    m_capitals = addSwitch(column, QStringLiteral("打印消费金额大写"), QStringLiteral("pp_jedx"));
    m_tenders = addSwitch(column, QStringLiteral("打印付款方式信息"), QStringLiteral("pp_fkfs"));
    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    auto *ok = new QPushButton(QStringLiteral("确定 F5"), this);
    auto *leave = new QPushButton(QStringLiteral("取消 Esc"), this);
    for (QPushButton *button : {ok, leave}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    column->addLayout(buttons);
    connect(ok, &QPushButton::clicked, this, &TF_PosPrinSet::btnOKClick);
    connect(leave, &QPushButton::clicked, this, &TF_PosPrinSet::reject);
    connect(new QShortcut(Qt::Key_F5, this), &QShortcut::activated, this,
            &TF_PosPrinSet::btnOKClick);
    setMinimumWidth(480);
}

void TF_PosPrinSet::FormActivate() {
    const PrintSettings s = PrintSettings::load(db());
    m_way->setCurrentIndex(s.usesEscPos ? 1 : 0);
    m_printer->clear();
    m_printer->addItems(QPrinterInfo::availablePrinterNames());
    // A printer that is off today keeps its place.
    while (m_printer->count() <= s.printer)
        m_printer->addItem(QStringLiteral("（没有打印机%1）").arg(m_printer->count() + 1));
    m_printer->setCurrentIndex(std::max(0, s.printer));
    m_width->setCurrentIndex(s.isWide ? 1 : 0);
    m_title1->setText(s.title1);
    m_title2->setText(s.title2);
    m_foot1->setText(s.foot1);
    m_foot2->setText(s.foot2);
    m_lines->setValue(s.emptyLines);
    m_copies->setValue(s.copies);
    m_after->setChecked(s.printsAfterPaying);
    m_preview->setChecked(s.previews);
    m_cuts->setChecked(s.cuts);
    m_drawer->setChecked(s.opensDrawer);
    m_member->setChecked(s.printsMember);
    m_capitals->setChecked(s.printsCapitals);
    m_tenders->setChecked(s.printsTenders);
    m_stored = typed();
    m_way->setFocus();
}

PrintSettings TF_PosPrinSet::typed() const {
    PrintSettings s;
    s.usesEscPos = m_way->currentIndex() == 1;
    s.printer = std::max(0, m_printer->currentIndex());
    s.isWide = m_width->currentIndex() == 1;
    s.title1 = m_title1->text().trimmed();
    s.title2 = m_title2->text().trimmed();
    s.foot1 = m_foot1->text().trimmed();
    s.foot2 = m_foot2->text().trimmed();
    s.emptyLines = m_lines->value();
    s.copies = m_copies->value();
    s.printsAfterPaying = m_after->isChecked();
    s.previews = m_preview->isChecked();
    s.cuts = m_cuts->isChecked();
    s.opensDrawer = m_drawer->isChecked();
    s.printsMember = m_member->isChecked();
    s.printsCapitals = m_capitals->isChecked();
    s.printsTenders = m_tenders->isChecked();
    return s;
}

bool TF_PosPrinSet::mayLeave() {
    return typed() == m_stored ||
           prompter().confirm(QStringLiteral("打印设置已修改，不保存就退出吗？"), confirmCaption);
}

void TF_PosPrinSet::btnOKClick() {
    const PrintSettings settings = typed();
    if (show(runAction(db(), prompter(), [&](Answers &) { settings.store(db()); })))
        accept();
}

/// Enter goes from field to field.
void TF_PosPrinSet::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        focusNextChild();
    else
        Form::keyPressEvent(event);
}

} // namespace jxc

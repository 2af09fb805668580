#include "retail/forms/tf_gnb.h"

#include "core/session.h"
#include "retail/forms/key_field.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QSpinBox>

namespace jxc {

namespace {

template<class Field>
Field *named(const QString &name) {
    auto *field = new Field;
    field->setObjectName(name);
    return field;
}

QSpinBox *number(const QString &name, int least, int most) {
    auto *box = named<QSpinBox>(name);
    box->setRange(least, most);
    return box;
}

} // namespace

TF_Gnb::TF_Gnb(const FormContext &context, QWidget *parent)
    : PlainEditor(context, QStringLiteral("TF_Gnb"), QStringLiteral("POS功能键"), parent) {
    for (const CounterKey &key : CounterSettings::load(session()).keys) {
        auto *field = named<KeyField>(key.function);
        fields()->addRow(key.function, field);
        m_keys.emplace_back(key.function, field);
    }
    addBesideFields(makeDevices());
    setMinimumWidth(720);
}

QWidget *TF_Gnb::makeDevices() {
    m_opensDrawer = named<QCheckBox>(QStringLiteral("pos_dkqx"));
    m_opensDrawer->setText(QStringLiteral("结账后自动打开钱箱"));
    m_drawerPort = named<QComboBox>(QStringLiteral("pos_qxjk"));
    m_drawerPort->addItems({QStringLiteral("接在小票打印机上"), QStringLiteral("接在串口上")});
    m_display = named<QCheckBox>(QStringLiteral("pos_kxjk"));
    m_display->setText(QStringLiteral("有顾客显示屏（接在串口上）"));
    m_port = named<QLineEdit>(QStringLiteral("pos_com"));
    m_port->setMaxLength(8);
    m_port->setPlaceholderText(QStringLiteral("COM1 或 ttyS0"));
    m_scale = named<QComboBox>(QStringLiteral("pos_tmlx"));
    m_scale->addItems({QStringLiteral("重量或数量"), QStringLiteral("金额")});
    m_weight = named<QLineEdit>(QStringLiteral("pos_jzqz"));
    m_count = named<QLineEdit>(QStringLiteral("pos_jsqz"));
    for (QLineEdit *prefix : {m_weight, m_count})
        prefix->setMaxLength(2);
    m_amount = number(QStringLiteral("pos_jews"), 0, 4);
    m_price = number(QStringLiteral("pos_djws"), 0, 6);
    auto *devices = new QWidget(this);
    auto *form = new QFormLayout(devices);
    form->setContentsMargins(24, 0, 0, 0);
    form->setSpacing(8);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->addRow(QString(), m_opensDrawer);
    form->addRow(QStringLiteral("钱箱"), m_drawerPort);
    form->addRow(QString(), m_display);
    form->addRow(QStringLiteral("串口"), m_port);
    form->addRow(QStringLiteral("秤码内容"), m_scale);
    form->addRow(QStringLiteral("称重前缀"), m_weight);
    form->addRow(QStringLiteral("计数前缀"), m_count);
    form->addRow(QStringLiteral("金额小数"), m_amount);
    form->addRow(QStringLiteral("单价小数"), m_price);
    return devices;
}

void TF_Gnb::FormActivate() {
    for (const CounterKey &key : CounterSettings::load(session()).keys)
        for (const auto &[function, field] : m_keys)
            if (function == key.function)
                field->setVirtualKey(key.virtualKey);
    const CounterDevices d = CounterDevices::load(db());
    m_opensDrawer->setChecked(d.opensDrawer);
    m_drawerPort->setCurrentIndex(d.drawerOnPort ? 1 : 0);
    m_display->setChecked(d.customerDisplay);
    m_port->setText(d.port);
    m_scale->setCurrentIndex(d.scaleCarriesAmount ? 1 : 0);
    m_weight->setText(d.weightPrefix);
    m_count->setText(d.countPrefix);
    m_amount->setValue(d.amountDecimals);
    m_price->setValue(d.priceDecimals);
    PlainEditor::FormActivate();
}

CounterDevices TF_Gnb::devices() const {
    CounterDevices d;
    d.opensDrawer = m_opensDrawer->isChecked();
    d.drawerOnPort = m_drawerPort->currentIndex() == 1;
    d.customerDisplay = m_display->isChecked();
    d.port = m_port->text().trimmed();
    d.scaleCarriesAmount = m_scale->currentIndex() == 1;
    d.weightPrefix = m_weight->text().trimmed();
    d.countPrefix = m_count->text().trimmed();
    d.amountDecimals = m_amount->value();
    d.priceDecimals = m_price->value();
    return d;
}

QStringList TF_Gnb::content() const {
    QStringList all;
    for (const auto &[function, field] : m_keys)
        all << QString::number(field->virtualKey());
    const CounterDevices d = devices();
    all << d.port << d.weightPrefix << d.countPrefix;
    for (const int figure : {int{d.opensDrawer}, int{d.drawerOnPort}, int{d.customerDisplay},
                             int{d.scaleCarriesAmount}, d.amountDecimals, d.priceDecimals})
        all << QString::number(figure);
    return all;
}

bool TF_Gnb::save() {
    std::vector<CounterKey> keys;
    for (const auto &[function, field] : m_keys)
        keys.push_back({function, field->virtualKey()});
    return show(saveCounterDevices(session(), prompter(), devices(), keys));
}

} // namespace jxc

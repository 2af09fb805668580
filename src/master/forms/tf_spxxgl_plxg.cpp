#include "master/forms/tf_spxxgl_plxg.h"

#include "core/prompter.h"
#include "core/session.h"
#include "master/goods_bulk.h"
#include "ui/master_picks.h"
#include "ui/pick_field.h"

#include <QComboBox>
#include <QFormLayout>

namespace jxc {

namespace {

PickField *pickOf(const FormContext &context, const char16_t *column, QWidget *parent) {
    const MasterField *field = masterKind(u"jxc_goods").field(QString::fromUtf16(column));
    auto *pick = new PickField(masterPickSource(context, field->pick),
                               Formats(context.session.parameters), parent);
    pick->setClearable(true);
    pick->setPlaceholderText(QStringLiteral("不修改"));
    pick->setObjectName(field->column);
    return pick;
}

QComboBox *switchBox(const char16_t *name, QWidget *parent) {
    auto *box = new QComboBox(parent);
    box->setObjectName(QString::fromUtf16(name));
    box->addItems({QStringLiteral("不修改"), QStringLiteral("是"), QStringLiteral("否")});
    return box;
}

std::optional<bool> choiceOf(const QComboBox &box) {
    return box.currentIndex() == 0 ? std::nullopt : std::optional(box.currentIndex() == 1);
}

} // namespace

TF_Spxxgl_Plxg::TF_Spxxgl_Plxg(const FormContext &context, std::vector<qint64> goods,
                               QWidget *parent)
    : PlainEditor(context, QStringLiteral("TF_Spxxgl_Plxg"),
                  QStringLiteral("批量修改 %1 种商品").arg(goods.size()), parent)
    , m_goods(std::move(goods))
    , m_class(pickOf(context, u"gc_cid", this))
    , m_supplier(pickOf(context, u"ghs_sn", this))
    , m_restricted(switchBox(u"g_iscf", this))
    , m_disabled(switchBox(u"g_jy", this)) {
    fields()->addRow(QStringLiteral("商品类别"), m_class);
    fields()->addRow(QStringLiteral("供货商"), m_supplier);
    fields()->addRow(QStringLiteral("处方药"), m_restricted);
    fields()->addRow(QStringLiteral("禁用"), m_disabled);
    m_class->setFocus();
}

QStringList TF_Spxxgl_Plxg::content() const {
    return {m_class->code(), m_supplier->code(), m_restricted->currentText(),
            m_disabled->currentText()};
}

bool TF_Spxxgl_Plxg::save() {
    for (const auto &[pick, caption] : {std::pair(m_class, QStringLiteral("商品类别")),
                                        std::pair(m_supplier, QStringLiteral("供货商"))})
        if (pick->isTyped() && !pick->commitTyped()) {
            prompter().inform(caption + QStringLiteral("不存在！"), informCaption);
            pick->setFocus();
            return false;
        }
    BulkChange change;
    if (!m_class->code().isEmpty())
        change.classNumber = m_class->code().toLongLong();
    if (!m_supplier->code().isEmpty())
        change.supplier = m_supplier->code();
    change.restricted = choiceOf(*m_restricted);
    change.disabled = choiceOf(*m_disabled);
    return show(bulkEditGoods(session(), prompter(), m_goods, change));
}

} // namespace jxc

#include "master/forms/tf_spxxgl.h"

#include "master/forms/class_tree.h"
#include "master/forms/tf_spxxgl_add.h"
#include "master/forms/tf_spxxgl_plxg.h"
#include "master/goods_details.h"

#include <QCheckBox>

namespace jxc {

namespace {

constexpr int treeWidth = 224;

} // namespace

TF_Spxxgl::TF_Spxxgl(const FormContext &context, QWidget *parent)
    : MasterForm(context, masterKind(u"jxc_goods"), parent)
    , m_classes(new ClassTree(this)) {
    addRowActions();
    addAction(QStringLiteral("btnCopy"), QStringLiteral("复制增加"),
              QKeySequence(QStringLiteral("Ctrl+Ins")), [this] { btnCopyClick(); });
    addAction(QStringLiteral("btnBulk"), QStringLiteral("批量修改"),
              QKeySequence(QStringLiteral("Ctrl+M")), [this] { btnBulkClick(); });
    addLink(u"btnQcjz", QStringLiteral("期初建账"), {}, QStringLiteral("TF_Spqcjz"));
    addLink(u"btnTmdy", QStringLiteral("条码打印"), {}, QStringLiteral("TF_Tmdy"));
    addLink(u"btnSptj", QStringLiteral("调价"), {}, QStringLiteral("TF_Sptj"));
    m_inStock = addSwitch(u"chkInStock", QStringLiteral("有库存(&K)"));
    m_restricted = addSwitch(u"chkRestricted", QStringLiteral("处方药(&C)"));
    addListActions();
    setSide(m_classes, treeWidth);
    searchBox().setPlaceholderText(QStringLiteral("查找 F3：名称、简码、条码、成分"));
    searchBox().setToolTip(QStringLiteral("编号、名称、简码、条码、成分、厂商"));
    connect(m_classes, &ClassTree::chosen, this, &TF_Spxxgl::refresh);
}

QCheckBox *TF_Spxxgl::addSwitch(const char16_t *name, const QString &caption) {
    auto *box = new QCheckBox(caption, this);
    box->setObjectName(QString::fromUtf16(name));
    box->setFocusPolicy(Qt::NoFocus);
    MasterForm::addFilter(box);
    connect(box, &QCheckBox::toggled, this, &TF_Spxxgl::refresh);
    return box;
}

void TF_Spxxgl::FormActivate() {
    m_classes->load(); // and with it the list
    grid().setFocus();
}

std::vector<ListFilter> TF_Spxxgl::filters() const {
    std::vector<ListFilter> filters;
    if (const QString branch = m_classes->branch(); !branch.isEmpty())
        filters.push_back({QStringLiteral("gc_sn"), ListFilter::How::beginsWith, branch});
    if (m_inStock->isChecked())
        filters.push_back({QStringLiteral("g_kc"), ListFilter::How::notZero});
    if (m_restricted->isChecked())
        filters.push_back({QStringLiteral("g_iscf"), ListFilter::How::notZero});
    return filters;
}

void TF_Spxxgl::prepareNew(RecordEditor &editor) {
    if (auto *goods = qobject_cast<TF_Spxxgl_Add *>(&editor))
        goods->setClassNumber(m_classes->classNumber());
    editor.startNew();
}

/// The code may be given again, and another goods must not show this one's picture.
void TF_Spxxgl::deleted(const QString &code) {
    removeGoodsPicture(context().home, code);
}

void TF_Spxxgl::btnCopyClick() {
    const qint64 id = currentId();
    if (id == 0) {
        tellNoRow(prompter());
        return;
    }
    RecordEditor *editor = makeRecordEditor(context(), kind(), this);
    if (editor->startCopy(id))
        openEditor(editor);
    else
        delete editor;
}

void TF_Spxxgl::btnBulkClick() {
    std::vector<qint64> ids;
    for (const Row *row : grid().selected())
        ids.push_back(row->integer(u"id"));
    if (ids.empty()) {
        tellNoRow(prompter());
        return;
    }
    auto *editor = new TF_Spxxgl_Plxg(context(), ids, this);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &QDialog::accepted, this, &TF_Spxxgl::refresh);
    editor->showModal();
}

} // namespace jxc

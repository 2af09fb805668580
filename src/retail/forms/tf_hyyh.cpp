#include "retail/forms/tf_hyyh.h"

#include "master/master_kind.h"

namespace jxc {

TF_Hyyh::TF_Hyyh(const FormContext &context, QWidget *parent)
    : MasterForm(context, masterKind(u"jxc_hyyh"), parent) {
    addRowActions();
    addAction(QStringLiteral("btnGifts"), QStringLiteral("充值赠送"), Qt::Key_F6,
              [this] { this->context().stage.openForm(QStringLiteral("TF_Hyzs"), {}); });
    addListActions();
}

} // namespace jxc

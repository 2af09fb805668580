#pragma once

#include "ui/master_form.h"

namespace jxc {

/// 优惠方式: what members are offered, and the table of gifts behind one of them.
class TF_Hyyh : public MasterForm {
    Q_OBJECT
public:
    explicit TF_Hyyh(const FormContext &context, QWidget *parent = nullptr);
};

} // namespace jxc

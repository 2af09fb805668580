// Every form of the program, by its class name.
#include "app/form_registry.h"

#include "stock/forms/tf_cgjh.h"
#include "stock/forms/tf_cgrk.h"
#include "stock/forms/tf_cgth.h"
#include "stock/forms/tf_spck.h"
#include "stock/forms/tf_spxs.h"
#include "stock/forms/tf_xsth.h"

namespace jxc {

void registerForms(FormRegistry &registry) {
    registry.add<TF_Cgjh>(QStringLiteral("TF_Cgjh"));
    registry.add<TF_Cgth>(QStringLiteral("TF_Cgth"));
    registry.add<TF_Cgrk>(QStringLiteral("TF_Cgrk"));
    registry.add<TF_Spxs>(QStringLiteral("TF_Spxs"));
    registry.add<TF_Xsth>(QStringLiteral("TF_Xsth"));
    registry.add<TF_Spck>(QStringLiteral("TF_Spck"));
}

} // namespace jxc

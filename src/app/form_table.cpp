// Every form of the program, by its class name, and what opens a document.
#include "app/document_opener.h"
#include "app/form_registry.h"
#include "app/tf_rjbz.h"
#include "core/forms/tf_admin.h"
#include "core/forms/tf_bqjl.h"
#include "core/forms/tf_pwdmodi.h"
#include "core/forms/tf_role.h"
#include "core/forms/tf_skin.h"
#include "core/forms/tf_viewlog.h"
#include "core/forms/tf_xtwh.h"
#include "master/forms/tf_spxxgl.h"
#include "master/forms/tf_spxxgl_add.h"
#include "master/master_kind.h"
#include "retail/forms/tf_posprinset.h"
#include "retail/forms/tf_posxs.h"
#include "retail/forms/tf_posxs_lsz.h"
#include "services/forms/tf_backup.h"
#include "services/forms/tf_backup2.h"
#include "services/forms/tf_import.h"
#include "services/forms/tf_kchd.h"
#include "services/forms/tf_mryt.h"
#include "services/forms/tf_sjtx.h"
#include "services/forms/tf_xtcs.h"
#include "stock/forms/tf_cgjh.h"
#include "stock/forms/tf_cgrk.h"
#include "stock/forms/tf_cgth.h"
#include "stock/forms/tf_djcx.h"
#include "stock/forms/tf_jthcx.h"
#include "stock/forms/tf_kccx.h"
#include "stock/forms/tf_spck.h"
#include "stock/forms/tf_spxs.h"
#include "stock/forms/tf_xsdjcx.h"
#include "stock/forms/tf_xsth.h"
#include "ui/master_form.h"
#include "ui/small_list_form.h"

namespace jxc {

namespace {

/// The forms of master data follow from its description.
void registerMasterForms(FormRegistry &registry) {
    for (const MasterKind &kind : masterKinds())
        registry.add(kind.form, [&kind](const FormContext &context, QWidget *parent) -> Form * {
            if (kind.isSmallList)
                return new SmallListForm(context, kind, parent);
            return new PlainMasterForm(context, kind, parent);
        });
    for (const ImportTarget &target : importTargets()) {
        const QString name = masterKind(target.table).form + QStringLiteral("_Import");
        registry.add(name, [&target, name](const FormContext &context, QWidget *parent) -> Form * {
            return new TF_Import(context, target, name, parent);
        });
    }
}

} // namespace

void registerForms(FormRegistry &registry) {
    registry.setDocumentOpener([&registry](const QString &number) {
        openDocumentToRead(registry.context(), number, registry.owner());
    });
    registerMasterForms(registry);
    registry.add<TF_Spxxgl>(QStringLiteral("TF_Spxxgl"));
    registry.add<TF_Spxxgl_Add>(QStringLiteral("TF_Spxxgl_Add"));
    registry.add<TF_Cgjh>(QStringLiteral("TF_Cgjh"));
    registry.add<TF_Cgth>(QStringLiteral("TF_Cgth"));
    registry.add<TF_Cgrk>(QStringLiteral("TF_Cgrk"));
    registry.add<TF_Spxs>(QStringLiteral("TF_Spxs"));
    registry.add<TF_Xsth>(QStringLiteral("TF_Xsth"));
    registry.add<TF_Spck>(QStringLiteral("TF_Spck"));
    registry.add<TF_Kccx>(QStringLiteral("TF_Kccx"));
    registry.add<TF_Djcx>(QStringLiteral("TF_Djcx"));
    registry.add<TF_Jthcx>(QStringLiteral("TF_Jthcx"));
    registry.add<TF_Xsdjcx>(QStringLiteral("TF_Xsdjcx"));
    registry.add<TF_Posxs>(QStringLiteral("TF_Posxs"));
    registry.add<TF_Posxs_Lsz>(QStringLiteral("TF_Posxs_Lsz"));
    registry.add<TF_PosPrinSet>(QStringLiteral("TF_PosPrinSet"));
    registry.add<TF_Kchd>(QStringLiteral("TF_Kchd"));
    registry.add<TF_Admin>(QStringLiteral("TF_Admin"));
    registry.add<TF_Role>(QStringLiteral("TF_Role"));
    registry.add<TF_PwdModi>(QStringLiteral("TF_PwdModi"));
    registry.add<TF_ViewLog>(QStringLiteral("TF_ViewLog"));
    registry.add<TF_Skin>(QStringLiteral("TF_Skin"));
    registry.add<TF_Bqjl>(QStringLiteral("TF_Bqjl"));
    registry.add<TF_Rjbz>(QStringLiteral("TF_Rjbz"));
    registry.add<TF_Xtcs>(QStringLiteral("TF_Xtcs"));
    registry.add<TF_Xtwh>(QStringLiteral("TF_Xtwh"));
    registry.add<TF_Backup>(QStringLiteral("TF_Backup"));
    registry.add<TF_Backup2>(QStringLiteral("TF_Backup2"));
    registry.add<TF_Mryt>(QStringLiteral("TF_Mryt"));
    registry.add<TF_Sjtx>(QStringLiteral("TF_Sjtx"));
}

} // namespace jxc

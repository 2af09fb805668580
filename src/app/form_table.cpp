// Every form of the program, by its class name, and what opens a document.
#include "app/form_registry.h"

#include "app/document_opener.h"
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
#include "money/forms/tf_fpcg.h"
#include "money/forms/tf_fpxs.h"
#include "money/forms/tf_fyjsr.h"
#include "money/forms/tf_wlzwghs.h"
#include "money/forms/tf_wlzwkh.h"
#include "money/forms/tf_xjyh.h"
#include "money/forms/tf_yfkdj.h"
#include "money/forms/tf_yfkfk.h"
#include "money/forms/tf_yfkgl.h"
#include "money/forms/tf_yhzh.h"
#include "money/forms/tf_yskdj.h"
#include "money/forms/tf_yskgl.h"
#include "money/forms/tf_ysksk.h"
#include "retail/forms/tf_dhzp.h"
#include "retail/forms/tf_dhzp_add.h"
#include "retail/forms/tf_hygl.h"
#include "retail/forms/tf_hygl_add.h"
#include "retail/forms/tf_hyksz.h"
#include "retail/forms/tf_hyxf.h"
#include "retail/forms/tf_hyyh.h"
#include "retail/forms/tf_hyyh_add.h"
#include "retail/forms/tf_gnb.h"
#include "retail/forms/tf_posprinset.h"
#include "retail/forms/tf_posxs.h"
#include "retail/forms/tf_posxs_crk.h"
#include "retail/forms/tf_posxs_hy.h"
#include "retail/forms/tf_posxs_jb.h"
#include "retail/forms/tf_posxs_jbgl.h"
#include "retail/forms/tf_posxs_lsz.h"
#include "retail/forms/tf_posxs_ph.h"
#include "retail/forms/tf_posxs_rj.h"
#include "retail/forms/tf_posxs_sytj.h"
#include "retail/forms/tf_posxs_tj.h"
#include "retail/forms/tf_posxs_tjmx.h"
#include "retail/forms/tf_sms.h"
#include "retail/forms/tf_sms_cs.h"
#include "retail/forms/tf_wxfk.h"
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
    registry.add<TF_Posxs_Jb>(QStringLiteral("TF_Posxs_Jb"));
    registry.add<TF_Posxs_Jbgl>(QStringLiteral("TF_Posxs_Jbgl"));
    registry.add<TF_Posxs_Tj>(QStringLiteral("TF_Posxs_Tj"));
    registry.add<TF_Posxs_Tjmx>(QStringLiteral("TF_Posxs_Tjmx"));
    registry.add<TF_Posxs_Ph>(QStringLiteral("TF_Posxs_Ph"));
    registry.add<TF_Posxs_Hy>(QStringLiteral("TF_Posxs_Hy"));
    registry.add<TF_Posxs_Sytj>(QStringLiteral("TF_Posxs_Sytj"));
    registry.add<TF_Posxs_Crk>(QStringLiteral("TF_Posxs_Crk"));
    registry.add<TF_Posxs_Rj>(QStringLiteral("TF_Posxs_Rj"));
    registry.add<TF_Posxs_Lsz>(QStringLiteral("TF_Posxs_Lsz"));
    registry.add<TF_Gnb>(QStringLiteral("TF_Gnb"));
    registry.add<TF_PosPrinSet>(QStringLiteral("TF_PosPrinSet"));
    registry.add<TF_Kchd>(QStringLiteral("TF_Kchd"));
    registry.add<TF_Yskdj>(QStringLiteral("TF_Yskdj"));
    registry.add<TF_Ysksk>(QStringLiteral("TF_Ysksk"));
    registry.add<TF_Yskgl>(QStringLiteral("TF_Yskgl"));
    registry.add<TF_Yfkdj>(QStringLiteral("TF_Yfkdj"));
    registry.add<TF_Yfkfk>(QStringLiteral("TF_Yfkfk"));
    registry.add<TF_Yfkgl>(QStringLiteral("TF_Yfkgl"));
    registry.add<TF_Fpcg>(QStringLiteral("TF_Fpcg"));
    registry.add<TF_Fpxs>(QStringLiteral("TF_Fpxs"));
    registry.add<TF_Fyjsr>(QStringLiteral("TF_Fyjsr"));
    registry.add<TF_Xjyh>(QStringLiteral("TF_Xjyh"));
    registry.add<TF_Yhzh>(QStringLiteral("TF_Yhzh"));
    registry.add<TF_WlzwGhs>(QStringLiteral("TF_WlzwGhs"));
    registry.add<TF_WlzwKh>(QStringLiteral("TF_WlzwKh"));
    registry.add<TF_Hygl>(QStringLiteral("TF_Hygl"));
    registry.add<TF_Hygl_Add>(QStringLiteral("TF_Hygl_Add"));
    registry.add<TF_Hyxf>(QStringLiteral("TF_Hyxf"));
    registry.add<TF_Hyyh>(QStringLiteral("TF_Hyyh"));
    registry.add<TF_Hyyh_Add>(QStringLiteral("TF_Hyyh_Add"));
    registry.add<TF_Hyksz>(QStringLiteral("TF_Hyksz"));
    registry.add<TF_Dhzp>(QStringLiteral("TF_Dhzp"));
    registry.add<TF_Dhzp_Add>(QStringLiteral("TF_Dhzp_Add"));
    registry.add<TF_Sms>(QStringLiteral("TF_Sms"));
    registry.add<TF_Sms_Cs>(QStringLiteral("TF_Sms_Cs"));
    registry.add<TF_Wxfk>(QStringLiteral("TF_Wxfk"));
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

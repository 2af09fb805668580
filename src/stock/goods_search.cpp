#include "stock/goods_search.h"

#include "base/sanitize.h"
#include "db/like.h"
#include "db/where.h"

namespace jxc {

void addGoodsSearch(Where &where, const QString &text) {
    const QString typed = sanitizeSqlTextLight(text.trimmed());
    if (typed.isEmpty())
        return;
    QStringList either;
    Values values;
    for (const char16_t *column :
         {u"a.g_sn", u"a.g_name", u"a.g_tym", u"a.g_sccs", u"a.color_name"}) {
        either << contains(QString::fromUtf16(column));
        values.emplace_back(containsPattern(typed));
    }
    either << contains(QStringLiteral("a.g_jm"));
    values.emplace_back(containsPattern(typed).mid(1)); // from its beginning
    for (const char16_t *barcode :
         {u"a.g_sptm=?",
          u"exists (select id from jxc_goodstm t where t.g_sn=a.g_sn and t.g_sptm=?)",
          u"exists (select id from jxc_goodsdw t where t.g_sn=a.g_sn and t.g_sptm=?)"}) {
        either << QString::fromUtf16(barcode);
        values.emplace_back(typed);
    }
    where.add(u'(' + either.join(QStringLiteral(" or ")) + u')', values);
}

void addClassBranch(Where &where, const QString &classCode) {
    if (!classCode.isEmpty())
        where.add(QStringLiteral("substr(a.gc_sn,1,%1)=?").arg(classCode.size()), {classCode});
}

} // namespace jxc

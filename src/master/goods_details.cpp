#include "master/goods_details.h"

#include "db/database.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace jxc {

namespace {

const QString warehouseName =
    QStringLiteral("(select max(c.ck_name) from jxc_ckxx c where c.ck_sn=s.ck_sn) as ck_name");

/// A typed code may hold signs that part folders.
QString pictureBase(const QString &home, const QString &goods) {
    QString name = goods;
    for (const QChar sign : {u'/', u'\\', u':', u'*', u'<', u'>', u'|'})
        name.replace(sign, u'_');
    return QDir(home).filePath(QStringLiteral("data/picture/") + name);
}

QStringList endings() {
    return {QStringLiteral(".png"), QStringLiteral(".jpg")};
}

} // namespace

Rows goodsBatches(Database &db, const QString &goods) {
    return db.rows(QStringLiteral("select %1,s.t_ph,s.t_scrq,s.t_yxq,s.t_sl from jxc_tkc s where "
                                  "s.g_sn=? and s.t_sl<>0 order by case when "
                                  "coalesce(s.t_yxq,'') in ('','0000-00') then 1 else 0 end,"
                                  "s.t_yxq,s.t_scrq,s.t_ph,s.id")
                       .arg(warehouseName),
                   {goods});
}

Rows goodsStock(Database &db, const QString &goods) {
    return db.rows(QStringLiteral("select %1,s.kc_sl,s.kc_zsl,s.kc_cbj from jxc_kcsp s where "
                                  "s.g_sn=? order by s.ck_sn,s.id")
                       .arg(warehouseName),
                   {goods});
}

QString goodsPicture(const QString &home, const QString &goods) {
    for (const QString &ending : endings())
        if (const QString file = pictureBase(home, goods) + ending; QFile::exists(file))
            return file;
    return {};
}

QString storeGoodsPicture(const QString &home, const QString &goods, const QString &file) {
    QString ending = u'.' + QFileInfo(file).suffix().toLower();
    if (ending == QLatin1String(".jpeg"))
        ending = QStringLiteral(".jpg");
    if (!endings().contains(ending))
        return QStringLiteral("图片格式不正确！");
    const QString target = pictureBase(home, goods) + ending;
    const QString arriving = target + QStringLiteral(".new");
    QDir().mkpath(QFileInfo(target).path());
    QFile::remove(arriving);
    QFile source(file);
    if (!source.copy(arriving))
        return QStringLiteral("图片保存失败：") + source.errorString();
    // The old picture goes only when the new one is there whole.
    removeGoodsPicture(home, goods);
    if (!QFile::rename(arriving, target))
        return QStringLiteral("图片保存失败：") + target;
    return {};
}

void removeGoodsPicture(const QString &home, const QString &goods) {
    for (const QString &ending : endings())
        QFile::remove(pictureBase(home, goods) + ending);
}

} // namespace jxc

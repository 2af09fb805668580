#include "master/goods_class.h"

#include "base/pinyin.h"
#include "base/sanitize.h"
#include "core/operation_log.h"
#include "core/session.h"
#include "db/fitted.h"
#include "master/record.h"

#include <algorithm>

namespace jxc {

namespace {

const QString classTable = QStringLiteral("jxc_goodsclass");
constexpr int levelDigits = 4;
constexpr int longestCode = 16;
constexpr int firstSerial = 1000;
constexpr int lastSerial = 9999;

GoodsClass fromRow(const Row &row) {
    return {row.integer(u"id"),     row.integer(u"gc_key"), row.integer(u"gc_pid"),
            row.integer(u"gc_cid"), row.text(u"gc_sn"),     row.text(u"gc_name"),
            row.text(u"gc_jm")};
}

/// The classes while an action works on them.
class ClassTree {
public:
    explicit ClassTree(const Session &session)
        : m_classes(loadGoodsClasses(session)) {}

    [[nodiscard]] const GoodsClass &byId(qint64 id) const {
        return find([&](const GoodsClass &c) { return c.id == id; });
    }
    [[nodiscard]] const GoodsClass &byKey(qint64 key) const {
        return find([&](const GoodsClass &c) { return c.key == key; });
    }
    [[nodiscard]] const std::vector<GoodsClass> &all() const { return m_classes; }

    [[nodiscard]] QString checkedName(const QString &typed, qint64 parentKey, qint64 ownId) const {
        QString name = sanitizeSqlText(typed.trimmed());
        if (name.isEmpty())
            throw FieldRefusal(QStringLiteral("gc_name"), QStringLiteral("商品类别必须填写！"));
        refuseRepeated(name, parentKey, ownId);
        return name;
    }

    void refuseRepeated(const QString &name, qint64 parentKey, qint64 ownId) const {
        for (const GoodsClass &c : m_classes)
            if (c.parentKey == parentKey && c.name == name && c.id != ownId)
                throw FieldRefusal(QStringLiteral("gc_name"), QStringLiteral("商品类别不能重复！"));
    }

    /// The next code below a class.
    [[nodiscard]] QString nextCode(const GoodsClass &parent) const {
        if (parent.code.size() + levelDigits > longestCode)
            throw Refusal(QStringLiteral("商品类别最多%1级！").arg(longestCode / levelDigits));
        int serial = firstSerial - 1;
        for (const GoodsClass &c : m_classes)
            if (c.parentKey == parent.key && c.code.size() == parent.code.size() + levelDigits)
                serial = std::max(serial, c.code.right(levelDigits).toInt());
        if (serial >= lastSerial)
            throw Refusal(QStringLiteral("该类别下的子类别已满！"));
        return parent.code + QString::number(serial + 1);
    }

    [[nodiscard]] qint64 nextNumber() const {
        qint64 greatest = 0;
        for (const GoodsClass &c : m_classes)
            greatest = std::max({greatest, c.key, c.number});
        return greatest + 1;
    }

    /// The class and all below it, by key.
    [[nodiscard]] std::vector<GoodsClass> branch(const GoodsClass &top) const {
        std::vector<GoodsClass> found{top};
        for (size_t i = 0; i < found.size(); ++i)
            for (const GoodsClass &c : m_classes)
                if (c.parentKey == found[i].key && c.id != found[i].id)
                    found.push_back(c);
        return found;
    }

private:
    template<typename Matches>
    [[nodiscard]] const GoodsClass &find(Matches matches) const {
        const auto found = std::find_if(m_classes.begin(), m_classes.end(), matches);
        if (found == m_classes.end())
            throw recordChangedMeanwhile();
        return *found;
    }

    std::vector<GoodsClass> m_classes;
};

void logClass(Session &session, const QString &verb, const QString &code, const QString &name) {
    writeLog(session, QStringLiteral("%1商品类别：%2，%3").arg(verb, code, name));
}

Assignments nameColumns(const QString &name) {
    return {{QStringLiteral("gc_name"), name},
            {QStringLiteral("gc_jm"), fitted(classTable, u"gc_jm", pinyinInitials(name))}};
}

void refuseDefault(const GoodsClass &goodsClass) {
    if (goodsClass.isRoot() || goodsClass.number == defaultClassNumber)
        throw Refusal(QStringLiteral("系统默认数据，不能删除！"));
}

/// The new codes of a branch whose top gets `code`. Lower classes keep their own four digits.
void recode(Database &db, const std::vector<GoodsClass> &branch, const QString &code) {
    const qsizetype before = branch.front().code.size();
    std::vector<Values> classes;
    for (const GoodsClass &c : branch) {
        const QString newCode = code + c.code.mid(before);
        if (newCode.size() > longestCode)
            throw Refusal(QStringLiteral("商品类别最多%1级！").arg(longestCode / levelDigits));
        classes.push_back({c.id, newCode});
        db.execute(QStringLiteral("update jxc_goods set gc_sn=? where gc_cid=?"),
                   {newCode, c.number});
    }
    db.updateById(classTable, {QStringLiteral("gc_sn")}, classes);
}

} // namespace

std::vector<GoodsClass> loadGoodsClasses(const Session &session) {
    std::vector<GoodsClass> classes;
    for (const Row &row : session.db().rows(
             QStringLiteral("select id,gc_key,gc_pid,gc_cid,gc_sn,gc_name,gc_jm from "
                            "jxc_goodsclass order by length(coalesce(gc_sn,'')),gc_sn,id")))
        classes.push_back(fromRow(row));
    return classes;
}

Outcome addGoodsClass(Session &session, Prompter &prompter, qint64 parentKey, const QString &name,
                      qint64 *added) {
    return runAction(session.db(), prompter, [&](Answers &) {
        const ClassTree tree(session);
        const GoodsClass &parent = tree.byKey(parentKey);
        const QString stored = tree.checkedName(name, parentKey, 0);
        const QString code = tree.nextCode(parent);
        const qint64 number = tree.nextNumber();
        Assignments row = nameColumns(stored);
        row.insert(row.end(), {{QStringLiteral("gc_sn"), code},
                               {QStringLiteral("gc_key"), number},
                               {QStringLiteral("gc_cid"), number},
                               {QStringLiteral("gc_pid"), parentKey}});
        const qint64 id = session.db().insertRow(classTable, row);
        if (added != nullptr)
            *added = id;
        logClass(session, QStringLiteral("增加"), code, stored);
    });
}

Outcome renameGoodsClass(Session &session, Prompter &prompter, qint64 id, const QString &name) {
    return runAction(session.db(), prompter, [&](Answers &) {
        const ClassTree tree(session);
        const GoodsClass &renamed = tree.byId(id);
        const QString stored = tree.checkedName(name, renamed.parentKey, id);
        session.db().updateRows(classTable, nameColumns(stored), QStringLiteral("id=?"), {id});
        logClass(session, QStringLiteral("修改"), renamed.code, stored);
    });
}

Outcome moveGoodsClass(Session &session, Prompter &prompter, qint64 id, qint64 newParentKey) {
    return runAction(session.db(), prompter, [&](Answers &) {
        const ClassTree tree(session);
        const GoodsClass &moved = tree.byId(id);
        const GoodsClass &parent = tree.byKey(newParentKey);
        if (moved.isRoot())
            throw Refusal(QStringLiteral("系统默认数据，不能移动！"));
        if (moved.parentKey == newParentKey)
            return;
        const std::vector<GoodsClass> branch = tree.branch(moved);
        if (std::any_of(branch.begin(), branch.end(),
                        [&](const GoodsClass &c) { return c.id == parent.id; }))
            throw Refusal(QStringLiteral("不能移动到自己的子类别！"));
        tree.refuseRepeated(moved.name, newParentKey, id);
        const QString code = tree.nextCode(parent);
        recode(session.db(), branch, code);
        session.db().updateRows(classTable, {{QStringLiteral("gc_pid"), newParentKey}},
                                QStringLiteral("id=?"), {id});
        logClass(session, QStringLiteral("修改"), code, moved.name);
    });
}

Outcome deleteGoodsClass(Session &session, Prompter &prompter, qint64 id) {
    return runAction(session.db(), prompter, [&](Answers &answers) {
        const ClassTree tree(session);
        const GoodsClass &gone = tree.byId(id);
        refuseDefault(gone);
        if (tree.branch(gone).size() > 1)
            throw Refusal(QStringLiteral("该类别下还有子类别，不能删除！"));
        if (session.db().exists(QStringLiteral("select id from jxc_goods where gc_cid=? limit 1"),
                                {gone.number}))
            throw Refusal(QStringLiteral("该类别下还有商品，不能删除！"));
        answers.require(QStringLiteral("您的操作将删除商品类别：%1，确认吗？").arg(gone.name));
        session.db().execute(QStringLiteral("delete from jxc_goodsclass where id=?"), {id});
        logClass(session, QStringLiteral("删除"), gone.code, gone.name);
    });
}

} // namespace jxc

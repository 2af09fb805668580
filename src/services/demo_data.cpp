#include "services/demo_data.h"

#include "base/pinyin.h"
#include "core/session.h"
#include "db/database.h"
#include "db/fitted.h"
#include "db/schema.h"

#include <QFile>
#include <QSet>

static void initialiseDemoResource() {
    Q_INIT_RESOURCE(demo);
}

namespace jxc {

namespace {

using Record = QHash<QString, QString>;

/// A table of the demo: a heading of column names, then a record a line, all parted by tabs.
std::vector<Record> readTable(const QString &name) {
    QFile file(QStringLiteral(":/demo/%1.tsv").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        throw std::logic_error("the demo's lists are missing");
    std::vector<Record> records;
    QStringList heading;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        if (line.startsWith(u'#'))
            continue;
        const QStringList fields = line.split(u'\t');
        if (heading.isEmpty()) {
            heading = fields;
            continue;
        }
        Record record;
        for (qsizetype i = 0; i < heading.size(); ++i)
            record[heading[i]] = fields.value(i);
        records.push_back(std::move(record));
    }
    return records;
}

/// A row with every column of its table: what the record does not name is 0 or empty, never null.
Values completeRow(const Table &table, const Record &record) {
    Values values;
    for (const Column &column : table.columns) {
        const QString text = record.value(column.name);
        if (column.isText())
            values.emplace_back(fitted(table.name, column.name, text));
        else if (column.type == ColumnType::Numeric)
            values.emplace_back(Decimal::fromText(text));
        else
            values.emplace_back(text.toLongLong());
    }
    return values;
}

void insertRecords(Database &db, const QString &tableName, const std::vector<Record> &records) {
    const Table &description = table(tableName);
    QStringList columns;
    for (const Column &column : description.columns)
        columns << column.name;
    std::vector<Values> rows;
    rows.reserve(records.size());
    for (const Record &record : records)
        rows.push_back(completeRow(description, record));
    db.insertRows(tableName, columns, rows);
}

class DemoLoader {
public:
    explicit DemoLoader(Session &session)
        : m_db(session.db()) {}

    void run(int wantedGoods) {
        loadClasses();
        loadGoods(wantedGoods);
        loadUnits();
        loadPartners(QStringLiteral("suppliers"), QStringLiteral("jxc_ghsxx"),
                     QStringLiteral("ghs"));
        loadPartners(QStringLiteral("customers"), QStringLiteral("jxc_khxx"), QStringLiteral("kh"));
        loadWarehouses();
        loadEmployees();
        loadMembers();
    }

private:
    void loadClasses() {
        QHash<QString, qint64> keys{{QString(), 1}}; // by class code; the root is 1
        qint64 key =
            m_db.scalar(QStringLiteral("select max(gc_key) from jxc_goodsclass")).toLongLong();
        std::vector<Record> records;
        for (Record record : readTable(QStringLiteral("classes"))) {
            keys[record[QStringLiteral("gc_sn")]] = ++key;
            record[QStringLiteral("gc_key")] = QString::number(key);
            record[QStringLiteral("gc_cid")] = QString::number(key);
            record[QStringLiteral("gc_pid")] =
                QString::number(keys.value(record[QStringLiteral("gc_psn")], 1));
            record[QStringLiteral("gc_jm")] = pinyinInitials(record[QStringLiteral("gc_name")]);
            m_classNumbers[record[QStringLiteral("gc_sn")]] = record[QStringLiteral("gc_cid")];
            records.push_back(record);
        }
        insertRecords(m_db, QStringLiteral("jxc_goodsclass"), records);
    }

    void loadGoods(int wanted) {
        const std::vector<Record> listed = readTable(QStringLiteral("goods"));
        const size_t count = wanted > 0 ? static_cast<size_t>(wanted) : listed.size();
        std::vector<Record> records;
        for (size_t i = 0; i < count; ++i)
            records.push_back(goodsRecord(listed, i));
        insertRecords(m_db, QStringLiteral("jxc_goods"), records);
        QStringList units;
        QStringList specifications;
        for (const Record &record : records) {
            units << record[QStringLiteral("dw_name")];
            specifications << record[QStringLiteral("gg_name")];
        }
        addNames(QStringLiteral("jxc_dw"), QStringLiteral("dw"), units);
        addNames(QStringLiteral("jxc_ggxh"), QStringLiteral("gg"), specifications);
    }

    /// Beyond the list the goods come again in further pack sizes, under codes and names of their
    /// own.
    Record goodsRecord(const std::vector<Record> &listed, size_t index) {
        Record r = listed[index % listed.size()];
        if (const size_t round = index / listed.size(); round > 0) {
            r[QStringLiteral("g_sn")] = QString::number(20'000'000 + static_cast<qint64>(index));
            r[QStringLiteral("g_name")] += QStringLiteral("（规格%1）").arg(round + 1);
            r[QStringLiteral("g_sptm")].clear();
        } else {
            m_goods.insert(r[QStringLiteral("g_sn")]);
        }
        r[QStringLiteral("g_jm")] = pinyinInitials(r[QStringLiteral("g_name")]);
        r[QStringLiteral("gg_jm")] = pinyinInitials(r[QStringLiteral("gg_name")]);
        r[QStringLiteral("gc_cid")] =
            m_classNumbers.value(r[QStringLiteral("gc_sn")], QStringLiteral("2"));
        r[QStringLiteral("ghs_sn")] = administratorNo; // the walk-in supplier bears that number too
        r[QStringLiteral("g_dzll")] = QStringLiteral("1");
        r[QStringLiteral("g_yhlx")] = QStringLiteral("不养护");
        r[QStringLiteral("gsp_name")] = QStringLiteral("无");
        r[QStringLiteral("g_qxlx")] = QStringLiteral("无");
        return r;
    }

    void addNames(const QString &tableName, const QString &prefix, const QStringList &names) {
        QSet<QString> known;
        qint64 number = 100'001;
        for (const Row &row :
             m_db.rows(QStringLiteral("select %1_sn,%1_name from %2").arg(prefix, tableName))) {
            known.insert(row.text(size_t{1}));
            number = std::max(number, row.integer(size_t{0}));
        }
        std::vector<Record> records;
        for (const QString &name : names) {
            if (name.isEmpty() || known.contains(name))
                continue;
            known.insert(name);
            records.push_back({{prefix + QStringLiteral("_sn"), QString::number(++number)},
                               {prefix + QStringLiteral("_name"), name}});
        }
        insertRecords(m_db, tableName, records);
    }

    void loadUnits() {
        std::vector<Record> records;
        for (const Record &record : readTable(QStringLiteral("units")))
            if (m_goods.contains(record[QStringLiteral("g_sn")]))
                records.push_back(record);
        insertRecords(m_db, QStringLiteral("jxc_goodsdw"), records);
    }

    void loadPartners(const QString &list, const QString &tableName, const QString &prefix) {
        std::vector<Record> records;
        for (Record record : readTable(list)) {
            record[prefix + QStringLiteral("_jm")] =
                pinyinInitials(record[prefix + QStringLiteral("_name")]);
            record[QStringLiteral("ck_sn")] = QStringLiteral("-1");
            record[QStringLiteral("ck_name")] = QStringLiteral("所有仓库");
            record[QStringLiteral("kh_uname")] = QStringLiteral("默认员工,");
            record[QStringLiteral("kh_usn")] = QStringLiteral("100001,");
            records.push_back(record);
        }
        insertRecords(m_db, tableName, records);
    }

    void loadWarehouses() {
        std::vector<Record> records;
        for (Record record : readTable(QStringLiteral("warehouses"))) {
            record[QStringLiteral("ck_jm")] = pinyinInitials(record[QStringLiteral("ck_name")]);
            record[QStringLiteral("ck_aname")] = QStringLiteral("admin,");
            record[QStringLiteral("ck_asn")] = QStringLiteral("100001,");
            records.push_back(record);
        }
        insertRecords(m_db, QStringLiteral("jxc_ckxx"), records);
    }

    /// Levels with a discount, points for every ten yuan, gifts for a large recharge and for
    /// points.
    void loadMembers() {
        std::vector<Record> records;
        for (Record record : readTable(QStringLiteral("members"))) {
            record[QStringLiteral("hy_jm")] = pinyinInitials(record[QStringLiteral("hy_name")]);
            records.push_back(record);
        }
        insertRecords(m_db, QStringLiteral("jxc_hyxx"), records);
        m_db.execute(QStringLiteral("update jxc_hyfl set hl_jfsx=199 where hl_sn='100001'"));
        m_db.execute(QStringLiteral("update jxc_hyfl set hl_name='银卡会员',hl_zk=0.98,hl_jfxx=200,"
                                    "hl_jfsx=999 where hl_sn='100002'"));
        insertRecords(m_db, QStringLiteral("jxc_hyfl"),
                      {{{QStringLiteral("hl_sn"), QStringLiteral("100003")},
                        {QStringLiteral("hl_name"), QStringLiteral("金卡会员")},
                        {QStringLiteral("hl_zk"), QStringLiteral("0.95")},
                        {QStringLiteral("hl_jfxx"), QStringLiteral("1000")},
                        {QStringLiteral("hl_jfsx"), QStringLiteral("999999")}}});
        insertRecords(m_db, QStringLiteral("jxc_hyyh"),
                      {{{QStringLiteral("hh_sn"), QStringLiteral("100002")},
                        {QStringLiteral("hh_name"), QStringLiteral("充值送现金")},
                        {QStringLiteral("hh_zl"), QStringLiteral("2")},
                        {QStringLiteral("hh_zlname"), QStringLiteral("充值赠送")},
                        {QStringLiteral("hh_note"), QStringLiteral("充值赠送金额")}}});
        for (const auto &[amount, gift] : {std::pair{200, 10}, {500, 40}, {1000, 100}})
            insertRecords(m_db, QStringLiteral("jxc_hyczzs"),
                          {{{QStringLiteral("hs_sn"), QString::number(100'000 + amount)},
                            {QStringLiteral("hs_czje"), QString::number(amount)},
                            {QStringLiteral("hs_zsje"), QString::number(gift)}}});
        m_db.execute(QStringLiteral("update jxc_jfsz set jf_mfje=10,jf_yelj=1"));
        m_db.execute(QStringLiteral("update jxc_goods set g_iszp=1,g_zpjf=30 where g_sn in (select "
                                    "g_sn from jxc_goods where g_iscf=0 and g_lsj>0 order by "
                                    "g_lsj,id limit 3)"));
    }

    void loadEmployees() {
        std::vector<Record> records;
        for (Record record : readTable(QStringLiteral("employees"))) {
            record[QStringLiteral("u_jm")] = pinyinInitials(record[QStringLiteral("u_name")]);
            record[QStringLiteral("ck_sn")] = QStringLiteral("-1");
            record[QStringLiteral("ck_name")] = QStringLiteral("所有仓库");
            record[QStringLiteral("u_tctxt")] = QStringLiteral("按销售额提成");
            records.push_back(record);
        }
        insertRecords(m_db, QStringLiteral("jxc_user"), records);
    }

    Database &m_db;
    QHash<QString, QString> m_classNumbers;
    QSet<QString> m_goods;
};

} // namespace

void loadDemoMasterData(Session &session, const DemoSize &size) {
    initialiseDemoResource();
    DemoLoader(session).run(size.goods);
}

} // namespace jxc

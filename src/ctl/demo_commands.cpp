#include "ctl/commands.h"
#include "ctl/story.h"
#include "ctl/verification.h"
#include "db/copy.h"
#include "db/creation.h"
#include "db/transaction.h"
#include "money/cash_journal.h"
#include "retail/document_posting.h"
#include "services/demo_data.h"
#include "services/demo_trade.h"
#include "services/opening.h"

#include <QDir>
#include <QFileInfo>

namespace jxc::ctl {

namespace {

/// By this name in the company's row a shop is known to be a play of ours, which may be replaced.
const QString playedShop = QStringLiteral("岚舟通演示店");

struct Shop {
    std::unique_ptr<Database> db;
    std::unique_ptr<FixedClock> clock;
    std::unique_ptr<Session> session;
};

bool isPlayedShop(Database &db) {
    return db.scalar(QStringLiteral("select c_name from jxc_company")) == playedShop;
}

/// A set that was just created, with nothing of anybody's in it.
bool isBlank(Database &db) {
    return !db.exists(QStringLiteral("select id from jxc_goods where g_sn<>'00000000' limit 1")) &&
           !db.exists(QStringLiteral("select id from jxc_goodslist limit 1")) &&
           !db.exists(QStringLiteral("select id from jxc_ysyfk limit 1"));
}

/// What the owner put into the business, in cash and at the bank.
void bookCapital(Session &session) {
    for (const auto &[account, amount] :
         {std::pair{QStringLiteral("现金"), 300'000}, {QStringLiteral("工行帐号"), 200'000}})
        addCashEntry(session.db(), {account,
                                    session.today(),
                                    {},
                                    QStringLiteral("期初金额"),
                                    amount,
                                    {},
                                    {},
                                    {},
                                    {},
                                    QStringLiteral("投入资金"),
                                    QStringLiteral("admin")});
}

/// A new account set with the demo's master data, at a place that holds none, or an earlier play.
Shop openShop(Context &context, const QDate &firstDay, int goods) {
    const Location location = context.location();
    if (location.engine == Engine::Sqlite)
        QDir().mkpath(QFileInfo(location.file).absolutePath());
    Shop shop;
    shop.db = std::make_unique<Database>(location, Database::Opening::empty);
    if (holdsAccountSet(*shop.db) && !isPlayedShop(*shop.db) && !isBlank(*shop.db))
        throw Refusal(QStringLiteral("已有帐套，不能用演示数据覆盖：%1").arg(location.display()));
    shop.clock = std::make_unique<FixedClock>(QDateTime(firstDay, QTime(8, 0)));
    shop.session = std::make_unique<Session>(*shop.db, *shop.clock);
    shop.session->members = &documentPosting();
    Transaction transaction(*shop.db);
    resetAllTables(*shop.db, firstDay);
    shop.db->execute(QStringLiteral("update jxc_company set c_name=?,c_jc=?"),
                     {playedShop, u"演示店"});
    loadDemoMasterData(*shop.session, {.goods = goods});
    bookCapital(*shop.session);
    transaction.commit();
    const Opening opening = openSession(*shop.session, QStringLiteral("admin"), {});
    if (!opening.outcome.isDone())
        throw Refusal(opening.outcome.text);
    return shop;
}

QString summary(const DemoCounts &c) {
    return QStringLiteral("进货单%1张（补录以前日期%2张），入库单%3张，采购退货%4张，销售单%"
                          "5张（取消审核%6张），"
                          "顾客退货%7张，收付款%8张；"
                          "收银%9单，退货%10单，充值%11笔，兑换%12次，日结%13次")
        .arg(c.receipts)
        .arg(c.backDated)
        .arg(c.goodsIn)
        .arg(c.purchaseReturns)
        .arg(c.sales)
        .arg(c.cancelled)
        .arg(c.salesReturns)
        .arg(c.settlements)
        .arg(c.counterReceipts)
        .arg(c.counterReturns)
        .arg(c.recharges)
        .arg(c.exchanges)
        .arg(c.dayEnds);
}

} // namespace

ExitCode demo(Context &context) {
    const int days = context.takeNumber(QStringLiteral("--days")).value_or(30);
    const int goods = context.takeNumber(QStringLiteral("--goods")).value_or(0);
    const int seed = context.takeNumber(QStringLiteral("--seed")).value_or(1);
    if (!context.arguments().isEmpty())
        throw UsageError(QStringLiteral("demo [--days N] [--goods N] [--seed S]"));
    const QDate firstDay = context.clock().now().date().addDays(-days + 1);
    const Shop shop = openShop(context, firstDay, goods);
    const DemoCounts counts =
        playDemoTrade(*shop.session, *shop.clock, {firstDay, days, static_cast<unsigned>(seed)});
    say(QStringLiteral("演示店：%1").arg(context.location().display()));
    say(QStringLiteral("%1天：%2").arg(days).arg(summary(counts)));
    return done;
}

ExitCode play(Context &context) {
    const int days = context.takeNumber(QStringLiteral("--days")).value_or(28);
    if (!context.arguments().isEmpty())
        throw UsageError(QStringLiteral("play [--days N]"));
    const QDate storyDay(2026, 3, 1);
    const Shop shop = openShop(context, storyDay, 0);
    say(QStringLiteral("新建帐套：%1").arg(context.location().display()));
    tellStory(*shop.session, *shop.clock);
    say({});
    const QDate firstDay = storyDay.addDays(17);
    const DemoCounts counts =
        playDemoTrade(*shop.session, *shop.clock, {firstDay, days, 20'260'315U});
    say(QStringLiteral("== 再营业%1天 ==").arg(days));
    say(summary(counts));
    reportShop(*shop.db);
    say({});
    return sayVerification(*shop.db);
}

} // namespace jxc::ctl

#include "screens/scenes.h"

#include "app/tf_loading.h"
#include "app/tf_login.h"
#include "app/tf_mainform.h"
#include "retail/forms/tf_posxs.h"
#include "screens/counter_scenes.h"
#include "screens/member_scenes.h"
#include "screens/money_scenes.h"
#include "screens/points_scenes.h"
#include "stock/forms/stock_panel.h"
#include "stock/forms/tf_kccx.h"
#include "support/windows.h"
#include "ui/cost_story_window.h"
#include "ui/document_editor.h"
#include "ui/document_list.h"
#include "ui/goods_chooser.h"
#include "ui/grid.h"
#include "ui/header_panel.h"
#include "ui/line_table.h"
#include "ui/settlement_panel.h"

namespace jxc::test {

namespace {

constexpr QSize smallScreen(1366, 768);
/// What is left of it for a form under its title and over the task bar.
constexpr QSize formSize(1366, 700);

/// What the demo shop has, for a sale that is worth looking at.
struct Wares {
    explicit Wares(Database &db)
        : m_db(db) {}

    /// Goods in the main warehouse with at least so many batches.
    [[nodiscard]] QStringList goods(int batches, bool restricted, int count) const {
        QStringList found;
        for (const Row &row : m_db.rows(
                 QStringLiteral(
                     "select k.g_sn from jxc_kcsp k join jxc_goods g on g.g_sn=k.g_sn join jxc_tkc "
                     "t on t.g_sn=k.g_sn and t.ck_sn=k.ck_sn where k.ck_sn='100001' and "
                     "k.kc_sl>=40 and t.t_sl>0 and g.g_iscf=? group by k.g_sn having count(*)>=? "
                     "order by count(*),k.g_sn limit ?"),
                 {restricted ? 1 : 0, batches, count}))
            found << row.text(u"g_sn");
        return found;
    }
    /// The customer with the largest debt.
    [[nodiscard]] QString debtor() const {
        return m_db.scalar(QStringLiteral(
            "select a.kh_name from jxc_khxx a join jxc_lsxsd b on b.kh_sn=a.kh_sn where "
            "b.ls_qk=1 and a.kh_sn<>'100001' group by a.kh_name order by "
            "sum(b.ls_yfje-b.ls_sfje) desc limit 1"));
    }

private:
    Database &m_db;
};

void drop(DocumentEditor *editor) {
    editor->done(0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

DocumentEditor &newDocument(FormRegistry &registry, const QString &name) {
    auto *list = qobject_cast<DocumentList *>(registry.openForm(name, {}));
    list->resize(formSize);
    list->btnAddClick();
    DocumentEditor &editor = *list->editor();
    editor.resize(formSize);
    bringUp(&editor);
    return editor;
}

/// Enter through the header, whatever stands there, until the lines begin.
void throughHeader(DocumentEditor &editor) {
    for (int i = 0; i < 30 && !editor.table().isEditing(); ++i)
        enter();
}

/// A line: the goods by its number, then quantity; Enter through the rest until the next line.
void typeLine(DocumentEditor &editor, const QString &goods, const QString &quantity) {
    const int row = editor.table().currentRow();
    enter(goods);
    enter(quantity);
    for (int i = 0; i < 8 && editor.table().currentRow() == row; ++i)
        enter();
}

/// Photographs the next dialog over the window, then leaves it.
void dialogOver(Photographer &photographer, QWidget &window, const QString &name) {
    atNextDialog([&photographer, &window, name](QWidget *) {
        photographer.takeDesk(&window, name);
        press(Qt::Key_Escape);
    });
}

void typeSale(FormRegistry &registry, Photographer &photographer) {
    const Wares wares(registry.context().session.db());
    DocumentEditor &sale = newDocument(registry, QStringLiteral("TF_Spxs"));
    enter(wares.debtor());
    throughHeader(sale);
    const char *quantities[] = {"2", "5", "1", "10", "3"};
    const QStringList goods = wares.goods(1, false, 4);
    for (qsizetype i = 0; i < goods.size(); ++i)
        typeLine(sale, goods[i], QString::fromLatin1(quantities[i]));
    dialogOver(photographer, sale, QStringLiteral("sale_batches"));
    typeLine(sale, wares.goods(3, false, 1).value(0), QStringLiteral("3"));
    photographer.takeDesk(&sale, QStringLiteral("sale"));
    dialogOver(photographer, sale, QStringLiteral("sale_buyer"));
    enter(wares.goods(1, true, 1).value(0));
    press(Qt::Key_Delete, Qt::ControlModifier);
    sale.table().startNextLine();
    type(QStringLiteral("cm"));
    photographer.takeDesk(&sale, QStringLiteral("sale_goods"));
    press(Qt::Key_Escape);
    dialogOver(photographer, sale, QStringLiteral("sale_discount"));
    sale.btnDiscountClick();
    drop(&sale);
}

/// A sale that its member pays from the card, where the shop has members with something on it.
void typeMemberSale(FormRegistry &registry, Photographer &photographer) {
    Database &db = registry.context().session.db();
    const QString card = db.scalar(QStringLiteral(
        "select hy_bh from jxc_hyxx where hy_zhje>0 order by hy_zhje desc,id limit 1"));
    if (card.isEmpty())
        return;
    DocumentEditor &sale = newDocument(registry, QStringLiteral("TF_Spxs"));
    press(Qt::Key_M, Qt::ControlModifier);
    enter(card);
    throughHeader(sale);
    for (const QString &goods : Wares(db).goods(1, false, 2))
        typeLine(sale, goods, QStringLiteral("2"));
    sale.settlement()->focusTenders();
    type(QStringLiteral("20"));
    photographer.takeDesk(&sale, QStringLiteral("member_sale"));
    drop(&sale);
}

/// A receipt that was paid, another one in the middle, with what opens over it.
void typeCounter(FormRegistry &registry, Photographer &photographer) {
    const Wares wares(registry.context().session.db());
    auto *counter = qobject_cast<TF_Posxs *>(registry.openForm(QStringLiteral("TF_Posxs"), {}));
    counter->setWindowState(Qt::WindowNoState);
    counter->resize(smallScreen);
    bringUp(counter);
    const QStringList goods = wares.goods(1, false, 7);
    enter(goods.value(0));
    atNextDialog([](QWidget *) { enter(QStringLiteral("500")); });
    enter();
    for (const QString &one : goods)
        enter(QStringLiteral("3*") + one);
    press(Qt::Key_F12);
    press(Qt::Key_Up);
    photographer.takeDesk(counter, QStringLiteral("counter"));
    dialogOver(photographer, *counter, QStringLiteral("counter_goods"));
    enter(QStringLiteral("c"));
    dialogOver(photographer, *counter, QStringLiteral("counter_pay"));
    enter();
    dialogOver(photographer, *counter, QStringLiteral("counter_discount"));
    press(Qt::Key_F7);
    atNextDialog([&](QWidget *) {
        enter(registry.context().session.db().scalar(
            QStringLiteral("select max(gl_djh) from jxc_posxsd where gl_djh like 'XS%'")));
        photographer.takeDesk(counter, QStringLiteral("counter_return"));
        press(Qt::Key_Escape);
    });
    press(Qt::Key_F3);
    registry.context().session.db().execute(
        QStringLiteral("update jxc_posprint set pp_dyfs=0,pp_zjdy=1"));
    dialogOver(photographer, *counter, QStringLiteral("counter_preview"));
    press(Qt::Key_F5);
    registry.context().session.db().execute(QStringLiteral("update jxc_posprint set pp_zjdy=0"));
    press(Qt::Key_F8);
    counter->done(0);
}

void typeReceipt(FormRegistry &registry, Photographer &photographer) {
    const Wares wares(registry.context().session.db());
    DocumentEditor &receipt = newDocument(registry, QStringLiteral("TF_Cgjh"));
    throughHeader(receipt);
    for (const QString &goods : wares.goods(2, false, 3))
        typeLine(receipt, goods, QStringLiteral("20"));
    photographer.takeDesk(&receipt, QStringLiteral("receipt"));
    drop(&receipt);
}

void takeDocuments(DocumentList &list, Photographer &photographer, const QString &name) {
    list.showApproved(true);
    photographer.take(&list, name + QStringLiteral("_approved"));
    if (list.grid().model().rowCount() == 0)
        return;
    list.btnModifyClick();
    if (list.editor() == nullptr)
        return;
    list.editor()->resize(formSize);
    photographer.take(list.editor(), name + QStringLiteral("_read"));
    if (photographer.wants(name + QStringLiteral("_print"))) {
        dialogOver(photographer, *list.editor(), name + QStringLiteral("_print"));
        list.editor()->btnPrintClick();
    }
    drop(list.editor());
}

/// The goods with the most movements: its prices, movements and cost; and goods being chosen.
void takeStock(TF_Kccx &form, Photographer &photographer, const QString &name) {
    const QString goods = form.db().scalar(
        QStringLiteral("select g_sn from jxc_goodslist where gl_kc<>0 group by g_sn order by "
                       "count(*) desc,g_sn"));
    form.stock().grid().goTo(u"g_sn", goods);
    form.btnPriceHistoryClick();
    photographer.take(&form, name + QStringLiteral("_prices"));
    const JournalKey key = form.stock().currentKey();
    form.btnMovementsClick();
    photographer.take(&form, name + QStringLiteral("_movements"));
    TF_CostStory story(form.context(), key, {QStringLiteral("9999-12-31")}, &form);
    story.showModal();
    photographer.take(&story, name + QStringLiteral("_story"));
    story.done(0);
    TF_GoodsSele chooser(form.context(), true, key.warehouse, &form);
    chooser.showModal();
    for (const int line : {0, 3})
        chooser.grid().model().tick(line, true);
    photographer.take(&chooser, name + QStringLiteral("_chooser"));
    chooser.done(0);
    form.showTab(0);
}

} // namespace

void takeShell(FormRegistry &registry, Photographer &photographer) {
    if (!photographer.wantsOf(QStringLiteral("TF_MainForm")))
        return;
    TF_Loading loading(1'000'000);
    loading.FormActivate();
    loading.Timer1Timer();
    photographer.take(&loading, QStringLiteral("TF_MainForm_loading"));
    TF_Login login(registry.context(), QStringLiteral("hb"));
    login.showModal();
    photographer.take(&login, QStringLiteral("TF_MainForm_login"));
    login.close();
    TF_MainForm window(registry, 1'000'000);
    window.resize(smallScreen);
    window.show();
    window.FormActivate();
    for (int group = 1; group <= 8; ++group) {
        window.menuClick(group);
        photographer.take(&window, QStringLiteral("TF_MainForm_%1").arg(group));
    }
}

void takeForm(FormRegistry &registry, Photographer &photographer, const QString &name) {
    if (!photographer.wants(name) && !photographer.wantsOf(name))
        return;
    Form *form = registry.openForm(name, {});
    if (form == nullptr)
        return;
    // Large windows fill the screen; small ones show at their own size.
    if (form->width() > 1200)
        form->resize(formSize);
    photographer.take(form, name);
    if (auto *list = qobject_cast<DocumentList *>(form))
        takeDocuments(*list, photographer, name);
    if (auto *stock = qobject_cast<TF_Kccx *>(form))
        takeStock(*stock, photographer, name);
    takeMoney(*form, photographer, name);
    takeCounterReports(*form, photographer, name);
    takeMembers(*form, photographer);
    takePoints(*form, photographer, name);
    form->done(0);
}

void takeTyping(FormRegistry &registry, Photographer &photographer) {
    if (photographer.wantsOf(QStringLiteral("sale")))
        typeSale(registry, photographer);
    if (photographer.wantsOf(QStringLiteral("member_sale")))
        typeMemberSale(registry, photographer);
    if (photographer.wantsOf(QStringLiteral("receipt")))
        typeReceipt(registry, photographer);
    if (photographer.wantsOf(QStringLiteral("counter")))
        typeCounter(registry, photographer);
}

} // namespace jxc::test

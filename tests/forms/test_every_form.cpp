// What every form of the program owes its users, tried on all of them: it opens in a shop that
// trades, nothing on it is cut off, its lists keep their layout, leave for spreadsheets whole, and
// hide what an operator may not see.
#include "app/form_registry.h"
#include "db/transaction.h"
#include "services/demo_data.h"
#include "services/demo_trade.h"
#include "sheets/read.h"
#include "support/windows.h"
#include "ui/document_editor.h"
#include "ui/document_list.h"
#include "ui/grid.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>

using namespace jxc;
using namespace jxc::test;

namespace {

/// A screen that many shops have, less the task bar and a title.
constexpr QSize smallScreen(1366, 700);

/// A shop after a week of trade, and a program at its counter.
struct Office {
    Shop shop;
    std::unique_ptr<FormRegistry> registry = newProgram();

    Office() {
        {
            Transaction load(shop.db);
            loadDemoMasterData(shop.session, {.goods = 60});
            load.commit();
        }
        playDemoTrade(shop.session, shop.clock, {QDate(2026, 3, 24), 8, 7});
    }
    ~Office() { close(*registry); }

    /// A program started anew: no form of it has been opened.
    [[nodiscard]] std::unique_ptr<FormRegistry> newProgram() {
        auto made = std::make_unique<FormRegistry>(shop.session, shop.user, shop.place.folder());
        registerForms(*made);
        return made;
    }
    static void close(FormRegistry &program) {
        for (const QString &name : program.knownForms())
            delete program.kept(name);
    }
};

std::map<Engine, std::unique_ptr<Office>> offices;

Office &office() {
    std::unique_ptr<Office> &here = offices[currentEngine()];
    if (here == nullptr)
        here = std::make_unique<Office>();
    return *here;
}

QStringList registeredForms() {
    TestDatabase place(Engine::Sqlite);
    const FixedClock clock{QDateTime(QDate(2026, 3, 31), QTime(9, 0))};
    Session session(place.db(), clock);
    ScriptedPrompter nobody;
    FormRegistry program(session, nobody, place.folder());
    registerForms(program);
    QStringList names = program.knownForms();
    names.sort();
    return names;
}

Form &open(FormRegistry &program) {
    QFETCH(QString, form);
    Form *opened = program.openForm(form, {});
    bringUp(opened);
    if (auto *list = qobject_cast<DocumentList *>(opened))
        list->showApproved(true);
    return *opened;
}

QStringList captionsOf(const GridPicture &picture) {
    QStringList captions;
    for (const ColumnSpec &column : picture.columns)
        captions << column.caption;
    return captions;
}

/// Lists that cannot be empty once a shop has traded.
bool hasRowsAfterTrade(const QString &form) {
    static const QStringList names = {u"TF_Cgjh"_qs,   u"TF_Cgrk"_qs,  u"TF_Spxs"_qs,
                                      u"TF_Spxxgl"_qs, u"TF_Ghsgl"_qs, u"TF_Khgl"_qs,
                                      u"TF_Kccx"_qs,   u"TF_Djcx"_qs,  u"TF_Xsdjcx"_qs,
                                      u"TF_Admin"_qs,  u"TF_Role"_qs,  u"TF_ViewLog"_qs};
    return names.contains(form);
}

/// The text that a widget shows in one line; empty when it may wrap or be any length.
QString lineOf(const QWidget *widget) {
    if (const auto *label = qobject_cast<const QLabel *>(widget))
        return label->wordWrap() ? QString() : label->text();
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
        return button->text();
    return {};
}

int neededWidth(const QWidget *widget) {
    if (const auto *field = qobject_cast<const QLineEdit *>(widget))
        return field->fontMetrics().horizontalAdvance(field->placeholderText()) + 18;
    if (const auto *tabs = qobject_cast<const QTabBar *>(widget))
        return tabs->sizeHint().width();
    return lineOf(widget).isEmpty() ? 0 : widget->sizeHint().width();
}

bool sticksOut(const QWidget *widget) {
    for (const QWidget *above = widget->parentWidget(); above != nullptr;
         above = above->parentWidget()) {
        if (above->inherits("QAbstractScrollArea"))
            return false; // one can scroll to it
        if (!above->rect().contains(QRect(widget->mapTo(above, QPoint()), widget->size())))
            return true;
        if (above->isWindow())
            break;
    }
    return false;
}

/// What cannot be read in a window as it stands.
QStringList cutOff(const QWidget &window) {
    QStringList found;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        if (!widget->isVisible() || neededWidth(widget) == 0)
            continue;
        if (widget->width() < neededWidth(widget) || sticksOut(widget))
            found << QStringLiteral("%1 “%2%3” is %4 wide, needs %5")
                         .arg(QString::fromLatin1(widget->metaObject()->className()),
                              lineOf(widget), widget->property("placeholderText").toString())
                         .arg(widget->width())
                         .arg(neededWidth(widget));
    }
    return found;
}

Grid *gridNamed(const Form &form, const QString &name) {
    auto *view = form.findChild<QTableView *>(name);
    return view == nullptr ? nullptr : qobject_cast<Grid *>(view->parentWidget());
}

/// The columns that are shown, in their order, and how wide they are.
QStringList layoutOf(const Grid &grid) {
    QStringList layout;
    for (const ColumnSpec &column : grid.picture().columns)
        layout << QStringLiteral("%1 %2").arg(column.field).arg(column.width);
    return layout;
}

/// The rows below the captions of a written file, without the sums.
int rowsWritten(const QString &file, const GridPicture &picture) {
    const std::vector<QStringList> rows = readSheets(file).front().rows;
    const auto head = std::ranges::find(rows, captionsOf(picture));
    if (head == rows.end())
        return -1;
    return static_cast<int>(rows.end() - head) - 1 - (picture.sums.isEmpty() ? 0 : 1);
}

QStringList cutOffOnSmallScreen(QWidget &window) {
    window.resize(window.size().boundedTo(smallScreen));
    QTest::qWait(20);
    QStringList found = cutOff(window);
    if (window.width() > smallScreen.width() || window.height() > smallScreen.height())
        found << QStringLiteral("does not fit: %1×%2").arg(window.width()).arg(window.height());
    return found;
}

} // namespace

class TestEveryForm : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void cleanupTestCase() { offices.clear(); }
    void cleanup() {
        while (QWidget *top = QApplication::activeModalWidget())
            top->hide();
    }
    void opensAndLeaves_data() { addRows(); }
    void opensAndLeaves();
    void keepsItsLayout_data() { addRows(); }
    void keepsItsLayout();
    void exportsAndCopiesWhatItShows_data() { addRows(); }
    void exportsAndCopiesWhatItShows();
    void hidesCostsAndPrices_data() { addRows(); }
    void hidesCostsAndPrices();

private:
    static void addRows();
    static void readsWell(QWidget &window) {
        const QStringList faults = cutOffOnSmallScreen(window);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }
};

void TestEveryForm::addRows() {
    QTest::addColumn<Engine>("engine");
    QTest::addColumn<QString>("form");
    for (const Engine engine : engines())
        for (const QString &form : registeredForms())
            QTest::addRow("%s %s", qPrintable(engineName(engine)), qPrintable(form))
                << engine << form;
}

void TestEveryForm::opensAndLeaves() {
    Office &here = office();
    here.shop.user.told.clear();
    Form &form = open(*here.registry);
    QCOMPARE(here.shop.user.told, QStringList());
    readsWell(form);
    const auto grids = form.findChildren<Grid *>();
    QVERIFY(!hasRowsAfterTrade(form.objectName()) ||
            std::ranges::any_of(grids, [](Grid *g) { return g->model().rowCount() > 0; }));
    if (auto *list = qobject_cast<DocumentList *>(&form)) {
        list->btnAddClick();
        bringUp(list->editor());
        readsWell(*list->editor());
        press(Qt::Key_Escape);
        QTRY_VERIFY(list->editor() == nullptr || !list->editor()->isVisible());
        bringUp(&form);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!form.isVisible());
    QCOMPARE(here.shop.user.takeAsked(), QStringList());
}

void TestEveryForm::keepsItsLayout() {
    Office &here = office();
    Form &form = open(*here.registry);
    const auto secondProgram = here.newProgram();
    QHash<QString, QStringList> kept;
    for (Grid *grid : form.findChildren<Grid *>()) {
        QHeaderView *header = grid->view().horizontalHeader();
        header->moveSection(header->count() - 1, 0);
        header->hideSection(header->logicalIndex(1));
        header->resizeSection(header->logicalIndex(0), 177);
        grid->saveLayout();
        QCOMPARE(here.shop.user.told.last(), u"布局调整成功！"_qs);
        const QString name = grid->view().objectName();
        QVERIFY(QFile::exists(here.shop.place.folder() + u"/Layout/%1.ini"_qs.arg(name)));
        kept[name] = layoutOf(*grid);
    }
    Form &second = open(*secondProgram);
    for (auto grid = kept.cbegin(); grid != kept.cend(); ++grid) {
        QCOMPARE(layoutOf(*gridNamed(second, grid.key())), grid.value());
        gridNamed(second, grid.key())->resetLayout();
    }
    Office::close(*secondProgram);
    for (Grid *grid : form.findChildren<Grid *>())
        grid->resetLayout();
}

void TestEveryForm::exportsAndCopiesWhatItShows() {
    Office &here = office();
    Form &form = open(*here.registry);
    const QTemporaryDir folder;
    for (Grid *grid : form.findChildren<Grid *>()) {
        const GridPicture picture = grid->picture();
        for (const QString &ending : {u"xlsx"_qs, u"csv"_qs}) {
            const QString file = folder.filePath(u"list."_qs + ending);
            grid->exportTo(file);
            QCOMPARE(here.shop.user.told.last(), u"导出完成！\r\n\r\n"_qs + file);
            QCOMPARE(rowsWritten(file, picture), static_cast<int>(picture.rows.size()));
        }
        if (picture.rows.size() < 2)
            continue;
        grid->view().selectAll();
        QTest::keyClick(&grid->view(), Qt::Key_C, Qt::ControlModifier);
        const QStringList copied = QApplication::clipboard()->text().split(u'\n');
        QCOMPARE(copied.size(), static_cast<qsizetype>(picture.rows.size()) + 1);
        QCOMPARE(copied.first(), captionsOf(picture).join(u'\t'));
        QCOMPARE(copied.last(), picture.rows.back().join(u'\t'));
    }
}

void TestEveryForm::hidesCostsAndPrices() {
    Office &here = office();
    CachedRights &rights = here.shop.session.rights;
    rights.showCostPrice = rights.showSellingPrice = false;
    const auto program = here.newProgram();
    QStringList secret;
    for (const QTableView *view : open(*program).findChildren<QTableView *>())
        for (int i = 0; i < view->model()->columnCount(); ++i) {
            const QString caption = view->model()->headerData(i, Qt::Horizontal).toString();
            const bool isTerm = caption.contains(u"提成"_qs); // what a clerk is paid by
            for (const auto *word : {u"成本", u"毛利", u"零售价"})
                if (caption.contains(QString::fromUtf16(word)) && !isTerm)
                    secret << view->objectName() + u' ' + caption;
        }
    Office::close(*program);
    rights.showCostPrice = rights.showSellingPrice = true;
    QVERIFY2(secret.isEmpty(), qPrintable(secret.join(u'\n')));
}

JXC_GUI_MAIN(TestEveryForm, QApplication)
#include "test_every_form.moc"

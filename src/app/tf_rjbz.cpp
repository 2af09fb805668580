#include "app/tf_rjbz.h"

#include "app/help_book.h"
#include "core/account_set.h"
#include "core/backup.h"
#include "core/notes.h"
#include "core/prompter.h"
#include "core/session.h"
#include "db/database.h"
#include "ui/list_form.h"
#include "ui/theme.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTreeWidget>
#include <QUrl>

namespace jxc {

namespace {

constexpr int nameRole = Qt::UserRole;
/// The notes of the whole shop.
const auto notesFlag = QStringLiteral("rjbz");
/// A4 in points, and what stays free at each edge.
constexpr QSizeF sheet(595, 842);
constexpr int sheetMargin = 40;

QString styleOnScreen() {
    const Theme &theme = Theme::current();
    return QStringLiteral("h1 { font-size: x-large; } h2 { font-size: large; color: %1; }"
                          "a { color: %1; } td { padding: 3px 16px 3px 0; }"
                          "td.key { font-weight: bold; } p, li { line-height: 140%; }")
        .arg(theme.accent.name());
}

QString styleOnPaper() {
    return QStringLiteral("body { font-size: 10px; } h1 { font-size: x-large; }"
                          "h2 { font-size: large; } a { color: black; text-decoration: none; }"
                          "td { padding: 1px 12px 1px 0; } td.key { font-weight: bold; }");
}

void fill(QTextDocument &document, const HelpPage &page) {
    QFont font = QApplication::font();
    font.setPixelSize(10); // a pixel is a point here
    document.setDefaultFont(font);
    document.setDefaultStyleSheet(styleOnPaper());
    document.setDocumentMargin(sheetMargin);
    document.setHtml(page.html);
    document.setPageSize(sheet);
}

} // namespace

TF_Rjbz::TF_Rjbz(const FormContext &context, QWidget *parent)
    : Form(context, QStringLiteral("TF_Rjbz"), QStringLiteral("软件帮助"), parent)
    , m_tabs(new QTabWidget(this))
    , m_search(new QLineEdit(this))
    , m_topics(new QTreeWidget(this))
    , m_text(new QTextBrowser(this))
    , m_notes(new QPlainTextEdit(this)) {
    m_tabs->addTab(makeHelp(), QStringLiteral("帮助"));
    m_tabs->addTab(makeNotes(), QStringLiteral("备注"));
    m_tabs->addTab(makeAbout(), QStringLiteral("关于"));
    auto *bar = new ActionBar(this);
    bar->add(QStringLiteral("btnPrint"), QStringLiteral("打印本页"), Qt::Key_F12,
             [this] { btnPrintClick(); });
    bar->add(QStringLiteral("btnKeys"), QStringLiteral("打印快捷键一览"), Qt::Key_F9,
             [this] { btnKeysClick(); });
    bar->add(QStringLiteral("btnExit"), QStringLiteral("退出"), {}, [this] { reject(); });
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(8);
    layout->addWidget(bar);
    layout->addWidget(m_tabs, 1);
    addActions();
    find({});
    resize(1040, 660);
}

QWidget *TF_Rjbz::makeHelp() {
    m_search->setObjectName(QStringLiteral("edtSearch"));
    m_search->setPlaceholderText(QStringLiteral("查找 F3"));
    m_search->setClearButtonEnabled(true);
    m_topics->setObjectName(QStringLiteral("topics"));
    m_topics->setHeaderHidden(true);
    m_topics->setRootIsDecorated(false);
    m_topics->setIndentation(16);
    m_text->setObjectName(QStringLiteral("helpText"));
    m_text->setOpenLinks(false);
    m_text->document()->setDefaultStyleSheet(styleOnScreen());
    auto *page = new QWidget(this);
    auto *left = new QVBoxLayout;
    left->setSpacing(8);
    left->addWidget(m_search);
    left->addWidget(m_topics, 1);
    auto *layout = new QHBoxLayout(page);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(8);
    layout->addLayout(left, 1);
    layout->addWidget(m_text, 3);
    connect(m_search, &QLineEdit::textChanged, this, &TF_Rjbz::find);
    connect(m_search, &QLineEdit::returnPressed, this, [this] { m_text->setFocus(); });
    connect(m_topics, &QTreeWidget::currentItemChanged, this, &TF_Rjbz::showCurrent);
    connect(m_text, &QTextBrowser::anchorClicked, this, &TF_Rjbz::openLink);
    return page;
}

QWidget *TF_Rjbz::makeNotes() {
    m_notes->setObjectName(QStringLiteral("bq_txt"));
    m_notes->setTabChangesFocus(true);
    auto *hint = new QLabel(QStringLiteral("全店共用，退出时自动保存。"), this);
    hint->setProperty("quiet", true);
    auto *page = new QWidget(this);
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(m_notes, 1);
    layout->addWidget(hint);
    return page;
}

QWidget *TF_Rjbz::makeAbout() {
    auto *words = new QLabel(this);
    words->setObjectName(QStringLiteral("lblAbout"));
    words->setTextInteractionFlags(Qt::TextSelectableByMouse);
    words->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    words->setTextFormat(Qt::PlainText);
    words->setText(
        QStringLiteral("%1农资进销存管理系统 %2\n\n公司：%3\n当前帐套：%4\n数据位置：%5\n"
                       "Qt %6")
            .arg(productWord, productVersion, session().company.name, accountSetName(session()),
                 db().location().display(), QString::fromLatin1(qVersion())));
    auto *page = new QWidget(this);
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->addWidget(words, 1);
    return page;
}

void TF_Rjbz::addActions() {
    const auto add = [this](const QKeySequence &key, std::function<void()> run) {
        auto *action = new QAction(this);
        action->setShortcut(key);
        connect(action, &QAction::triggered, this, std::move(run));
        addAction(action);
    };
    add(Qt::Key_F3, [this] {
        m_tabs->setCurrentIndex(0);
        m_search->setFocus();
        m_search->selectAll();
    });
}

void TF_Rjbz::FormActivate() {
    // Before the login there is nobody who could write.
    m_tabs->setTabVisible(1, session().loginOk);
    m_stored = session().loginOk ? readNote(session(), notesFlag) : QString();
    m_notes->setPlainText(m_stored);
    m_tabs->setCurrentIndex(0);
    m_search->clear();
    if (m_topics->currentItem() == nullptr)
        showPage(&helpPages().front());
    m_text->setFocus();
}

/// The topics that have the words; the first of them is shown.
void TF_Rjbz::find(const QString &words) {
    const QString shown = pageName();
    {
        const QSignalBlocker quiet(m_topics);
        m_topics->clear();
        QTreeWidgetItem *chapter = nullptr;
        for (const HelpPage &page : helpPages()) {
            if (!isAbout(page, words))
                continue;
            if (chapter == nullptr || chapter->text(0) != page.chapter) {
                chapter = new QTreeWidgetItem(m_topics, {page.chapter});
                chapter->setFlags(Qt::ItemIsEnabled);
            }
            new QTreeWidgetItem(chapter, {page.title});
            chapter->child(chapter->childCount() - 1)->setData(0, nameRole, page.name);
        }
        m_topics->expandAll();
    }
    const HelpPage *stay = findHelpPage(shown);
    if (stay == nullptr || !isAbout(*stay, words))
        stay =
            m_topics->topLevelItemCount() == 0
                ? nullptr
                : findHelpPage(m_topics->topLevelItem(0)->child(0)->data(0, nameRole).toString());
    showPage(stay);
    if (const QString first = words.section(u' ', 0, 0); !first.isEmpty())
        m_text->find(first);
}

void TF_Rjbz::showPage(const HelpPage *page) {
    if (page == nullptr) {
        m_text->setPlainText(QStringLiteral("没有找到相关的帮助。"));
        return;
    }
    for (QTreeWidgetItemIterator item(m_topics); *item != nullptr; ++item)
        if ((*item)->data(0, nameRole).toString() == page->name)
            m_topics->setCurrentItem(*item);
    m_text->setHtml(page->html);
}

void TF_Rjbz::showCurrent() {
    if (const HelpPage *page = findHelpPage(pageName()))
        m_text->setHtml(page->html);
}

QString TF_Rjbz::pageName() const {
    const QTreeWidgetItem *item = m_topics->currentItem();
    return item == nullptr ? QString() : item->data(0, nameRole).toString();
}

void TF_Rjbz::showPageOf(const QString &formClass) {
    const HelpPage *page = helpPageOf(formClass);
    showPage(page != nullptr ? page : &helpPages().front());
}

void TF_Rjbz::openLink(const QUrl &link) {
    if (const HelpPage *page = findHelpPage(link.toString())) {
        m_search->clear();
        showPage(page);
    }
}

bool TF_Rjbz::mayLeave() {
    const QString text = m_notes->toPlainText();
    if (!session().loginOk || text == m_stored)
        return true;
    if (readNote(session(), notesFlag) != m_stored &&
        !prompter().confirm(QStringLiteral("备注已被其他操作员修改，是否用您的内容覆盖？"),
                            confirmCaption))
        return prompter().confirm(QStringLiteral("备注没有保存，确认放弃吗？"), confirmCaption);
    if (show(saveNote(session(), prompter(), notesFlag, text))) {
        m_stored = text;
        return true;
    }
    return prompter().confirm(QStringLiteral("备注没有保存，确认放弃吗？"), confirmCaption);
}

void TF_Rjbz::btnPrintClick() {
    if (const HelpPage *page = findHelpPage(pageName()))
        printPreview(*page);
}

void TF_Rjbz::btnKeysClick() {
    printPreview(*findHelpPage(keySheetName));
}

void TF_Rjbz::printPreview(const HelpPage &page) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setDocName(page.title);
    QPrintPreviewDialog preview(&printer, this);
    preview.setWindowTitle(QStringLiteral("打印预览 － %1").arg(page.title));
    preview.resize(size());
    connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
            [&page](QPrinter *target) { printHelpPage(page, *target); });
    preview.exec();
}

void printHelpPage(const HelpPage &page, QPrinter &printer) {
    printer.setFullPage(true); // the document has margins of its own
    QTextDocument document;
    fill(document, page);
    document.print(&printer);
}

int sheetsOf(const HelpPage &page) {
    QTextDocument document;
    fill(document, page);
    return document.pageCount();
}

} // namespace jxc

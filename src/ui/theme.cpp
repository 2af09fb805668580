#include "ui/theme.h"

#include "ui/icons.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPalette>
#include <QStyleFactory>

namespace jxc {

namespace {

const Theme *inUse = nullptr;

/// The first Chinese sans font that the machine has; Latin follows it.
QFont programFont() {
    const QStringList wanted = {
        QStringLiteral("Microsoft YaHei UI"), QStringLiteral("Microsoft YaHei"),
        QStringLiteral("PingFang SC"),        QStringLiteral("Noto Sans CJK SC"),
        QStringLiteral("Source Han Sans SC"), QStringLiteral("WenQuanYi Micro Hei")};
    const QStringList known = QFontDatabase::families();
    QFont font;
    for (const QString &family : wanted)
        if (known.contains(family)) {
            font.setFamily(family);
            break;
        }
    font.setPixelSize(14);
    return font;
}

QPalette paletteOf(const Theme &t) {
    QPalette p;
    p.setColor(QPalette::Window, t.window);
    p.setColor(QPalette::WindowText, t.text);
    p.setColor(QPalette::Base, t.surface);
    p.setColor(QPalette::AlternateBase, t.surfaceAlt);
    p.setColor(QPalette::Text, t.text);
    p.setColor(QPalette::Button, t.surface);
    p.setColor(QPalette::ButtonText, t.text);
    p.setColor(QPalette::ToolTipBase, t.surface);
    p.setColor(QPalette::ToolTipText, t.text);
    p.setColor(QPalette::PlaceholderText, t.textQuiet);
    p.setColor(QPalette::Highlight, t.accent);
    p.setColor(QPalette::HighlightedText, t.accentText);
    p.setColor(QPalette::Link, t.accent);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(QPalette::Disabled, role, t.textQuiet);
    return p;
}

/// "@accent" in the sheet stands for the shade's colour of that name.
QString styleSheetOf(const Theme &t) {
    QString sheet = QStringLiteral(R"(
QToolTip { border: 1px solid @line; padding: 4px; background: @surface; color: @text; }
QLineEdit, QPlainTextEdit, QTextEdit, QComboBox, QAbstractSpinBox {
    background: @surface; border: 1px solid @line; border-radius: 4px; padding: 0 8px;
    min-height: 26px; selection-background-color: @accent; selection-color: @accentText; }
QPlainTextEdit, QTextEdit { padding: 4px 8px; }
QLineEdit:focus, QPlainTextEdit:focus, QTextEdit:focus, QComboBox:focus,
QAbstractSpinBox:focus { border: 1px solid @accent; }
QLineEdit:read-only, QLineEdit:disabled, QComboBox:disabled,
QAbstractSpinBox:disabled, QPlainTextEdit:disabled { background: @window; color: @textQuiet; }
QComboBox QAbstractItemView { background: @surface; border: 1px solid @line; padding: 4px;
    selection-background-color: @accentQuiet; selection-color: @text; }
QComboBox::drop-down { border: none; width: 24px; }
QComboBox::down-arrow, QAbstractSpinBox::down-arrow {
    image: url(:/icons/arrow-down.svg); width: 12px; height: 12px; }
QAbstractSpinBox::up-arrow { image: url(:/icons/arrow-up.svg); width: 12px; height: 12px; }
QAbstractSpinBox::up-button, QAbstractSpinBox::down-button { border: none; width: 24px; }
QPushButton { background: @surface; border: 1px solid @line; border-radius: 4px;
    padding: 0 16px; min-height: 28px; min-width: 56px; }
QPushButton:hover { border-color: @accent; }
QPushButton:focus { border: 1px solid @accent; }
QPushButton:pressed { background: @accentQuiet; }
QPushButton:default { background: @accent; color: @accentText; border-color: @accent; }
QPushButton:disabled { color: @textQuiet; background: @window; border-color: @line; }
QToolButton { background: transparent; border: 1px solid transparent; border-radius: 4px;
    padding: 4px 8px; }
QToolButton:hover { background: @accentQuiet; }
QToolButton:checked { background: @accentQuiet; color: @accent; }
QToolButton:focus { border-color: @accent; }
QToolButton:disabled { color: @textQuiet; }
QToolButton::menu-indicator { image: none; }
QTableView, QTreeView, QListView { background: @surface; alternate-background-color: @surfaceAlt;
    border: 1px solid @line; border-radius: 4px; gridline-color: @line; outline: 0;
    selection-background-color: @accentQuiet; selection-color: @text; }
QTableView::item { padding: 0 8px; border: none; }
QTableView::item:selected { background: @accentQuiet; color: @text; }
QTreeView::item, QListView::item { min-height: 26px; padding: 0 4px; }
QTreeView::item:selected, QListView::item:selected { background: @accentQuiet; color: @text; }
QTreeView::item:hover, QListView::item:hover { background: @surfaceAlt; }
QHeaderView { background: @surfaceAlt; }
QHeaderView::section { background: @surfaceAlt; color: @textQuiet; border: none;
    border-right: 1px solid @line; border-bottom: 1px solid @line; padding: 4px 10px 4px 11px; }
QTableCornerButton::section { background: @surfaceAlt; border: none; }
QTabWidget::pane { border: 1px solid @line; border-radius: 4px; background: @surface; top: -1px; }
QTabBar::tab { background: transparent; padding: 6px 16px; color: @textQuiet;
    border-bottom: 2px solid transparent; }
QTabBar::tab:selected { color: @accent; border-bottom: 2px solid @accent; }
QTabBar::tab:hover { color: @text; }
QTabBar::tab:focus { color: @accent; }
QMenu { background: @surface; border: 1px solid @line; padding: 4px; }
QMenu::item { padding: 4px 24px 4px 16px; border-radius: 4px; }
QMenu::item:selected { background: @accentQuiet; color: @text; }
QMenu::item:disabled { color: @textQuiet; }
QMenu::separator { height: 1px; background: @line; margin: 4px 8px; }
QScrollBar:vertical { background: transparent; width: 12px; margin: 0; }
QScrollBar:horizontal { background: transparent; height: 12px; margin: 0; }
QScrollBar::handle { background: @line; border-radius: 4px; margin: 2px; min-height: 24px;
    min-width: 24px; }
QScrollBar::handle:hover { background: @textQuiet; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
QAbstractScrollArea::corner { background: transparent; border: none; }
QProgressBar { border: 1px solid @line; border-radius: 4px; background: @surface;
    text-align: center; min-height: 20px; }
QProgressBar::chunk { background: @accent; border-radius: 3px; }
QGroupBox { border: 1px solid @line; border-radius: 4px; margin-top: 12px; padding: 8px; }
QGroupBox::title { subcontrol-origin: margin; left: 12px; padding: 0 4px; color: @textQuiet; }
QStatusBar { background: @surface; border-top: 1px solid @line; }
QStatusBar::item { border: none; }
QSplitter::handle { background: transparent; }
QCheckBox, QRadioButton { spacing: 8px; min-height: 24px; }
QLabel[quiet="true"] { color: @textQuiet; }
QLabel[danger="true"] { color: @danger; }
QLabel[title="true"] { font-size: 18px; font-weight: 600; }
QLabel[total="true"] { font-size: 18px; font-weight: 600; color: @accent; }
QFrame[card="true"] { background: @surface; border: 1px solid @line; border-radius: 4px; }
QFrame[footer="true"] { background: @surfaceAlt; border: 1px solid @line; border-top: none; }
)");
    // Longer names first, or "@text" would eat the beginning of "@textQuiet".
    const std::pair<const char *, const QColor &> colours[] = {{"@accentQuiet", t.accentQuiet},
                                                               {"@accentText", t.accentText},
                                                               {"@surfaceAlt", t.surfaceAlt},
                                                               {"@textQuiet", t.textQuiet},
                                                               {"@surface", t.surface},
                                                               {"@accent", t.accent},
                                                               {"@window", t.window},
                                                               {"@danger", t.danger},
                                                               {"@line", t.line},
                                                               {"@text", t.text}};
    for (const auto &[name, colour] : colours)
        sheet.replace(QLatin1String(name), colour.name());
    return sheet;
}

} // namespace

const Theme &Theme::light() {
    static const Theme theme = {QStringLiteral("浅色"), QColor(0xf4f6f5), QColor(0xffffff),
                                QColor(0xf7f9f8),       QColor(0xd9dfdc), QColor(0x1f2a25),
                                QColor(0x5f6d66),       QColor(0x1f7a4d), QColor(0xffffff),
                                QColor(0xd8eee2),       QColor(0xb3261e), QColor(0x9a5b00),
                                QColor(0x1f7a4d)};
    return theme;
}

const Theme &Theme::dark() {
    static const Theme theme = {QStringLiteral("深色"), QColor(0x1b1f1d), QColor(0x232826),
                                QColor(0x282e2b),       QColor(0x3c4440), QColor(0xe6ebe8),
                                QColor(0x9aa8a1),       QColor(0x58c08a), QColor(0x0f1c15),
                                QColor(0x2c463a),       QColor(0xff8a80), QColor(0xf0b35a),
                                QColor(0x58c08a)};
    return theme;
}

const Theme &Theme::byName(const QString &name) {
    return name == dark().name ? dark() : light();
}

const Theme &Theme::current() {
    return inUse != nullptr ? *inUse : light();
}

void applyTheme(QApplication &application, const Theme &theme) {
    inUse = &theme;
    loadIcons(); // the sheet names some
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    application.setFont(programFont());
    application.setPalette(paletteOf(theme));
    application.setStyleSheet(styleSheetOf(theme));
}

} // namespace jxc

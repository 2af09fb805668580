#pragma once

#include "master/record_list.h"
#include "ui/list_form.h"
#include "ui/record_editor.h"

#include <QPointer>

class QCheckBox;
class QMenu;

namespace jxc {

/// The list of one kind of master data: add, change, delete, search, print, export, import and the
/// small lists behind its fields.
class MasterForm : public ListForm {
    Q_OBJECT
public:
    MasterForm(const FormContext &context, const MasterKind &kind, QWidget *parent);

    [[nodiscard]] const MasterKind &kind() const { return m_kind; }
    /// The editor that is open; null without one.
    [[nodiscard]] RecordEditor *editor() const { return m_editor; }

public Q_SLOTS:
    void btnAddClick();
    void btnModiClick();
    void btnDeleClick();
    void btnImportClick();

protected:
    Rows read(const QString &search) override;
    /// What narrows the list beside the search.
    [[nodiscard]] virtual std::vector<ListFilter> filters() const { return {}; }
    /// A new row, before the editor shows it.
    virtual void prepareNew(RecordEditor &editor);
    /// After a row was deleted.
    virtual void deleted(const QString &code) { Q_UNUSED(code) }
    [[nodiscard]] qint64 currentId() const;
    void openEditor(RecordEditor *editor);

    // The groups of buttons, for forms that put their own between them.
    void addRowActions();
    void addListActions();
    /// A button that opens a form which may not be part of this program; it is disabled then.
    QAction *addLink(const char16_t *name, const QString &caption, const QKeySequence &key,
                     const QString &form);
    /// A further list or setting behind 基础资料.
    void addToLists(const QString &caption, const QString &form);
    /// Into the line between buttons and grid.
    void addFilter(QWidget *filter);

private:
    void showKindColumns();
    void addDisabledBox();
    void addSmallLists();
    void addListsButton();

    const MasterKind &m_kind;
    QCheckBox *m_disabled = nullptr;
    QMenu *m_lists = nullptr; ///< behind 基础资料
    QPointer<RecordEditor> m_editor;
};

/// The form of a kind as the menu calls it, with all common buttons.
class PlainMasterForm : public MasterForm {
    Q_OBJECT
public:
    PlainMasterForm(const FormContext &context, const MasterKind &kind, QWidget *parent);
};

/// The columns of a kind's list.
[[nodiscard]] ColumnSpecs masterColumns(const MasterKind &kind);

} // namespace jxc

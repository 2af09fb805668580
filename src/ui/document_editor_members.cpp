// The member that a sale or return names: whom the card belongs to, and what leaves it.
#include "core/action.h"
#include "core/session.h"
#include "retail/document_tenders.h"
#include "retail/member_card.h"
#include "ui/card_password.h"
#include "ui/document_editor.h"
#include "ui/header_panel.h"
#include "ui/line_table.h"
#include "ui/settlement_panel.h"

#include <QAction>

namespace jxc {

/// By key from anywhere: most sales have no member, so Enter passes the field over.
void DocumentEditor::addMemberKey() {
    if (m_header->widget(HeaderField::member) == nullptr)
        return;
    auto *action = new QAction(QStringLiteral("会员"), this);
    action->setObjectName(QStringLiteral("btnMember"));
    action->setShortcut(QKeySequence(QStringLiteral("Ctrl+M")));
    connect(action, &QAction::triggered, this, &DocumentEditor::btnMemberClick);
    addAction(action);
}

void DocumentEditor::btnMemberClick() {
    m_table->commitEditor();
    m_header->focusField(HeaderField::member);
}

void DocumentEditor::memberChanged() {
    m_agreed.clear();
    if (m_settlement != nullptr)
        m_settlement->setMember(m_header->member());
}

void DocumentEditor::lockMember() {
    if (!m_spec.isReturn)
        return;
    const std::vector<DraftLine> typed = lines().lines();
    m_header->lockMember(std::any_of(typed.begin(), typed.end(), [](const DraftLine &line) {
        return !line.sourceNumber.isEmpty();
    }));
}

bool DocumentEditor::memberPays(const Draft &typed) {
    const auto member =
        typed.member.isEmpty() ? std::nullopt : findMember(session().db(), typed.member);
    if (!member)
        return true;
    const Tenders &tenders = typed.tenders;
    try {
        checkDocumentTenders(session(), *member,
                             {typed.paid.value_or(m_settlement->due()),
                              {.bankCard = tenders.bankCard,
                               .storedValue = tenders.storedValue,
                               .voucher = tenders.voucher},
                              tenders.method},
                             m_spec.isReturn);
    } catch (const Refusal &no) {
        prompter().inform(no.text(), informCaption);
        m_settlement->focusTenders();
        return false;
    }
    if (m_spec.isReturn || tenders.storedValue.isZero() || isMemberPassword(*member, {}) ||
        m_agreed == member->key)
        return true;
    // What was agreed to when the draft was stored needs no password again.
    const auto stored = typed.number.isEmpty() ? std::nullopt : loadDraft(session(), typed.number);
    if (stored && stored->member == member->key &&
        stored->tenders.storedValue >= tenders.storedValue)
        return true;
    const auto password = askCardPassword(
        context(), member->name,
        [&](const QString &given) { return isMemberPassword(*member, given); }, this);
    if (password)
        m_agreed = member->key;
    return password.has_value();
}

} // namespace jxc

#include "retail/forms/tf_dhzp_add.h"

#include "core/action.h"
#include "core/session.h"
#include "master/finders.h"
#include "master/kind_parts.h"
#include "master/record.h"
#include "retail/exchange_query.h"
#include "retail/member_card.h"
#include "ui/card_password.h"
#include "ui/date_field.h"
#include "ui/formats.h"
#include "ui/member_source.h"
#include "ui/pick_field.h"
#include "ui/pick_sources.h"
#include "ui/record_table.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QRegularExpression>
#include <QStyle>

namespace jxc {

namespace {

constexpr int mostOffered = 50;

MasterField shown(const char16_t *name, const char16_t *caption, ValueKind kind) {
    MasterField field{QString::fromUtf16(name), kind, QString::fromUtf16(caption)};
    field.readOnly = true;
    return field;
}

/// A line: which gift and how many are typed; the rest follows.
std::vector<MasterField> lineFields() {
    MasterField gift{QStringLiteral("g_sn"), ValueKind::text, QStringLiteral("赠品")};
    gift.required = true;
    gift.pick = pickCode(u"jxc_goods", u"g_sn", u"g_name", u"g_name");
    MasterField quantity{QStringLiteral("dh_sl"), ValueKind::quantity, QStringLiteral("数量")};
    quantity.notNegative = true;
    return {gift,
            shown(u"gg_name", u"规格", ValueKind::text),
            shown(u"dw_name", u"单位", ValueKind::text),
            shown(u"kc_sl", u"库存", ValueKind::quantity),
            shown(u"dh_zpjf", u"兑换积分", ValueKind::integer),
            quantity,
            shown(u"dh_jf", u"积分", ValueKind::integer)};
}

Decimal figureOf(const Record &record, QStringView column) {
    return record.text(column).isEmpty() ? Decimal() : record.decimal(column);
}

} // namespace

TF_Dhzp_Add::TF_Dhzp_Add(const FormContext &context, QWidget *parent)
    : PlainEditor(context, QStringLiteral("TF_Dhzp_Add"), QStringLiteral("新增积分兑换"), parent) {
    addFields();
    addLines();
    allowContinuing();
    startAnew();
    resize(880, 560);
}

void TF_Dhzp_Add::addFields() {
    fields()->setVerticalSpacing(8);
    const Formats formats(session().parameters);
    m_date = new DateField(session().today());
    m_date->setReadOnly(!session().rights.changeDate);
    m_member = new PickField(memberSource(context()), formats);
    m_member->setPlaceholderText(QStringLiteral("卡号、手机、姓名或简码"));
    m_points = new QLabel;
    m_points->setObjectName(QStringLiteral("points"));
    m_warehouse = new PickField(warehouseSource(context()), formats);
    m_note = new QLineEdit;
    m_note->setMaxLength(200);
    m_note->setPlaceholderText(QStringLiteral("F2 常用备注"));
    const auto add = [&](const QString &caption, QLineEdit *field) {
        field->setObjectName(caption);
        fields()->addRow(caption, field);
        if (auto *pick = qobject_cast<PickField *>(field))
            connect(pick, &PickField::notFound, this, [this, caption] {
                prompter().inform(caption + QStringLiteral("不存在！"), informCaption);
            });
    };
    add(QStringLiteral("会员"), m_member);
    fields()->addRow(QString(), m_points);
    add(QStringLiteral("仓库"), m_warehouse);
    add(QStringLiteral("兑换日期"), m_date);
    add(QStringLiteral("备注"), m_note);
    connect(m_member, &PickField::chosen, this, &TF_Dhzp_Add::takeMember);
    connect(m_warehouse, &PickField::chosen, this, [this] {
        for (int row = 0; !m_rows->isBlank(row); ++row)
            completeLine(row);
    });
}

void TF_Dhzp_Add::addLines() {
    auto *below = new QWidget(this);
    auto *box = new QVBoxLayout(below);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(8);
    m_rows = new RecordRows(
        lineFields(), Formats(session().parameters), [] { return Record(); }, this);
    m_table = new RecordTable(context(), QStringLiteral("TF_Dhzp_Add"), QStringLiteral("jxc_dhzp"),
                              m_rows, below);
    PickSource gifts;
    gifts.columns = {text(u"g_sn", u"商品编号", 104),
                     text(u"g_name", u"赠品名称", 176),
                     text(u"gg_name", u"规格", 96),
                     text(u"dw_name", u"单位", 56),
                     column(u"g_zpjf", u"兑换积分", ValueKind::integer, 80),
                     column(u"kc_sl", u"库存", ValueKind::quantity, 80)};
    gifts.codeField = QStringLiteral("g_sn");
    gifts.nameField = QStringLiteral("g_name");
    gifts.search = [this](const QString &typed) {
        return findGifts(session(), typed, m_warehouse->code(), mostOffered);
    };
    gifts.find = [this](const QString &code) {
        return giftRow(session(), code, m_warehouse->code());
    };
    m_table->setPickSource(QStringLiteral("g_sn"), gifts);
    m_table->setContextMenuPolicy(Qt::NoContextMenu);
    const int widths[] = {240, 104, 60, 84, 84, 84};
    for (int place = 0; const int width : widths)
        m_table->setColumnWidth(place++, width);
    m_sums = new QLabel;
    m_sums->setObjectName(QStringLiteral("sums"));
    m_sums->setAlignment(Qt::AlignRight);
    box->addWidget(m_table, 1);
    box->addWidget(m_sums);
    below->setFocusProxy(m_table);
    addBelowFields(below);
    static_cast<QBoxLayout *>(layout())->setStretch(0, 0); // the lines get all the room
    m_rows->setDanger([](const Record &line, const MasterField &field) {
        return field.column == u"kc_sl" && figureOf(line, u"dh_sl") > figureOf(line, u"kc_sl");
    });
    connect(m_rows, &RecordRows::edited, this, &TF_Dhzp_Add::completeLine);
    connect(m_table, &RecordTable::finished, this, [this] {
        m_table->clearSelection();
        findChild<QWidget *>(QStringLiteral("btnOK"))->setFocus();
    });
}

void TF_Dhzp_Add::startAnew() {
    m_rows->setRecords({});
    m_member->setChoice({}, {});
    m_note->clear();
    m_date->setDate(session().today());
    if (m_warehouse->code().isEmpty())
        for (const Found &usual : findNamed(session(), Sought::warehouse, {}))
            if (usual.isDefault)
                m_warehouse->setChoice(usual.code, usual.name);
    takeMember();
}

void TF_Dhzp_Add::takeMember() {
    m_password.clear();
    m_chosen = m_member->code().isEmpty() ? std::nullopt : findMember(db(), m_member->code());
    showSums();
}

/// What follows from the gift and the quantity.
void TF_Dhzp_Add::completeLine(int row) {
    if (m_completing)
        return;
    if (!m_rows->isBlank(row)) {
        Record line = m_rows->record(row);
        const QString goods = line.text(u"g_sn");
        const auto gift =
            goods.isEmpty() ? std::nullopt : giftRow(session(), goods, m_warehouse->code());
        line.set(QStringLiteral("gg_name"), gift ? gift->text(u"gg_name") : QString());
        line.set(QStringLiteral("dw_name"), gift ? gift->text(u"dw_name") : QString());
        line.set(QStringLiteral("kc_sl"), gift ? gift->decimal(u"kc_sl").toText() : QString());
        const Decimal each = gift ? gift->decimal(u"g_zpjf") : Decimal();
        line.set(QStringLiteral("dh_zpjf"), each.toText());
        line.set(QStringLiteral("dh_jf"), pointsFor(each, figureOf(line, u"dh_sl")).toText());
        m_completing = true;
        m_rows->setRecord(row, line);
        m_completing = false;
    }
    showSums();
}

void TF_Dhzp_Add::showSums() {
    const Formats formats(session().parameters);
    const auto points = [&](Decimal value) { return formats.text(ValueKind::integer, value); };
    Decimal quantity, sum;
    for (const Record &line : m_rows->records()) {
        quantity += figureOf(line, u"dh_sl");
        sum += figureOf(line, u"dh_jf");
    }
    m_points->setText(
        m_chosen
            ? QStringLiteral("卡号 %1　可用积分 %2").arg(m_chosen->number, points(m_chosen->points))
            : QStringLiteral("可用积分"));
    m_points->setProperty("quiet", !m_chosen.has_value());
    const Decimal rest = (m_chosen ? m_chosen->points : Decimal()) - sum;
    m_sums->setText(QStringLiteral("数量 %1　兑换积分 %2　剩余积分 %3")
                        .arg(formats.text(ValueKind::quantity, quantity), points(sum),
                             m_chosen ? points(rest) : QStringLiteral("—")));
    m_sums->setProperty("danger", m_chosen && rest.isNegative());
    for (QLabel *label : {m_points, m_sums}) {
        label->style()->unpolish(label);
        label->style()->polish(label);
    }
}

QStringList TF_Dhzp_Add::content() const {
    QStringList all{m_member->code(), m_warehouse->code(), m_date->text(), m_note->text()};
    for (const Record &line : m_rows->records())
        all << line.text(u"g_sn") + u' ' + line.text(u"dh_sl");
    return all;
}

/// What is being typed counts.
bool TF_Dhzp_Add::commit() {
    for (PickField *pick : {m_member, m_warehouse})
        if (pick->isTyped() && !pick->commitTyped()) {
            pick->setFocus();
            return false;
        }
    return m_table->commitEditor();
}

PointsExchange TF_Dhzp_Add::exchange() const {
    PointsExchange wanted{m_date->date(), m_member->code(), m_warehouse->code(),
                          m_note->text().trimmed()};
    for (const Record &line : m_rows->records())
        if (!line.text(u"g_sn").isEmpty() || !figureOf(line, u"dh_sl").isZero())
            wanted.lines.push_back({line.text(u"g_sn"), figureOf(line, u"dh_sl")});
    return wanted;
}

/// Once is enough, also when something else is refused then.
bool TF_Dhzp_Add::askPassword() {
    if (!m_chosen || isMemberPassword(*m_chosen, m_password))
        return true;
    const auto typed = askCardPassword(
        context(), m_chosen->name,
        [this](const QString &password) { return isMemberPassword(*m_chosen, password); }, this);
    m_password = typed.value_or(QString());
    return typed.has_value();
}

bool TF_Dhzp_Add::save() {
    if (!commit())
        return false;
    PointsExchange wanted = exchange();
    if (!wanted.member.isEmpty() && !wanted.lines.empty() && !askPassword())
        return false;
    wanted.password = m_password;
    QString number;
    const Outcome outcome = exchangePoints(session(), prompter(), wanted, &number);
    if (!show(outcome)) {
        m_chosen = findMember(db(), wanted.member); // his points may have changed meanwhile
        showSums();
        focusRefused(outcome.text);
        return false;
    }
    Q_EMIT stored(number, true);
    return true;
}

void TF_Dhzp_Add::focusRefused(const QString &text) {
    for (QLineEdit *field :
         {static_cast<QLineEdit *>(m_member), static_cast<QLineEdit *>(m_warehouse),
          static_cast<QLineEdit *>(m_date)})
        if (text.startsWith(field->objectName())) {
            field->setFocus();
            field->selectAll();
            return;
        }
    static const QRegularExpression lineNumber(QStringLiteral("^第(\\d+)行"));
    const int named = lineNumber.match(text).captured(1).toInt() - 1;
    for (int row = 0; !m_rows->isBlank(row); ++row)
        if (row == named || text.contains(u'“' + m_rows->record(row).text(u"g_name") + u'”')) {
            m_table->edit(row, m_rows->columnOf(u"dh_sl"));
            return;
        }
    if (m_rows->isBlank(0))
        m_table->startNewRow();
    else
        m_table->edit(0, m_rows->columnOf(u"dh_sl"));
}

void TF_Dhzp_Add::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_F2 && m_note->hasFocus())
        choosePhrase(context(), m_note);
    else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
             m_note->hasFocus())
        m_table->startNewRow();
    else
        PlainEditor::keyPressEvent(event);
}

} // namespace jxc

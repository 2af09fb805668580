#include "ui/document_lines.h"

#include "core/session.h"
#include "stock/expiry.h"
#include "ui/number_field.h"
#include "ui/theme.h"

#include <QColor>
#include <algorithm>

namespace jxc {

namespace {

const auto giftMark = QStringLiteral("(赠品)");
const auto neverExpires = QStringLiteral("0000-00");

QString shownExpiry(const QString &expiry) {
    return expiry == neverExpires ? QString() : expiry;
}

} // namespace

DocumentLines::DocumentLines(Session &session, std::vector<LineColumn> columns, QObject *parent)
    : QAbstractTableModel(parent)
    , m_session(session)
    , m_columns(std::move(columns)) {}

void DocumentLines::setColumns(std::vector<LineColumn> columns) {
    beginResetModel();
    m_columns = std::move(columns);
    endResetModel();
}

bool DocumentLines::isSale() const {
    return m_setting.code.startsWith(u'X');
}

bool DocumentLines::isOutbound() const {
    return m_setting.code == u"XS" || m_setting.code == u"CT" || m_setting.code == u"CK";
}

LineRequest DocumentLines::request(const DraftLine &line) const {
    return {m_setting.code, m_setting.partner, m_setting.warehouse, m_setting.date,
            line.goods,     line.unit,         line.barcode};
}

void DocumentLines::setSetting(const LineSetting &setting) {
    const bool moved = setting.warehouse != m_setting.warehouse;
    m_setting = setting;
    if (!moved)
        return;
    for (EditLine &line : m_lines) {
        if (line.isBlank())
            continue;
        line.typed.cost.reset();
        line = complete(line.typed);
    }
    if (!m_lines.empty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void DocumentLines::setLines(const std::vector<DraftLine> &lines) {
    beginResetModel();
    m_lines.clear();
    for (const DraftLine &line : lines)
        m_lines.push_back(complete(line));
    if (!m_followsSource && !m_readOnly)
        m_lines.emplace_back();
    endResetModel();
}

std::vector<DraftLine> DocumentLines::lines() const {
    std::vector<DraftLine> lines;
    for (const EditLine &line : m_lines)
        if (!line.isBlank())
            lines.push_back(line.typed);
    return lines;
}

/// What the eye wants beside a line that is known already.
EditLine DocumentLines::complete(const DraftLine &typed) {
    EditLine line{typed, {}, {}, {}};
    if (const auto info = proposeLine(m_session, request(typed)))
        line.info = *info;
    readBatches(line);
    compute(line);
    return line;
}

void DocumentLines::readBatches(EditLine &line) {
    if (isOutbound() && !m_readOnly)
        line.batches = batchesOut(m_session, line.typed.goods, m_setting.warehouse);
}

void DocumentLines::compute(EditLine &line) const {
    const Parameters &p = m_session.parameters;
    const Decimal rate = line.typed.taxRate.value_or(p.taxRate);
    line.amounts = lineAmounts(p, line.typed.quantity, line.typed.price, rate, line.typed.discount);
    if (line.typed.total)
        line.amounts.total = *line.typed.total;
}

void DocumentLines::keepBlankLine() {
    if (m_followsSource || m_readOnly || (!m_lines.empty() && m_lines.back().isBlank()))
        return;
    beginInsertRows({}, rowCount(), rowCount());
    m_lines.emplace_back();
    endInsertRows();
}

void DocumentLines::touched(int row) {
    compute(m_lines[static_cast<size_t>(row)]);
    Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
    Q_EMIT edited();
}

int DocumentLines::blankRow() const {
    return !m_lines.empty() && m_lines.back().isBlank() ? rowCount() - 1 : -1;
}

int DocumentLines::find(const QString &goods, const QString &unit, const Batch *batch) const {
    for (int row = 0; row < rowCount(); ++row) {
        const DraftLine &line = at(row).typed;
        if (line.goods == goods && (unit.isEmpty() || line.unit == unit) && line.gift.isEmpty() &&
            (batch == nullptr || line.batch == *batch))
            return row;
    }
    return -1;
}

bool DocumentLines::putGoods(int row, const QString &goods, const QString &barcode) {
    DraftLine line;
    line.goods = goods;
    line.barcode = barcode;
    const auto info = proposeLine(m_session, request(line));
    if (!info)
        return false;
    line.unit = info->unit;
    line.factor = info->factor;
    line.price = info->price;
    EditLine edit{line, *info, {}, {}};
    readBatches(edit);
    if (!edit.batches.empty())
        edit.typed.batch = edit.batches.front().batch;
    m_lines[static_cast<size_t>(row)] = std::move(edit);
    touched(row);
    keepBlankLine();
    return true;
}

void DocumentLines::append(const DraftLine &line) {
    insertAfter(blankRow() >= 0 ? blankRow() - 1 : rowCount() - 1, line);
}

void DocumentLines::insertAfter(int row, const DraftLine &line) {
    beginInsertRows({}, row + 1, row + 1);
    m_lines.insert(m_lines.begin() + (row + 1), complete(line)); // behind no row: the first
    endInsertRows();
    Q_EMIT edited();
}

void DocumentLines::remove(int row) {
    if (row < 0 || row >= rowCount() || isBlank(row))
        return;
    beginRemoveRows({}, row, row);
    m_lines.erase(m_lines.begin() + row);
    endRemoveRows();
    Q_EMIT edited();
}

void DocumentLines::change(int row, const std::function<void(DraftLine &)> &edit) {
    edit(m_lines[static_cast<size_t>(row)].typed);
    touched(row);
}

void DocumentLines::setUnit(int row, const QString &unit) {
    EditLine &line = m_lines[static_cast<size_t>(row)];
    const auto found = std::find_if(line.info.units.begin(), line.info.units.end(),
                                    [&](const UnitChoice &choice) { return choice.name == unit; });
    if (found == line.info.units.end() || unit == line.typed.unit)
        return;
    line.typed.unit = unit;
    line.typed.factor = found->factor;
    line.typed.barcode.clear();
    line.typed.total.reset();
    line.typed.cost.reset();
    if (const auto info = proposeLine(m_session, request(line.typed))) {
        line.info = *info;
        line.typed.price = line.typed.gift.isEmpty() ? info->price : Decimal();
    }
    touched(row);
}

void DocumentLines::nextUnit(int row) {
    const EditLine &line = at(row);
    const auto &units = line.info.units;
    if (units.size() < 2)
        return;
    size_t place = 0;
    while (place < units.size() && units[place].name != line.typed.unit)
        ++place;
    setUnit(row, units[(place + 1) % units.size()].name);
}

void DocumentLines::setGift(int row, bool on) {
    EditLine &line = m_lines[static_cast<size_t>(row)];
    line.typed.gift = on ? giftMark : QString();
    line.typed.price = on ? Decimal() : line.info.price;
    line.typed.total.reset();
    touched(row);
}

void DocumentLines::setBatch(int row, const Batch &batch) {
    change(row, [&](DraftLine &line) { line.batch = batch; });
}

std::vector<BatchChoice> DocumentLines::takenBesides(int row) const {
    std::vector<BatchChoice> taken;
    for (int other = 0; other < rowCount(); ++other) {
        const DraftLine &line = at(other).typed;
        if (other != row && line.goods == at(row).typed.goods)
            taken.push_back({line.batch, (line.quantity * line.factor).rounded(6), {}});
    }
    return taken;
}

void DocumentLines::splitOverBatches(int row) {
    const DraftLine line = at(row).typed;
    const auto parts =
        jxc::splitOverBatches(at(row).batches, line.quantity, line.factor, takenBesides(row));
    for (size_t i = parts.size(); i-- > 1;) {
        DraftLine further = line;
        further.batch = parts[i].batch;
        further.quantity = parts[i].quantity;
        further.total.reset();
        insertAfter(row, further);
    }
    if (!parts.empty())
        change(row, [&](DraftLine &first) {
            first.batch = parts.front().batch;
            first.quantity = parts.front().quantity;
            first.total.reset();
        });
}

Decimal DocumentLines::quantity() const {
    Decimal sum;
    for (const EditLine &line : m_lines)
        sum += line.typed.quantity;
    return sum;
}

Decimal DocumentLines::total() const {
    Decimal sum;
    for (const EditLine &line : m_lines)
        sum += line.amounts.total;
    return sum;
}

int DocumentLines::count() const {
    return static_cast<int>(std::count_if(m_lines.begin(), m_lines.end(),
                                          [](const EditLine &line) { return !line.isBlank(); }));
}

const Parameters &DocumentLines::formatsOf() const {
    return m_session.parameters;
}

QString DocumentLines::today() const {
    return m_session.today();
}

int DocumentLines::columnOf(LineField field) const {
    for (size_t i = 0; i < m_columns.size(); ++i)
        if (m_columns[i].field == field)
            return static_cast<int>(i);
    return -1;
}

int DocumentLines::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

int DocumentLines::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

Decimal DocumentLines::figure(const EditLine &line, LineField field) const {
    const DraftLine &typed = line.typed;
    switch (field) {
    case LineField::quantity:
        return typed.quantity;
    case LineField::price:
        return typed.price;
    case LineField::discount:
        return typed.discount;
    case LineField::discounted:
        return line.amounts.discounted;
    case LineField::taxRate:
        return typed.taxRate.value_or(m_session.parameters.taxRate);
    case LineField::tax:
        return line.amounts.tax;
    case LineField::total:
        return line.amounts.total;
    case LineField::stock:
        return line.info.stock;
    case LineField::retailPrice:
        return line.info.retailPrice;
    case LineField::cost:
        return typed.cost.value_or(line.info.cost);
    case LineField::profit:
        return line.amounts.amount - (typed.cost.value_or(line.info.cost) * typed.quantity)
                                         .rounded(m_session.parameters.amountDecimals);
    default:
        return {};
    }
}

QString DocumentLines::typedText(int row, LineField field) const {
    const EditLine &line = at(row);
    switch (field) {
    case LineField::goods:
        return line.typed.goods;
    case LineField::name:
        return line.info.name;
    case LineField::commonName:
        return line.info.commonName;
    case LineField::dosageForm:
        return line.info.dosageForm;
    case LineField::specification:
        return line.info.specification;
    case LineField::unit:
        return line.typed.unit.isEmpty() ? line.info.baseUnit : line.typed.unit;
    case LineField::maker:
        return line.info.maker;
    case LineField::licence:
        return line.info.licence;
    case LineField::gift:
        return line.typed.gift;
    case LineField::batch:
        return line.typed.batch.number;
    case LineField::produced:
        return line.typed.batch.produced;
    case LineField::expiry:
        return shownExpiry(line.typed.batch.expiry);
    case LineField::source:
        return line.typed.sourceNumber;
    case LineField::note:
        return line.typed.note;
    default:
        break;
    }
    return figure(line, field).toText();
}

QString DocumentLines::shown(const EditLine &line, const LineColumn &column) const {
    if (line.isBlank())
        return {};
    if (!isNumber(column.spec.kind))
        return typedText(static_cast<int>(&line - m_lines.data()), column.field);
    return Formats(m_session.parameters).text(column.spec.kind, figure(line, column.field));
}

/// What should strike the eye: more than is there, than is allowed, past its day, below cost.
bool DocumentLines::isAlarming(const EditLine &line, LineField field) const {
    const DraftLine &typed = line.typed;
    if (line.isBlank())
        return false;
    switch (field) {
    case LineField::quantity:
        return (m_setting.code == u"XS" && typed.quantity > line.info.stock && !m_readOnly) ||
               (m_setting.code == u"XS" && line.info.limit.isPositive() &&
                (typed.quantity * typed.factor).rounded(6) > line.info.limit);
    case LineField::price:
        return isSale() && m_session.rights.showCostPrice && typed.gift.isEmpty() &&
               line.amounts.discounted < line.info.cost;
    case LineField::expiry: {
        const QString expiry = shownExpiry(typed.batch.expiry);
        return !expiry.isEmpty() && expiry < m_session.today();
    }
    case LineField::name:
        return line.info.restricted; // its buyer is registered
    case LineField::stock:
        return line.info.stock.isNegative();
    default:
        return false;
    }
}

QVariant DocumentLines::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    const EditLine &line = at(index.row());
    const LineColumn &column = columnAt(index.column());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return shown(line, column);
    case Qt::EditRole:
        return line.isBlank() ? QString() : typedText(index.row(), column.field);
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter |
                   (isNumber(column.spec.kind) ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ForegroundRole:
        if (isAlarming(line, column.field))
            return Theme::current().danger;
        if (!column.editable)
            return Theme::current().textQuiet;
        return {};
    default:
        return {};
    }
}

QVariant DocumentLines::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical)
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    const LineColumn &column = columnAt(section);
    if (role == Qt::DisplayRole)
        return column.spec.caption;
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignVCenter |
                   (isNumber(column.spec.kind) ? Qt::AlignRight : Qt::AlignLeft));
    return {};
}

bool DocumentLines::isEditable(const EditLine &line, const LineColumn &column) const {
    if (m_readOnly || !column.editable)
        return false;
    if (line.isBlank())
        return column.field == LineField::goods;
    const bool money = column.field == LineField::price || column.field == LineField::total ||
                       column.field == LineField::discount;
    return !(money && !line.typed.gift.isEmpty());
}

Qt::ItemFlags DocumentLines::flags(const QModelIndex &index) const {
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    if (index.isValid() && isEditable(at(index.row()), columnAt(index.column())))
        flags |= Qt::ItemIsEditable;
    return flags;
}

void DocumentLines::typeInto(DraftLine &line, const LineProposal &info, LineField field,
                             const QString &text) const {
    const Parameters &p = m_session.parameters;
    switch (field) {
    case LineField::quantity:
        line.quantity = typedNumber(text);
        line.total.reset();
        break;
    case LineField::price:
        line.price = typedNumber(text);
        line.total.reset();
        break;
    case LineField::discount:
        line.discount = typedNumber(text);
        line.total.reset();
        break;
    case LineField::taxRate:
        line.taxRate = typedNumber(text);
        line.total.reset();
        break;
    case LineField::total: {
        // A typed amount stands; the price follows from it.
        const Decimal total = typedNumber(text).rounded(p.amountDecimals);
        const Decimal divisor = (line.quantity * line.discount).rounded(6);
        line.total = total;
        if (!divisor.isZero()) {
            const Decimal taxPrice = (total / divisor).rounded(p.priceDecimals);
            const Decimal rate = line.taxRate.value_or(p.taxRate);
            line.price =
                p.pricesIncludeTax || rate.isZero()
                    ? taxPrice
                    : (taxPrice * Decimal(100) / (Decimal(100) + rate)).rounded(p.priceDecimals);
        }
        break;
    }
    case LineField::cost:
        line.cost = typedNumber(text);
        break;
    case LineField::batch:
        line.batch.number = text.trimmed();
        break;
    case LineField::produced:
        line.batch.produced = text.trimmed();
        if (!line.batch.produced.isEmpty() && info.shelfLifeMonths > 0)
            line.batch.expiry = expiryAfter(line.batch.produced, info.shelfLifeMonths);
        break;
    case LineField::expiry:
        line.batch.expiry = text.trimmed();
        break;
    case LineField::note:
        line.note = text;
        break;
    default:
        break;
    }
}

bool DocumentLines::setData(const QModelIndex &index, const QVariant &value, int role) {
    if (role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable))
        return false;
    const LineField field = columnAt(index.column()).field;
    const QString text = value.toString();
    if (field == LineField::unit) {
        setUnit(index.row(), text);
        return true;
    }
    if (field == LineField::goods || text == typedText(index.row(), field))
        return false;
    EditLine &line = m_lines[static_cast<size_t>(index.row())];
    typeInto(line.typed, line.info, field, text);
    touched(index.row());
    return true;
}

} // namespace jxc

#include "ui/header_fields.h"

#include "db/schema.h"

namespace jxc {

QString captionOf(HeaderField field, const DocumentFormSpec &spec) {
    switch (field) {
    case HeaderField::date:
        return QStringLiteral("开单日期");
    case HeaderField::partner:
        return spec.partnerWord;
    case HeaderField::warehouse:
        return QStringLiteral("仓库");
    case HeaderField::clerk:
        return QStringLiteral("经手人");
    case HeaderField::supplierNumber:
        return QStringLiteral("原始单号");
    case HeaderField::invoiceNo:
        return QStringLiteral("发票号码");
    case HeaderField::invoiced:
        return QStringLiteral("发票金额");
    case HeaderField::freight:
        return QStringLiteral("运费");
    case HeaderField::packing:
        return QStringLiteral("包装费");
    case HeaderField::freightTerms:
        return QStringLiteral("运费方式");
    case HeaderField::member:
        return QStringLiteral("会员");
    case HeaderField::reminder:
        return QStringLiteral("提醒日期");
    case HeaderField::contract:
        return QStringLiteral("合同");
    case HeaderField::note:
        return QStringLiteral("备注");
    }
    return {};
}

int lengthOf(HeaderField field, const DocumentFormSpec &spec) {
    QString name = spec.kind->noteColumn;
    if (field == HeaderField::supplierNumber)
        name = QStringLiteral("j_sn2");
    else if (field == HeaderField::invoiceNo)
        name = spec.kind->prefix + QStringLiteral("_fpno");
    else if (field != HeaderField::note)
        return 20;
    const Column *stored = column(spec.kind->headerTable, name);
    return stored != nullptr && stored->length > 0 ? stored->length : 200;
}

bool isForLater(HeaderField field) {
    return field == HeaderField::contract;
}

} // namespace jxc

#!/usr/bin/env python3
"""Writes the print templates that the program ships, src/reports/templates/*.fr3.

The documents share their heading, foot and table; what tells them apart stands in DOCUMENTS below.
Behind them come the forms of the counter. Each template is a complete file of its own, for shops
change them one by one; those that are like no other are written by hand and only listed here.
"""
import pathlib
from xml.sax.saxutils import quoteattr

WIDTH = 217  # between the margins of 241 mm paper, whose edges hold the transport holes
HERE = pathlib.Path(__file__).resolve().parent.parent / "src/reports/templates"


def text(x, y, w, h, words, **more):
    attributes = "".join(f" {name}={quoteattr(str(value))}" for name, value in more.items())
    return f'    <text x="{x}" y="{y}" w="{w}" h="{h}"{attributes}>{words}</text>'


def column(field, caption, width, **more):
    attributes = "".join(f" {name}={quoteattr(str(value))}" for name, value in more.items())
    return f'      <col field="{field}" caption="{caption}" width="{width}"{attributes}/>'


def title(document, partner):
    number = document["number"]
    rows = [
        text(0, 0, WIDTH, 6, "[company.c_name]", size=12, align="center"),
        text(60, 6, WIDTH - 120, 7, document["title"], size=15, bold=1, align="center"),
        text(160, 7, 24, 5, "[var.again]", size=11, bold=1),
        text(185, 8, 32, 5, "第[page]页 共[pages]页", align="right"),
        text(0, 14, 88, 5, f"{partner}：[head.partner]", size=10),
        text(90, 14, 62, 5, "电话：[head.partner_tele]", size=10),
        text(155, 14, 62, 5, f"单号：[head.{number}]", size=10),
        text(0, 19, 88, 5, "地址：[head.partner_address]", size=10),
        text(90, 19, 62, 5, "仓库：[head.ck_name]", size=10),
        text(155, 19, 62, 5, "日期：[head.date]", size=10),
    ]
    return band("title", 25, rows, repeat=1)


def band(kind, height, rows, **more):
    attributes = "".join(f' {name}="{value}"' for name, value in more.items())
    return "\n".join([f'  <band type="{kind}" height="{height}"{attributes}>', *rows, "  </band>"])


def detail(columns):
    rows = ['    <table data="line" rowheight="5.5" fill="1">', *columns, "    </table>"]
    return band("detail", 0, rows, data="line")


def footer(document, shows_prices):
    note = "备注：[head.note]　[head.buyers]"
    if not (document["money"] and shows_prices):
        return band("footer", 6, [text(0, 1, WIDTH, 5, note, size=10)])
    due, paid, rest = document["money"]
    off = "优惠：[head.off]" if document["off"] else ""
    total = f"合计大写：[capital(sum(line.{document['line']}_zje))]"
    rows = [
        text(0, 1, 108, 5, total, size=10),
        text(110, 1, 33, 5, off, size=10),
        text(143, 1, 37, 5, f"{due}：[head.due]", size=10, bold=1),
        text(181, 1, 36, 5, f"{paid}：[head.paid]", size=10),
        text(0, 6, 108, 5, note, size=10),
        text(110, 6, 33, 5, f"{rest}：[head.rest]", size=10),
        text(143, 6, 37, 5, "上次余额：[head.before]", size=10),
        text(181, 6, 36, 5, "本次余额：[head.after]", size=10),
    ]
    return band("footer", 11, rows)


def page_footer(document):
    rows = [
        text(0, 1, 52, 5, "制单：[head.a_name]", size=10),
        text(54, 1, 52, 5, "经手人：[head.u_name]", size=10),
        text(108, 1, 52, 5, "审核：[head.checker]", size=10),
        text(162, 1, 55, 5, f"{document['signs']}：", size=10),
        text(0, 6, 120, 4, "[var.foot]"),
        text(120, 6, 97, 4, "电话：[company.c_tele]　地址：[company.c_address]", align="right"),
    ]
    return band("pagefooter", 10, rows)


def goods(line, code=True, maker=28, name=42, spec=22):
    """What stands before the figures; a maker of 0 leaves its column out."""
    columns = [
        column("no", "序", 7, align="center"),
        code and column("g_sn", "编号", 18),
        column("g_name", "商品名称", name, lines=2),
        column("gg_name", "规格", spec),
        maker and column("g_sccs", "生产厂商", maker),
        column("t_ph", "批号", 21),
        column("t_yxq", "有效期至", 20),
        column("dw_name", "单位", 10, align="center"),
        column(f"{line}_sl", "数量", 13, sum=1),
    ]
    return [c for c in columns if c]


def registration(document):
    """Where there are no prices, there is room for the registration number."""
    return [column("color_name", "登记证号", 24)] if document["registered"] else []


def plain_prices(line):
    return [column(f"{line}_taxdj", "单价", 16), column("discount", "折扣", 10, align="right"),
            column(f"{line}_zje", "金额", 20, sum=1)]


def tax_prices(line):
    return [column(f"{line}_dj", "不含税价", 17), column(f"{line}_je", "金额", 18, sum=1),
            column(f"{line}_tax", "税率", 9), column(f"{line}_taxje", "税额", 15, sum=1),
            column(f"{line}_zje", "价税合计", 20, sum=1)]


def columns_of(document, prices):
    line = document["line"]
    retail = [column(f"{line}_lsj", "零售价", 15)] if "retail" in prices else []
    if "tax" in prices:  # maker and code give way to the figures
        return goods(line, not retail, 0, 38, 20) + retail + tax_prices(line)
    if "plain" in prices:
        room = (22, 38, 19) if retail else (28, 42, 22)
        return goods(line, True, *room) + retail + plain_prices(line)
    last = column(document["note"], document["note_caption"], 30)
    return goods(line, maker=26) + registration(document) + [last]


def template(document, prices):
    parts = [title(document, document["partner"]), detail(columns_of(document, prices)),
             footer(document, bool(prices)), page_footer(document)]
    head = (f'<?xml version="1.0" encoding="UTF-8"?>\n<report name="{document["title"]}" '
            'paper="241x140" margins="12,5,12,5">\n')
    return head + "\n".join(parts) + "\n</report>\n"


def document(name, number, line, partner, signs, money=None, off=False, source=None,
             registered=False):
    """`source`: the column with the document whose goods come in or go out."""
    return {"title": name, "number": number, "line": line, "partner": partner, "signs": signs,
            "money": money, "off": off, "registered": registered,
            "note": source or f"{line}_bz", "note_caption": "相关单号" if source else "备注"}


RECEIPT = document("采购进货单", "j_sn", "jh", "供货商", "验收", ("应付", "已付", "未付"), True,
                   registered=True)
PURCHASE_RETURN = document("采购退货单", "gl_djh", "th", "供货商", "供货商签收",
                           ("应退", "已退", "未退"))
GOODS_IN = document("商品入库单", "gl_djh", "rk", "供货商", "验收", source="j_sn", registered=True)
SALE = document("商品销售单", "gl_djh", "ls", "客户", "客户签收", ("应收", "已收", "未收"), True)
SALES_RETURN = document("顾客退货单", "gl_djh", "th", "客户", "客户签字", ("应退", "已退", "未退"))
GOODS_OUT = document("商品出库单", "gl_djh", "ck", "客户", "提货人签收", source="gl_djh2",
                     registered=True)

SALE_VARIANTS = {"": ["plain"], "2": ["tax"], "3": ["plain", "retail"], "4": ["tax", "retail"]}
TEMPLATES = {
    "cgjh": (RECEIPT, ["plain"]), "cgjh2": (RECEIPT, []),
    "cgth": (PURCHASE_RETURN, ["plain"]), "cgth2": (PURCHASE_RETURN, []),
    "cgrk": (GOODS_IN, []), "spck": (GOODS_OUT, []),
    **{f"spxs{n}": (SALE, prices) for n, prices in SALE_VARIANTS.items()},
    **{f"xsth{n}": (SALES_RETURN, prices) for n, prices in SALE_VARIANTS.items()},
}



def report(name, paper, margins, parts):
    head = (f'<?xml version="1.0" encoding="UTF-8"?>\n<report name="{name}" paper="{paper}" '
            f'margins="{margins}">\n')
    return head + "\n".join(parts) + "\n</report>\n"


def table(columns, height, **more):
    attributes = "".join(f' {name}="{value}"' for name, value in more.items())
    rows = [f'    <table data="line" rowheight="{height}"{attributes}>', *columns, "    </table>"]
    return band("detail", 0, rows, data="line")


def shift_slip():
    width = 74
    title = [
        text(0, 0, width, 6, "[var.bt1]", size=12, bold=1, align="center"),
        text(0, 7, width, 6, "交班单[var.again]", size=11, bold=1, align="center"),
        text(0, 14, width, 4, "收银员：[head.a_name]　接班：[head.jb_nextuser]"),
        text(0, 18, width, 4, "上班：[head.jb_begintime]"),
        text(0, 22, width, 4, "交班：[head.jb_endtime]"),
    ]
    columns = [column("caption", "项目", 40), column("amount", "金额", 34, align="right")]
    footer = [
        text(0, 1, width, 4, "备注：[head.jb_note]"),
        text(0, 8, width, 5, "交班人签字："),
        text(0, 18, width, 5, "接班人签字："),
    ]
    return report("交班单", "80", "3,3,3,3", [band("title", 27, title, repeat=0),
                                              table(columns, 5), band("footer", 26, footer)])


def till_cash_list():
    width = 180
    title = [
        text(0, 0, width, 6, "[company.c_name]", size=12, align="center"),
        text(40, 6, 100, 8, "收银员出入款", size=16, bold=1, align="center"),
        text(145, 8, 35, 5, "第[page]页 共[pages]页", align="right"),
        text(0, 16, 110, 5, "期间：[var.date1] 至 [var.date2]", size=10),
        text(110, 16, 70, 5, "收银员：[var.cashier]", size=10, align="right"),
    ]
    columns = [column("no", "序", 10, align="center"), column("gl_djh", "单号", 34),
               column("crk_rq", "日期", 24), column("kind", "类型", 22),
               column("rkje", "入款金额", 26, sum=1), column("ckje", "出款金额", 26, sum=1),
               column("a_name", "收银员", 18), column("crk_note", "备注", 20, lines=2)]
    footer = [
        text(0, 2, width, 6, "结余（入款减出款）：[var.rest]", size=11, bold=1),
        text(0, 10, 90, 5, "制表：[var.a_name]", size=10),
        text(90, 10, 90, 5, "日期：[var.today]", size=10, align="right"),
    ]
    return report("收银员出入款", "A4", "15,12,15,12", [band("title", 22, title, repeat=1),
                                                  table(columns, 6), band("footer", 16, footer)])


OF_THE_COUNTER = {"poshb": shift_slip, "poscrk": till_cash_list}


def main():
    HERE.mkdir(exist_ok=True)
    for name, (what, prices) in TEMPLATES.items():
        (HERE / f"{name}.fr3").write_text(template(what, prices), encoding="utf-8")
    for name, write in OF_THE_COUNTER.items():
        (HERE / f"{name}.fr3").write_text(write(), encoding="utf-8")
    listed = "".join(f'    <file alias="{file.name}">templates/{file.name}</file>\n'
                     for file in sorted(HERE.glob("*.fr3")))
    (HERE.parent / "templates.qrc").write_text(
        f'<RCC>\n  <qresource prefix="/report">\n{listed}  </qresource>\n</RCC>\n', encoding="utf-8")


if __name__ == "__main__":
    main()

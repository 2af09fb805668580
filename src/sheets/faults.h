#pragma once

#include "sheets/sheet.h"

namespace jxc {

// What is wrong with a file, in the words the user is shown.

inline SheetError damagedFile() {
    return SheetError(QStringLiteral("文件已损坏或不完整，不能读取！"));
}
inline SheetError encryptedFile() {
    return SheetError(QStringLiteral("文件有密码保护，请用表格软件打开、取消密码并保存后再试！"));
}
inline SheetError tooLargeFile() {
    return SheetError(QStringLiteral("文件太大，不能读取，请分成几个文件！"));
}
inline SheetError unknownFile() {
    return SheetError(QStringLiteral("不是表格文件，请另存为 xlsx、xls 或 csv 格式！"));
}

} // namespace jxc

#include "retail/forms/counter_keys.h"

#include <QHash>
#include <QKeyEvent>
#include <QKeySequence>

namespace jxc {

int keyOfVirtualKey(int code) {
    static const QHash<int, int> known = {
        {8, Qt::Key_Backspace},      {9, Qt::Key_Tab},           {32, Qt::Key_Space},
        {33, Qt::Key_PageUp},        {34, Qt::Key_PageDown},     {35, Qt::Key_End},
        {36, Qt::Key_Home},          {45, Qt::Key_Insert},       {46, Qt::Key_Delete},
        {106, Qt::Key_Asterisk},     {107, Qt::Key_Plus},        {109, Qt::Key_Minus},
        {111, Qt::Key_Slash},        {186, Qt::Key_Semicolon},   {187, Qt::Key_Equal},
        {188, Qt::Key_Comma},        {189, Qt::Key_Minus},       {191, Qt::Key_Slash},
        {192, Qt::Key_QuoteLeft},    {219, Qt::Key_BracketLeft}, {220, Qt::Key_Backslash},
        {221, Qt::Key_BracketRight}, {222, Qt::Key_Apostrophe}};
    if (code >= 112 && code <= 123)
        return Qt::Key_F1 + (code - 112);
    if (code >= 65 && code <= 90)
        return Qt::Key_A + (code - 65);
    return known.value(code, 0);
}

int virtualKeyOf(int key) {
    // Minus and divide stand twice, the keypad's first: either key finds its function.
    for (int code = 1; code < 256; ++code)
        if (keyOfVirtualKey(code) == key && key != 0)
            return code;
    return 0;
}

QString nameOfVirtualKey(int code) {
    switch (code) {
    case 34:
        return QStringLiteral("PgDn");
    case 33:
        return QStringLiteral("PgUp");
    case 46:
        return QStringLiteral("Del");
    default:
        return QKeySequence(keyOfVirtualKey(code)).toString(QKeySequence::NativeText);
    }
}

QString functionOfKey(const CounterSettings &settings, const QKeyEvent &key) {
    if ((key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != Qt::NoModifier)
        return {};
    for (const CounterKey &one : settings.keys)
        if (keyOfVirtualKey(one.virtualKey) == key.key())
            return one.function;
    return {};
}

} // namespace jxc

// What a screen reader, or a program on the accessibility bus, is told of a control.
#pragma once

#include <QAccessible>
#include <QWidget>

namespace zv::test {

inline QAccessibleInterface& Accesible(QWidget& control) {
    return *QAccessible::queryAccessibleInterface(&control);
}
inline QString NombreDe(QWidget& control) {
    return Accesible(control).text(QAccessible::Name);
}
inline QAccessible::Role PapelDe(QWidget& control) {
    return Accesible(control).role();
}

} // namespace zv::test

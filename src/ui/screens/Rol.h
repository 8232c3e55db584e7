// What kind of control a widget is, for screen readers and for programs on the accessibility bus:
// Qt takes one that it does not know for a mere filler.
#pragma once

#include <QAccessible>

class QWidget;

namespace zv {

// To be called first: Qt decides when the control is named or shown.
void PonerRol(QWidget& control, QAccessible::Role rol);

} // namespace zv

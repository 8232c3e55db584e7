#include "ui/screens/Rol.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace zv {

namespace {

constexpr const char* kPropiedad = "rolAccesible";

// Asked by Qt for each object before its own tables.
QAccessibleInterface* Fabricar(const QString& /*clase*/, QObject* objeto) {
    auto* control = qobject_cast<QWidget*>(objeto);
    const QVariant rol = control == nullptr ? QVariant() : control->property(kPropiedad);
    return rol.isValid()
               ? new QAccessibleWidget(control, static_cast<QAccessible::Role>(rol.toInt()))
               : nullptr;
}

} // namespace

void PonerRol(QWidget& control, QAccessible::Role rol) {
    QAccessible::installFactory(Fabricar); // once, however often
    control.setProperty(kPropiedad, static_cast<int>(rol));
}

} // namespace zv

// Compares a screen built without a language file with the same one built with the English file:
// whatever an operator reads, or hears read aloud, must have changed.
#pragma once

#include "platform/StringLiterals.h"
#include "support/IdiomaIngles.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QRegularExpression>
#include <QWidget>

namespace zv::test {

inline bool TieneLetras(const QString& texto) {
    return texto.contains(QRegularExpression(u"\\p{L}"_s));
}

// Caption of a label or a button; nothing for other controls.
inline QString CaptionDe(const QWidget& control) {
    if (const auto* etiqueta = qobject_cast<const QLabel*>(&control)) {
        return etiqueta->text();
    }
    const auto* boton = qobject_cast<const QAbstractButton*>(&control);
    return boton != nullptr ? boton->text() : QString();
}

// A caption in one line, however its screen breaks it.
inline QString EnUnaLinea(QString caption) {
    return caption.replace(QChar(u'¬'), QLatin1Char(' ')).simplified();
}

// iguales: names of controls whose texts are the same in both languages.
inline void ComprobarEnIngles(QWidget& castellana, QWidget& inglesa,
                              const QStringList& iguales = {}) {
    const IdiomaIngles idioma;
    int vistos = 0;
    for (QWidget* control : castellana.findChildren<QWidget*>()) {
        const QString nombre = control->objectName();
        if (nombre.startsWith(QLatin1String("qt_")) || iguales.contains(nombre)) {
            continue;
        }
        const std::string donde =
            (castellana.objectName() + QLatin1Char(' ') + nombre).toStdString();
        const QString caption = EnUnaLinea(CaptionDe(*control));
        if (nombre.isEmpty()) {
            EXPECT_FALSE(TieneLetras(caption)) << donde << ": " << caption.toStdString();
            continue;
        }
        auto* otro = inglesa.findChild<QWidget*>(nombre);
        ASSERT_NE(otro, nullptr) << donde;
        if (TieneLetras(caption)) {
            const auto valor = idioma.documento.Valor(castellana.objectName(), nombre);
            EXPECT_TRUE(valor.has_value()) << donde;
            EXPECT_EQ(EnUnaLinea(CaptionDe(*otro)).toStdString(),
                      EnUnaLinea(valor.value_or(QString())).toStdString())
                << donde;
            EXPECT_NE(EnUnaLinea(CaptionDe(*otro)), caption) << donde;
            ++vistos;
        }
        if (TieneLetras(control->accessibleName())) {
            EXPECT_NE(otro->accessibleName(), control->accessibleName()) << donde;
        }
        if (TieneLetras(control->toolTip())) {
            EXPECT_NE(otro->toolTip(), control->toolTip()) << donde;
        }
    }
    EXPECT_GT(vistos, 0);
}

} // namespace zv::test

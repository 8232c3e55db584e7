// Which controls have captions that may be translated, and how keystrokes are sent.
#include "ui/screens/Traduccion.h"

#include "platform/StringLiterals.h"
#include "ui/Claves.h"
#include "ui/Textos.h"
#include "ui/screens/Tema.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QRadioButton>

#include <utility>

namespace zv {

namespace {

bool EsBotonConCaption(const QAbstractButton* boton) {
    return boton != nullptr && qobject_cast<const QCheckBox*>(boton) == nullptr &&
           qobject_cast<const QRadioButton*>(boton) == nullptr;
}

// 0 for a name that is no key.
int TeclaDeNombre(const QString& nombre) {
    static constexpr std::pair<const char*, int> kTeclas[] = {
        {"TAB", Qt::Key_Tab},       {"BACKSPACE", Qt::Key_Backspace},
        {"BS", Qt::Key_Backspace},  {"BKSP", Qt::Key_Backspace},
        {"ENTER", Qt::Key_Return},  {"ESC", Qt::Key_Escape},
        {"DELETE", Qt::Key_Delete}, {"DEL", Qt::Key_Delete},
        {"HOME", Qt::Key_Home},     {"END", Qt::Key_End},
        {"LEFT", Qt::Key_Left},     {"RIGHT", Qt::Key_Right},
        {"UP", Qt::Key_Up},         {"DOWN", Qt::Key_Down}};
    for (const auto& [clave, tecla] : kTeclas) {
        if (nombre.compare(QLatin1String(clave), Qt::CaseInsensitive) == 0) {
            return tecla;
        }
    }
    return 0;
}

QWidget* Destino() {
    if (QWidget* foco = QApplication::focusWidget()) {
        return foco;
    }
    // No window is active, as when another program is in front: the one that would be.
    const QWidget* ventana = QApplication::activeModalWidget();
    return ventana != nullptr ? ventana->focusWidget() : nullptr;
}

void Enviar(int tecla, const QString& texto) {
    // A key may move the focus or close the window: each one looks for its control again.
    const QPointer<QWidget> destino = Destino();
    if (!destino) {
        return;
    }
    QKeyEvent pulsar(QEvent::KeyPress, tecla, Qt::NoModifier, texto);
    QCoreApplication::sendEvent(destino, &pulsar);
    if (!destino) {
        return;
    }
    QKeyEvent soltar(QEvent::KeyRelease, tecla, Qt::NoModifier, texto);
    QCoreApplication::sendEvent(destino, &soltar);
}

QString TextoDeTecla(int tecla) {
    switch (tecla) {
    case Qt::Key_Tab:
        return u"\t"_s;
    case Qt::Key_Backspace:
        return u"\b"_s;
    case Qt::Key_Return:
        return u"\r"_s;
    case Qt::Key_Escape:
        return u"\x1b"_s;
    case Qt::Key_Delete:
        return u"\x7f"_s;
    default:
        return {};
    }
}

void EnviarCaracter(const QString& caracter) {
    const QChar c = caracter.at(0).toUpper();
    Enviar(c.unicode() <= 0xff ? c.unicode() : int{Qt::Key_unknown}, caracter);
}

} // namespace

void PonerCaption(QWidget& control, const QString& caption) {
    const QString rotulo = tema::Rotulo(caption);
    if (auto* etiqueta = qobject_cast<QLabel*>(&control)) {
        etiqueta->setText(rotulo);
    } else if (auto* boton = qobject_cast<QAbstractButton*>(&control)) {
        boton->setText(rotulo);
        // A picture button is read aloud, and explained, by this name; others by their text.
        if (!boton->accessibleName().isEmpty() && !rotulo.trimmed().isEmpty()) {
            const QString nombre = QString(rotulo).replace(QLatin1Char('\n'), QLatin1Char(' '));
            if (boton->toolTip() == boton->accessibleName()) {
                boton->setToolTip(nombre);
            }
            boton->setAccessibleName(nombre);
        }
    }
}

void PonerTexto(QWidget& control, const Textos& textos, const Clave& clave) {
    PonerCaption(control, textos.Traduce(clave));
}

void TraducirVentana(QWidget& pantalla, const Textos& textos) {
    pantalla.setWindowTitle(textos.Traduce(texto::kTituloVentana));
}

void TraducirPantalla(QWidget& pantalla, const Textos& textos) {
    TraducirVentana(pantalla, textos);
    const QString nombre = pantalla.objectName();
    const auto controles = pantalla.findChildren<QWidget*>();
    for (QWidget* control : controles) {
        const QString clave = control->objectName();
        // Qt's own parts of a control have no name or one of Qt's.
        if (clave.isEmpty() || clave.startsWith(QLatin1String("qt_")) ||
            control->window() != pantalla.window()) {
            continue;
        }
        QString caption;
        if (const auto* etiqueta = qobject_cast<QLabel*>(control)) {
            caption = etiqueta->text();
        } else if (const auto* boton = qobject_cast<QAbstractButton*>(control);
                   EsBotonConCaption(boton)) {
            caption = boton->text();
        } else {
            continue;
        }
        const QString traducido = textos.TextoForm(nombre, clave, caption);
        if (traducido != caption || traducido.contains(QChar(u'¬'))) {
            PonerCaption(*control, traducido);
        }
    }
}

void EnviaTeclas(const QString& teclas, bool) {
    for (qsizetype i = 0; i < teclas.size(); ++i) {
        if (teclas[i] == QLatin1Char('{')) {
            // The name has a character at least, so that "{}}" is a closing brace.
            const qsizetype fin = teclas.indexOf(QLatin1Char('}'), i + 2);
            const QString nombre = fin > 0 ? teclas.mid(i + 1, fin - i - 1) : QString();
            const int tecla = TeclaDeNombre(nombre);
            if (tecla != 0) {
                Enviar(tecla, TextoDeTecla(tecla));
            } else if (nombre.size() == 1) {
                EnviarCaracter(nombre);
            }
            if (fin > 0) {
                i = fin;
                continue;
            }
        }
        const bool par = teclas[i].isHighSurrogate() && i + 1 < teclas.size();
        EnviarCaracter(teclas.mid(i, par ? 2 : 1));
        i += par ? 1 : 0;
    }
}

} // namespace zv

#include "ui/screens/Traduccion.h"

#include "platform/StringLiterals.h"
#include "ui/Claves.h"
#include "ui/Textos.h"
#include "ui/screens/Tarjeta.h"
#include "ui/screens/Tema.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>

#include <optional>
#include <utility>

namespace zv {

namespace {

// Labels, command buttons, image buttons and cards have captions; those of other kinds stay as they
// are.
std::optional<QString> CaptionDe(const QWidget& control) {
    if (const auto* etiqueta = qobject_cast<const QLabel*>(&control)) {
        return etiqueta->text();
    }
    if (const auto* tarjeta = qobject_cast<const Tarjeta*>(&control)) {
        return tarjeta->title();
    }
    const auto* boton = qobject_cast<const QAbstractButton*>(&control);
    if (boton == nullptr || qobject_cast<const QCheckBox*>(boton) != nullptr ||
        qobject_cast<const QRadioButton*>(boton) != nullptr) {
        return std::nullopt;
    }
    return boton->text();
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

void PonerSentido(QWidget& control, const QString& sentido) {
    const QString antes = control.accessibleName();
    if (!antes.isEmpty() && control.toolTip() == antes) {
        control.setToolTip(sentido);
    }
    if (auto* caja = qobject_cast<QLineEdit*>(&control);
        caja != nullptr && !antes.isEmpty() && caja->placeholderText() == antes) {
        caja->setPlaceholderText(sentido);
    }
    control.setAccessibleName(sentido);
}

void PonerCaption(QWidget& control, const QString& caption) {
    const QString rotulo = tema::Rotulo(caption);
    if (auto* etiqueta = qobject_cast<QLabel*>(&control)) {
        etiqueta->setText(rotulo);
    } else if (auto* tarjeta = qobject_cast<Tarjeta*>(&control)) {
        tarjeta->setTitle(rotulo);
    } else if (auto* boton = qobject_cast<QAbstractButton*>(&control)) {
        const QString nombre = QString(rotulo).replace(QLatin1Char('\n'), QLatin1Char(' '));
        boton->setText(rotulo);
        // Read aloud in one line; a picture button keeps its meaning where it has no caption.
        if (!nombre.trimmed().isEmpty()) {
            PonerSentido(*boton, nombre);
        }
    }
}

void PonerTexto(QWidget& control, const Textos& textos, const Clave& clave) {
    PonerCaption(control, textos.Traduce(clave));
}

void Rotular(QWidget& control, const Clave& clave) {
    control.setObjectName(clave.Nombre());
    PonerCaption(control, clave.PorDefecto());
}

void Nombrar(QWidget& control, const Clave& clave, Pista pista) {
    control.setObjectName(clave.Nombre());
    control.setAccessibleName(clave.PorDefecto());
    if (pista == Pista::Si) {
        auto* caja = qobject_cast<QLineEdit*>(&control);
        caja != nullptr ? caja->setPlaceholderText(clave.PorDefecto())
                        : control.setToolTip(clave.PorDefecto());
    }
}

void TraducirVentana(QWidget& pantalla, const Textos& textos) {
    pantalla.setWindowTitle(textos.Traduce(texto::kTituloVentana));
}

void TraducirPantalla(QWidget& pantalla, const Textos& textos) {
    TraducirVentana(pantalla, textos);
    const TextosPantalla suyos = textos.DePantalla(pantalla.objectName());
    const auto controles = pantalla.findChildren<QWidget*>();
    for (QWidget* control : controles) {
        const QString clave = control->objectName();
        // Qt's own parts of a control have no name or one of Qt's.
        if (clave.isEmpty() || clave.startsWith(QLatin1String("qt_")) ||
            control->window() != pantalla.window()) {
            continue;
        }
        if (const std::optional<QString> caption = CaptionDe(*control)) {
            const QString traducido = suyos.TextoForm(clave, *caption);
            if (traducido != *caption || traducido.contains(QChar(u'¬'))) {
                PonerCaption(*control, traducido);
            }
        } else if (const QString sentido = control->accessibleName(); !sentido.isEmpty()) {
            PonerSentido(*control, suyos.TextoForm(clave, sentido));
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

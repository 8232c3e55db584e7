#include "Muestras.h"

#include "platform/StringLiterals.h"
#include "ui/Clave.h"
#include "ui/Rejilla.h"
#include "ui/screens/Interruptor.h"
#include "ui/screens/Paginador.h"
#include "ui/screens/PantallaCompleta.h"
#include "ui/screens/SelectorTres.h"
#include "ui/screens/Tarjeta.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"
#include "ui/screens/VistaRejilla.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <memory>

namespace zv::muestra {

namespace {

// Spanish in the first half of each array, English in the second.
constexpr Clave kLista[] = {{u"m", u"boton_0", u"Salir"},
                            {u"m", u"boton_1", u"Imprimir"},
                            {u"m", u"boton_2", u"Cierre¬Niveles Óptimos"},
                            {u"m", u"boton_3", u"Cierre¬por valor"},
                            {u"m", u"boton_4", u"Cuadrar"},
                            {u"m", u"boton_5", u"Vaciado¬Cajón Monedas"},
                            {u"m", u"boton_6", u"Vaciado¬Cajón Billetes"},
                            {u"m", u"boton_7", u"Histórico¬de cierres"},
                            {u"m", u"boton_9", u"Export¬CSV"},
                            {u"m", u"boton_8", u"Conf.¬impresora"},
                            {u"m", u"lbPeriodo", u"Periodo"},
                            {u"m", u"lbContenido", u"Contenido"},
                            {u"m", u"boton_0", u"Leave"},
                            {u"m", u"boton_1", u"Print"},
                            {u"m", u"boton_2", u"Close to¬optimal levels"},
                            {u"m", u"boton_3", u"Close¬by value"},
                            {u"m", u"boton_4", u"Reconcile"},
                            {u"m", u"boton_5", u"Empty¬coin box"},
                            {u"m", u"boton_6", u"Empty¬note box"},
                            {u"m", u"boton_7", u"History¬of closes"},
                            {u"m", u"boton_9", u"Export¬CSV"},
                            {u"m", u"boton_8", u"Printer¬settings"},
                            {u"m", u"lbPeriodo", u"Period"},
                            {u"m", u"lbContenido", u"Contents"}};
constexpr int kMitadLista = 12;

constexpr Clave kAjustes[] = {{u"m", u"boton_0", u"Salir"},
                              {u"m", u"boton_1", u"Guardar"},
                              {u"m", u"boton_2", u"Teclado"},
                              {u"m", u"boton_13", u"Conf. Código de Barras"},
                              {u"m", u"t1", u"Iniciar en modo"},
                              {u"m", u"t2", u"Personalización"},
                              {u"m", u"t3", u"Dispositivo"},
                              {u"m", u"btnModo_0", u"AUTO"},
                              {u"m", u"btnModo_1", u"MANUAL"},
                              {u"m", u"btnModo_2", u"SEMIAUTO"},
                              {u"m", u"btnCfg_0", u"Minimiza al iniciar"},
                              {u"m", u"btnCfg_2", u"Sin impresora"},
                              {u"m", u"btnCfg_5", u"Preguntar concepto en pagos/cobros manuales"},
                              {u"m", u"lbIp", u"IP Zorvex:"},
                              {u"m", u"nota", u"Conexión establecida"},
                              {u"m", u"boton_0", u"Leave"},
                              {u"m", u"boton_1", u"Save"},
                              {u"m", u"boton_2", u"Keyboard"},
                              {u"m", u"boton_13", u"Barcode settings"},
                              {u"m", u"t1", u"Start in mode"},
                              {u"m", u"t2", u"Preferences"},
                              {u"m", u"t3", u"Device"},
                              {u"m", u"btnModo_0", u"AUTO"},
                              {u"m", u"btnModo_1", u"MANUAL"},
                              {u"m", u"btnModo_2", u"SEMI-AUTO"},
                              {u"m", u"btnCfg_0", u"Minimise at start"},
                              {u"m", u"btnCfg_2", u"No printer"},
                              {u"m", u"btnCfg_5", u"Ask for a description of pay-outs and charges"},
                              {u"m", u"lbIp", u"Zorvex IP:"},
                              {u"m", u"nota", u"Connected"}};
constexpr int kMitadAjustes = 15;

constexpr auto kSalir = EntradaPie::Clase::Salir;

#define ZV_PIE_LISTA(d)                                                                            \
    {                                                                                              \
        {0, &kLista[d], u"go-previous", false, kSalir}, {1, &kLista[d + 1], u"document-print"},    \
            {9, &kLista[d + 8], u"document-export"}, {7, &kLista[d + 7], u"view-history"},         \
            {2, &kLista[d + 2], u"view-refresh", true}, {3, &kLista[d + 3], u"wallet-open"},       \
            {4, &kLista[d + 4], u"view-list-details", true},                                       \
            {5, &kLista[d + 5], u"archive-remove"}, {6, &kLista[d + 6], u"archive-extract"}, {     \
            8, &kLista[d + 9], u"configure", true                                                  \
        }                                                                                          \
    }
constexpr EntradaPie kPieLista[2][10] = {ZV_PIE_LISTA(0), ZV_PIE_LISTA(kMitadLista)};
#undef ZV_PIE_LISTA

#define ZV_PIE_AJUSTES(d)                                                                          \
    {                                                                                              \
        {0, &kAjustes[d], u"go-previous", false, kSalir}, {1, &kAjustes[d + 1], u"document-save"}, \
            {2, &kAjustes[d + 2], u"input-keyboard", true}, {                                      \
            13, &kAjustes[d + 3], u"view-barcode"                                                  \
        }                                                                                          \
    }
constexpr EntradaPie kPieAjustes[2][4] = {ZV_PIE_AJUSTES(0), ZV_PIE_AJUSTES(kMitadAjustes)};
#undef ZV_PIE_AJUSTES

QLabel* Rotulo(const QString& texto, QWidget* padre) {
    return new QLabel(texto, padre);
}

class PantallaLista final : public PantallaCompleta {
  public:
    PantallaLista(const Textos& textos, bool ingles, QWidget* sobre)
        : PantallaCompleta(u"muestra"_s, kPieLista[ingles ? 1 : 0], sobre),
          rejilla_({{.delante = u"Fecha"_s, .ancho = 2600},
                    {.delante = u"Concepto"_s, .ancho = 3000},
                    {.delante = u"Venta"_s,
                     .alineacion = Qt::AlignRight | Qt::AlignVCenter,
                     .contenido = Contenido::Importe,
                     .ancho = 2400}}) {
        const int d = ingles ? kMitadLista : 0;
        PonerTitulo(ingles ? u"Till close"_s : u"Cierre de Caja"_s);
        rejilla_.PonerTitulos(textos);
        auto* fila = new QHBoxLayout;
        vista_ = new VistaRejilla(rejilla_, u"grdZV"_s, this);
        fila->addWidget(vista_, 6);
        fila->addWidget(new Paginador(u"pctScrollBar"_s, this));
        auto* tarjetas = new QVBoxLayout;
        for (int t = 0; t < 2; ++t) {
            auto* tarjeta = new Tarjeta(kLista[d + 10 + t], this);
            auto* lineas = new QFormLayout;
            for (const char* linea : {"Cobros por ventas", "Abonos por ventas", "Pagos"}) {
                auto* cifra = Rotulo(u"1.234,50 €"_s, tarjeta);
                tema::PonerLetra(*cifra, tema::Letra::Cifra);
                lineas->addRow(QString::fromLatin1(linea), cifra);
            }
            auto* total = Rotulo(u"12.264,50 €"_s, tarjeta);
            tema::PonerLetra(*total, tema::Letra::Total);
            lineas->addRow(u"SALDO FINAL"_s, total);
            tarjeta->Cuerpo()->addLayout(lineas);
            tarjetas->addWidget(tarjeta);
        }
        tarjetas->addStretch(1);
        fila->addLayout(tarjetas, 4);
        Cuerpo()->addLayout(fila, 1);
        boton(4)->setEnabled(false);
    }

  private:
    Rejilla rejilla_;
    VistaRejilla* vista_;
};

class PantallaAjustes final : public PantallaCompleta {
  public:
    PantallaAjustes(const Textos& textos, bool ingles, QWidget* sobre)
        : PantallaCompleta(u"muestra"_s, kPieAjustes[ingles ? 1 : 0], sobre) {
        const Clave* c = kAjustes + (ingles ? kMitadAjustes : 0);
        PonerTitulo(ingles ? u"Monitor - Settings"_s : u"Monitor - Configuración"_s);
        auto* fila = new QHBoxLayout;
        auto* izquierda = new QVBoxLayout;
        auto* derecha = new QVBoxLayout;
        fila->addLayout(izquierda, 1);
        fila->addLayout(derecha, 1);
        auto* modo = new Tarjeta(c[4], this);
        auto* selector = new SelectorTres(c[4], {&c[7], &c[8], &c[9]}, modo);
        selector->Elegir(1);
        modo->Cuerpo()->addWidget(selector);
        auto* sinElegir = new SelectorTres(c[4], {&c[7], &c[8], &c[9]}, modo);
        sinElegir->Parte(2)->setEnabled(false);
        modo->Cuerpo()->addWidget(sinElegir);
        izquierda->addWidget(modo);
        auto* aparato = new Tarjeta(c[6], this);
        auto* linea = new QHBoxLayout;
        auto* rotulo = Rotulo({}, aparato);
        Rotular(*rotulo, c[13]);
        linea->addWidget(rotulo);
        linea->addWidget(new QLineEdit(u"192.168.1.20"_s, aparato), 1);
        linea->addWidget(new QPushButton(u"Test"_s, aparato));
        aparato->Cuerpo()->addLayout(linea);
        auto* nota = Rotulo({}, aparato);
        Rotular(*nota, c[14]);
        tema::PonerLetra(*nota, tema::Letra::Nota);
        aparato->Cuerpo()->addWidget(nota);
        izquierda->addWidget(aparato);
        izquierda->addStretch(1);
        auto* personal = new Tarjeta(c[5], this);
        for (int i = 10; i < 13; ++i) {
            auto* interruptor = new Interruptor(c[i], textos, personal);
            interruptor->setChecked(i != 11);
            personal->Cuerpo()->addWidget(interruptor);
        }
        auto* apagado = new Interruptor(c[10], textos, personal);
        apagado->setEnabled(false);
        personal->Cuerpo()->addWidget(apagado);
        derecha->addWidget(personal);
        derecha->addStretch(1);
        Cuerpo()->addLayout(fila, 1);
        boton(1)->setEnabled(false);
    }
};

} // namespace

QWidget* Lista(const Textos& textos, QWidget* sobre, bool ingles) {
    return new PantallaLista(textos, ingles, sobre);
}
QWidget* Ajustes(const Textos& textos, QWidget* sobre, bool ingles) {
    return new PantallaAjustes(textos, ingles, sobre);
}

} // namespace zv::muestra

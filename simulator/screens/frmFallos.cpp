// Each button adds one rule that strikes once.
#include "simulator/screens/frmFallos.h"

#include "platform/StringLiterals.h"
#include "ui/screens/Tema.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace zv::simulador {

namespace {

constexpr int kColumnas = 3;
constexpr int kAltoBoton = 56;

// What the button says, and its rule.
constexpr std::array<std::pair<const char16_t*, const char*>, 19> kFallos{{
    {u"Error 5", "todo#1:error=5"},
    {u"Error con dinero dentro", "todo#1:parcial=40"},
    {u"Atasco", "todo#1:atasco"},
    {u"Cancela el cliente", "todo#1:cancelar"},
    {u"Equipo no listo", "todo#1:nolisto=6"},
    {u"Respuesta lenta (3 s)", "todo#1:lento=3000"},
    {u"Corte antes", "todo#1:cortar=antes"},
    {u"Corte durante", "todo#1:cortar=durante"},
    {u"Corte después", "todo#1:cortar=despues"},
    {u"Corte largo (12 s)", "todo#1:cortar=durante+12000"},
    {u"No deja terminar", "terminar#1:error=8"},
    {u"Avisos repetidos", "todo#1:repetir"},
    {u"Línea ilegible", "todo#1:basura"},
    {u"Se queda mudo", "todo#1:mudo"},
    {u"Rechaza la conexión", "conexion#1:rechazar"},
    {u"Niveles con error 3", "niveles#1:error=3"},
    {u"Descuadre de -7 c", "niveles#1:descuadre=-7"},
    {u"Muere durante", "todo#1:matar=durante"},
    {u"Muere después", "todo#1:matar=despues"},
}};

QPushButton* Boton(const QString& texto, tema::Papel papel) {
    auto* const boton = new QPushButton(texto);
    tema::PonerPapel(*boton, papel);
    boton->setAutoDefault(false);
    boton->setMinimumHeight(kAltoBoton);
    return boton;
}

} // namespace

frmFallos::frmFallos(Simulador& simulador, QWidget* padre)
    : FramelessWindow(u"frmFallos"_s, padre), simulador_(simulador) {
    PonerTitulo(u"Fallos a demanda"_s);
    auto* const explicacion = new QLabel(u"Para la próxima operación:"_s);
    Cuerpo()->addWidget(explicacion);
    auto* const rejilla = new QGridLayout;
    rejilla->setSpacing(10);
    int n = 0;
    for (const auto& [texto, regla] : kFallos) {
        auto* const boton = Boton(QString::fromUtf16(texto), tema::Papel::Normal);
        boton->setObjectName(QLatin1String(regla));
        connect(boton, &QPushButton::clicked, this,
                [this, cual = QString::fromLatin1(regla)] { Añadir(cual); });
        rejilla->addWidget(boton, n / kColumnas, n % kColumnas);
        ++n;
    }
    Cuerpo()->addLayout(rejilla);
    auto* const pie = new QHBoxLayout;
    pie->setSpacing(10);
    auto* const quitar = Boton(u"Quitar todos"_s, tema::Papel::Principal);
    quitar->setObjectName(u"quitar"_s);
    connect(quitar, &QPushButton::clicked, this, [this] {
        simulador_.LosFallos().Borrar();
        Q_EMIT cambiados();
        accept();
    });
    auto* const cortar = Boton(u"Cortar el enlace ahora"_s, tema::Papel::Peligro);
    cortar->setObjectName(u"cortar"_s);
    connect(cortar, &QPushButton::clicked, this, [this] {
        simulador_.ElServidor().CortarEnlace();
        accept();
    });
    pie->addWidget(quitar);
    pie->addWidget(cortar);
    Cuerpo()->addLayout(pie);
}

void frmFallos::Añadir(const QString& regla) {
    QString error;
    simulador_.LosFallos().Añadir(regla, error);
    Q_EMIT cambiados();
    accept();
}

} // namespace zv::simulador

#include "registers/Listado.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "registers/Claves.h"
#include "store/LecturaPorClaves.h"
#include "store/Palabras.h"
#include "store/Tablas.h"
#include "till/Claves.h"
#include "ui/FechaCorta.h"

#include <QHash>
#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace zv {

namespace {

constexpr ColorCelda kMarcada = ColorRGB(255, 190, 0);
// Filed for a user who is none.
const QString kNulo = u"Nulo"_s;

constexpr int kAnchoOperacion = 1500; // twips, as are the others
constexpr int kAnchoTerminal = 1200;
constexpr int kAnchoFormaPago = 1200;
constexpr int kAnchoVendedor = 1200;
constexpr int kAnchoEstado = 930;
constexpr int kHolgura = 30;

constexpr auto kCentro = Qt::AlignCenter;

Columna Centrada(const Clave& clave) {
    return {.clave = &clave, .alineacion = kCentro};
}
Columna Importe(const Clave& clave) {
    return {.clave = &clave,
            .alineacion = Qt::AlignRight | Qt::AlignVCenter,
            .contenido = Contenido::Importe};
}
Columna Boton(const Clave& clave) {
    return {.clave = &clave, .alineacion = kCentro, .contenido = Contenido::Imagen};
}
Columna ConNombre(const QString& titulo) {
    return {.delante = titulo, .alineacion = kCentro};
}

// In the order of ColumnaListado.
std::vector<Columna> ColumnasDeRegistro(bool incidencias) {
    return {Boton(texto::kDescartar),
            ConNombre(u"IdZV"_s),
            Centrada(texto::kFechaZV),
            Centrada(texto::kIdVentaRegistro),
            Centrada(texto::kUsuarioRegistro),
            Centrada(texto::kTerminal),
            Centrada(texto::kVendedor),
            Centrada(texto::kFPago),
            Importe(texto::kImporteRegistro),
            Importe(texto::kCobrado),
            Importe(texto::kPagado),
            incidencias ? Centrada(texto::kEstado) : ConNombre({}),
            {.clave = incidencias ? &texto::kError : &texto::kConcepto},
            Boton(texto::kReenviar)};
}

// In the order of ColumnaAccesos.
std::vector<Columna> ColumnasDeAccesos() {
    return {Centrada(texto::kDescartar), ConNombre(u"IdZV"_s), Centrada(texto::kFechaAcceso),
            Centrada(texto::kUsuarioRegistro), Centrada(texto::kLugar)};
}

} // namespace

const Clave& TituloDe(ModoListado modo) {
    switch (modo) {
    case ModoListado::Cobros:
        break;
    case ModoListado::Incidencias:
        return texto::kRegistroIncidencias;
    case ModoListado::Accesos:
        return texto::kRegistroAccesos;
    }
    return texto::kRegistroCobros;
}

// Places of the columns in the rows of the statement for charges and incidents.
struct Listado::Campos {
    explicit Campos(const Row& fila)
        : fecha(fila.Indice(columna::kFechaZV)), id1(fila.Indice(columna::kId1)),
          id2(fila.Indice(columna::kId2)), usuario(fila.Indice(columna::kUsuario)),
          terminal(fila.Indice(columna::kTerminal)), vendedor(fila.Indice(columna::kVendedor)),
          formaPago(fila.Indice(columna::kFormaPago)), importe(fila.Indice(columna::kImporteVenta)),
          cobrado(fila.Indice(columna::kCobrado)), devuelto(fila.Indice(columna::kDevuelto)),
          estado(fila.Indice(columna::kEstado)), error(fila.Indice(columna::kError)) {}

    int fecha;
    int id1;
    int id2;
    int usuario;
    int terminal;
    int vendedor;
    int formaPago;
    int importe;
    int cobrado;
    int devuelto;
    int estado;
    int error;
};

Listado::Listado(Entorno& entorno)
    : entorno_(entorno), relleno_(
                             grdZV_, [this](std::size_t n) { PonerFila(apuntes_[n]); },
                             [this] {
                                 estado_.rellenadas = static_cast<int>(relleno_.Puestas());
                                 if (!relleno_.Faltan()) {
                                     apuntes_ = {};
                                 }
                                 Avisar();
                             }) {}

void Listado::RellenaGrdZv(ModoListado modo) {
    const int actual = modo == modo_ ? grdZV_.FilaActual() : 0;
    const int superior = modo == modo_ ? grdZV_.FilaSuperior() : 1;
    modo_ = modo;
    estado_.lbTitulo = entorno_.textos.Traduce(TituloDe(modo));
    {
        const SinDibujo sinDibujo(grdZV_);
        PrepararRejilla();
        // A failure leaves the grid with the rows before it.
        const auto rejilla = qScopeGuard([&] {
            estado_.filas = static_cast<int>(apuntes_.size());
            relleno_.Empezar(apuntes_.size(),
                             RellenoRejilla::kPrimeras + static_cast<std::size_t>(superior));
            grdZV_.PonerFilaSuperior(superior);
            grdZV_.PonerFilaActual(std::min(std::max(1, actual), grdZV_.FilasDatos()));
        });
        Leer();
    }
    if (!DeAccesos()) {
        estado_.lbCobros = entorno_.importes.FormatoImporte(cobros_);
        estado_.lbPagos = entorno_.importes.FormatoImporte(pagos_);
    }
    estado_.totalesVisibles = modo == ModoListado::Cobros;
    estado_.todasVisible = modo != ModoListado::Cobros;
    estado_.leido = true;
    Avisar();
}

void Listado::PrepararRejilla() {
    relleno_.Olvidar();
    apuntes_.clear();
    estado_.filas = 0;
    estado_.rellenadas = 0;
    cobros_ = pagos_ = {};
    grdZV_.PonerColumnas(DeAccesos() ? ColumnasDeAccesos()
                                     : ColumnasDeRegistro(modo_ == ModoListado::Incidencias));
    grdZV_.PonerTitulos(entorno_.textos);
    if (anchos_) {
        AjustarColumnas(*anchos_);
    }
    Avisar();
}

void Listado::Leer() {
    DatabaseEngine& motor = entorno_.Database();
    const auto pausa = [this] { Pintar(); };
    if (DeAccesos()) {
        QHash<QString, QString> lugares; // each is looked up once
        if (const auto rango = LeerRangoClaves(motor, tabla::kAccesos, columna::kIdAcceso)) {
            const auto leer = [&](const Row& fila) {
                const QString lugar = fila.LeerTexto(3);
                auto traducido = lugares.constFind(lugar);
                if (traducido == lugares.constEnd()) {
                    traducido = lugares.insert(lugar, entorno_.textos.TraduceValor(lugar));
                }
                apuntes_.push_back(
                    {fila.LeerLong(0), fila.LeerFecha(1), *traducido, fila.LeerTexto(2)});
            };
            RecorrerPorClaves(motor, *rango,
                              u"SELECT idAcceso,Fecha,usuario,lugar FROM Accesos WHERE "
                              "idAcceso>=? AND idAcceso<=? ORDER BY idAcceso"_s,
                              leer, pausa);
        }
        return;
    }
    const auto rango = LeerRangoClaves(motor, tabla::kProcesados, columna::kIdZV);
    if (!rango) {
        return;
    }
    const TextosConcepto conceptos(kConceptosRegistro, entorno_.textos);
    std::optional<Campos> campos;
    const auto leer = [&](const Row& fila) {
        if (!campos) {
            campos.emplace(fila);
        }
        LeerRegistro(fila, *campos, conceptos);
    };
    RecorrerPorClaves(motor, *rango,
                      u"SELECT idZV,fechaZV,id1,id2,usuario,terminal,vendedor,formapago,"
                      "importeVenta,cobrado,devuelto,estado,error FROM procesados WHERE idZV>=? "
                      "AND idZV<=? AND idCierre=0 ORDER BY idZV"_s,
                      leer, pausa);
}

void Listado::LeerRegistro(const Row& fila, const Campos& campos, const TextosConcepto& conceptos) {
    if (fila.EsNulo(campos.estado)) {
        return; // neither "OK" nor another one
    }
    QString estadoFila = fila.LeerTexto(campos.estado);
    const bool incidencias = modo_ == ModoListado::Incidencias;
    // Compared exactly, which the database does not.
    if ((estadoFila == estado::kOk) == incidencias) {
        return;
    }
    const DatosConcepto datos{{},
                              fila.LeerTexto(campos.id1),
                              fila.LeerCurrency(campos.importe),
                              fila.LeerCurrency(campos.cobrado),
                              fila.LeerCurrency(campos.devuelto)};
    QString usuario = fila.LeerTexto(campos.usuario);
    if (usuario == kNulo) {
        usuario.clear();
    }
    // What cannot be shown fails here, in its row, though its cells are written later.
    if (entorno_.importes.Multiplicador() == 0) {
        throw errores::DivisionPorCero();
    }
    Apunte apunte{fila.LeerLong(0),
                  fila.LeerFecha(campos.fecha),
                  OperacionDe(fila, campos, datos, conceptos),
                  std::move(usuario),
                  fila.LeerTexto(campos.terminal),
                  fila.LeerTexto(campos.vendedor),
                  fila.LeerTexto(campos.formaPago),
                  incidencias ? std::move(estadoFila) : QString(),
                  fila.LeerTexto(campos.error),
                  datos.importeVenta.AEntero32(),
                  datos.cobrado.AEntero32(),
                  datos.devuelto.AEntero32()};
    if (datos.importeVenta > Currency(0)) {
        cobros_ += datos.cobrado;
    } else {
        pagos_ += datos.devuelto.Absoluto();
    }
    apuntes_.push_back(std::move(apunte));
}

// The sale's identity where it is a number, else what kind of operation it is.
QString Listado::OperacionDe(const Row& fila, const Campos& campos, const DatosConcepto& datos,
                             const TextosConcepto& conceptos) const {
    if (entorno_.importes.Formato().EsNumerico(datos.id1)) {
        const QString id2 = fila.LeerTexto(campos.id2);
        return TextoDeCelda(id2.isEmpty() ? datos.id1 : datos.id1 + u'/' + id2);
    }
    const std::size_t regla = kConceptosRegistro.Clasificar(datos);
    QString detalle;
    switch (kConceptosRegistro.Regla(regla).detalle) {
    case DetalleConcepto::Ninguno:
        break;
    case DetalleConcepto::Error:
        detalle = fila.LeerTexto(campos.error);
        break;
    case DetalleConcepto::FormaPago:
    case DetalleConcepto::FormaPagoAparte:
        detalle = fila.LeerTexto(campos.formaPago);
        break;
    }
    return conceptos.Texto(regla, TextoDeCelda(detalle));
}

void Listado::PonerFila(const Apunte& apunte) {
    const int n = grdZV_.AñadirFila();
    const auto poner = [&](int columna, const QString& texto) {
        grdZV_.PonerTexto(n, columna, texto);
    };
    const QString fecha = FechaCorta(apunte.fecha);
    const QString usuario = TextoDeCelda(apunte.usuario);
    if (DeAccesos()) {
        poner(ColumnaAccesos::IdAcceso, QString::number(apunte.id));
        poner(ColumnaAccesos::Fecha, fecha);
        poner(ColumnaAccesos::Usuario, usuario);
        poner(ColumnaAccesos::Lugar, TextoDeCelda(apunte.operacion));
        return;
    }
    const Importes& importes = entorno_.importes;
    poner(ColumnaListado::IdZV, QString::number(apunte.id));
    poner(ColumnaListado::Fecha, fecha);
    poner(ColumnaListado::Operacion, apunte.operacion);
    poner(ColumnaListado::Usuario, usuario);
    poner(ColumnaListado::Terminal, TextoDeCelda(apunte.terminal));
    poner(ColumnaListado::Vendedor, TextoDeCelda(apunte.vendedor));
    poner(ColumnaListado::FormaPago, TextoDeCelda(apunte.formaPago));
    poner(ColumnaListado::Importe, importes.FormatoImporte(apunte.importe));
    poner(ColumnaListado::Cobrado, importes.FormatoImporte(apunte.cobrado));
    poner(ColumnaListado::Pagado, importes.FormatoImporte(apunte.pagado));
    poner(ColumnaListado::Estado, TextoDeCelda(apunte.estado));
    poner(ColumnaListado::Error, TextoDeCelda(apunte.error));
    grdZV_.PonerImagen(n, ColumnaListado::Descartar, Imagen::Cancelar);
    grdZV_.PonerImagen(n, ColumnaListado::Reenviar, Imagen::Enviar);
}

void Listado::AjustarColumnas(const AnchosListado& anchos) {
    anchos_ = anchos;
    const SinDibujo sinDibujo(grdZV_);
    const int ancho = anchos.grid - anchos.barra - kHolgura;
    const auto repartir = [this](int queda, std::initializer_list<int> columnas) {
        for (const int columna : columnas) {
            grdZV_.PonerAncho(columna, std::max(0, queda / static_cast<int>(columnas.size())));
        }
    };
    if (DeAccesos()) {
        repartir(ancho, {ColumnaAccesos::Fecha, ColumnaAccesos::Usuario, ColumnaAccesos::Lugar});
        return;
    }
    if (grdZV_.Columnas() != ColumnaListado::Cuantas) {
        return; // before the first filling
    }
    const auto fijo = [&anchos](int twips) { return qRound(twips * anchos.escala); };
    const std::pair<int, int> fijas[] = {
        {ColumnaListado::Descartar, anchos.btnCancelar},
        {ColumnaListado::Reenviar, anchos.btnEnviar},
        {ColumnaListado::Operacion, fijo(kAnchoOperacion)},
        {ColumnaListado::Terminal, fijo(kAnchoTerminal)},
        {ColumnaListado::FormaPago, fijo(kAnchoFormaPago)},
        {ColumnaListado::Vendedor, fijo(kAnchoVendedor)},
        // Without a title and empty among the charges.
        {ColumnaListado::Estado, modo_ == ModoListado::Incidencias ? fijo(kAnchoEstado) : 0}};
    int queda = ancho;
    for (const auto& [columna, suya] : fijas) {
        grdZV_.PonerAncho(columna, suya);
        queda -= suya;
    }
    repartir(queda, {ColumnaListado::Fecha, ColumnaListado::Usuario, ColumnaListado::Importe,
                     ColumnaListado::Cobrado, ColumnaListado::Pagado, ColumnaListado::Error});
}

void Listado::MoverFila(int paso) {
    const int fila = std::clamp(grdZV_.FilaActual() + paso, 1, std::max(1, grdZV_.FilasDatos()));
    if (grdZV_.FilasDatos() > 0) {
        const SinDibujo sinDibujo(grdZV_);
        grdZV_.PonerFilaActual(fila);
        grdZV_.PonerALaVista(fila);
    }
}

void Listado::IrAlPrincipio() {
    const SinDibujo sinDibujo(grdZV_);
    grdZV_.PonerFilaSuperior(1);
    grdZV_.PonerFilaActual(std::min(1, grdZV_.FilasDatos()));
}

void Listado::IrAlFinal() {
    Completar(); // the last row may still be to come
    const SinDibujo sinDibujo(grdZV_);
    grdZV_.PonerFilaSuperior(std::max(1, grdZV_.FilasDatos() - grdZV_.Pagina() + 1));
    grdZV_.PonerFilaActual(grdZV_.FilasDatos());
}

void Listado::MarcarFila(int fila) {
    const SinDibujo sinDibujo(grdZV_);
    for (int columna = 0; columna < grdZV_.Columnas(); ++columna) {
        grdZV_.PonerFondo(fila, columna, kMarcada);
    }
    grdZV_.PonerALaVista(fila);
}

void Listado::PonerEspera(bool espera) {
    if (estado_.punteroEspera != espera) {
        estado_.punteroEspera = espera;
        Avisar();
    }
}

} // namespace zv

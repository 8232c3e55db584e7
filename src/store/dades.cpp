// State and queueing of one sale, named by its id1.
#include "store/dades.h"

#include "platform/ErrorEjecucion.h"

namespace zv {

namespace {

const QString kPagada = QStringLiteral("OK");
const QString kPendiente = QStringLiteral("PENDING");
const QString kDesconocida = QStringLiteral("NOT FOUND");
const QString kComandaEstado = QStringLiteral("S");

// The data layer's own number for an object that is open already.
constexpr int kErrorAbierto = 3705;
constexpr int kErrorSinPreparar = 91;

SentenciaPreparada& Exigir(const std::unique_ptr<SentenciaPreparada>& sentencia) {
    if (!sentencia) {
        throw ErrorEjecucion(kErrorSinPreparar, QStringLiteral("dades no está inicializada"));
    }
    return *sentencia;
}

} // namespace

dades::dades(MotorBD& motor, const Reloj& reloj) : motor_(motor), reloj_(reloj) {}

void dades::Inicialitza() {
    pendiente_ = motor_.Preparar(
        QStringLiteral("SELECT 'PENDING' as estado FROM Cola WHERE Cola.id1 = ?"), 1);
    estado_ = motor_.Preparar(QStringLiteral("SELECT estado FROM Procesados WHERE Procesados.id1 "
                                             "= @idH order by idZV desc"),
                              1);
    insercion_ = motor_.Preparar(QStringLiteral("select * from Cola where ID1= @idI"), 1);
}

QString dades::EstadoProcesado(const QString& id) {
    const std::optional<Fila> fila = Exigir(estado_).Primera({id});
    return fila ? fila->LeerTexto(0) : kDesconocida;
}

bool dades::ExistePendiente(const QString& id) {
    return Exigir(pendiente_).Primera({id}).has_value();
}

void dades::EstatComanda(const Missatge& missatge, QString& estado, bool& resultado) {
    if (missatge.ID1.isEmpty()) {
        resultado = false;
        return;
    }
    estado = EstadoProcesado(missatge.ID1);
    if (estado != kPagada && ExistePendiente(missatge.ID1)) {
        estado = kPendiente;
    }
    resultado = !(estado == kDesconocida && missatge.Comanda == kComandaEstado);
}

void dades::Inserta(const Missatge& missatge, bool& resultado) {
    resultado = false;
    try {
        InsertaProtegido(missatge, resultado);
    } catch (const ErrorEjecucion&) {
        resultado = false;
    }
}

void dades::InsertaProtegido(const Missatge& missatge, bool& resultado) {
    if (filas_) {
        throw ErrorEjecucion(kErrorAbierto, QStringLiteral("el conjunto ya está abierto"));
    }
    filas_ = Exigir(insercion_).AbrirConjunto(QStringLiteral("Cola"), {missatge.ID1});
    if (!filas_->HayActual()) {
        filas_->Nuevo();
        filas_->Poner(QStringLiteral("fecha"), reloj_.Ahora());
        filas_->Poner(QStringLiteral("importe"), ValorBD(missatge.Importe));
        filas_->Poner(QStringLiteral("id1"), missatge.ID1);
        filas_->Poner(QStringLiteral("id2"), missatge.ID2);
        filas_->Poner(QStringLiteral("idcaja"), missatge.IDcaja);
        filas_->Poner(QStringLiteral("terminal"), missatge.Terminal);
        filas_->Poner(QStringLiteral("vendedor"), missatge.Vendedor);
        filas_->Poner(QStringLiteral("formapago"), missatge.Formapago);
        filas_->Poner(QStringLiteral("creditoError"), ValorBD(0));
        filas_->Actualizar();
        resultado = true;
    }
    filas_->Cerrar();
    filas_.reset();
}

} // namespace zv

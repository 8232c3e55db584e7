#include "store/dades.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/Palabras.h"
#include "store/Tablas.h"

namespace zv {

namespace {

const QString kComandaEstado = u"S"_s;

// The number that the platform's data layer gives an object that is open already.
constexpr int kErrorAbierto = 3705;
constexpr int kErrorSinPreparar = 91;

PreparedStatement& Exigir(const std::unique_ptr<PreparedStatement>& sentencia) {
    if (!sentencia) {
        throw ErrorEjecucion(kErrorSinPreparar, u"dades no está inicializada"_s);
    }
    return *sentencia;
}

bool LlevaNul(const Missatge& missatge) {
    for (const QString* texto : {&missatge.ID1, &missatge.ID2, &missatge.Terminal,
                                 &missatge.Vendedor, &missatge.Formapago}) {
        if (texto->contains(QChar(u'\0'))) {
            return true;
        }
    }
    return false;
}

} // namespace

dades::dades(DatabaseEngine& motor, const Clock& reloj) : motor_(motor), reloj_(reloj) {}

void dades::Inicialitza() {
    pendiente_ = motor_.Preparar(u"SELECT 'PENDING' as estado FROM Cola WHERE Cola.id1 = ?"_s, 1);
    estado_ = motor_.Preparar(u"SELECT estado FROM Procesados WHERE Procesados.id1 "
                              "= @idH order by idZV desc"_s,
                              1);
    insercion_ = motor_.Preparar(u"select * from Cola where ID1= @idI"_s, 1);
}

QString dades::EstadoProcesado(const QString& id) {
    const std::optional<Row> fila = Exigir(estado_).Primera({id});
    return fila ? fila->LeerTexto(0) : estado::kDesconocida;
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
    if (estado != estado::kOk && ExistePendiente(missatge.ID1)) {
        estado = estado::kPendiente;
    }
    resultado = !(estado == estado::kDesconocida && missatge.Comanda == kComandaEstado);
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
        throw ErrorEjecucion(kErrorAbierto, u"el conjunto ya está abierto"_s);
    }
    if (LlevaNul(missatge)) {
        // The table would refuse it, with the record set open.
        return;
    }
    filas_ = Exigir(insercion_).AbrirConjunto(tabla::kCola, {missatge.ID1});
    if (!filas_->HayActual()) {
        filas_->Nuevo();
        filas_->Poner(columna::kFecha, reloj_.Ahora());
        filas_->Poner(columna::kImporte, ValorBD(missatge.Importe));
        filas_->Poner(columna::kId1, missatge.ID1);
        filas_->Poner(columna::kId2, missatge.ID2);
        filas_->Poner(columna::kIdCaja, missatge.IDcaja);
        filas_->Poner(columna::kTerminal, missatge.Terminal);
        filas_->Poner(columna::kVendedor, missatge.Vendedor);
        filas_->Poner(columna::kFormaPago, missatge.Formapago);
        filas_->Poner(columna::kCreditoError, ValorBD(0));
        filas_->Actualizar();
        resultado = true;
    }
    filas_->Cerrar();
    filas_.reset();
}

} // namespace zv

// Lazy begin, savepoints, and the recovery from a transaction that SQLite has ended by itself.
#include "store/NivelesSQLite.h"

#include "platform/ErrorEjecucion.h"

namespace zv {

namespace {

constexpr int kErrorSQLite = 1;
constexpr int kErrorUso = 21;
constexpr int kErrorDeshechaPorElMotor = 516; // SQLite's own code for it

QString OrdenComenzar() {
    return QStringLiteral("BEGIN IMMEDIATE");
}
QString OrdenConfirmar() {
    return QStringLiteral("COMMIT");
}
QString OrdenDeshacer() {
    return QStringLiteral("ROLLBACK");
}

QString Guarda(const char* orden, int nivel) {
    return QLatin1String(orden) + QStringLiteral(" zv") + QString::number(nivel);
}

ErrorEjecucion SinTransaccion() {
    return {kErrorSQLite, QStringLiteral("no hay ninguna transacción activa")};
}

ErrorEjecucion Perdida() {
    return {kErrorDeshechaPorElMotor,
            QStringLiteral("el motor de la base de datos ha deshecho la transacción")};
}

} // namespace

NivelesSQLite::NivelesSQLite(ConexionSQLite& conexion, Aviso aviso, std::function<void()> verificar)
    : conexion_(conexion), aviso_(std::move(aviso)), verificar_(std::move(verificar)) {}

void NivelesSQLite::Emitir(Sentencia::Clase clase, const QString& sql) {
    aviso_(clase, sql);
    conexion_.Ejecutar(sql);
}

void NivelesSQLite::ExigirSinPropia() const {
    if (propia_ != nullptr) {
        throw ErrorEjecucion(kErrorUso, QStringLiteral("hay una fila nueva sin guardar"));
    }
}

void NivelesSQLite::Comenzar() {
    ExigirSinPropia();
    if (!conexion_.Abierta()) {
        throw ConexionSQLite::Cerrada();
    }
    aviso_(Sentencia::Clase::Comenzar, {});
    ++nivel_;
}

void NivelesSQLite::Confirmar() {
    if (nivel_ == 0) {
        throw SinTransaccion();
    }
    try {
        const bool escrito = !perdida_ && fisico_ == nivel_;
        if (!escrito) {
            aviso_(Sentencia::Clase::Confirmar, {});
            if (perdida_) {
                throw Perdida();
            }
        } else if (nivel_ == 1) {
            verificar_();
            Emitir(Sentencia::Clase::Confirmar, OrdenConfirmar());
        } else {
            Emitir(Sentencia::Clase::Confirmar, Guarda("RELEASE", nivel_));
        }
        fisico_ -= escrito ? 1 : 0;
    } catch (...) {
        TrasFallo();
        DeshacerFisico();
        BajarNivel();
        throw;
    }
    BajarNivel();
}

void NivelesSQLite::Deshacer() {
    if (nivel_ == 0) {
        throw SinTransaccion();
    }
    const bool escrito = !perdida_ && fisico_ == nivel_;
    try {
        aviso_(Sentencia::Clase::Deshacer, !escrito      ? QString()
                                           : nivel_ == 1 ? OrdenDeshacer()
                                                         : Guarda("ROLLBACK TO", nivel_));
    } catch (...) {
        DeshacerFisico();
        BajarNivel();
        throw;
    }
    DeshacerFisico();
    BajarNivel();
}

void NivelesSQLite::DeshacerFisico() noexcept {
    if (perdida_ || fisico_ == 0 || fisico_ != nivel_) {
        return;
    }
    try {
        if (nivel_ == 1) {
            conexion_.Ejecutar(OrdenDeshacer());
        } else {
            conexion_.Ejecutar(Guarda("ROLLBACK TO", nivel_));
            conexion_.Ejecutar(Guarda("RELEASE", nivel_));
        }
        --fisico_;
    } catch (...) {
        // Whatever stands is dropped whole, so that no level stands on half a rollback.
        DescartarTodo();
        fisico_ = 0;
        perdida_ = true;
    }
}

// SQLite refuses a rollback only when there is nothing left to roll back.
void NivelesSQLite::DescartarTodo() noexcept {
    try {
        conexion_.Ejecutar(OrdenDeshacer());
    } catch (...) {
        return;
    }
}

void NivelesSQLite::BajarNivel() {
    --nivel_;
    if (nivel_ == 0) {
        fisico_ = 0;
        perdida_ = false;
    }
}

void NivelesSQLite::PrepararEscritura(const void* dueño) {
    if (EsPropia(dueño)) {
        return;
    }
    ExigirSinPropia();
    if (perdida_) {
        throw Perdida();
    }
    if (fisico_ == 0) {
        verificar_();
    }
    while (fisico_ < nivel_) {
        Emitir(Sentencia::Clase::Comenzar,
               fisico_ == 0 ? OrdenComenzar() : Guarda("SAVEPOINT", fisico_ + 1));
        ++fisico_;
    }
}

void NivelesSQLite::TrasFallo() {
    if (fisico_ == 0 && propia_ == nullptr) {
        return;
    }
    try {
        // Refused inside a transaction, so that its success tells that there is none any more.
        conexion_.Ejecutar(QStringLiteral("BEGIN"));
        conexion_.Ejecutar(OrdenDeshacer());
    } catch (const ErrorEjecucion&) {
        return;
    }
    perdida_ = nivel_ > 0;
    fisico_ = 0;
    propia_ = nullptr;
}

void NivelesSQLite::ComenzarPropia(const void* dueño) {
    ExigirSinPropia();
    verificar_();
    Emitir(Sentencia::Clase::Comenzar, OrdenComenzar());
    propia_ = dueño;
}

void NivelesSQLite::ConfirmarPropia() {
    try {
        verificar_();
        Emitir(Sentencia::Clase::Confirmar, OrdenConfirmar());
    } catch (...) {
        DeshacerPropia();
        throw;
    }
    propia_ = nullptr;
}

void NivelesSQLite::DeshacerPropia() noexcept {
    if (propia_ == nullptr) {
        return;
    }
    propia_ = nullptr;
    try {
        aviso_(Sentencia::Clase::Deshacer, OrdenDeshacer());
    } catch (...) {
        DescartarTodo(); // rolled back all the same: nobody is left to do it
        return;
    }
    DescartarTodo();
}

void NivelesSQLite::Olvidar() {
    nivel_ = 0;
    fisico_ = 0;
    perdida_ = false;
    propia_ = nullptr;
}

} // namespace zv

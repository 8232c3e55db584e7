// Lazy begin, savepoints, and the recovery from a transaction that SQLite has ended by itself.
#include "store/sqlite/TransactionLevels.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

namespace zv {

namespace {

constexpr int kErrorSQLite = 1;
constexpr int kErrorUso = 21;
constexpr int kErrorDeshechaPorElMotor = 516; // SQLite's own code for it

QString OrdenComenzar() {
    return u"BEGIN IMMEDIATE"_s;
}
QString OrdenConfirmar() {
    return u"COMMIT"_s;
}
QString OrdenDeshacer() {
    return u"ROLLBACK"_s;
}

QString Guarda(const char* orden, int nivel) {
    return QLatin1String(orden) + u" zv"_s + QString::number(nivel);
}

ErrorEjecucion SinTransaccion() {
    return {kErrorSQLite, u"no hay ninguna transacción activa"_s};
}

ErrorEjecucion Perdida() {
    return {kErrorDeshechaPorElMotor, u"el motor de la base de datos ha deshecho la transacción"_s};
}

} // namespace

TransactionLevels::TransactionLevels(SqliteConnection& conexion, Aviso aviso,
                                     std::function<void()> verificar)
    : conexion_(conexion), aviso_(std::move(aviso)), verificar_(std::move(verificar)) {}

void TransactionLevels::Emitir(Statement::Kind kind, const QString& sql) {
    aviso_(kind, sql);
    conexion_.Ejecutar(sql);
}

void TransactionLevels::ExigirSinPropia() const {
    if (propia_ != nullptr) {
        throw ErrorEjecucion(kErrorUso, u"hay una fila nueva sin guardar"_s);
    }
}

void TransactionLevels::Comenzar() {
    ExigirSinPropia();
    if (!conexion_.Abierta()) {
        throw SqliteConnection::Cerrada();
    }
    aviso_(Statement::Kind::Comenzar, {});
    ++nivel_;
}

void TransactionLevels::Confirmar() {
    if (nivel_ == 0) {
        throw SinTransaccion();
    }
    try {
        const bool escrito = !perdida_ && fisico_ == nivel_;
        if (!escrito) {
            aviso_(Statement::Kind::Confirmar, {});
            if (perdida_) {
                throw Perdida();
            }
        } else if (nivel_ == 1) {
            verificar_();
            Emitir(Statement::Kind::Confirmar, OrdenConfirmar());
        } else {
            Emitir(Statement::Kind::Confirmar, Guarda("RELEASE", nivel_));
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

void TransactionLevels::Deshacer() {
    if (nivel_ == 0) {
        throw SinTransaccion();
    }
    const bool escrito = !perdida_ && fisico_ == nivel_;
    try {
        aviso_(Statement::Kind::Deshacer, !escrito      ? QString()
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

void TransactionLevels::DeshacerFisico() noexcept {
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
void TransactionLevels::DescartarTodo() noexcept {
    try {
        conexion_.Ejecutar(OrdenDeshacer());
    } catch (...) {
        return;
    }
}

void TransactionLevels::BajarNivel() {
    --nivel_;
    if (nivel_ == 0) {
        fisico_ = 0;
        perdida_ = false;
    }
}

void TransactionLevels::PrepararEscritura(const void* dueño) {
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
        Emitir(Statement::Kind::Comenzar,
               fisico_ == 0 ? OrdenComenzar() : Guarda("SAVEPOINT", fisico_ + 1));
        ++fisico_;
    }
}

void TransactionLevels::TrasFallo() {
    if (fisico_ == 0 && propia_ == nullptr) {
        return;
    }
    try {
        // Refused inside a transaction, so that its success tells that there is none any more.
        conexion_.Ejecutar(u"BEGIN"_s);
        conexion_.Ejecutar(OrdenDeshacer());
    } catch (const ErrorEjecucion&) {
        return;
    }
    perdida_ = nivel_ > 0;
    fisico_ = 0;
    propia_ = nullptr;
}

void TransactionLevels::ComenzarPropia(const void* dueño) {
    ExigirSinPropia();
    verificar_();
    Emitir(Statement::Kind::Comenzar, OrdenComenzar());
    propia_ = dueño;
}

void TransactionLevels::ConfirmarPropia() {
    try {
        verificar_();
        Emitir(Statement::Kind::Confirmar, OrdenConfirmar());
    } catch (...) {
        DeshacerPropia();
        throw;
    }
    propia_ = nullptr;
}

void TransactionLevels::DeshacerPropia() noexcept {
    if (propia_ == nullptr) {
        return;
    }
    propia_ = nullptr;
    try {
        aviso_(Statement::Kind::Deshacer, OrdenDeshacer());
    } catch (...) {
        DescartarTodo(); // rolled back all the same: nobody is left to do it
        return;
    }
    DescartarTodo();
}

void TransactionLevels::Olvidar() {
    nivel_ = 0;
    fisico_ = 0;
    perdida_ = false;
    propia_ = nullptr;
}

} // namespace zv

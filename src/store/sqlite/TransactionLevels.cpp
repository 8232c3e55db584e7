#include "store/sqlite/TransactionLevels.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/sqlite/SqliteErrors.h"

#include <algorithm>

namespace zv {

namespace {

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

void TransactionLevels::Comenzar(std::optional<std::chrono::milliseconds> espera) {
    ExigirSinPropia();
    if (!conexion_.Abierta()) {
        throw SqliteConnection::Cerrada();
    }
    aviso_(Statement::Kind::Comenzar, {});
    niveles_.push_back({false, espera});
}

void TransactionLevels::Confirmar() {
    if (niveles_.empty()) {
        throw SinTransaccion();
    }
    try {
        const bool escrito = !perdida_ && fisico_ == Nivel();
        if (!escrito) {
            aviso_(Statement::Kind::Confirmar, {});
            if (perdida_) {
                throw Perdida();
            }
        } else if (Nivel() == 1) {
            verificar_();
            Emitir(Statement::Kind::Confirmar, OrdenConfirmar());
        } else {
            Emitir(Statement::Kind::Confirmar, Guarda("RELEASE", Nivel()));
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
    if (niveles_.empty()) {
        throw SinTransaccion();
    }
    const bool escrito = !perdida_ && fisico_ == Nivel();
    try {
        aviso_(Statement::Kind::Deshacer, !escrito       ? QString()
                                          : Nivel() == 1 ? OrdenDeshacer()
                                                         : Guarda("ROLLBACK TO", Nivel()));
    } catch (...) {
        DeshacerFisico();
        BajarNivel();
        throw;
    }
    DeshacerFisico();
    BajarNivel();
}

void TransactionLevels::DeshacerFisico() noexcept {
    if (perdida_ || fisico_ == 0 || fisico_ != Nivel()) {
        return;
    }
    try {
        if (Nivel() == 1) {
            conexion_.Ejecutar(OrdenDeshacer());
        } else {
            conexion_.Ejecutar(Guarda("ROLLBACK TO", Nivel()));
            conexion_.Ejecutar(Guarda("RELEASE", Nivel()));
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
    niveles_.pop_back();
    if (niveles_.empty()) {
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
    while (fisico_ < Nivel()) {
        if (fisico_ == 0) {
            TomarBloqueo();
        } else {
            Emitir(Statement::Kind::Comenzar, Guarda("SAVEPOINT", fisico_ + 1));
        }
        ++fisico_;
    }
}

// The wait is one for the whole level: a filing that is tried again has only what is left of it.
void TransactionLevels::TomarBloqueo() {
    const auto conEspera = std::find_if(niveles_.rbegin(), niveles_.rend(),
                                        [](const Nivelado& n) { return n.espera.has_value(); });
    if (conEspera == niveles_.rend()) {
        Emitir(Statement::Kind::Comenzar, OrdenComenzar());
        return;
    }
    std::chrono::milliseconds& restante = *conEspera->espera;
    const SqliteConnection::LockWait espera(conexion_, restante);
    const auto inicio = std::chrono::steady_clock::now();
    try {
        Emitir(Statement::Kind::Comenzar, OrdenComenzar());
    } catch (...) {
        const auto pasado = std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now() - inicio);
        restante = std::max(restante - pasado, std::chrono::milliseconds(0));
        throw;
    }
}

void TransactionLevels::AnotarEscritura() {
    if (!niveles_.empty()) {
        niveles_.back().escrito = true;
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
    perdida_ = !niveles_.empty();
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
    niveles_.clear();
    fisico_ = 0;
    perdida_ = false;
    propia_ = nullptr;
}

} // namespace zv

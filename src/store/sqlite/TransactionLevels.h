// Nested transactions over SQLite: the begin is issued at the first write, inner levels are
// savepoints, and the level that callers see always agrees with what SQLite holds.
#pragma once

#include "store/sqlite/SqliteConnection.h"

#include <chrono>
#include <optional>
#include <vector>

namespace zv {

class TransactionLevels {
  public:
    using Aviso = std::function<void(Statement::Kind, const QString& sql)>;

    // verificar: raises when the file must not be written; called before the lock is taken and
    // before the outermost commit.
    TransactionLevels(SqliteConnection& conexion, Aviso aviso, std::function<void()> verificar);

    int Nivel() const { return static_cast<int>(niveles_.size()); }
    // The innermost level has written something itself.
    bool Escrito() const { return !niveles_.empty() && niveles_.back().escrito; }
    // espera: how long in all this level and those inside it wait for another program's lock.
    void Comenzar(std::optional<std::chrono::milliseconds> espera = {});
    // A failure rolls the level back, ends it and is raised.
    void Confirmar();
    // Ends the level even when it raises.
    void Deshacer();

    // Before each write: takes the lock for every level that has none yet. Raises 516 when SQLite
    // has rolled the transaction back by itself: what was written is gone, and nothing more may be
    // written until the caller has rolled back all levels.
    void PrepararEscritura(const void* dueño = nullptr);
    // After each write that succeeded.
    void AnotarEscritura();
    // After each failed statement: finds out whether SQLite has rolled back by itself.
    void TrasFallo();

    // A transaction of the engine's own, with no level open, between the key and the row of a
    // record set. dueño tells the sets apart; nobody else may write meanwhile.
    void ComenzarPropia(const void* dueño);
    bool EsPropia(const void* dueño) const { return propia_ == dueño && propia_ != nullptr; }
    void ConfirmarPropia();
    void DeshacerPropia() noexcept;

    // The connection has been closed.
    void Olvidar();

  private:
    struct Nivelado {
        bool escrito = false;
        std::optional<std::chrono::milliseconds> espera; // what is left of it
    };
    void Emitir(Statement::Kind kind, const QString& sql);
    void TomarBloqueo();
    void DeshacerFisico() noexcept;
    void DescartarTodo() noexcept;
    void BajarNivel();
    void ExigirSinPropia() const;

    SqliteConnection& conexion_;
    Aviso aviso_;
    std::function<void()> verificar_;
    std::vector<Nivelado> niveles_;
    int fisico_ = 0; // levels that SQLite knows of
    bool perdida_ = false;
    const void* propia_ = nullptr;
};

} // namespace zv

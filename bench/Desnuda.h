// The statements of a filing by bare sqlite3 calls, prepared once, with the durability of the till.
#pragma once

#include "platform/StringLiterals.h"

#include <QString>

#include <cstdio>
#include <cstdlib>
#include <sqlite3.h>

namespace zv::bench {

class Desnuda {
  public:
    explicit Desnuda(const QString& ruta) {
        Exigir(sqlite3_open(ruta.toUtf8().constData(), &base_) == SQLITE_OK);
        Hacer("PRAGMA journal_mode=WAL");
        Hacer("PRAGMA synchronous=FULL");
        leer_ = Preparar("SELECT * FROM cola WHERE idZV=?");
        comenzar_ = Preparar("BEGIN IMMEDIATE");
        clave_ = Preparar("SELECT max(coalesce((SELECT max(idZV) FROM procesados),0),coalesce(("
                          "SELECT seq FROM sqlite_sequence WHERE name='Procesados'),0))+1");
        insertar_ = Preparar("INSERT INTO procesados (idZV,fechaZV,fechaVenta,importeVenta,cobrado,"
                             "devuelto,estado,id1,id2,idcaja,terminal,vendedor,formapago,error,"
                             "idCierre,saldoZV,idcola,usuario) VALUES "
                             "(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
        borrar_ = Preparar("DELETE FROM cola WHERE idZV=?");
        confirmar_ = Preparar("COMMIT");
    }
    ~Desnuda() {
        for (sqlite3_stmt* s : {leer_, comenzar_, clave_, insertar_, borrar_, confirmar_}) {
            sqlite3_finalize(s);
        }
        sqlite3_close(base_);
    }
    Desnuda(const Desnuda&) = delete;
    Desnuda& operator=(const Desnuda&) = delete;

    void Comenzar() { Correr(comenzar_); }
    void Confirmar() { Correr(confirmar_); }

    // One sale in a transaction of its own.
    void Archivar(sqlite3_int64 id) {
        Comenzar();
        Mover(id);
        Confirmar();
    }

    // The row of cola becomes one of procesados, in the transaction that is open.
    void Mover(sqlite3_int64 id) {
        sqlite3_bind_int64(leer_, 1, id);
        Exigir(sqlite3_step(leer_) == SQLITE_ROW);
        PonerRegistro();
        sqlite3_bind_int64(insertar_, 4, sqlite3_column_int64(leer_, 2));
        // id1, id2, idcaja, terminal, vendedor, formapago stand in the same order in both tables.
        for (int i = 0; i < 6; ++i) {
            sqlite3_bind_value(insertar_, 8 + i, sqlite3_column_value(leer_, 3 + i));
        }
        sqlite3_bind_int64(insertar_, 17, id);
        sqlite3_reset(leer_);
        Correr(insertar_);
        sqlite3_bind_int64(borrar_, 1, id);
        Correr(borrar_);
    }

    // A record of no row.
    void Añadir() {
        PonerRegistro();
        for (int i = 8; i <= 13; ++i) {
            Texto(i, "T");
        }
        sqlite3_bind_int64(insertar_, 10, 0); // idcaja
        Correr(insertar_);
    }

    // Every row of cola, each column.
    void LeerCola() {
        sqlite3_stmt* todas = Preparar("SELECT * FROM cola ORDER BY idZV");
        while (sqlite3_step(todas) == SQLITE_ROW) {
            for (int i = 0; i < sqlite3_column_count(todas); ++i) {
                sqlite3_column_text16(todas, i);
            }
        }
        sqlite3_finalize(todas);
    }

  private:
    void Exigir(bool bien) const {
        if (!bien) {
            std::fprintf(stderr, "sqlite3: %s\n", sqlite3_errmsg(base_));
            std::exit(EXIT_FAILURE);
        }
    }
    void Hacer(const char* sql) {
        Exigir(sqlite3_exec(base_, sql, nullptr, nullptr, nullptr) == SQLITE_OK);
    }
    sqlite3_stmt* Preparar(const char* sql) {
        sqlite3_stmt* sentencia = nullptr;
        Exigir(sqlite3_prepare_v2(base_, sql, -1, &sentencia, nullptr) == SQLITE_OK);
        return sentencia;
    }
    void Correr(sqlite3_stmt* sentencia) const {
        Exigir(sqlite3_step(sentencia) == SQLITE_DONE);
        sqlite3_reset(sentencia);
    }
    void Texto(int posicion, const char* texto) {
        sqlite3_bind_text(insertar_, posicion, texto, -1, SQLITE_STATIC);
    }
    // What every record has, with a new key.
    void PonerRegistro() {
        Exigir(sqlite3_step(clave_) == SQLITE_ROW);
        sqlite3_bind_int64(insertar_, 1, sqlite3_column_int64(clave_, 0));
        sqlite3_reset(clave_);
        Texto(2, "2026-03-14 18:04:11");
        Texto(3, "2026-03-14 18:04:11");
        sqlite3_bind_int64(insertar_, 4, 1250);
        sqlite3_bind_int64(insertar_, 5, 2000);
        sqlite3_bind_int64(insertar_, 6, 750);
        Texto(7, "OK");
        Texto(14, "");
        sqlite3_bind_int64(insertar_, 15, 0);
        sqlite3_bind_int64(insertar_, 16, 123456);
        sqlite3_bind_int64(insertar_, 17, 0);
        Texto(18, "ZVFast");
    }

    sqlite3* base_ = nullptr;
    sqlite3_stmt* leer_ = nullptr;
    sqlite3_stmt* comenzar_ = nullptr;
    sqlite3_stmt* clave_ = nullptr;
    sqlite3_stmt* insertar_ = nullptr;
    sqlite3_stmt* borrar_ = nullptr;
    sqlite3_stmt* confirmar_ = nullptr;
};

} // namespace zv::bench

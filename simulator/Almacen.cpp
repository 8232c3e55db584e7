// The state as JSON, replaced whole and durably.
#include "simulator/Almacen.h"

#include "platform/Files.h"
#include "platform/StringLiterals.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

namespace zv::simulador {

namespace {

constexpr int kVersion = 1;

QJsonObject AJson(const Estado& estado) {
    QJsonArray recientes;
    for (const Operacion& op : estado.recientes) {
        recientes.append(op.AJson());
    }
    return {
        {u"version"_s, kVersion},
        {u"storeId"_s, estado.storeId},
        {u"dinero"_s, estado.inventario.AJson()},
        {u"retirado"_s, MezclaAJson(estado.retirado)},
        {u"operacion"_s,
         estado.abierta ? QJsonValue(estado.abierta->AJson()) : QJsonValue(QJsonValue::Null)},
        {u"recientes"_s, recientes},
    };
}

std::optional<Estado> DeJson(const QJsonObject& objeto) {
    Estado estado;
    estado.storeId = objeto.value(u"storeId"_s).toString();
    const auto inventario = Inventario::DeJson(objeto.value(u"dinero"_s).toObject());
    const auto retirado = MezclaDeJson(objeto.value(u"retirado"_s).toObject());
    const QJsonValue operacion = objeto.value(u"operacion"_s);
    if (objeto.value(u"version"_s).toInt() != kVersion || estado.storeId.isEmpty() || !inventario ||
        !retirado || operacion.isUndefined()) {
        return std::nullopt;
    }
    estado.inventario = *inventario;
    estado.retirado = *retirado;
    if (!operacion.isNull()) {
        estado.abierta = Operacion::DeJson(operacion.toObject());
        if (!estado.abierta) {
            return std::nullopt;
        }
    }
    const QJsonArray recientes = objeto.value(u"recientes"_s).toArray();
    for (const auto una : recientes) {
        const auto op = Operacion::DeJson(una.toObject());
        if (!op) {
            return std::nullopt;
        }
        estado.recientes.push_back(*op);
    }
    return estado;
}

} // namespace

Almacen::Almacen(const QString& carpeta) : carpeta_(QDir(carpeta).absolutePath()) {}

QString Almacen::Fichero() const {
    return carpeta_ + u"/dinero.json"_s;
}

bool Almacen::Abrir(QString& error) {
    if (!QDir().mkpath(carpeta_)) {
        error = u"no se puede crear la carpeta %1"_s.arg(carpeta_);
        return false;
    }
    cerrojo_ = std::make_unique<QLockFile>(carpeta_ + u"/dinero.lock"_s);
    cerrojo_->setStaleLockTime(0); // only the death of its owner frees it
    if (cerrojo_->tryLock()) {
        return true;
    }
    error = cerrojo_->error() == QLockFile::LockFailedError
                ? u"otro simulador usa la carpeta %1"_s.arg(carpeta_)
                : u"no se puede escribir en la carpeta %1"_s.arg(carpeta_);
    return false;
}

Almacen::Lectura Almacen::Leer(Estado& estado, QString& error) const {
    QFile fichero(Fichero());
    if (!fichero.exists()) {
        return Lectura::NoExiste;
    }
    if (!fichero.open(QIODevice::ReadOnly)) {
        error = u"no se puede leer %1: %2"_s.arg(Fichero(), fichero.errorString());
        return Lectura::Mal;
    }
    const QJsonDocument documento = QJsonDocument::fromJson(fichero.readAll());
    if (const auto leido = documento.isObject() ? DeJson(documento.object()) : std::nullopt) {
        estado = *leido;
        return Lectura::Bien;
    }
    error = u"el fichero del dinero está dañado: %1"_s.arg(Fichero());
    return Lectura::Mal;
}

bool Almacen::Guardar(const Estado& estado, QString& error) {
    const int fallo = ReemplazarFichero(
        QFile::encodeName(Fichero()), QJsonDocument(AJson(estado)).toJson(QJsonDocument::Indented));
    if (fallo != 0) {
        error = u"no se puede escribir %1: %2"_s.arg(Fichero(), TextoErrorSistema(fallo));
    }
    return fallo == 0;
}

} // namespace zv::simulador

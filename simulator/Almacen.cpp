// Temporary file, fsync, rename, fsync of the folder.
#include "simulator/Almacen.h"

#include "platform/StringLiterals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace zv::simulador {

namespace {

constexpr int kVersion = 1;

QString TextoSistema() {
    return QString::fromLocal8Bit(std::strerror(errno));
}

// Closes at the end of its scope; close itself tells errors of writing that fsync has told already.
class Descriptor {
  public:
    Descriptor(const QString& ruta, int modo, mode_t permisos = 0)
        : fd_(::open(QFile::encodeName(ruta).constData(), modo | O_CLOEXEC, permisos)) {}
    ~Descriptor() {
        if (fd_ >= 0) {
            ::close(fd_);
        }
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool Abierto() const { return fd_ >= 0; }
    bool Escribir(const QByteArray& datos) const {
        qsizetype hechos = 0;
        while (hechos < datos.size()) {
            const ssize_t n = ::write(fd_, datos.constData() + hechos,
                                      static_cast<std::size_t>(datos.size() - hechos));
            if (n < 0 && errno == EINTR) {
                continue;
            }
            if (n <= 0) {
                return false;
            }
            hechos += n;
        }
        return true;
    }
    bool Sincronizar() const { return ::fsync(fd_) == 0; }

  private:
    int fd_;
};

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
    const QString temporal = Fichero() + u".tmp"_s;
    const auto fallo = [&](const QString& que) {
        error = u"no se puede escribir %1: %2"_s.arg(que, TextoSistema());
        return false;
    };
    {
        const Descriptor fichero(temporal, O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (!fichero.Abierto() ||
            !fichero.Escribir(QJsonDocument(AJson(estado)).toJson(QJsonDocument::Indented)) ||
            !fichero.Sincronizar()) {
            return fallo(temporal);
        }
    }
    const Descriptor carpeta(carpeta_, O_RDONLY | O_DIRECTORY);
    if (!carpeta.Abierto()) {
        return fallo(carpeta_);
    }
    if (std::rename(QFile::encodeName(temporal).constData(),
                    QFile::encodeName(Fichero()).constData()) != 0) {
        return fallo(Fichero());
    }
    if (!carpeta.Sincronizar()) {
        return fallo(carpeta_);
    }
    return true;
}

} // namespace zv::simulador

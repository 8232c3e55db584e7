// The scripted gateway of the tests.
#include "support/PasarelaGuion.h"

#include <QDeadlineTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

namespace zv {

namespace {

constexpr int kPaciencia = 5000; // ms

QByteArray Linea(QJsonObject objeto) {
    objeto.insert(QStringLiteral("jsonrpc"), QStringLiteral("2.0"));
    return QJsonDocument(objeto).toJson(QJsonDocument::Compact) + '\n';
}

QString Metodo(const QJsonObject& peticion) {
    return peticion.value(QStringLiteral("method")).toString();
}

} // namespace

void EnlaceGuion::Crudo(const QByteArray& bytes) {
    socket_.write(bytes);
    socket_.flush();
}

void EnlaceGuion::Contestar(const QJsonObject& peticion, const QJsonValue& resultado) {
    Crudo(Linea({{QStringLiteral("id"), peticion.value(QStringLiteral("id"))},
                 {QStringLiteral("result"), resultado}}));
}

void EnlaceGuion::Rechazar(const QJsonObject& peticion, int codigo, const QString& mensaje,
                           const QJsonObject& datos) {
    QJsonObject error{{QStringLiteral("code"), codigo}, {QStringLiteral("message"), mensaje}};
    if (!datos.isEmpty()) {
        error.insert(QStringLiteral("data"), datos);
    }
    Crudo(Linea({{QStringLiteral("id"), peticion.value(QStringLiteral("id"))},
                 {QStringLiteral("error"), error}}));
}

void EnlaceGuion::Notificar(const QString& metodo, const QJsonObject& params) {
    Crudo(Linea({{QStringLiteral("method"), metodo}, {QStringLiteral("params"), params}}));
}

void EnlaceGuion::Cortar() {
    socket_.flush();
    socket_.close();
}

PasarelaGuion::PasarelaGuion() : contexto_(std::make_unique<QObject>()) {
    saludo_ = {{QStringLiteral("protocol"), 1},
               {QStringLiteral("device"), QStringLiteral("Guion")},
               {QStringLiteral("storeId"), QStringLiteral("almacen-1")},
               {QStringLiteral("currency"), QStringLiteral("EUR")},
               {QStringLiteral("decimals"), 2},
               {QStringLiteral("multiplier"), 100},
               {QStringLiteral("openOp"), QJsonValue::Null}};
    contexto_->moveToThread(&hilo_);
    hilo_.start();
    Encender();
}

PasarelaGuion::~PasarelaGuion() {
    EnHilo([this] {
        servidor_.reset();
        cliente_ = nullptr;
    });
    hilo_.quit();
    hilo_.wait();
    for (const auto& [metodo, reacciones] : unaVez_) {
        if (!reacciones.empty()) {
            ADD_FAILURE() << reacciones.size() << " reaction(s) to " << metodo.toStdString()
                          << " were never met";
        }
    }
}

void PasarelaGuion::EnHilo(const std::function<void()>& accion) {
    QMetaObject::invokeMethod(contexto_.get(), accion, Qt::BlockingQueuedConnection);
}

QString PasarelaGuion::Direccion() const {
    return QStringLiteral("127.0.0.1:%1").arg(puerto_);
}

void PasarelaGuion::Al(const QString& metodo, Reaccion reaccion) {
    const QMutexLocker guarda(&cerrojo_);
    unaVez_[metodo].push_back(std::move(reaccion));
}

void PasarelaGuion::Siempre(const QString& metodo, Reaccion reaccion) {
    const QMutexLocker guarda(&cerrojo_);
    siempre_[metodo] = std::move(reaccion);
}

void PasarelaGuion::PonerSaludo(const QString& miembro, const QJsonValue& valor) {
    const QMutexLocker guarda(&cerrojo_);
    saludo_.insert(miembro, valor);
}

void PasarelaGuion::Encender() {
    EnHilo([this] { Escuchar(); });
}

void PasarelaGuion::Escuchar() {
    if (servidor_) {
        return;
    }
    servidor_ = std::make_unique<QTcpServer>();
    QObject::connect(servidor_.get(), &QTcpServer::newConnection, servidor_.get(),
                     [this] { AlConectar(); });
    ASSERT_TRUE(servidor_->listen(QHostAddress::LocalHost, puerto_))
        << servidor_->errorString().toStdString();
    puerto_ = servidor_->serverPort();
}

void PasarelaGuion::Apagar() {
    EnHilo([this] {
        if (cliente_ != nullptr) {
            cliente_->abort();
        }
        cliente_ = nullptr;
        servidor_.reset();
    });
}

void PasarelaGuion::Cortar() {
    EnHilo([this] {
        if (cliente_ != nullptr) {
            cliente_->close();
        }
    });
}

void PasarelaGuion::Notificar(const QString& metodo, const QJsonObject& params) {
    EnHilo([&] {
        if (cliente_ != nullptr) {
            EnlaceGuion(*cliente_).Notificar(metodo, params);
        }
    });
}

void PasarelaGuion::Crudo(const QByteArray& bytes) {
    EnHilo([&] {
        if (cliente_ != nullptr) {
            EnlaceGuion(*cliente_).Crudo(bytes);
        }
    });
}

void PasarelaGuion::AlConectar() {
    while (QTcpSocket* nuevo = servidor_->nextPendingConnection()) {
        QTcpSocket* viejo = cliente_;
        cliente_ = nuevo;
        pendiente_.clear();
        if (viejo != nullptr) {
            viejo->disconnect();
            viejo->abort();
            viejo->deleteLater();
        }
        nuevo->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        QObject::connect(nuevo, &QTcpSocket::readyRead, nuevo, [this] { AlLeer(); });
        const QMutexLocker guarda(&cerrojo_);
        ++conexiones_;
        llegada_.wakeAll();
    }
}

void PasarelaGuion::AlLeer() {
    const QTcpSocket* const actual = cliente_;
    pendiente_ += cliente_->readAll();
    while (cliente_ == actual && actual != nullptr && actual->isOpen()) {
        const qsizetype fin = pendiente_.indexOf('\n');
        if (fin < 0) {
            return;
        }
        const QByteArray linea = pendiente_.left(fin);
        pendiente_.remove(0, fin + 1);
        const QJsonDocument documento = QJsonDocument::fromJson(linea);
        EXPECT_TRUE(documento.isObject()) << linea.toStdString();
        Atender(documento.object());
    }
}

void PasarelaGuion::Atender(const QJsonObject& peticion) {
    Reaccion reaccion;
    {
        const QMutexLocker guarda(&cerrojo_);
        // Before the answer: a client that has its answer finds the request here.
        recibidas_.append(peticion);
        llegada_.wakeAll();
        const QString metodo = Metodo(peticion);
        auto una = unaVez_.find(metodo);
        auto fija = siempre_.find(metodo);
        if (una != unaVez_.end() && !una->second.empty()) {
            reaccion = std::move(una->second.front());
            una->second.pop_front();
        } else if (fija != siempre_.end()) {
            reaccion = fija->second;
        }
    }
    EnlaceGuion enlace(*cliente_);
    if (reaccion) {
        reaccion(enlace, peticion);
    } else {
        Defecto(enlace, peticion);
    }
}

void PasarelaGuion::Defecto(EnlaceGuion& enlace, const QJsonObject& peticion) {
    const QString metodo = Metodo(peticion);
    const QString opId = OpId(peticion);
    if (metodo == QLatin1String("session.hello")) {
        QJsonObject saludo;
        {
            const QMutexLocker guarda(&cerrojo_);
            saludo = saludo_;
        }
        enlace.Contestar(peticion, saludo);
    } else if (metodo == QLatin1String("op.status") || metodo == QLatin1String("op.cancel")) {
        enlace.Rechazar(peticion, -32011, QStringLiteral("operación desconocida"));
    } else if (metodo == QLatin1String("levels.get")) {
        enlace.Contestar(peticion, QJsonObject{{QStringLiteral("noms"), QJsonArray{100, 200, 500}},
                                               {QStringLiteral("levels"), QJsonArray{3, 2, 1}}});
    } else if (!opId.isEmpty() && metodo != QLatin1String("op.ack")) {
        enlace.Contestar(peticion, EnMarcha(opId, metodo, 0, 0));
        enlace.Notificar(QStringLiteral("op.result"), Hecha(opId, metodo, 0, 0));
    } else {
        enlace.Contestar(peticion, QJsonObject{});
    }
}

QList<QJsonObject> PasarelaGuion::Recibidas(const QString& metodo) const {
    const QMutexLocker guarda(&cerrojo_);
    QList<QJsonObject> lista;
    for (const QJsonObject& peticion : recibidas_) {
        if (metodo.isEmpty() || Metodo(peticion) == metodo) {
            lista.append(peticion);
        }
    }
    return lista;
}

QStringList PasarelaGuion::Metodos() const {
    QStringList lista;
    for (const QJsonObject& peticion : Recibidas()) {
        if (Metodo(peticion) != QLatin1String("ping")) {
            lista.append(Metodo(peticion));
        }
    }
    return lista;
}

bool PasarelaGuion::Espera(const QString& metodo, int cuantas) const {
    const QDeadlineTimer limite(kPaciencia);
    const QMutexLocker guarda(&cerrojo_);
    const auto llegadas = [&] {
        return std::count_if(recibidas_.cbegin(), recibidas_.cend(),
                             [&](const QJsonObject& p) { return Metodo(p) == metodo; });
    };
    while (llegadas() < cuantas) {
        if (!llegada_.wait(&cerrojo_, limite)) {
            return false;
        }
    }
    return true;
}

int PasarelaGuion::Conexiones() const {
    const QMutexLocker guarda(&cerrojo_);
    return conexiones_;
}

QJsonObject PasarelaGuion::EnMarcha(const QString& opId, const QString& metodo, qint64 paidIn,
                                    qint64 paidOut) {
    return {{QStringLiteral("opId"), opId},
            {QStringLiteral("method"), metodo},
            {QStringLiteral("state"), QStringLiteral("running")},
            {QStringLiteral("paidIn"), paidIn},
            {QStringLiteral("paidOut"), paidOut}};
}

QJsonObject PasarelaGuion::Hecha(const QString& opId, const QString& metodo, qint64 paidIn,
                                 qint64 paidOut) {
    QJsonObject estado = EnMarcha(opId, metodo, paidIn, paidOut);
    estado.insert(QStringLiteral("state"), QStringLiteral("done"));
    estado.insert(QStringLiteral("ok"), true);
    estado.insert(QStringLiteral("errorCode"), 0);
    estado.insert(QStringLiteral("errorMessage"), QString());
    return estado;
}

QJsonObject PasarelaGuion::Fallida(const QString& opId, const QString& metodo, int codigo,
                                   const QString& mensaje, qint64 paidIn, qint64 paidOut) {
    QJsonObject estado = Hecha(opId, metodo, paidIn, paidOut);
    estado.insert(QStringLiteral("ok"), false);
    estado.insert(QStringLiteral("errorCode"), codigo);
    estado.insert(QStringLiteral("errorMessage"), mensaje);
    return estado;
}

QString PasarelaGuion::OpId(const QJsonObject& peticion) {
    return peticion.value(QStringLiteral("params"))
        .toObject()
        .value(QStringLiteral("opId"))
        .toString();
}

} // namespace zv
